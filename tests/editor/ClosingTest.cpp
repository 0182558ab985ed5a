#include "orvan/editor/frmProduct.h"
#include "tests/support/EditorFixture.h"
#include "tests/support/Rows.h"

namespace orvan::test {
namespace {

using headless::HeadlessForm;
using Answers = std::vector<ui::MessageResult>;
constexpr auto kYes = ui::MessageResult::yes;
constexpr auto kNo = ui::MessageResult::no;
constexpr auto kStay = ui::MessageResult::cancel;
constexpr auto kOk = ui::MessageResult::ok;

enum class Path { save, cancel, closeBox, escape, error, deleteOnly };
enum class Edit { none, fits, tooLong };

class ClosingTest : public EditorFixture {
public:
    void act(Path path, HeadlessForm& form)
    {
        switch (path) {
        case Path::save: return form.button("cmdSaveClose").click();
        case Path::cancel: return form.button("cmdCancel").click();
        case Path::closeBox: return form.clickCloseBox();
        case Path::escape: return form.pressEscape();
        case Path::deleteOnly: return form.button("cmdDelete").click();
        case Path::error:
            trace->failEntering("KTVOrvanProduct.frmProduct::PrvSeekProduct", 1000);
            trace->declareError(1000, 2); // the seek's and the button's
            form.button("cmdGotoFirst").press();
            trace->failEntering({}, 0);
        }
    }
};

const std::string kOne = "1~Desk::D-1:489:2:0:978:old~";
const std::string kTwo = "2~Desk::D-1:489:2:0:978:old~Lamp::L-7:74.95:1.5:0:112.425:~";

// What a person sees and the host gets, for each way to close and each answer. The list has two products
// and the second is open; deleting the only one has a list of its own.
TEST_F(ClosingTest, EachWayToCloseAsksAndLeavesTheListAsAnswered)
{
    const std::string kSaved = "2~Desk::D-1:489:2:0:978:old~Lamp::L-7:74.95:1.5:0:112.425:new~";
    const std::string kLong = "2~Desk::D-1:489:2:0:978:old~Lamp::L-7:74.95:1.5:0:112.425:" + std::string(90, 'x') + "~";
    // clang-format off
    for (const auto& [path, edit, answers, prompted, stays, traced, list, dirty] :
         Rows<Path, Edit, Answers, const char*, bool, const char*, std::string, bool>{
        {Path::save, Edit::none, {}, "", false, "cmdSaveClose_Click SAVE cmdCancel_Click", kTwo, false},
        {Path::cancel, Edit::none, {}, "", false, "cmdCancel_Click cmdCancel_Click", kTwo, false},
        {Path::closeBox, Edit::none, {}, "", false, "cmdCancel_Click", kTwo, false},
        {Path::escape, Edit::none, {}, "", false, "cmdCancel_Click cmdCancel_Click", kTwo, false},
        {Path::error, Edit::none, {kOk}, "e", false, "FAIL cmdCancel_Click", kTwo, false},
        {Path::deleteOnly, Edit::none, {kYes}, "d", false, "DELETE cmdCancel_Click", "", false},
        {Path::deleteOnly, Edit::none, {kNo}, "d", true, "cmdDelete_Click", kOne, false},
        {Path::deleteOnly, Edit::none, {kStay}, "d", true, "cmdDelete_Click", kOne, false},

        {Path::save, Edit::fits, {kYes}, "m", false, "cmdSaveClose_Click SAVE cmdCancel_Click ASK SAVE", kSaved, true},
        {Path::cancel, Edit::fits, {kYes}, "m", false, "cmdCancel_Click ASK SAVE cmdCancel_Click ASK", kSaved, true},
        {Path::closeBox, Edit::fits, {kYes}, "m", false, "cmdCancel_Click ASK SAVE", kSaved, true},
        {Path::escape, Edit::fits, {kYes}, "m", false, "cmdCancel_Click ASK SAVE cmdCancel_Click ASK", kSaved, true},
        {Path::error, Edit::fits, {kOk, kYes}, "em", false, "FAIL cmdCancel_Click ASK SAVE", kSaved, true},
        {Path::deleteOnly, Edit::fits, {kYes, kYes}, "dm", false, "DELETE cmdCancel_Click ASK EMPTY", "", true},

        {Path::save, Edit::tooLong, {kOk}, "s", true, "cmdSaveClose_Click SAVE!", kLong, true},
        {Path::cancel, Edit::tooLong, {kYes, kOk}, "ms", true, "cmdCancel_Click ASK SAVE!", kLong, true},
        {Path::closeBox, Edit::tooLong, {kYes, kOk}, "ms", true, "cmdCancel_Click ASK SAVE!", kLong, true},
        {Path::escape, Edit::tooLong, {kYes, kOk}, "ms", true, "cmdCancel_Click ASK SAVE!", kLong, true},
        {Path::error, Edit::tooLong, {kOk, kYes, kOk}, "ems", true, "FAIL cmdCancel_Click ASK SAVE!", kLong, true},
        {Path::deleteOnly, Edit::tooLong, {kYes, kYes, kOk}, "dms", true, "DELETE cmdCancel_Click ASK EMPTY!", "", true},

        {Path::save, Edit::fits, {kNo}, "m", false, "cmdSaveClose_Click SAVE cmdCancel_Click ASK", kTwo, false},
        {Path::cancel, Edit::fits, {kNo}, "m", false, "cmdCancel_Click ASK cmdCancel_Click", kTwo, false},
        {Path::closeBox, Edit::fits, {kNo}, "m", false, "cmdCancel_Click ASK", kTwo, false},
        {Path::escape, Edit::fits, {kNo}, "m", false, "cmdCancel_Click ASK cmdCancel_Click", kTwo, false},
        {Path::error, Edit::fits, {kOk, kNo}, "em", false, "FAIL cmdCancel_Click ASK", kTwo, false},
        {Path::deleteOnly, Edit::fits, {kYes, kNo}, "dm", false, "DELETE cmdCancel_Click ASK", kOne, false},

        {Path::save, Edit::fits, {kStay}, "m", true, "cmdSaveClose_Click SAVE cmdCancel_Click ASK", kSaved, true},
        {Path::cancel, Edit::fits, {kStay}, "m", true, "cmdCancel_Click ASK", kSaved, true},
        {Path::closeBox, Edit::fits, {kStay}, "m", true, "cmdCancel_Click ASK", kSaved, true},
        {Path::escape, Edit::fits, {kStay}, "m", true, "cmdCancel_Click ASK", kSaved, true},
        {Path::error, Edit::fits, {kOk, kStay}, "em", true, "FAIL cmdCancel_Click ASK", kSaved, true},
        {Path::deleteOnly, Edit::fits, {kYes, kStay}, "dm", true, "DELETE cmdCancel_Click ASK", "", true}}) {
        // clang-format on
        SCOPED_TRACE(testing::Message() << "path " << int(path) << ", edit " << int(edit) << ", prompts " << prompted);
        const bool alone = path == Path::deleteOnly;
        load(alone ? kOne : kTwo);
        answer(answers);
        faults.maxDataSize.reset();
        platform.drive(
            [&, path = path, edit = edit, prompted = prompted, stays = stays, traced = traced](HeadlessForm& form) {
                if (edit != Edit::none) {
                    form.textBox("txtNote").type(edit == Edit::fits ? "new" : std::string(90, 'x'));
                }
                if (edit == Edit::tooLong) {
                    faults.maxDataSize = alone ? -1 : static_cast<std::int32_t>(kTwo.size()) + 20;
                    trace->declareError(ErrorNumber::outOfStringSpace);
                }
                const std::size_t prompt = platform.messageBox().shown().size();
                const std::size_t line = trace->lines().size();
                act(path, form);
                EXPECT_EQ(form.loaded(), stays);
                EXPECT_EQ(prompts(prompt), prompted);
                EXPECT_EQ(entered(line), spelledOut(traced));
                if (edit == Edit::fits || path == Path::save) { // else Yes was answered once, or nothing is to be asked
                    faults.maxDataSize.reset();
                    answer(stays ? Answers{kYes} : Answers{});
                }
                form.clickCloseBox();
            });
        frmProduct form(platform);
        form.Init(manager, alone ? 1 : 2, false);
        form.showModal();
        EXPECT_EQ(form.DialogError(), path == Path::error);
        EXPECT_EQ(form.Dirty(), dirty);
        EXPECT_EQ(products(), list);
    }
}

TEST_F(ClosingTest, TheSizeMessageShowsTheLimitOfTheMoment)
{
    load(kTwo);
    answer({kOk, kOk, kYes});
    trace->declareError(ErrorNumber::outOfStringSpace, 2);
    edit(1, [&](HeadlessForm& form) {
        form.textBox("txtNote").type("new");
        for (const std::int32_t limit : {40, 7}) {
            faults.maxDataSize = limit;
            form.button("cmdSaveClose").click();
            EXPECT_EQ(platform.messageBox().shown().back().text,
                      "The total size of the product data for an IBO has exceeded the maximum limit of " +
                          std::to_string(limit) +
                          " bytes. Please try limiting the amount of data you put in the product note field "
                          "(this or other products in this IBO) and try saving the product info again.");
            EXPECT_TRUE(form.button("cmdCancel").hasFocus());
        }
        faults.maxDataSize.reset();
        form.button("cmdSaveClose").click();
    });
    EXPECT_EQ(prompts(), "ssm");
}

} // namespace
} // namespace orvan::test

#include "orvan/editor/frmProduct.h"
#include "tests/support/EditorFixture.h"
#include "tests/support/Rows.h"

namespace orvan::test {
namespace {

using headless::FormDriver;
using Answers = std::vector<ui::MessageResult>;
constexpr auto kYes = ui::MessageResult::yes;
constexpr auto kNo = ui::MessageResult::no;
constexpr auto kStay = ui::MessageResult::cancel;
constexpr auto kOk = ui::MessageResult::ok;

enum class Edit { none, fits, tooLong };

/// A way to close, and what is answered, asked and entered on it.
struct Way {
    std::string_view name;
    Answers answers = {};
    const char* prompts = "";
    const char* entered;
};
/// What the ways lead to.
struct Outcome {
    const char* name;
    Edit edit = Edit::none;
    bool stays = false, dirty = false;
    std::string list = {}, listOfOne = {}; ///< The latter where the only product is deleted.
    std::vector<Way> ways;
};

class ClosingTest : public EditorFixture {
public:
    void act(std::string_view way, FormDriver& form)
    {
        if (way == "save") {
            form.button("cmdSaveClose").click();
        } else if (way == "cancel") {
            form.button("cmdCancel").click();
        } else if (way == "close box") {
            form.clickCloseBox();
        } else if (way == "Escape") {
            form.pressEscape();
        } else if (way == "delete") {
            form.button("cmdDelete").click();
        } else {
            trace->failEntering("KTVOrvanProduct.frmProduct::PrvSeekProduct", 1000);
            trace->declareError(1000, 2); // the seek's and the button's
            form.button("cmdGotoFirst").press();
            trace->failEntering({}, 0);
        }
    }
};

const std::string kOne = "1~Desk::D-1:489:2:0:978:old~";
const std::string kTwo = "2~Desk::D-1:489:2:0:978:old~Lamp::L-7:74.95:1.5:0:112.425:~";

// What a person sees and the host gets, for each way to close and each answer. The list has two products and the
// second is open; "delete" has a list of one.
TEST_F(ClosingTest, EachWayToCloseAsksAndLeavesTheListAsAnswered)
{
    const std::string kSaved = "2~Desk::D-1:489:2:0:978:old~Lamp::L-7:74.95:1.5:0:112.425:new~";
    const std::string kLong = "2~Desk::D-1:489:2:0:978:old~Lamp::L-7:74.95:1.5:0:112.425:" + std::string(90, 'x') + "~";
    // clang-format off
    const Outcome outcomes[] = {
        {.name = "nothing is edited", .list = kTwo, .ways = {
            {.name = "save", .entered = "cmdSaveClose_Click SAVE CANCEL"},
            {.name = "cancel", .entered = "CANCEL CANCEL"},
            {.name = "close box", .entered = "CANCEL"},
            {.name = "Escape", .entered = "CANCEL CANCEL"},
            {.name = "error", .answers = {kOk}, .prompts = "e", .entered = "FAIL CANCEL"},
            {.name = "delete", .answers = {kYes}, .prompts = "d", .entered = "DELETE CANCEL"}}},
        {.name = "the product is not to be deleted", .stays = true, .listOfOne = kOne, .ways = {
            {.name = "delete", .answers = {kNo}, .prompts = "d", .entered = "cmdDelete_Click"},
            {.name = "delete", .answers = {kStay}, .prompts = "d", .entered = "cmdDelete_Click"}}},
        {.name = "Yes saves", .edit = Edit::fits, .dirty = true, .list = kSaved, .ways = {
            {.name = "save", .answers = {kYes}, .prompts = "m", .entered = "cmdSaveClose_Click SAVE CANCEL ASK SAVE"},
            {.name = "cancel", .answers = {kYes}, .prompts = "m", .entered = "CANCEL ASK SAVE CANCEL ASK"},
            {.name = "close box", .answers = {kYes}, .prompts = "m", .entered = "CANCEL ASK SAVE"},
            {.name = "Escape", .answers = {kYes}, .prompts = "m", .entered = "CANCEL ASK SAVE CANCEL ASK"},
            {.name = "error", .answers = {kOk, kYes}, .prompts = "em", .entered = "FAIL CANCEL ASK SAVE"},
            {.name = "delete", .answers = {kYes, kYes}, .prompts = "dm", .entered = "DELETE CANCEL ASK EMPTY"}}},
        {.name = "the list is too long to be saved", .edit = Edit::tooLong, .stays = true, .dirty = true, .list = kLong,
         .ways = {
            {.name = "save", .answers = {kOk}, .prompts = "s", .entered = "cmdSaveClose_Click SAVE!"},
            {.name = "cancel", .answers = {kYes, kOk}, .prompts = "ms", .entered = "CANCEL ASK SAVE!"},
            {.name = "close box", .answers = {kYes, kOk}, .prompts = "ms", .entered = "CANCEL ASK SAVE!"},
            {.name = "Escape", .answers = {kYes, kOk}, .prompts = "ms", .entered = "CANCEL ASK SAVE!"},
            {.name = "error", .answers = {kOk, kYes, kOk}, .prompts = "ems", .entered = "FAIL CANCEL ASK SAVE!"},
            {.name = "delete", .answers = {kYes, kYes, kOk}, .prompts = "dms", .entered = "DELETE CANCEL ASK EMPTY!"}}},
        {.name = "No gives up what was edited", .edit = Edit::fits, .list = kTwo, .listOfOne = kOne, .ways = {
            {.name = "save", .answers = {kNo}, .prompts = "m", .entered = "cmdSaveClose_Click SAVE CANCEL ASK"},
            {.name = "cancel", .answers = {kNo}, .prompts = "m", .entered = "CANCEL ASK CANCEL"},
            {.name = "close box", .answers = {kNo}, .prompts = "m", .entered = "CANCEL ASK"},
            {.name = "Escape", .answers = {kNo}, .prompts = "m", .entered = "CANCEL ASK CANCEL"},
            {.name = "error", .answers = {kOk, kNo}, .prompts = "em", .entered = "FAIL CANCEL ASK"},
            {.name = "delete", .answers = {kYes, kNo}, .prompts = "dm", .entered = "DELETE CANCEL ASK"}}},
        {.name = "Cancel keeps it open; then Yes saves", .edit = Edit::fits, .stays = true, .dirty = true,
         .list = kSaved, .ways = {
            {.name = "save", .answers = {kStay}, .prompts = "m", .entered = "cmdSaveClose_Click SAVE CANCEL ASK"},
            {.name = "cancel", .answers = {kStay}, .prompts = "m", .entered = "CANCEL ASK"},
            {.name = "close box", .answers = {kStay}, .prompts = "m", .entered = "CANCEL ASK"},
            {.name = "Escape", .answers = {kStay}, .prompts = "m", .entered = "CANCEL ASK"},
            {.name = "error", .answers = {kOk, kStay}, .prompts = "em", .entered = "FAIL CANCEL ASK"},
            {.name = "delete", .answers = {kYes, kStay}, .prompts = "dm", .entered = "DELETE CANCEL ASK"}}},
    };
    // clang-format on
    forEachRow(outcomes, [&](const Outcome& outcome) {
        forEachRow(outcome.ways, [&](const Way& way) {
            const bool alone = way.name == "delete";
            load(alone ? kOne : kTwo);
            answer(way.answers);
            faults.maxDataSize.reset();
            platform.drive([&](FormDriver& form) {
                if (outcome.edit != Edit::none) {
                    form.textBox("txtNote").type(outcome.edit == Edit::fits ? "new" : std::string(90, 'x'));
                }
                if (outcome.edit == Edit::tooLong) {
                    faults.maxDataSize = alone ? -1 : static_cast<std::int32_t>(kTwo.size()) + 20;
                    trace->declareError(ErrorNumber::outOfStringSpace);
                }
                const std::size_t prompt = platform.messageBox().shown().size();
                const std::size_t line = trace->lines().size();
                act(way.name, form);
                EXPECT_EQ(form.loaded(), outcome.stays);
                EXPECT_EQ(prompts(prompt), way.prompts);
                EXPECT_EQ(entered(line), spelledOut(way.entered));
                // Otherwise Yes was answered before, or there is nothing to ask.
                if (outcome.edit == Edit::fits || way.name == "save") {
                    faults.maxDataSize.reset();
                    answer(outcome.stays ? Answers{kYes} : Answers{});
                }
                form.clickCloseBox();
            });
            frmProduct form(platform);
            form.Init(manager, alone ? 1 : 2, false);
            form.showModal();
            EXPECT_EQ(form.DialogError(), way.name == "error");
            EXPECT_EQ(form.Dirty(), outcome.dirty);
            EXPECT_EQ(products(), alone ? outcome.listOfOne : outcome.list);
        });
    });
}

TEST_F(ClosingTest, TheSizeMessageShowsTheLimitOfTheMoment)
{
    load(kTwo);
    answer({kOk, kOk, kYes});
    trace->declareError(ErrorNumber::outOfStringSpace, 2);
    edit(1, [&](FormDriver& form) {
        form.textBox("txtNote").type("new");
        for (const std::int32_t limit : {40, 7}) {
            faults.maxDataSize = limit;
            form.button("cmdSaveClose").click();
            EXPECT_EQ(platform.messageBox().shown().back().text,
                      "The total size of the product data for an IBO has exceeded the maximum limit of " +
                          std::to_string(limit) +
                          " bytes. Please try limiting the amount of data you put in the product note field "
                          "(this or other products in this IBO) and try saving the product info again.");
            EXPECT_EQ(form.focusedControl(), "cmdCancel");
        }
        faults.maxDataSize.reset();
        form.button("cmdSaveClose").click();
    });
    EXPECT_EQ(prompts(), "ssm");
}

} // namespace
} // namespace orvan::test

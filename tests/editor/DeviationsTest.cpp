#include "orvan/components/catalogue/Catalogue.h"
#include "orvan/components/catalogue/CatalogueImport.h"
#include "orvan/editor/frmProduct.h"
#include "tests/support/EditorFixture.h"
#include "tests/support/Rows.h"
#include "tests/support/TemporaryFolder.h"

#include <fstream>
#include <sstream>

namespace orvan::test {
namespace {

using headless::HeadlessForm;

/// What a user does, and what comes of it in each way of editing: the message boxes (letters as in
/// EditorFixture::prompts), whether the form is still open, whether the session is dirty, and the list.
struct Row {
    const char* name;
    std::string list;
    const char* doings;
    std::string classic, careful;
};

const std::string kDesk = "1~Desk::D-1:489:2:0:978:old~";

/// The editor with a catalogue, on the list's first product.
class DeviationsTest : public EditorFixture {
public:
    DeviationsTest()
    {
        std::ofstream(folder / "list.csv") << "id,part number,name,price,key,note\n"
                                              "11,AB,ab,5,K1,\n12,ABC-1,abc desk,10,K2,\n13,400,saw,20,K3,\n";
        importCatalogue(folder / "list.csv", folder / "goods.catalogue");
        registry.registerClass(std::string(kProductLkpMgrClassName), [this]() -> std::shared_ptr<ui::Component> {
            return std::make_shared<SqliteCatalogue>(CatalogueOptions{.file = folder / "goods.catalogue"});
        });
        platform.messageBox().onWaiting = [this](const ui::Message& message) {
            platform.messageBox().answer(message.buttons == ui::MessageButtons::ok      ? ui::MessageResult::ok
                                         : message.buttons == ui::MessageButtons::yesNo ? ui::MessageResult::yes
                                         : message.text.starts_with("Are you sure")     ? ui::MessageResult::yes
                                                                                        : answer_);
        };
    }

    /// "cmdNext" clicks, "txtQty" and "cboPartNum" put the focus there, "txtQty=3" types, "+500" lets time pass,
    /// "Yes", "No" and "Cancel" answer the question whether to save from now on, "limit" makes the list too large,
    /// "fail2" lets the manager fail at its second call from now.
    void act(HeadlessForm& form, const std::string& word)
    {
        const std::size_t equals = word.find('=');
        if (word[0] == '+') {
            platform.clock().advance(std::stoi(word));
        } else if (word == "Yes" || word == "No" || word == "Cancel") {
            answer_ = word == "Yes"  ? ui::MessageResult::yes
                      : word == "No" ? ui::MessageResult::no
                                     : ui::MessageResult::cancel;
        } else if (word == "limit") {
            faults.maxDataSize = 1;
        } else if (word.starts_with("fail")) {
            faults.failAtCall = word.back() - '0';
        } else if (word == "close") {
            form.clickCloseBox();
        } else if (word.starts_with("cmd")) {
            form.button(word).click();
        } else if (equals == std::string::npos) {
            form.focus(word);
        } else if (word.starts_with("cbo")) {
            form.comboBox(word.substr(0, equals)).type(word.substr(equals + 1));
        } else {
            form.textBox(word.substr(0, equals)).type(word.substr(equals + 1));
        }
    }

    std::string outcome(ui::EditingWay way, const Row& row)
    {
        load(row.list);
        answer_ = ui::MessageResult::yes;
        platform.editing = way;
        const ScopedTrace own;
        allowEntriesOfLoading(*own.trace());
        const std::size_t prompt = platform.messageBox().shown().size();
        std::string outcome;
        frmProduct editor(platform);
        editor.Init(manager, 1, false);
        platform.drive([&](HeadlessForm& form) {
            std::istringstream words(row.doings);
            for (std::string word; words >> word && form.loaded();) {
                act(form, word);
            }
            faults = {.managersAlive = faults.managersAlive};
            outcome = prompts(prompt) + (form.loaded() ? " open" : " closed") + (editor.Dirty() ? " dirty " : " ") +
                      products();
            answer_ = ui::MessageResult::no;
            if (form.loaded()) {
                form.clickCloseBox();
            }
        });
        editor.showModal();
        for (const std::int32_t number : own.trace()->numbersSince(0)) {
            own.trace()->declareError(number); // the message boxes tell of it
        }
        return outcome;
    }

    template <class Rows>
    void compare(const Rows& rows)
    {
        forEachRow(rows, [&](const Row& row) {
            EXPECT_EQ(outcome(ui::EditingWay::classic, row), row.classic);
            EXPECT_EQ(outcome(ui::EditingWay::careful, row), row.careful);
        });
    }

    TemporaryFolder folder;

private:
    ui::MessageResult answer_ = ui::MessageResult::yes;
};

TEST_F(DeviationsTest, Closing)
{
    // clang-format off
    const Row rows[] = {
        {"deletingMarksDirty", kDesk, "No cmdDelete", "d closed ", "dm closed " + kDesk},
        {"savedSessionCloses", kDesk, "txtNote=n No cmdSaveClose", "m closed " + kDesk,
         " closed dirty 1~Desk::D-1:489:2:0:978:nold~"},
        {"failedSaveAsksAgain", kDesk, "txtNote=n limit close Cancel close", "ms closed dirty 1~Desk::D-1:489:2:0:978:nold~",
         "msm open dirty 1~Desk::D-1:489:2:0:978:nold~"},
    };
    // clang-format on
    compare(rows);
}

} // namespace
} // namespace orvan::test

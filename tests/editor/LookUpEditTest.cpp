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

using headless::ComboBoxDriver;
using headless::FormDriver;

/// The editor with a catalogue, on the first of two products.
class LookUpEditTest : public EditorFixture {
public:
    LookUpEditTest()
    {
        std::ofstream(folder / "list.csv")
            << "id,part number,name,price,key,note\n"
               "11,AB,ab,5,K1,\n12,ABC-1,abc desk,10,K2,new\n13,4001234567890,4001234567890,20,K3,\n";
        importCatalogue(folder / "list.csv", folder / "goods.catalogue");
        registry.registerClass(std::string(kProductLkpMgrClassName), [this] {
            return std::make_shared<SqliteCatalogue>(
                CatalogueOptions{.file = folder / "goods.catalogue", .completionAsTyped = true}); // a classic host's
        });
        load("2~Old:k:OLD:1:2:0:2:~Two:k2:TWO:3:1:0:3:own~");
    }

    /// What the user does: "+500" lets time pass, "row1" chooses a row, other words but those below are typed.
    void act(FormDriver& form, ComboBoxDriver& box, const std::string& word)
    {
        if (word[0] == '+') {
            platform.clock().advance(std::stoi(word));
        } else if (word.starts_with("row")) {
            box.chooseRow(word[3] - '0');
        } else if (word == "tab") {
            form.focus("txtQty");
        } else if (word == "enter") {
            box.type("\n");
        } else if (word == "save" || word == "next" || word == "new") {
            form.button(word == "save" ? "cmdSaveClose" : word == "next" ? "cmdNext" : "cmdNew").click();
        } else {
            box.type(word);
        }
    }

    /// Text with bars around its selection, rows of the list, pending row.
    static std::string shown(const FormDriver& form, const ComboBoxDriver& box, const LookUpBoxes::State& state)
    {
        std::string text = box.text();
        if (form.loaded()) {
            text.insert(
                static_cast<std::size_t>(box.selectionStart()) + static_cast<std::size_t>(box.selectionLength()), "|");
            text.insert(static_cast<std::size_t>(box.selectionStart()), "|");
        } else {
            text = "closed";
        }
        return text.append(" ")
            .append(std::to_string(box.count()))
            .append(" ")
            .append(std::to_string(state.lLkpListIdx));
    }
    /// Letters of what is set: Busy, Restarted, name Pending, part number picKed, Name and part nUmber left, Dirty.
    static std::string flags(const LookUpBoxes::State& state, bool dirty)
    {
        std::string letters;
        for (const auto& [letter, set] :
             {std::pair('B', state.bLkpBusy), std::pair('R', state.bLkpTimerRestarted),
              std::pair('P', state.bNameLkpPending), std::pair('K', state.bPartNumPicked),
              std::pair('N', state.bNameBoxLeft), std::pair('U', state.bPartNumBoxLeft), std::pair('D', dirty)}) {
            letters += set ? letter : '-';
        }
        return letters;
    }
    /// Of the boxes: Key, Change, cLick; Timer; and of the session: loAd, Save.
    std::string traced(std::size_t first) const
    {
        std::string letters;
        std::istringstream names(entered(first));
        for (std::string name; names >> name;) {
            for (const auto& [ending, letter] :
                 {std::pair("_KeyPress", 'K'), std::pair("_Change", 'C'), std::pair("_Click", 'L'),
                  std::pair("_Timer", 'T'), std::pair("PrvLoadProductInfo", 'A'),
                  std::pair("PrvSaveCurrentProduct", 'S')}) {
                if (name.ends_with(ending) && !name.starts_with("txt") && !name.starts_with("cmd")) {
                    letters += letter;
                }
            }
        }
        return letters;
    }

    std::string stateAfter(const std::string& doings, const char* boxName)
    {
        load("2~Old:k:OLD:1:2:0:2:~Two:k2:TWO:3:1:0:3:own~");
        frmProduct editor(platform);
        editor.Init(manager, 1, false);
        std::string state;
        platform.drive([&](FormDriver& form) {
            auto& box = form.comboBox(boxName);
            box.select(0, 3);
            alwaysAnswer(ui::MessageResult::yes);
            const std::size_t first = trace->lines().size();
            std::istringstream words(doings);
            for (std::string word; words >> word;) {
                act(form, box, word);
            }
            const std::string list = products();
            state = shown(form, box, editor.lookUpState()) + ' ' + flags(editor.lookUpState(), editor.Dirty()) + ' ' +
                    traced(first) + ' ' + list.substr(2, list.find('~', 2) - 2);
            if (form.loaded()) {
                alwaysAnswer(ui::MessageResult::no);
                form.clickCloseBox();
            }
            platform.messageBox().onWaiting = nullptr;
        });
        editor.showModal();
        return state;
    }
    void alwaysAnswer(ui::MessageResult result)
    {
        platform.messageBox().onWaiting = [this, result](const ui::Message&) { platform.messageBox().answer(result); };
    }

    TemporaryFolder folder;
};

// The last rows are a scanner, which writes thirteen characters and Enter at once.
TEST_F(LookUpEditTest, EachActionBeforeAndAfterTheTimerLeavesItsState)
{
    struct Row {
        const char *text, *partNum, *productName;
    };
    // clang-format off
    const Row rows[] = {
        {"A +499", "A|| 3 -1 -R----D KC Old:k:OLD:1:2:0:2:", "A|| 3 -1 -RP--UD KC Old:k:OLD:1:2:0:2:"},
        {"A +500", "A|B| 2 0 -R----D KCTC Old:k:OLD:1:2:0:2:", "A|b| 2 0 -RP--UD KCTC Old:k:OLD:1:2:0:2:"},
        {"A +200 B +499", "AB|| 3 -1 -R----D KCKC Old:k:OLD:1:2:0:2:", "AB|| 3 -1 -RP--UD KCKC Old:k:OLD:1:2:0:2:"},
        {"A +200 B +500", "AB|| 2 0 -R----D KCKCT Old:k:OLD:1:2:0:2:", "AB|| 2 0 -RP--UD KCKCT Old:k:OLD:1:2:0:2:"},
        {"A +500 B", "AB|| 2 0 -R----D KCTCK Old:k:OLD:1:2:0:2:", "AB|| 2 0 -RP--UD KCTCKC Old:k:OLD:1:2:0:2:"},
        {"A +500 B +500", "AB|| 2 0 -R----D KCTCK Old:k:OLD:1:2:0:2:", "AB|| 2 0 -RP--UD KCTCKCT Old:k:OLD:1:2:0:2:"},
        {"A tab +500", "A|B| 2 0 -R----D KCTC Old:k:OLD:1:2:0:2:", "A|b| 2 0 -RP--UD KCTC Old:k:OLD:1:2:0:2:"},
        {"A +500 tab", "||AB 2 -1 -R---UD KCTCAC ab:K1:AB:5:2:0:10:", "||Ab 2 -1 -R--N-D KCTCAC Ab:K1:AB:5:2:0:10:"},
        {"A enter +500", "A|B| 2 0 -R----D KCKTC Old:k:OLD:1:2:0:2:", "A|b| 2 0 -RP--UD KCKTC Old:k:OLD:1:2:0:2:"},
        {"A +500 enter", "||AB 2 -1 -R---UD KCTCKAC ab:K1:AB:5:2:0:10:",
         "||Ab 2 -1 -R--N-D KCTCKAC Ab:K1:AB:5:2:0:10:"},
        {"A save", "closed 3 -1 -R---UD KCSS Old:k:A:1:2:0:2:", "closed 3 -1 -RP-NUD KCSS A:k:OLD:1:2:0:2:"},
        {"A +500 save", "closed 2 -1 -R---UD KCTCACSS ab:K1:AB:5:2:0:10:",
         "closed 2 -1 -R--N-D KCTCACSS Ab:K1:AB:5:2:0:10:"},
        {"A next +500", "TWO|| 3 -1 -R---UD KCSACCT Old:k:A:1:2:0:2:", "Two|| 3 -1 -RP-NUD KCSACCT A:k:OLD:1:2:0:2:"},
        {"A +500 next", "||TWO 2 -1 -R---UD KCTCACSACC ab:K1:AB:5:2:0:10:",
         "||Two 2 -1 -R--N-D KCTCACSACC Ab:K1:AB:5:2:0:10:"},
        {"A new +500", "|| 3 -1 -RP-N-D KCSACCSTAT Old:k:A:1:2:0:2:", "|| 3 -1 -RP-N-D KCSACCSTAT A:k:OLD:1:2:0:2:"},
        {"A +500 new", "|| 2 -1 -RP-N-D KCTCACSACCSTA ab:K1:AB:5:2:0:10:",
         "|| 3 -1 -RP-N-D KCTCACSACCSTA Ab:K1:AB:5:2:0:10:"},
        {"X +500 tab", "X|| 3 -1 -R---UD KCT Old:k:OLD:1:2:0:2:", "X|| 3 -1 -RP-NUD KCT Old:k:OLD:1:2:0:2:"},
        {"row1 +500", "||AB 3 1 ---K--D L Old:k:OLD:1:2:0:2:", "||ab 3 1 --P--UD L Old:k:OLD:1:2:0:2:"},
        {"row1 tab", "||AB 3 -1 ---K-UD LAC ab:K1:AB:5:2:0:10:", "||ab 3 -1 ----N-D LAC ab:K1:AB:5:2:0:10:"},
        {"row1 enter", "||AB 3 -1 ---K-UD LKAC ab:K1:AB:5:2:0:10:", "||ab 3 -1 ----N-D LKAC ab:K1:AB:5:2:0:10:"},
        {"row1 save", "closed 3 -1 ---K-UD LACSS ab:K1:AB:5:2:0:10:", "closed 3 -1 ----N-D LACSS ab:K1:AB:5:2:0:10:"},
        {"4001234567890 enter +500", "4001234567890|| 1 0 -R---UD KCKCKCKCKCKCKCKCKCKCKCKCKCKT Old:k:OLD:1:2:0:2:",
         "4001234567890|| 1 0 -RP-NUD KCKCKCKCKCKCKCKCKCKCKCKCKCKT Old:k:OLD:1:2:0:2:"},
        {"4001234567890 enter +500 tab",
         "||4001234567890 1 -1 -R---UD KCKCKCKCKCKCKCKCKCKCKCKCKCKTAC 4001234567890:K3:4001234567890:20:2:0:40:",
         "||4001234567890 1 -1 -R--N-D KCKCKCKCKCKCKCKCKCKCKCKCKCKTAC 4001234567890:K3:4001234567890:20:2:0:40:"},
    };
    // clang-format on
    forEachRow(rows, [&](const Row& row) {
        EXPECT_EQ(stateAfter(row.text, "cboPartNum"), row.partNum);
        EXPECT_EQ(stateAfter(row.text, "cboProductName"), row.productName);
    });
}

} // namespace
} // namespace orvan::test

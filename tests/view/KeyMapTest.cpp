// The tables of keys in README.md, compared with the commands and pressed.

#include "orvan/core/Command.h"
#include "orvan/editor/frmProductDesign.h"
#include "orvan/ui/FormDesign.h"
#include "tests/support/ViewFixture.h"

#include <fstream>
#include <sstream>

namespace orvan::test {
namespace {

class KeyMapTest : public ViewFixture {
protected:
    struct Entry {
        std::vector<std::string> keys;
        std::string text;

        bool operator==(const Entry&) const = default;
    };

    /// The rows of the table under the heading cell `head`.
    static std::vector<Entry> tableIn(const char* head)
    {
        std::ifstream file(ORVAN_README);
        std::vector<Entry> entries;
        std::string line;
        while (std::getline(file, line) && !line.starts_with("| " + std::string(head) + " |")) {
        }
        std::getline(file, line); // below the heading
        while (std::getline(file, line) && line.starts_with("| `")) {
            Entry entry;
            const std::size_t bar = line.find(" | ");
            std::istringstream keys(line.substr(2, bar - 2));
            for (std::string key; keys >> key;) {
                entry.keys.push_back(key.substr(1, key.size() - 2));
            }
            entry.text = line.substr(bar + 3, line.size() - bar - 5);
            entries.push_back(entry);
        }
        return entries;
    }
    /// Without the doubled ampersand that shows one.
    static std::string shown(std::string_view caption)
    {
        std::string text(caption);
        const std::size_t at = text.find("&&");
        return at == std::string::npos ? text : text.erase(at, 1);
    }
};

TEST_F(KeyMapTest, TheListsKeysAreTheOnesInTheTable)
{
    std::vector<Entry> commands;
    for (const CommandRow& row : kCommands) {
        commands.push_back({{std::string(row.key)}, std::string(row.text)});
        if (!row.otherKey.empty()) {
            commands.back().keys.emplace_back(row.otherKey);
        }
    }
    const std::vector<Entry> table = tableIn("in the list");
    EXPECT_EQ(table, commands);
    for (const Entry& entry : table) {
        for (const std::string& key : entry.keys) {
            makeView().Show("");
            view->surface().focus("flexGrid");
            ui::KeyStroke stroke = ui::keyStroke(key);
            EXPECT_TRUE(grid().takesKey(stroke)) << key;
        }
    }
}

TEST_F(KeyMapTest, TheEditorsKeysAreTheOnesInTheTable)
{
    std::vector<Entry> tools;
    for (const ui::ControlDesign& control : kProductFormDesign.controls) {
        for (const ui::ToolDesign& tool : control.tools) {
            if (!tool.key.empty()) {
                tools.push_back({{std::string(tool.key)}, shown(tool.caption)});
            }
        }
    }
    EXPECT_EQ(tableIn("in the editor"), tools);
    EXPECT_EQ(tools.size(), 7U);
}

} // namespace
} // namespace orvan::test

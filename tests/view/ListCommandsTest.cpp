#include "tests/support/Rows.h"
#include "tests/support/ViewFixture.h"

#include <sstream>

namespace orvan::test {
namespace {

class ListCommandsTest : public ViewFixture {
protected:
    void show(std::string_view products)
    {
        makeView().Show(products);
        view->surface().focus("flexGrid");
    }
    void press(const char* keys)
    {
        std::istringstream all(keys);
        for (std::string key; all >> key;) {
            view->surface().pressKey(key);
        }
    }
    void answer(ui::MessageResult result) { platform.messageBox().answer(result); }
    std::string selected()
    {
        std::string rows;
        for (const std::int32_t row : view->flexGrid().selectedRows()) {
            rows.append(rows.empty() ? "" : " ").append(std::to_string(row));
        }
        return rows;
    }
    /// One product after the other, each by its name alone.
    static std::string list(const char* names)
    {
        std::string products;
        int count = 0;
        std::istringstream all(names);
        for (std::string name; all >> name;) {
            products += name + ':' + "k" + ":P-" + std::to_string(++count) + ":1:1:0:1:~";
        }
        return std::to_string(count) + '~' + products;
    }
};

TEST_F(ListCommandsTest, CommandsActOnTheSelectedRows)
{
    struct Row {
        const char *name, *keys, *names, *selected;
        bool dirty = true;
        const char* question = nullptr;
    };
    const Row rows[] = {
        {"nothing chosen", "Ctrl+D Alt+Up Alt+Down", "A B C D E", "", false},
        {"duplicate", "Down Down Ctrl+D", "A B B C D E", "3"},
        {"duplicate the last", "End Ctrl+D", "A B C D E E", "6"},
        {"duplicate a block below it", "Down Shift+Down Ctrl+D", "A B A B C D E", "3 4"},
        {"up", "End Alt+Up Alt+Up", "A B E C D", "3"},
        {"a block up, to the end of the way", "Down Down Shift+Down Alt+Up Alt+Up", "B C A D E", "1 2"},
        {"a block down", "Down Shift+Down Alt+Down", "C A B D E", "2 3"},
        {"a block down, to the end of the way", "End Shift+Up Alt+Down", "A B C D E", "4 5", false},
        {"all", "Ctrl+A", "A B C D E", "1 2 3 4 5", false},
        {"delete one", "Down Down Del", "A C D E", "2", true, "Are you sure you want to delete the selected product?"},
        {"delete a block", "Down Down Shift+Down Del", "A D E", "2", true,
         "Are you sure you want to delete the 2 selected products?"},
        {"delete all", "Ctrl+A Del", "", "", true, "Are you sure you want to delete the 5 selected products?"},
    };
    forEachRow(rows, [&](const Row& row) {
        show(list("A B C D E"));
        if (row.question) {
            answer(ui::MessageResult::yes);
        }
        press(row.keys);
        EXPECT_EQ(names(), row.names);
        EXPECT_EQ(selected(), row.selected);
        EXPECT_EQ(view->Dirty(), row.dirty);
        if (row.question) {
            EXPECT_EQ(platform.messageBox().shown().back().text, row.question);
        }
    });
}

TEST_F(ListCommandsTest, DraggedRowsLandWhereTheyAreDroppedUnderOneLabel)
{
    struct Row {
        const char *name, *keys;
        std::int32_t before;
        const char *names, *selected;
        int moves;
    };
    const Row rows[] = {
        {"one up", "End", 2, "A E B C D", "2", 3},
        {"one to the end", "Down", 6, "B C D E A", "5", 4},
        {"a block", "Down Shift+Down", 5, "C D A B E", "3 4", 4},
        {"on itself", "Down Shift+Down", 2, "A B C D E", "1 2", 0},
    };
    forEachRow(rows, [&](const Row& row) {
        show(list("A B C D E"));
        press(row.keys);
        const std::size_t traced = trace->lines().size();
        const int painted = view->flexGrid().paintCount();
        view->flexGrid().dragRows(row.before);
        EXPECT_EQ(names(), row.names);
        EXPECT_EQ(selected(), row.selected);
        EXPECT_EQ(view->Dirty(), row.moves > 0);
        std::vector<std::string> lines(trace->lines().begin() + static_cast<std::ptrdiff_t>(traced),
                                       trace->lines().end());
        EXPECT_EQ(lines.size(), row.moves > 0 ? 6U : 2U) << "the drag, the moves and one refresh";
        EXPECT_LE(view->flexGrid().paintCount(), painted + 2);
    });
}

TEST_F(ListCommandsTest, WhatIsTypedFindsARow)
{
    struct Row {
        const char *name, *keys;
        std::int32_t row;
        const char* shown;
    };
    const Row rows[] = {
        {"the name's beginning, whatever its case", "l", 2, "l"},
        {"more letters", "d e", 1, "de"},
        {"no other row as long as this one fits", "End Up d o", 4, "do"},
        {"the part number", "p - 3", 3, "p-3"},
        {"within a name", "a i r", 3, "air"},
        {"a letter that is not ASCII", "Ö", 5, "Ö"},
        {"nothing", "l x", 2, "lx: not found"},
        {"a letter taken back", "l x Backspace", 2, "l"},
        {"ended by Escape", "l Esc", 2, ""},
        {"ended by another key", "l Home", 1, ""},
        {"the next, and around", "d F3 F3", 1, "d"},
        {"the previous", "d Shift+F3", 4, "d"},
    };
    forEachRow(rows, [&](const Row& row) {
        show(list("Desk Lamp Chair Door öse"));
        press(row.keys);
        EXPECT_EQ(view->flexGrid().currentRow(), row.row);
        EXPECT_EQ(view->flexGrid().searchText(), row.shown);
        EXPECT_FALSE(view->Dirty());
    });
}

TEST_F(ListCommandsTest, AListThatWouldBecomeTooLargeIsLeftAsItIs)
{
    const std::string products = list("A B C");
    show(products);
    faults.maxDataSize = static_cast<std::int32_t>(view->Products().size()) + 10;
    answer(ui::MessageResult::ok);
    press("Ctrl+A Ctrl+D");
    EXPECT_EQ(names(), "A B C");
    EXPECT_FALSE(view->Dirty());
    const std::string told = platform.messageBox().shown().back().text.english();
    EXPECT_NE(told.find(std::to_string(*faults.maxDataSize)), std::string::npos) << told;
}

TEST_F(ListCommandsTest, CopiedRowsArePastedAsTheyWere)
{
    struct Row {
        const char *name, *product, *text;
        bool accepted = true;
    };
    const Row rows[] = {
        {"plain", "n:k:p:1.5:2:10:2.7:note", "p\tn\t2\t1.5\t10\t2.7\tnote\tk\r\n"},
        {"formulas", "=1+2:@k:-p:1:1:0:1:+note", "'-p\t'=1+2\t1\t1\t0\t1\t'+note\t'@k\r\n"},
        {"an apostrophe", "'n:'':p:1:1:0:1:a'", "p\t''n\t1\t1\t0\t1\ta'\t'''\r\n"},
        {"tabs, lines and marks", "a\tb:\tk:p:1:1:0:1:x\r\ny\"z",
         "p\t\"a\tb\"\t1\t1\t0\t1\t\"x\r\ny\"\"z\"\t\"'\tk\"\r\n"},
        {"an amount that the manager does not take again", "n:k:p:-1.5:1:0:-1.5:", "p\tn\t1\t-1.5\t0\t-1.5\t\tk\r\n",
         false},
    };
    forEachRow(rows, [&](const Row& row) {
        const std::string product = row.product;
        show("1~" + product + "~");
        press("End Ctrl+C");
        EXPECT_EQ(platform.clipboard().text(), row.text);
        answer(row.accepted ? ui::MessageResult::yes : ui::MessageResult::ok);
        press("Ctrl+V");
        EXPECT_EQ(view->Products(), row.accepted ? "2~" + product + "~" + product + "~" : "1~" + product + "~");
        EXPECT_EQ(selected(), row.accepted ? "2" : "1");
    });
}

TEST_F(ListCommandsTest, PastingAddsAllOrNothingAndSaysWhy)
{
    struct Row {
        const char *name, *text, *names, *said;
        ui::MessageResult answer = ui::MessageResult::ok;
    };
    const auto yes = ui::MessageResult::yes;
    const Row rows[] = {
        {"captions in another order", "Product\tColour\tQty\nRug\tred\t2\nMat\t\t1\n", "A Rug Mat B",
         "Add these 2 products to the list?\n\n2 × Rug\n1 × Mat", yes},
        {"not agreed to", "p\tRug\n", "A B", "Add this product to the list?\n\n1 × Rug", ui::MessageResult::no},
        {"empty lines", "\n\np\tRug\n\n", "A Rug B", "Add this product to the list?\n\n1 × Rug", yes},
        {"no line end at the end", "p\tRug", "A Rug B", "Add this product to the list?\n\n1 × Rug", yes},
        {"nothing", "", "A B", "There are no products to paste."},
        {"no number", "p\tRug\t1\np\tMat\tmany\n", "A B",
         "Nothing was pasted.\n\nRow 2, column \"Qty\": \"many\" is not a number"},
        {"another country's number", "p\tRug\t1,5\n", "A B",
         "Nothing was pasted.\n\nRow 1, column \"Qty\": \"1,5\" is not a number"},
        {"too large", "p\tRug\t1\t99999999999999999\n", "A B",
         "Nothing was pasted.\n\nRow 1, column \"Unit Price\": \"99999999999999999\" is too large"},
        {"not possible", "p\tRug\t-1\n", "A B", "Nothing was pasted.\n\nProduct 1: this quantity is not possible"},
        {"too many cells", "1\t2\t3\t4\t5\t6\t7\t8\t9\n", "A B",
         "Nothing was pasted.\n\nRow 1 has 9 cells, and there are only 8 columns"},
        {"an open mark", "p\t\"Rug\n", "A B", "Nothing was pasted.\n\nRow 1: a quotation mark is not closed"},
    };
    forEachRow(rows, [&](const Row& row) {
        show(list("A B"));
        press("Home");
        platform.clipboard().setText(row.text);
        answer(row.answer);
        press("Ctrl+V");
        EXPECT_EQ(platform.messageBox().shown().back().text, row.said);
        EXPECT_EQ(names(), row.names);
        EXPECT_EQ(view->Dirty(), row.answer == yes);
    });
}

TEST_F(ListCommandsTest, TheMenuOfARowOffersWhatCanBeDoneAndMarksTheColumns)
{
    show(list("A B"));
    auto& menu = view->surface().popupMenu("mnuRow");
    press("End Menu");
    EXPECT_EQ(menu.offered().substr(0, menu.offered().find(" mnu")),
              "edit add duplicate delete cut copy paste moveUp selectAll");
    EXPECT_EQ(menu.checked(), "mnuViewCboOneQty mnuViewCboTwoExtPrice");
    menu.choose("moveUp");
    EXPECT_EQ(names(), "B A");
    view->flexGrid().rightClick(2, 1);
    EXPECT_EQ(view->flexGrid().currentRow(), 2) << "the row that was clicked";
    menu.choose("mnuViewCboOnePartNum");
    EXPECT_EQ(row(0), "# | Product | Part# | Ext Price");
}

TEST_F(ListCommandsTest, WidthsAreChangedFromTheMenuOfARowAsByADrag)
{
    const std::string before = "4~1~250^960^700^800^700^700^700^700^700";
    struct Row {
        const char* item;
        const char* stored;
    };
    const Row rows[] = {
        {"mnuRowNameWider", "4~1~250^1260^700^800^700^700^700^700^700"},
        {"mnuRowNameNarrower", "4~1~250^660^700^800^700^700^700^700^700"},
        {"mnuRowOneWider", "4~1~250^960^1000^800^700^700^700^700^700"},
        {"mnuRowTwoNarrower", "4~1~250^960^700^500^700^700^700^700^700"},
        {"mnuRowTwoFit", "4~1~250^960^700^1125^700^700^700^700^700"}, // "Ext Price" is the longest text
        {"mnuRowResetColumns", "4~1~250^960^700^700^700^700^700^700^700"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.item);
        storePrefs(before);
        show(list("A B"));
        press("Down Menu");
        view->surface().popupMenu("mnuRow").choose(row.item);
        EXPECT_EQ(storedPrefs(), row.stored);
        EXPECT_EQ(trace->lines().back(), "exit KTVOrvanProduct.ProductView::PrvSaveViewPrefs");
        EXPECT_FALSE(view->Dirty());
    }
    press("Menu");
    view->surface().popupMenu("mnuRow").choose("mnuViewCboOneNote");
    press("Menu");
    view->surface().popupMenu("mnuRow").choose("mnuRowResetColumns");
    EXPECT_EQ(row(0), "# | Product | Qty | Ext Price") << "the fields, too";
    view->flexGrid().fitColumn(3);
    EXPECT_EQ(view->flexGrid().columnWidth(3), 1125) << "a double click on the edge does what Fit does";
}

TEST_F(ListCommandsTest, AnEmptyListSaysHowToBegin)
{
    makeView();
    EXPECT_EQ(view->flexGrid().shownEmptyText(), "No products yet. Press Insert or the + button to add one.");
    view->Show(list("A"));
    EXPECT_EQ(view->flexGrid().shownEmptyText(), "");
}

} // namespace
} // namespace orvan::test

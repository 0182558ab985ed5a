#include "orvan/ui/Timer.h"
#include "tests/lookup/LookUpBench.h"

namespace orvan::test {
namespace {

using ui::PointerCode;

constexpr std::int64_t kTooWide = std::int64_t{1} << 31;

TEST(LookUpTimers, CompleteTheTextAndRefillTheList)
{
    struct Row {
        const char *name, *typed;
        LookUpList matches = {}, all = {};
        const char *shown, *list;
        std::int32_t pending = -1;
    };
    // clang-format off
    const Row rows[] = {
        {.name = "matches", .typed = "AB", .matches = {{{11, "ABC-1"}, {-2, "ABD-7"}}},
         .shown = "AB|C-1|", .list = "ABC-1=11 ABD-7=-2 ", .pending = 0},
        {.name = "an equal text comes before a longer one", .typed = "AB", .matches = {{{1, "AB"}, {2, "ABC"}}},
         .shown = "AB||", .list = "AB=1 ABC=2 ", .pending = 0},
        {.name = "the catalogue's case is shown", .typed = "ab", .matches = {{{1, "ABC"}}},
         .shown = "AB|C|", .list = "ABC=1 ", .pending = 0},
        {.name = "characters of two bytes", .typed = "\u00c4", .matches = {{{1, "\u00c4\u00dfe"}}},
         .shown = "\u00c4|\u00dfe|", .list = "\u00c4\u00dfe=1 ", .pending = 0},
        {.name = "empty texts are left out", .typed = "", .matches = {{{1, ""}, {2, "ABC"}, {kTooWide, ""}}},
         .shown = "||", .list = "ABC=2 ", .pending = 0},
        {.name = "no match: the whole list", .typed = "zz", .all = {{{1, "ABC"}, {kTooWide, ""}, {3, "D"}}},
         .shown = "zz||", .list = "ABC=1 D=3 "},
        {.name = "no list at all", .typed = "zz", .shown = "zz||", .list = "old=9 "},
        {.name = "a list without entries", .typed = "zz", .matches = LookUpList(std::in_place),
         .shown = "zz||", .list = "old=9 "},
    };
    // clang-format on
    for (const bool part : {true, false}) {
        forEachRow(rows, [&](const Row& row) {
            LookUpBench bench(part);
            SCOPED_TRACE(bench.box.name());
            bench.catalogue->all = LookUpList{{{9, "old"}}};
            part ? bench.boxes.PrvFillPartNumList() : bench.boxes.PrvFillProductNameList();
            EXPECT_EQ(bench.list(), "old=9 ");
            bench.catalogue->matches = row.matches;
            bench.catalogue->all = row.all;
            bench.box.chooseRow(0);
            bench.box.select(0, 3);
            bench.box.backspace();
            bench.box.type(row.typed);
            bench.platform().clock().advance(500);
            EXPECT_EQ(bench.shown(), row.shown);
            EXPECT_EQ(bench.list(), row.list);
            EXPECT_EQ(bench.boxes.state().lLkpListIdx, row.pending);
            EXPECT_FALSE(bench.boxes.state().bLkpBusy);
            EXPECT_EQ(bench.box.left(), 1215);
            EXPECT_EQ(bench.platform().pointer().history().size(), part ? 3U : 1U);
            bench.script.calls.clear();
            bench.platform().clock().advance(5000);
            EXPECT_EQ(bench.script.calls, "") << "its own changes start no search";
        });
    }
}

TEST(LookUpTimers, SayHowManyEntriesMatchAsLongAsTheUserIsInTheBox)
{
    struct Row {
        const char *name, *typed;
        LookUpList matches;
        const char* remark;
    };
    const LookUpRow one{11, "ABC"};
    const Row rows[] = {
        {"one", "AB", {{one}}, "1 matches"},
        {"two", "AB", {{one, one}}, "2 match"},
        {"the catalogue has more", "AB", {{one, one, one}}, "3 or more match"},
        {"none", "zz", {}, "no match"},
        {"nothing is typed", "", {}, ""},
    };
    for (const bool part : {true, false}) {
        forEachRow(rows, [&](const Row& row) {
            LookUpBench bench(part);
            bench.catalogue->matches = row.matches;
            bench.box.type(std::string("x").append(row.typed));
            bench.box.select(0, 1);
            bench.box.backspace();
            bench.platform().clock().advance(499);
            EXPECT_EQ(bench.box.remark(), "");
            bench.platform().clock().advance(1);
            EXPECT_EQ(bench.box.remark(), row.remark);
            bench.box.type("B");
            EXPECT_EQ(bench.box.remark(), "") << "it was about another text";
            bench.platform().clock().advance(500);
            bench.form.focus("txtQty");
            EXPECT_EQ(bench.box.remark(), "");
        });
    }
}

TEST(LookUpLists, ShowPartNumberNameAndPriceOfARow)
{
    struct Row {
        const char* name;
        std::int32_t itemId;
        LookUpValue partNum, productName, price;
        std::vector<std::string> part, named;
    };
    const Row rows[] = {
        {"all columns", 11, "ABC-1", "Desk", "1,234.50", {"AB", "Desk", "$1,234.50"}, {"ABC-1", "AB", "$1,234.50"}},
        {"Null and no amount", 11, {}, {}, "much", {"AB", "", ""}, {"", "AB", ""}},
        {"an entry that is gone", 12, "ABC-1", "Desk", "1", {}, {}},
    };
    for (const bool part : {true, false}) {
        forEachRow(rows, [&](const Row& row) {
            LookUpBench bench(part);
            bench.locale.currencySymbol = "$";
            bench.catalogue->all = LookUpList{{LookUpRow{row.itemId, "AB"}}};
            bench.catalogue->columns = {row.productName, {}, row.partNum, row.price};
            part ? bench.boxes.PrvFillPartNumList() : bench.boxes.PrvFillProductNameList();
            EXPECT_EQ(bench.box.columns(0), part ? row.part : row.named);
            EXPECT_EQ(bench.box.itemText(0), "AB") << "what goes into the box";
            bench.close();
            EXPECT_TRUE(bench.box.columns(0).empty()) << "after the session";
        });
    }
}

TEST(LookUpTimers, AnErrorClosesTheDialogUnderTheUsersPointer)
{
    struct Row {
        const char* name;
        LookUpList matches = {};
        const char* failAt = ""; // the call, without the name of its box
        std::optional<TraceCall> failingTrace = {};
        std::int32_t number;
        bool busy = true;
    };
    const LookUpList match{{{11, "ABC"}}};
    // clang-format off
    const Row rows[] = {
        {.name = "entering", .matches = match, .failingTrace = TraceCall::enter, .number = 75, .busy = false},
        {.name = "the search", .matches = match, .failAt = " AB", .number = kScripted},
        {.name = "the whole list", .failAt = "All ", .number = kScripted},
        {.name = "a match shorter than what is typed", .matches = {{{1, "A"}}}, .number = 380},
        {.name = "an empty first match", .matches = {{{1, ""}, {2, "AB"}}}, .number = 380},
        {.name = "an id above 32 bits", .matches = {{{1, "ABC"}, {kTooWide, "ABD"}}}, .number = 6},
        {.name = "an id below 32 bits", .matches = {{{1, "ABC"}, {-kTooWide - 1, "ABD"}}}, .number = 6},
        {.name = "leaving", .failingTrace = TraceCall::exit, .number = 75, .busy = false},
    };
    // clang-format on
    for (const bool part : {true, false}) {
        forEachRow(rows, [&](const Row& row) {
            LookUpBench bench(part);
            SCOPED_TRACE(bench.box.name());
            bench.box.type("AB");
            bench.catalogue->matches = row.matches;
            bench.script.actAt = *row.failAt ? std::string(part ? "Part" : "Name") + row.failAt : "";
            bench.trace->declareError(row.number);
            if (row.failingTrace) {
                bench.trace->failNext(*row.failingTrace, row.number);
            }
            bench.trace->onError = [&] {
                EXPECT_EQ(bench.platform().pointer().code(), PointerCode::standard) << "restored before the record";
                EXPECT_EQ(bench.closings, 0);
            };
            bench.platform().clock().advance(500);
            EXPECT_EQ(bench.closings, 1);
            EXPECT_EQ(bench.boxes.state().bLkpBusy, row.busy);
        });
    }
}

TEST(LookUpTrace, TellsTheBoxesApart)
{
    for (const bool part : {true, false}) {
        LookUpBench bench(part);
        const std::string label = "KTVOrvanProduct.frmProduct::" + bench.box.name();
        bench.box.type("A");
        bench.platform().clock().advance(500);
        bench.box.onClick();
        EXPECT_FALSE(bench.boxes.state().bPartNumPicked) << "no row was chosen";

        // While a product is loaded: entries alone, and nothing starts.
        bench.initializing = true;
        bench.dirty = false;
        bench.trace->allowNoExit(label + "_Change");
        bench.box.setText("x");
        EXPECT_EQ(bench.trace->lines().back(), "enter " + label + "_Change");
        EXPECT_FALSE(bench.dirty || bench.form.control<ui::Timer>(part ? "tmrPartNum" : "tmrProdLkp").enabled());
        bench.initializing = false;

        // A key whose entry cannot be reported is handled all the same.
        bench.trace->failNext(TraceCall::enter, 75);
        bench.trace->declareError(75);
        bench.box.type("\n");
        EXPECT_EQ(bench.trace->lines().back(), "exit " + label + "_KeyPress");
        EXPECT_TRUE(bench.left()) << "Enter leaves the box too";
        EXPECT_EQ(bench.closings, 0);
        const std::size_t lines = bench.trace->lines().size();
        bench.form.focus("txtQty");
        EXPECT_EQ(bench.trace->lines().size(), lines) << "leaving is not traced";

        // The two boxes tell the session of a change at different moments.
        bench.script.actAt = "Dirty";
        bench.trace->declareError(kScripted);
        bench.box.setText("y");
        EXPECT_EQ(bench.closings, 1);
        EXPECT_EQ(bench.left(), part);
    }
}

} // namespace
} // namespace orvan::test

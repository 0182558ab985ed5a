#include "tests/lookup/LookUpBench.h"

namespace orvan::test {
namespace {

using ui::PointerCode;

constexpr std::int64_t kTooWide = std::int64_t{1} << 31;

/// Keystrokes at these times; the searches and their times.
TEST(LookUpTimers, SearchOnceTheUserHasPaused)
{
    for (const bool part : {true, false}) {
        for (const auto& [keys, searches] :
             Rows<std::vector<std::int64_t>, const char*>{{{0}, "500:A "},
                                                          {{0, 200}, "700:AA "},
                                                          {{0, 200, 400}, "900:AAA "},
                                                          {{0, 499}, "999:AA "},
                                                          {{0, 500}, "500:A 1000:AA "},
                                                          {{0, 501}, "500:A 1001:AA "}}) {
            LookUpBench bench(part);
            std::string found;
            bench.script.actAt = part ? "PartAll " : "NameAll ";
            bench.script.act = [&] {
                found.append(std::to_string(bench.net.clock().now())).append(":").append(bench.box.text()) += ' ';
            };
            for (const std::int64_t key : keys) {
                bench.net.clock().advance(key - bench.net.clock().now());
                bench.box.type("A");
            }
            bench.net.clock().advance(5000);
            EXPECT_EQ(found, searches);
            EXPECT_TRUE(bench.dirty);
            EXPECT_TRUE(bench.boxes.state().bLkpTimerRestarted);
        }
    }
}

TEST(LookUpTimers, CompleteTheTextAndRefillTheList)
{
    const LookUpList none;
    for (const bool part : {true, false}) {
        for (const auto& [typed, matches, all, shown, list, row] :
             Rows<const char*, LookUpList, LookUpList, const char*, const char*, std::int32_t>{
                 {"AB", {{{11, "ABC-1"}, {-2, "ABD-7"}}}, none, "AB|C-1|", "ABC-1=11 ABD-7=-2 ", 0},
                 {"AB", {{{1, "AB"}, {2, "ABC"}}}, none, "AB||", "AB=1 ABC=2 ", 0}, // the shorter one is kept
                 {"ab", {{{1, "ABC"}}}, none, "AB|C|", "ABC=1 ", 0},
                 {"\u00c4", {{{1, "\u00c4\u00dfe"}}}, none, "\u00c4|\u00dfe|", "\u00c4\u00dfe=1 ", 0},
                 {"", {{{1, ""}, {2, "ABC"}, {kTooWide, ""}}}, none, "||", "ABC=2 ", 0},
                 {"zz", none, {{{1, "ABC"}, {kTooWide, ""}, {3, "D"}}}, "zz||", "ABC=1 D=3 ", -1},
                 {"zz", none, none, "zz||", "old=9 ", -1},
                 {"zz", LookUpList(std::in_place), none, "zz||", "old=9 ", -1}}) {
            LookUpBench bench(part);
            SCOPED_TRACE(std::string(bench.box.name()).append(": ").append(typed));
            bench.catalogue->all = LookUpList{{{9, "old"}}};
            part ? bench.boxes.PrvFillPartNumList() : bench.boxes.PrvFillProductNameList();
            EXPECT_EQ(bench.list(), "old=9 ");
            bench.catalogue->matches = matches;
            bench.catalogue->all = all;
            bench.box.chooseRow(0);
            bench.box.select(0, 3);
            bench.box.backspace();
            bench.box.type(typed);
            bench.net.clock().advance(500);
            EXPECT_EQ(bench.shown(), shown);
            EXPECT_EQ(bench.list(), list);
            EXPECT_EQ(bench.boxes.state().lLkpListIdx, row);
            EXPECT_FALSE(bench.boxes.state().bLkpBusy);
            EXPECT_EQ(bench.box.left(), 1215);
            EXPECT_EQ(bench.net.pointer().history().size(), part ? 3U : 1U);
            bench.script.calls.clear();
            bench.net.clock().advance(5000);
            EXPECT_EQ(bench.script.calls, "") << "its own changes start no search";
        }
    }
}

TEST(LookUpTimers, AnErrorClosesTheDialogUnderTheUsersPointer)
{
    const LookUpList match{{{11, "ABC"}}};
    for (const bool part : {true, false}) {
        const std::string which = part ? "Part" : "Name";
        for (const auto& [matches, failAt, traceCall, number, busy] :
             Rows<LookUpList, std::string, std::optional<TraceCall>, std::int32_t, bool>{
                 {match, "", TraceCall::enter, 75, false},
                 {match, which + " AB", {}, kScripted, true},
                 {{}, which + "All ", {}, kScripted, true},
                 {{{{1, "A"}}}, "", {}, 380, true},
                 {{{{1, ""}, {2, "AB"}}}, "", {}, 380, true},
                 {{{{1, "ABC"}, {kTooWide, "ABD"}}}, "", {}, 6, true},
                 {{{{1, "ABC"}, {-kTooWide - 1, "ABD"}}}, "", {}, 6, true},
                 {{}, "", TraceCall::exit, 75, false}}) {
            LookUpBench bench(part);
            SCOPED_TRACE(std::string(bench.box.name()).append(", error ").append(std::to_string(number)) + failAt);
            bench.box.type("AB");
            bench.catalogue->matches = matches;
            bench.script.actAt = failAt;
            bench.trace->declareError(number);
            if (traceCall) {
                bench.trace->failNext(*traceCall, number);
            }
            bench.trace->onError = [&] {
                EXPECT_EQ(bench.net.pointer().code(), PointerCode::standard) << "restored before the record";
                EXPECT_EQ(bench.closings, 0);
            };
            bench.net.clock().advance(500);
            EXPECT_EQ(bench.closings, 1);
            EXPECT_EQ(bench.boxes.state().bLkpBusy, busy);
        }
    }
}

TEST(LookUpTrace, TellsTheBoxesApart)
{
    for (const bool part : {true, false}) {
        LookUpBench bench(part);
        const std::string label = "KTVOrvanProduct.frmProduct::" + bench.box.name();
        bench.box.type("A");
        bench.net.clock().advance(500);
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

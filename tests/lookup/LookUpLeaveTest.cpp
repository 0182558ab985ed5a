#include "tests/lookup/LookUpBench.h"

namespace orvan::test {
namespace {

using ui::MessageResult;

constexpr const char* kQuestion = "Would you like to overwrite the current contents of the product note field with the "
                                  "contents from the product look-up?";

/// The record after the box was left, "*" for what the box names it: the note question with each of its
/// answers, and each step failing in turn.
TEST(LookUpLeave, AppliesTheEntryAndSkipsWhatFails)
{
    const char* const kApplied = "*|42|ABC-1|1234.5|blue";
    const auto yes = MessageResult::yes;
    for (const auto& [own, note, answer, failAt, record] :
         Rows<const char*, const char*, std::optional<MessageResult>, const char*, std::string>{
             {"", "", {}, "", "*|42|ABC-1|1234.5|"},
             {"", "blue", {}, "", kApplied},
             {"own", "", yes, "", "*|42|ABC-1|1234.5|"},
             {"own", "", MessageResult::no, "", "*|42|ABC-1|1234.5|own"},
             {"own", "blue", yes, "", kApplied},
             {"own", "blue", MessageResult::no, "", "*|42|ABC-1|1234.5|own"},
             {"own", "blue", {}, "SeekItem", "n|k|p|1|own"},
             {"own", "blue", yes, "IsEOF", kApplied},
             {"own", "blue", yes, "field 6", "*|42|ABC-1|0|blue"},
             {"own", "blue", yes, "field 5", "*|42||1234.5|blue"},
             {"own", "blue", yes, "field 4", "*||ABC-1|1234.5|blue"},
             {"own", "blue", yes, "field 7", "*|42|ABC-1|1234.5|"},
             {"own", "blue", yes, "SetName", "n|42|ABC-1|1234.5|blue"},
             {"own", "blue", yes, "SetKey", "*|k|ABC-1|1234.5|blue"},
             {"own", "blue", yes, "SetPartNum", "*|42|p|1234.5|blue"},
             {"own", "blue", yes, "SetUnitPrice", "*|42|ABC-1|1|blue"},
             {"own", "blue", MessageResult::no, "Note", "*|42|ABC-1|1234.5|own"},
             {"own", "blue", {}, "question", kApplied}, // nobody answers
             {"own", "blue", yes, "SetNote", "*|42|ABC-1|1234.5|own"},
             {"own", "blue", yes, "Load", kApplied}}) {
        for (const bool part : {true, false}) {
            LookUpBench bench(part);
            SCOPED_TRACE(std::string(bench.box.name()).append(" fails at \"").append(failAt) + '"');
            bench.record->note = own;
            bench.catalogue->columns[4] = note;
            if (answer) {
                bench.net.messageBox().answer(*answer);
            }
            bench.choose();
            bench.script.actAt = failAt;
            bench.box.type("\n"); // Enter applies as leaving does
            const bool applies = std::string_view(failAt) != "SeekItem";
            const std::string named = part ? "Desk" : "Desk X";
            EXPECT_EQ(bench.record->text(), record[0] == '*' ? named + record.substr(1) : record);
            EXPECT_EQ(bench.boxes.state().lLkpListIdx, applies ? -1 : 0) << "what was not found is tried again";
            EXPECT_EQ(bench.boxes.state().bNameLkpPending, !part && !applies);
            EXPECT_EQ(bench.boxes.state().bPartNumPicked, part) << "a latch";
            EXPECT_FALSE(bench.boxes.state().bLkpBusy);
            EXPECT_EQ(bench.shown().starts_with("||"), applies);
            EXPECT_EQ(bench.closings, 0);
            for (const ui::Message& message : bench.net.messageBox().shown()) {
                EXPECT_EQ(message.text + message.title, std::string(kQuestion) + "Orvan");
                EXPECT_TRUE(message.icon == ui::MessageIcon::question && message.ownerWindow == 7);
            }
            EXPECT_EQ(bench.net.messageBox().shown().size(), answer || failAt[0] == 'q' ? 1U : 0U);
            bench.net.clock().advance(5000);
            EXPECT_EQ(bench.script.calls.find("All"), std::string::npos) << "showing the entry starts no search";
        }
    }
}

TEST(LookUpLeave, ReadsAndWritesInOrder)
{
    for (const bool part : {true, false}) {
        LookUpBench bench(part);
        bench.record->note = "";
        bench.choose();
        bench.script.actAt = "field 3"; // fails where it is read
        bench.form.focus("txtQty");
        EXPECT_EQ(bench.script.calls.substr(0, bench.script.calls.find(", Dirty")),
                  std::string("SeekItem, IsEOF, field 6, field 5, field 4, field 7, ") + (part ? "field 3, " : "") +
                      "SetName, SetKey, SetPartNum, SetUnitPrice, Note, SetNote, Load");
        EXPECT_EQ(bench.record->name, part ? "" : "Desk X");
    }
}

/// One pending row serves both boxes, but the name box wants to have been changed itself.
TEST(LookUpLeave, TakesTheOtherBoxesRowToo)
{
    for (const bool part : {true, false}) {
        LookUpBench bench(part);
        bench.catalogue->matches = LookUpList{{{12, "AB"}}};
        bench.box.type("A");
        bench.net.clock().advance(500);
        auto& other = bench.form.comboBox(part ? "cboProductName" : "cboPartNum");
        other.addItem("A");
        for (const auto& [box, sought] :
             Rows<headless::HeadlessComboBox*, std::int32_t>{{&other, part ? -1 : 0}, {&bench.box, 12}}) {
            box->onLostFocus();
            EXPECT_EQ(bench.catalogue->sought, sought) << box->name();
        }
    }
}

TEST(LookUpLeave, SurvivesTheEndOfTheSessionInAnyCall)
{
    for (const char* call : {"SeekItem", "IsEOF", "field 6", "SetName", "Note", "question", "Load"}) {
        LookUpBench bench(true);
        bench.net.messageBox().onWaiting = [&](const ui::Message&) { bench.close(); };
        bench.script.actAt = call;
        bench.script.act = [&] { bench.close(); };
        bench.choose();
        bench.form.focus("txtQty");
        EXPECT_FALSE(bench.form.loaded() || bench.boxes.state().bLkpBusy) << call;
    }
}

/// Before a save. "p" and "n" type into a box, capitals choose a row of it, "-" leaves it, "." lets the
/// timers fire, "=" sets the name without the focus.
TEST(LookUpFlush, FinishesWhatWasWantedAndNotLeft)
{
    for (const auto& [doings, search] :
         Rows<const char*, std::string>{{"", ""},
                                        {"p", ""}, // a number that is typed alone is kept as it is
                                        {"p.", ""},
                                        {"n", "Name n"},
                                        {"n.", "Name no text is longer"},
                                        {"n-", ""},
                                        {"N", "Name ABC-1"},
                                        {"P", "Part ABC-1"},
                                        {"P-", ""},
                                        {"P-p", "Part pABC-1"}, // the latch
                                        {"P-n", "Name nDesk"},
                                        {"P=", "Name ="}}) { // both are wanted: the name comes first
        LookUpBench bench(true);
        SCOPED_TRACE(doings);
        bench.record->note = "";
        bench.catalogue->all = LookUpList{{{11, "ABC-1"}}};
        bench.boxes.PrvFillPartNumList();
        bench.boxes.PrvFillProductNameList();
        bench.catalogue->matches = LookUpList{{{11, "no text is longer"}}};
        for (const char doing : std::string_view(doings)) {
            auto& box = bench.form.comboBox(doing == 'p' || doing == 'P' ? "cboPartNum" : "cboProductName");
            switch (doing) {
            case '-': bench.form.focus("txtQty"); break;
            case '=': box.setText("="); break;
            case '.': bench.net.clock().advance(500); break;
            case 'P':
            case 'N': box.chooseRow(0); break;
            default: box.type(std::string(1, doing));
            }
        }
        bench.script.calls.clear();
        bench.boxes.finishPendingLookUps();
        EXPECT_EQ(bench.script.calls.substr(0, bench.script.calls.find(", ")), search);
        EXPECT_EQ(bench.record->key == "42", bench.record->name != "n");
    }
}

TEST(LookUpValues, ConvertOrFailAsAHostsDo)
{
    icu::IcuLocaleService german{{.monetary = "de_DE", .numeric = "de_DE"}};
    for (const auto& [value, amount, text] :
         Rows<LookUpValue, const char*, const char*>{{std::monostate(), "error 94", "error 94"},
                                                     {INT64_MAX, "error 6", "9223372036854775807"},
                                                     {9.95, "9.95", "9.95"},
                                                     {1e20, "error 6", "100000000000000000000"},
                                                     {1e-7, "0", "0.0000001"},
                                                     {std::numeric_limits<double>::infinity(), "error 6", "error 6"},
                                                     {Currency::fromScaled(12345), "1.2345", "1.2345"},
                                                     {std::string("1.234,50"), "1234.5", "1.234,50"},
                                                     {std::string("dear"), "error 13", "dear"}}) {
        EXPECT_EQ(textOrError([&, &its = value] { return toCurrency(its, german).toText(); }), amount);
        EXPECT_EQ(textOrError([&, &its = value] { return toText(its); }), text);
    }
}

} // namespace
} // namespace orvan::test

#include "tests/lookup/LookUpBench.h"

namespace orvan::test {
namespace {

using ui::MessageResult;

constexpr const char* kQuestion = "Would you like to overwrite the current contents of the product note field with the "
                                  "contents from the product look-up?";

// The note question with each of its answers, and each step failing in turn.
TEST(LookUpLeave, AppliesTheEntryAndSkipsWhatFails)
{
    struct Row {
        const char* name;
        const char *own = "own", *note = "blue"; // the note of the record, and the one of the entry
        std::optional<MessageResult> answer = {};
        std::string record; // after the box was left; "*" stands for what the box names it
        const char* failAt = "";
    };
    const char* const kApplied = "*|42|ABC-1|1234.5|blue";
    const auto yes = MessageResult::yes;
    const auto no = MessageResult::no;
    // clang-format off
    const Row rows[] = {
        {.name = "no notes", .own = "", .note = "", .record = "*|42|ABC-1|1234.5|"},
        {.name = "a new note", .own = "", .record = kApplied},
        {.name = "a note to be emptied", .note = "", .answer = yes, .record = "*|42|ABC-1|1234.5|"},
        {.name = "a note to be kept", .note = "", .answer = no, .record = "*|42|ABC-1|1234.5|own"},
        {.name = "a note to be overwritten", .answer = yes, .record = kApplied},
        {.name = "a note not to be overwritten", .answer = no, .record = "*|42|ABC-1|1234.5|own"},
        {.name = "SeekItem fails", .record = "n|k|p|1|own", .failAt = "SeekItem"},
        {.name = "IsEOF fails", .answer = yes, .record = kApplied, .failAt = "IsEOF"},
        {.name = "reading the price fails", .answer = yes, .record = "*|42|ABC-1|0|blue", .failAt = "field 6"},
        {.name = "reading the part number fails", .answer = yes, .record = "*|42||1234.5|blue", .failAt = "field 5"},
        {.name = "reading the key fails", .answer = yes, .record = "*||ABC-1|1234.5|blue", .failAt = "field 4"},
        {.name = "reading the note fails", .answer = yes, .record = "*|42|ABC-1|1234.5|", .failAt = "field 7"},
        {.name = "SetName fails", .answer = yes, .record = "n|42|ABC-1|1234.5|blue", .failAt = "SetName"},
        {.name = "SetKey fails", .answer = yes, .record = "*|k|ABC-1|1234.5|blue", .failAt = "SetKey"},
        {.name = "SetPartNum fails", .answer = yes, .record = "*|42|p|1234.5|blue", .failAt = "SetPartNum"},
        {.name = "SetUnitPrice fails", .answer = yes, .record = "*|42|ABC-1|1|blue", .failAt = "SetUnitPrice"},
        {.name = "Note fails", .answer = no, .record = "*|42|ABC-1|1234.5|own", .failAt = "Note"},
        {.name = "nobody answers", .record = kApplied, .failAt = "question"},
        {.name = "SetNote fails", .answer = yes, .record = "*|42|ABC-1|1234.5|own", .failAt = "SetNote"},
        {.name = "showing fails", .answer = yes, .record = kApplied, .failAt = "Load"},
    };
    // clang-format on
    for (const bool part : {true, false}) {
        forEachRow(rows, [&](const Row& row) {
            LookUpBench bench(part);
            SCOPED_TRACE(bench.box.name());
            bench.record->note = row.own;
            bench.catalogue->columns[4] = row.note;
            if (row.answer) {
                bench.platform().messageBox().answer(*row.answer);
            }
            bench.choose();
            bench.script.actAt = row.failAt;
            bench.box.type("\n"); // Enter applies as leaving does
            const std::string_view failAt = row.failAt;
            const bool applies = failAt != "SeekItem";
            const std::string named = part ? "Desk" : "Desk X";
            EXPECT_EQ(bench.record->text(), row.record[0] == '*' ? named + row.record.substr(1) : row.record);
            EXPECT_EQ(bench.boxes.state().lLkpListIdx, applies ? -1 : 0) << "what was not found is tried again";
            EXPECT_EQ(bench.boxes.state().bNameLkpPending, !part && !applies);
            EXPECT_EQ(bench.boxes.state().bPartNumPicked, part) << "stays set once a row was chosen";
            EXPECT_FALSE(bench.boxes.state().bLkpBusy);
            EXPECT_EQ(bench.shown().starts_with("||"), applies);
            EXPECT_EQ(bench.closings, 0);
            for (const ui::Message& message : bench.platform().messageBox().shown()) {
                EXPECT_EQ(message.text.english() + message.title, std::string(kQuestion) + "Orvan");
                EXPECT_TRUE(message.icon == ui::MessageIcon::question && message.ownerWindow == 7);
            }
            EXPECT_EQ(bench.platform().messageBox().shown().size(), row.answer || failAt == "question" ? 1U : 0U);
            bench.platform().clock().advance(5000);
            EXPECT_EQ(bench.script.calls.find("All"), std::string::npos) << "showing the entry starts no search";
        });
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

// One pending row serves both boxes, but the name box applies it only when it was changed itself.
TEST(LookUpLeave, AppliesTheRowThatTheOtherBoxLeftPending)
{
    for (const bool part : {true, false}) {
        LookUpBench bench(part);
        bench.catalogue->matches = LookUpList{{{12, "AB"}}};
        bench.box.type("A");
        bench.platform().clock().advance(500);
        auto& other = bench.form.comboBox(part ? "cboProductName" : "cboPartNum");
        other.addItem("A");
        other.onLostFocus();
        EXPECT_EQ(bench.catalogue->sought, part ? -1 : 0) << other.name();
        bench.box.onLostFocus();
        EXPECT_EQ(bench.catalogue->sought, 12) << bench.box.name();
    }
}

TEST(LookUpLeave, SurvivesTheEndOfTheSessionInAnyCall)
{
    for (const char* call : {"SeekItem", "IsEOF", "field 6", "SetName", "Note", "question", "Load"}) {
        LookUpBench bench(true);
        bench.platform().messageBox().onWaiting = [&](const ui::Message&) { bench.close(); };
        bench.script.actAt = call;
        bench.script.act = [&] { bench.close(); };
        bench.choose();
        bench.form.focus("txtQty");
        EXPECT_FALSE(bench.form.loaded() || bench.boxes.state().bLkpBusy) << call;
    }
}

// What is done before a save, and the search that the save makes: "p" and "n" type into a box, capitals choose a row
// of it, "-" leaves it, "." lets the timers fire, "=" sets the name without the focus.
TEST(LookUpBeforeASave, FinishesWhatWasChosenOrTypedInABoxThatWasNotLeft)
{
    const Example rows[] = {
        {"", ""},
        {"p", ""}, // a number that is typed alone is kept as it is
        {"p.", ""},
        {"n", "Name n"},
        {"n.", "Name no text is longer"},
        {"n-", ""},
        {"N", "Name ABC-1"},
        {"P", "Part ABC-1"},
        {"P-", ""},
        {"P-p", "Part pABC-1"}, // bPartNumPicked is still set
        {"P-n", "Name nDesk"},
        {"P=", "Name ="}, // both are wanted: the name comes first
    };
    forEachRow(rows, [](const Example& row) {
        LookUpBench bench(true);
        bench.record->note = "";
        bench.catalogue->all = LookUpList{{{11, "ABC-1"}}};
        bench.boxes.PrvFillPartNumList();
        bench.boxes.PrvFillProductNameList();
        bench.catalogue->matches = LookUpList{{{11, "no text is longer"}}};
        for (const char doing : std::string_view(row.text)) {
            auto& box = bench.form.comboBox(doing == 'p' || doing == 'P' ? "cboPartNum" : "cboProductName");
            switch (doing) {
            case '-': bench.form.focus("txtQty"); break;
            case '=': box.setText("="); break;
            case '.': bench.platform().clock().advance(500); break;
            case 'P':
            case 'N': box.chooseRow(0); break;
            default: box.type(std::string(1, doing));
            }
        }
        bench.script.calls.clear();
        bench.boxes.finishPendingLookUps();
        EXPECT_EQ(bench.script.calls.substr(0, bench.script.calls.find(", ")), row.result);
        EXPECT_EQ(bench.record->key == "42", bench.record->name != "n");
    });
}

TEST(LookUpValues, ConvertOrFailAsThoseOfAHost)
{
    icu::IcuLocaleService german{{.monetary = "de_DE", .numeric = "de_DE"}};
    struct Row {
        const char* name;
        LookUpValue value;
        const char *amount, *text;
    };
    const Row rows[] = {
        {"nothing", std::monostate(), "error 94", "error 94"},
        {"too large an integer", INT64_MAX, "error 6", "9223372036854775807"},
        {"double", 9.95, "9.95", "9.95"},
        {"too large a double", 1e20, "error 6", "100000000000000000000"},
        {"tiny double", 1e-7, "0", "0.0000001"},
        {"no number", std::numeric_limits<double>::infinity(), "error 6", "error 6"},
        {"amount", Currency::fromScaled(12345), "1.2345", "1.2345"},
        {"text", std::string("1.234,50"), "1234.5", "1.234,50"},
        {"text that is no number", std::string("dear"), "error 13", "dear"},
    };
    forEachRow(rows, [&](const Row& row) {
        EXPECT_EQ(textOrError([&] { return toCurrency(row.value, german).toText(); }), row.amount);
        EXPECT_EQ(textOrError([&] { return toText(row.value); }), row.text);
    });
}

} // namespace
} // namespace orvan::test

// The contract of the boxes, on every platform.
#include "ContractDriver.h"

namespace orvan::contract {

using ui::ControlKind;

// clang-format off
constexpr ui::ControlDesign kBoxes[] = {
    {.name = "line", .kind = ControlKind::textBox, .width = 2250, .height = 375, .tabIndex = 0},
    {.name = "note", .kind = ControlKind::textBox, .top = 450, .width = 3000, .height = 900, .tabIndex = 1,
     .multiLine = true},
    {.name = "combo", .kind = ControlKind::comboBox, .top = 1500, .width = 2250, .height = 375, .tabIndex = 2},
    {.name = "amount", .kind = ControlKind::textBox, .top = 2000, .width = 2250, .height = 375, .tabIndex = 3,
     .use = ui::TextUse::number, .alignment = ui::Alignment::right},
};
// clang-format on
const ui::FormDesign kEntryDesign{.name = "Boxes", .width = 6000, .height = 3600, .controls = kBoxes};

void EntryContract::SetUp()
{
    PlatformContract::SetUp();
    surface = driver->load(kEntryDesign);
}

namespace {

using namespace std::string_literals;

const std::string kFace = "\U0001F600";

TEST_P(EntryContract, WhatIsTypedStandsWhereTheCaretIsAsFarAsItFits)
{
    struct Row {
        const char *name, *boxes = "line combo note";
        std::string text;
        std::int32_t start = 0, length = 0, limit = 0;
        std::string typed = {}, pasted = {}, after;
        std::int32_t caret;
    };
    const std::string kOdd = "\r\n\xFF\xC2\xA0"; // a break of two bytes, a stray byte, a blank that does not break
    // clang-format off
    const Row rows[] = {
        {.name = "in the middle", .text = "ab", .start = 1, .typed = "xy", .after = "axyb", .caret = 3},
        {.name = "in place of the selection, to the limit", .text = "abc", .start = 1, .length = 1, .limit = 3,
         .typed = "xy", .after = "axc", .caret = 2},
        {.name = "at the limit", .text = "abc", .limit = 3, .pasted = "x", .after = "abc", .caret = 0},
        {.name = "the limit counts characters", .text = "a" + kFace, .start = 2, .limit = 4,
         .pasted = kFace + "\U0001F601\U0001F602", .after = "a" + kFace + kFace + "\U0001F601", .caret = 4},
        {.name = "in place of two characters", .text = kFace + "bc", .start = 1, .length = 2, .limit = 2,
         .typed = "\U0001F601z", .after = kFace + "\U0001F601", .caret = 2},
        {.name = "Backspace", .text = kFace + "b", .start = 1, .typed = "\b", .after = "b", .caret = 0},
        {.name = "Delete", .text = "a" + kFace, .start = 1, .typed = "\x7F", .after = "a", .caret = 1},
        {.name = "pasted lines become one", .boxes = "line combo", .text = "", .pasted = "a\r\nb\nc",
         .after = "a b c", .caret = 5},
        {.name = "Enter makes no line", .boxes = "line combo", .text = "a", .start = 1, .typed = "\nb",
         .after = "ab", .caret = 2},
        {.name = "Enter makes a line", .boxes = "note", .text = "a", .start = 1, .typed = "\nb",
         .after = "a\nb", .caret = 3},
        {.name = "Enter breaks lines as the text does", .boxes = "note", .text = "a\r\nb", .start = 1,
         .typed = "\n", .after = "a\r\n\r\nb", .caret = 3},
        {.name = "a break does not fit", .boxes = "note", .text = "a\r\nb", .start = 1, .limit = 5,
         .pasted = "\n", .after = "a\r\nb", .caret = 1},
        {.name = "odd bytes stay in a note", .boxes = "note", .text = "a" + kOdd + "\xE2\x80\xA9\0b"s, .start = 1,
         .typed = "x", .after = "ax" + kOdd + "\xE2\x80\xA9\0b"s, .caret = 2},
        {.name = "odd bytes stay in a line", .boxes = "line combo", .text = "a" + kOdd + "\xEF\xBB\xBF", .start = 1,
         .typed = "x", .after = "ax" + kOdd + "\xEF\xBB\xBF", .caret = 2},
    };
    // clang-format on
    forEachRow(rows, [&](const Row& row) {
        for (const char* name : {"line", "combo", "note"}) {
            if (std::string_view(row.boxes).find(name) == std::string_view::npos) {
                continue;
            }
            ui::TextEntry& box = entry(name);
            int changes = 0;
            box.setMaxLength(0);
            box.setText(row.text);
            box.setMaxLength(row.limit);
            box.onChange = [&] { ++changes; };
            driver->select(box, row.start, row.length);
            EXPECT_EQ(changes, 0) << name << ": showing and selecting change nothing";
            row.typed.empty() ? driver->paste(box, row.pasted) : driver->type(box, row.typed);
            EXPECT_EQ(box.text(), row.after) << name;
            EXPECT_EQ(box.selectionStart(), row.caret) << name;
            EXPECT_EQ(changes > 0, row.text != row.after) << name;
            box.onChange = nullptr;
        }
    });
}

TEST_P(EntryContract, TheFilterSeesEachCharacterAndDecides)
{
    for (const char* name : {"line", "combo", "note"}) {
        ui::TextEntry& box = entry(name);
        std::vector<std::int16_t> seen;
        box.setText("abc");
        driver->select(box, 0, 3);
        for (const char letter : {'X', 'V', 'V'}) {
            driver->pressControl(box, letter);
        }
        EXPECT_EQ(box.text(), "abcabc") << name;
        box.setText("1");
        box.setSelectionStart(1);
        box.onKeyPress = [&](std::int16_t& keyAscii) {
            seen.push_back(keyAscii);
            if (keyAscii == 'o') {
                keyAscii = '0';
            } else if (keyAscii >= 'a' || keyAscii == 13 || keyAscii == 24) {
                keyAscii = 0;
            }
        };
        driver->type(box, "2ox\n\U0001F600");
        for (const char letter : {'A', 'X', 'Z'}) {
            driver->pressControl(box, letter);
        }
        box.setSelectionStart(4);
        driver->type(box, "\b");
        driver->type(box, "\x7F");
        driver->pressKeypadDecimal(box);
        driver->paste(box, "ab");
        EXPECT_EQ(seen, (std::vector<std::int16_t>{'2', 'o', 'x', 13, '?', 1, 24, 26, 8, '.'})) << name;
        box.onKeyPress = nullptr;
    }
    for (const std::string decimal : {",", "::"}) {
        driver->locale.decimal = decimal;
        surface = driver->load(kEntryDesign);
        ui::TextEntry& box = entry("amount");
        driver->type(box, "1");
        driver->pressKeypadDecimal(box);
        EXPECT_EQ(box.text(), "1" + decimal) << "no filter needed";
    }
}

TEST_P(EntryContract, ListAndTextOfAComboBoxLeaveEachOtherAlone)
{
    driver->type(combo(), "b");
    int changes = 0;
    std::vector<std::int32_t> clicks;
    combo().onChange = [&] { ++changes; };
    combo().onClick = [&] { clicks.push_back(combo().listIndex()); };
    for (int round = 0; round < 2; ++round) {
        combo().clear();
        for (const char* text : {"a", "b", "\U0001F600c", ""}) {
            combo().addItem(text);
        }
        combo().refresh();
        EXPECT_EQ(combo().text(), "b");
        EXPECT_EQ(combo().selectionStart(), 1);
        driver->type(combo(), "\n");
        entry("line").setFocus();
        EXPECT_EQ(combo().listIndex(), -1) << "a text that is in the list is no choice";
    }
    const std::pair<std::int32_t, std::string> choices[] = {{2, kFace + "c"}, {2, kFace + "c"}, {0, "a"}, {3, ""}};
    for (const auto& [row, text] : choices) {
        driver->chooseRow(combo(), row);
        EXPECT_EQ(combo().text(), text);
        EXPECT_EQ(combo().selectionStart(), 0);
        EXPECT_EQ(std::exchange(clicks, {}), std::vector<std::int32_t>{row}) << "once each";
    }
    EXPECT_EQ(changes, 0);
    driver->type(combo(), "z");
    EXPECT_EQ(combo().listIndex(), -1);
    EXPECT_EQ(changes, 1);
    combo().onClick = [&] { surface.reset(); };
    driver->chooseRow(combo(), 1);
    EXPECT_FALSE(surface);
}

TEST_P(EntryContract, AHandlerMayEndTheFormOfItsBox)
{
    for (const char* name : {"line", "combo", "note"}) {
        for (const bool byKey : {true, false}) {
            surface = driver->load(kEntryDesign);
            ui::TextEntry& box = entry(name);
            if (byKey) {
                box.onKeyPress = [&](std::int16_t&) { surface.reset(); };
            } else {
                box.onChange = [&] { surface.reset(); };
            }
            box.setFocus();
            driver->type(box, "a");
            EXPECT_FALSE(surface) << name;
        }
    }
}

} // namespace
} // namespace orvan::contract

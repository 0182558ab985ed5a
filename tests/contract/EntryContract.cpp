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
    // What is put in is typed, or pasted when it begins with "+".
    const Rows<const char*, std::string, std::int32_t, std::int32_t, std::int32_t, std::string, std::string,
               std::int32_t>
        rows{{"line combo note", "ab", 1, 0, 0, "xy", "axyb", 3},
             {"line combo note", "abc", 1, 1, 3, "xy", "axc", 2},
             {"line combo note", "abc", 0, 0, 3, "+x", "abc", 0},
             {"line combo note", "a" + kFace, 2, 0, 4, "+" + kFace + "\U0001F601\U0001F602",
              "a\U0001F600\U0001F600\U0001F601", 4},
             {"line combo note", kFace + "bc", 1, 2, 2, "\U0001F601z", "\U0001F600\U0001F601", 2},
             {"line combo note", kFace + "b", 1, 0, 0, "\b", "b", 0},
             {"line combo note", "a" + kFace, 1, 0, 0, "\x7F", "a", 1},
             {"line combo", "", 0, 0, 0, "+a\r\nb\nc", "a b c", 5},
             {"line combo", "a", 1, 0, 0, "\nb", "ab", 2},
             {"note", "a", 1, 0, 0, "\nb", "a\nb", 3},
             {"note", "a\r\nb", 1, 0, 0, "\n", "a\r\n\r\nb", 3},
             {"note", "a\r\nb", 1, 0, 5, "+\n", "a\r\nb", 1},
             {"note", "a\r\n\xFF\xC2\xA0\xE2\x80\xA9\0b"s, 1, 0, 0, "x", "ax\r\n\xFF\xC2\xA0\xE2\x80\xA9\0b"s, 2},
             {"line combo", "a\r\n\xFF\xC2\xA0\xEF\xBB\xBF", 1, 0, 0, "x", "ax\r\n\xFF\xC2\xA0\xEF\xBB\xBF", 2}};
    for (const auto& [boxes, text, start, length, limit, input, after, caret] : rows) {
        for (const char* name : {"line", "combo", "note"}) {
            if (std::string_view(boxes).find(name) == std::string_view::npos) {
                continue;
            }
            ui::TextEntry& box = entry(name);
            int changes = 0;
            box.setMaxLength(0);
            box.setText(text);
            box.setMaxLength(limit);
            box.onChange = [&] { ++changes; };
            driver->select(box, start, length);
            EXPECT_EQ(changes, 0) << name << ": showing and selecting change nothing";
            input[0] == '+' ? driver->paste(box, input.substr(1)) : driver->type(box, input);
            EXPECT_EQ(box.text(), after) << name << ", from " << text;
            EXPECT_EQ(box.selectionStart(), caret) << name << ", from " << text;
            EXPECT_EQ(changes > 0, text != after) << name << ", from " << text;
            box.onChange = nullptr;
        }
    }
}

TEST_P(EntryContract, TheFilterSeesEachCharacterAndHasItsWay)
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
        box.onKeyPress = [&](std::int16_t& iKeyAscii) {
            seen.push_back(iKeyAscii);
            iKeyAscii = iKeyAscii == 'o' ? '0' : iKeyAscii >= 'a' || iKeyAscii == 13 || iKeyAscii == 24 ? 0 : iKeyAscii;
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
    for (const auto& [decimal, typed] : Rows<const char*, const char*>{{",", "1,"}, {"::", "1::"}}) {
        driver->locale.decimal = decimal;
        surface = driver->load(kEntryDesign);
        ui::TextEntry& box = entry("amount");
        driver->type(box, "1");
        driver->pressKeypadDecimal(box);
        EXPECT_EQ(box.text(), typed) << "no filter needed";
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
    for (const auto& [row, text] :
         Rows<std::int32_t, std::string>{{2, kFace + "c"}, {2, kFace + "c"}, {0, "a"}, {3, ""}}) {
        driver->chooseRow(combo(), row);
        EXPECT_EQ(combo().text(), text);
        EXPECT_EQ(combo().selectionStart(), 0);
        EXPECT_EQ(clicks, std::vector<std::int32_t>{row}) << "once each";
        clicks.clear();
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

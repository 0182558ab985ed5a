#include "orvan/ui/headless/HeadlessEntries.h"

#include "orvan/base/Text.h"
#include "orvan/ui/LocaleSeparators.h"
#include "orvan/ui/headless/Impossible.h"

#include <algorithm>
#include <optional>

namespace orvan::headless {

namespace {

constexpr char32_t kBackspace = 8;
constexpr char32_t kEnter = 13;

char32_t fromUtf8(std::string_view character)
{
    if (character.size() == 1) {
        return static_cast<unsigned char>(character[0]);
    }
    char32_t code = static_cast<unsigned char>(character[0]) & (0x7FU >> character.size());
    for (const char byte : character.substr(1)) {
        code = code << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    return code;
}

std::size_t bytesBefore(std::string_view text, std::int32_t characters)
{
    return firstCharacters(text, static_cast<std::size_t>(characters)).size();
}

} // namespace

EntryHand::EntryHand(ui::EntryPort& port, const ui::ControlDesign& design, ui::LocaleService& locale)
    : port_(port), readOnly_(design.readOnly), multiLine_(design.multiLine),
      keypadDecimal_(ui::keypadDecimal(locale, design.use))
{
}

bool EntryHand::pressKey(char32_t key)
{
    if (!port_.entry().hasFocus()) {
        port_.reportFocus();
    }
    const LifetimeWatch watch = lifetime_.watch();
    const char32_t typed = port_.reportKey(key);
    if (watch.ended()) {
        return false;
    }
    if (typed != 0 && typed != key) { // the handler put another character in its place
        replaceSelection(toUtf8(typed));
    }
    return typed == key;
}

void EntryHand::type(std::string_view text)
{
    const LifetimeWatch watch = lifetime_.watch();
    for (std::size_t at = 0; at < text.size() && !watch.ended();) {
        const std::string_view character = text.substr(at, characterSize(text, at));
        at += character.size();
        const bool isEnter = character == "\n";
        if (pressKey(isEnter ? kEnter : fromUtf8(character)) && (!isEnter || multiLine_)) {
            replaceSelection(character);
        }
    }
}

void EntryHand::pressKeypadDecimal()
{
    type(keypadDecimal_);
}

void EntryHand::backspace()
{
    if (!pressKey(kBackspace)) {
        return;
    }
    if (port_.entry().selectionLength() > 0) {
        replaceSelection({});
    } else if (port_.entry().selectionStart() > 0) {
        replace(port_.entry().selectionStart() - 1, 1, {});
    }
}

void EntryHand::deleteForward()
{
    port_.reportFocus();
    replace(port_.entry().selectionStart(), std::max(port_.entry().selectionLength(), 1), {});
}

void EntryHand::pressControl(char letter, std::string& clipboard)
{
    if (letter < 'A' || letter > 'Z') {
        raiseImpossible("Ctrl goes with a letter from A to Z");
    }
    if (!pressKey(static_cast<char32_t>(letter - 'A' + 1))) {
        return;
    }
    switch (letter) {
    case 'A': select(0, static_cast<std::int32_t>(characterCount(port_.entry().text()))); break;
    case 'C': clipboard = selectedText(); break;
    case 'X':
        clipboard = selectedText();
        replaceSelection({});
        break;
    case 'V': replaceSelection(clipboard); break;
    default: break;
    }
}

void EntryHand::paste(std::string_view text)
{
    if (!port_.entry().hasFocus()) {
        port_.reportFocus();
    }
    replaceSelection(text);
}

void EntryHand::select(std::int32_t start, std::int32_t length)
{
    const auto characters = static_cast<std::int32_t>(characterCount(port_.entry().text()));
    if (start < 0 || length < 0 || start + length > characters) {
        raiseImpossible(port_.entry().name() + ": a user cannot select what is not there");
    }
    port_.reportSelection(start, length);
}

std::string EntryHand::selectedText()
{
    const std::string& text = port_.entry().text();
    const std::size_t from = bytesBefore(text, port_.entry().selectionStart());
    return text.substr(from, bytesBefore(std::string_view(text).substr(from), port_.entry().selectionLength()));
}

void EntryHand::replaceSelection(std::string_view text)
{
    replace(port_.entry().selectionStart(), port_.entry().selectionLength(), text);
}

void EntryHand::replace(std::int32_t start, std::int32_t length, std::string_view text)
{
    if (readOnly_) {
        return;
    }
    std::string whole = port_.entry().text();
    const std::size_t from = bytesBefore(whole, start);
    whole.erase(from, bytesBefore(std::string_view(whole).substr(from), length));
    std::optional<std::int64_t> capacity;
    if (port_.entry().maxLength() > 0) {
        capacity = port_.entry().maxLength() - static_cast<std::int64_t>(characterCount(whole));
    }
    const std::string fitted = ui::fitForEntry(text, multiLine_ ? ui::lineEndOf(port_.entry().text()) : " ", capacity);
    whole.insert(from, fitted);
    port_.reportSelection(start + static_cast<std::int32_t>(characterCount(fitted)), 0);
    port_.reportText(std::move(whole));
}

void HeadlessComboBox::chooseRow(std::int32_t row)
{
    if (!hasFocus()) {
        userFocused();
    }
    userChoseRow(row);
}

} // namespace orvan::headless

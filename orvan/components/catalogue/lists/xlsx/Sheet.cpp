#include "orvan/components/catalogue/lists/xlsx/Sheet.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace orvan::xlsx {

namespace {

constexpr std::size_t kMostSharedBytes = std::size_t{256} * 1024 * 1024;
constexpr std::size_t kMostShared = 20'000'000; // texts
constexpr std::size_t kMostRowBytes = std::size_t{1024} * 1024;
constexpr std::size_t kMostColumns = 1000;
constexpr std::size_t kLastColumn = 16'384; // of the file form
constexpr std::uint64_t kLastRow = 1'048'576;
constexpr int kDigits = 15; // that spreadsheets show of a number

template <class Number>
bool readNumber(std::string_view text, Number& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

/// The text with characters that XML does not have, which are written as "_x000D_".
void appendUnescaped(std::string& to, std::string_view text)
{
    constexpr std::size_t kEscape = 7;
    for (std::size_t at = text.find("_x"); at != text.npos; at = text.find("_x", at)) {
        unsigned character = 0;
        const std::string_view escape = text.substr(at, kEscape);
        const auto [end, error] = std::from_chars(escape.data() + 2, escape.data() + escape.size(), character, 16);
        if (escape.size() < kEscape || escape.back() != '_' || error != std::errc() ||
            end != escape.data() + kEscape - 1 || (character >= 0xD800 && character < 0xE000)) {
            at += 2;
            continue;
        }
        to.append(text.substr(0, at)).append(toUtf8(character));
        text.remove_prefix(at + kEscape);
        at = 0;
    }
    to.append(text);
}

/// A stored number without the digits that are only its binary form; nothing where the text is no number.
bool appendNumber(std::string& to, std::string_view text)
{
    double number = 0;
    if (!readNumber(trimmed(text, " \t\r\n+"), number) || !std::isfinite(number)) {
        return false;
    }
    char digits[512];
    const auto rounded = std::to_chars(digits, std::end(digits), number, std::chars_format::scientific, kDigits - 1);
    readNumber(std::string_view(digits, static_cast<std::size_t>(rounded.ptr - digits)), number);
    const auto plain = std::to_chars(digits, std::end(digits), number, std::chars_format::fixed);
    to.append(digits, plain.ptr);
    return true;
}

/// The column of a reference such as "AB12", from 0.
std::size_t columnOf(std::string_view reference, std::uint64_t line)
{
    std::size_t column = 0, at = 0;
    for (; at < reference.size() && at < 3 && reference[at] >= 'A' && reference[at] <= 'Z'; ++at) {
        column = column * 26 + static_cast<std::size_t>(reference[at] - 'A') + 1;
    }
    std::uint64_t row = 0;
    if (column == 0 || column > kLastColumn || !readNumber(reference.substr(at), row) || row != line) {
        refuse(userText("row %1 has a cell with the wrong place \"%2\"", line, firstCharacters(reference, 20)));
    }
    return column - 1;
}

} // namespace

void SharedTexts::read(Package& package, const std::string& part)
{
    bool inText = false;
    int phonetic = 0;
    std::string text;
    Part::Events events;
    events.begin = [&](std::string_view name, const XML_Char**) {
        inText = name == "t";
        phonetic += name == "rPh" ? 1 : 0;
    };
    events.end = [&](std::string_view name) {
        inText = inText && name != "t";
        phonetic -= name == "rPh" ? 1 : 0;
        if (name == "si") {
            appendUnescaped(all_, text);
            text.clear();
            ends_.push_back(all_.size());
        }
        if (all_.size() > kMostSharedBytes || ends_.size() > kMostShared) {
            refuse(userText("its texts are too large to be kept in memory; save the list as CSV"));
        }
    };
    events.text = [&](std::string_view piece) {
        if (inText && phonetic == 0) {
            text += piece;
            if (text.size() > kMostRowBytes) {
                refuse(userText("one of its texts has more than a megabyte"));
            }
        }
    };
    Part(package, part, std::move(events)).parseAll();
}

std::string_view SharedTexts::at(std::string_view number) const
{
    std::size_t index = 0;
    if (!readNumber(number, index) || index >= ends_.size()) {
        refuse(userText("a cell refers to text %1 of %2", firstCharacters(number, 20), ends_.size()));
    }
    const std::size_t begin = index == 0 ? 0 : ends_[index - 1];
    return std::string_view(all_).substr(begin, ends_[index] - begin);
}

Sheet::Sheet(Package& package, const std::string& part, const SharedTexts& texts)
    : texts_(texts),
      part_(package, part,
            {.begin = [this](std::string_view name, const XML_Char** attributes) { begin(name, attributes); },
             .end = [this](std::string_view name) { end(name); },
             .text =
                 [this](std::string_view text) {
                     if (inValue_ && phonetic_ == 0) {
                         value_ += text;
                         if (value_.size() > kMostRowBytes) {
                             refuse(userText("row %1 has more than a megabyte", line_));
                         }
                     }
                 }})
{
}

void Sheet::begin(std::string_view name, const XML_Char** attributes)
{
    if (name == "row") {
        beginRow(attribute(attributes, "r"));
    } else if (name == "c") {
        beginCell(attributes);
    } else if (name == "v" || name == "t") {
        inValue_ = true;
    } else if (name == "rPh") {
        ++phonetic_;
    }
}

void Sheet::beginRow(std::string_view reference)
{
    if (std::exchange(inRow_, true)) {
        refuse(userText("a row stands within row %1", line_));
    }
    std::uint64_t line = line_ + 1;
    if (!reference.empty() && (!readNumber(reference, line) || line <= line_ || line > kLastRow)) {
        refuse(userText("its row \"%1\" comes after row %2", firstCharacters(reference, 20), line_));
    }
    line_ = line;
    column_ = 0;
    rows_.push_back({.line = line});
}

void Sheet::beginCell(const XML_Char** attributes)
{
    if (!inRow_) {
        refuse(userText("a cell stands in no row"));
    }
    const std::string_view reference = attribute(attributes, "r");
    if (!reference.empty()) {
        const std::size_t column = columnOf(reference, line_);
        if (column < column_) {
            refuse(userText("row %1 has a cell with the wrong place \"%2\"", line_, firstCharacters(reference, 20)));
        }
        column_ = column;
    }
    type_ = attribute(attributes, "t");
    value_.clear();
}

/// A cell without a value, which has only a format, may stand far away from the others and does not count.
void Sheet::endCell()
{
    Row& row = rows_.back();
    if (!value_.empty()) {
        if (column_ >= kMostColumns) {
            refuse(userText("it has more than %1 columns", kMostColumns));
        }
        row.ends.resize(column_, row.text.size());
        row.numbers.resize(column_);
        bool number = false;
        if (type_ == "s") {
            row.text += texts_.at(value_);
        } else if (type_.empty() || type_ == "n") {
            number = appendNumber(row.text, value_);
            row.text += number ? std::string() : value_;
        } else if (type_ == "b") {
            row.text += value_ == "1" ? "TRUE" : "FALSE";
        } else {
            appendUnescaped(row.text, value_);
        }
        if (row.text.size() > kMostRowBytes) {
            refuse(userText("row %1 has more than a megabyte", line_));
        }
        row.ends.push_back(row.text.size());
        row.numbers.push_back(number);
    }
    ++column_;
}

void Sheet::end(std::string_view name)
{
    if (name == "v" || name == "t") {
        inValue_ = false;
    } else if (name == "rPh") {
        --phonetic_;
    } else if (name == "c") {
        endCell();
    } else if (name == "row") {
        inRow_ = false;
        if (rows_.back().text.empty()) {
            rows_.pop_back();
        }
    }
}

bool Sheet::next()
{
    // The last row may not be complete yet while there is more of the sheet.
    while (more_ && rows_.size() < 2) {
        more_ = part_.parse();
    }
    if (rows_.empty()) {
        return false;
    }
    row_ = std::move(rows_.front());
    rows_.pop_front();
    cells_.clear();
    std::size_t begin = 0;
    for (const std::size_t end : row_.ends) {
        cells_.push_back(std::string_view(row_.text).substr(begin, end - begin));
        begin = end;
    }
    return true;
}

} // namespace orvan::xlsx

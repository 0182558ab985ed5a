// SpreadsheetCell: writes texts and amounts as cells of a file or text that a spreadsheet reads.
//
// A spreadsheet would take a text that begins with = + - or @ for a formula, and would swallow a ', tab or CR at the
// beginning. Such a text gets one ' in front; reading removes one ' before any of these characters. Amounts are never
// changed in this way. A cell in quotation marks has each quotation mark within it doubled. Thread: any.
#pragma once

#include "orvan/base/Currency.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace orvan {

[[nodiscard]] constexpr bool needsGuard(std::string_view text)
{
    return !text.empty() && std::string_view("=+-@'\t\r").find(text.front()) != std::string_view::npos;
}

[[nodiscard]] inline std::string guarded(std::string_view text)
{
    return needsGuard(text) ? '\'' + std::string(text) : std::string(text);
}

[[nodiscard]] constexpr std::string_view unguarded(std::string_view cell)
{
    return cell.substr(cell.starts_with('\'') && needsGuard(cell.substr(1)) ? 1 : 0);
}

/// Appends the cell in quotation marks.
inline void appendQuoted(std::string& line, std::string_view cell)
{
    line += '"';
    for (const char c : cell) {
        line.append(c == '"' ? 2 : 1, c);
    }
    line += '"';
}

/// Appends a plain number with all its decimals and this decimal separator.
inline void appendAmount(std::string& line, Currency amount, std::string_view decimalSeparator)
{
    Currency::TextBuffer buffer;
    const std::string_view text = amount.toText(buffer);
    const std::size_t point = std::min(text.find('.'), text.size());
    line.append(text.substr(0, point));
    if (point < text.size()) {
        line.append(decimalSeparator).append(text.substr(point + 1));
    }
}

} // namespace orvan

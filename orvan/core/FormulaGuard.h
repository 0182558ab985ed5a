// FormulaGuard: texts that a spreadsheet would not take for what they are.
//
// A cell that begins with = + - or @ would be taken for a formula, and a ' at the beginning would be swallowed, as
// would a tab or CR. Such a text gets one ' in front when it is handed to a spreadsheet; reading removes one ' before
// any of these. Amounts are never changed in this way. Thread: any.
#pragma once

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

} // namespace orvan

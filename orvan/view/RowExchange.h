// RowExchange: writes rows of the list as text that a spreadsheet understands, and reads such text.
//
// The text has one line for each product, with a tab between the cells: part number, name, quantity, unit price,
// discount, extended price, note, catalogue key. A cell that contains a tab, a line end or a quotation mark is put in
// quotation marks, and each quotation mark in it is doubled, as spreadsheets do. Amounts are plain numbers with the
// user's decimal separator.
//
// A text that begins with = + - @ ' tab or CR gets one ' in front, because a spreadsheet would take it for a formula or
// swallow the first character; reading removes one ' before any of these. Amounts are never changed in this way.
// Texts are UTF-8. Thread: the user-interface thread.
#pragma once

#include "orvan/core/ProductValues.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvan {

namespace ui {
class LocaleService;
}

[[nodiscard]] std::string rowsToText(const std::vector<ProductValues>& products, ui::LocaleService& locale);

/// Reads such a text. A first line with the captions of the columns may stand in front and then says which columns
/// there are, in any order. A missing amount is 0, a missing quantity 1, and a missing extended price is computed.
/// Empty lines are skipped. Raises 321 for a row that cannot be read; the description says in which row and column, and
/// why.
[[nodiscard]] std::vector<ProductValues> textToRows(std::string_view text, ui::LocaleService& locale);

} // namespace orvan

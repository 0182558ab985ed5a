#include "orvan/view/RowExchange.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/core/SpreadsheetCell.h"
#include "orvan/core/modLocale.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

namespace orvan {

namespace {

struct ExchangeColumn {
    std::string_view caption;
    std::string ProductValues::*text = nullptr;
    Currency ProductValues::*amount = nullptr;
};
constexpr ExchangeColumn kColumns[] = {
    {.caption = "Part#", .text = &ProductValues::partNum},
    {.caption = "Product", .text = &ProductValues::name},
    {.caption = "Qty", .amount = &ProductValues::qty},
    {.caption = "Unit Price", .amount = &ProductValues::unitPrice},
    {.caption = "Disc%", .amount = &ProductValues::discPrcnt},
    {.caption = "Ext Price", .amount = &ProductValues::extPrice},
    {.caption = "Note", .text = &ProductValues::note},
    {.caption = "Key", .text = &ProductValues::key},
};

void appendText(std::string& line, std::string_view cell)
{
    const bool plain =
        std::none_of(cell.begin(), cell.end(), [](char c) { return c == '\t' || c == '\r' || c == '\n' || c == '"'; });
    if (plain) {
        line.append(needsGuard(cell) ? 1 : 0, '\'').append(cell);
        return;
    }
    appendQuoted(line, guarded(cell));
}

std::string decimalSeparator(ui::LocaleService& locale)
{
    return PrvInitLocale(locale).decimalSep;
}

/// One cell after the other, with the lines that they stand in.
class CellReader {
public:
    explicit CellReader(std::string_view text) : rest_(text) {}

    bool more() const { return !rest_.empty(); }
    /// Raises 321 for a quotation mark that is not closed.
    std::vector<std::string> nextRow()
    {
        std::vector<std::string> cells;
        ++row_;
        do {
            cells.push_back(nextCell());
        } while (takes('\t'));
        static_cast<void>(takes('\r'));
        static_cast<void>(takes('\n'));
        return cells;
    }
    int row() const { return row_; }

private:
    bool takes(char c)
    {
        const bool found = rest_.starts_with(c);
        rest_.remove_prefix(found ? 1 : 0);
        return found;
    }

    std::string nextCell()
    {
        if (!takes('"')) {
            const std::string_view cell = rest_.substr(0, rest_.find_first_of("\t\r\n"));
            rest_.remove_prefix(cell.size());
            return std::string(cell);
        }
        std::string cell;
        while (true) {
            const std::size_t end = rest_.find('"');
            if (end == std::string_view::npos) {
                throw RuntimeError(ErrorNumber::invalidFileFormat, {},
                                   userText("Row %1: a quotation mark is not closed", row_));
            }
            cell += rest_.substr(0, end);
            rest_.remove_prefix(end + 1);
            if (!takes('"')) {
                break;
            }
            cell += '"';
        }
        const std::string_view after = rest_.substr(0, rest_.find_first_of("\t\r\n")); // text behind a closing mark
        cell += after;
        rest_.remove_prefix(after.size());
        return cell;
    }

    std::string_view rest_;
    int row_ = 0;
};

using Columns = std::vector<const ExchangeColumn*>; ///< Null for a column that is not known.

/// The columns that a first line names; empty if it is no line of captions.
Columns captionsIn(const std::vector<std::string>& cells)
{
    Columns columns;
    for (const std::string& cell : cells) {
        const auto found = std::find_if(std::begin(kColumns), std::end(kColumns),
                                        [&](const ExchangeColumn& column) { return column.caption == cell; });
        columns.push_back(found != std::end(kColumns) ? &*found : nullptr);
    }
    const auto known = std::count_if(columns.begin(), columns.end(), [](const auto* column) { return column; });
    return known > 0 && (known > 1 || cells.size() == 1) ? columns : Columns();
}

[[noreturn]] void refuse(int row, const ExchangeColumn& column, std::string_view cell, const UserText& why)
{
    constexpr std::size_t kMostShown = 40; // bytes
    std::string shown(cell.substr(0, kMostShown));
    throw RuntimeError(ErrorNumber::invalidFileFormat, {},
                       userText("Row %1, column \"%2\": \"%3\" %4", row, userText(column.caption),
                                shown + (cell.size() > kMostShown ? "…" : ""), why));
}

Currency amountIn(const std::string& cell, int row, const ExchangeColumn& column, std::string_view separator)
{
    std::string plain = cell;
    if (const std::size_t place = separator == "." ? std::string::npos : plain.find(separator);
        place != std::string::npos) {
        plain.replace(place, separator.size(), ".");
    } else if (separator != "." && plain.find('.') != std::string::npos) {
        refuse(row, column, cell, userText("is not a number with the decimal separator \"%1\"", separator));
    }
    try {
        return Currency::fromText(plain);
    } catch (const RuntimeError& error) {
        refuse(row, column, cell,
               error.number() == ErrorNumber::overflow ? userText("is too large") : userText("is not a number"));
    }
}

} // namespace

std::string rowsToText(const std::vector<ProductValues>& products, ui::LocaleService& locale)
{
    const std::string separator = decimalSeparator(locale);
    std::string text;
    for (const ProductValues& values : products) {
        for (const ExchangeColumn& column : kColumns) {
            text.append(&column == std::begin(kColumns) ? 0 : 1, '\t');
            if (column.amount) {
                appendAmount(text, values.*column.amount, separator);
            } else {
                appendText(text, values.*column.text);
            }
        }
        text += "\r\n"; // as spreadsheets write it
    }
    return text;
}

std::vector<ProductValues> textToRows(std::string_view text, ui::LocaleService& locale)
{
    const std::string separator = decimalSeparator(locale);
    Columns columns;
    for (const ExchangeColumn& column : kColumns) {
        columns.push_back(&column);
    }
    std::vector<ProductValues> products;
    CellReader reader(text);
    while (reader.more()) {
        const std::vector<std::string> cells = reader.nextRow();
        if (reader.row() == 1) {
            if (Columns named = captionsIn(cells); !named.empty()) {
                columns = std::move(named);
                continue;
            }
        }
        if (std::all_of(cells.begin(), cells.end(), [](const std::string& cell) { return cell.empty(); })) {
            continue;
        }
        if (cells.size() > columns.size()) {
            throw RuntimeError(ErrorNumber::invalidFileFormat, {},
                               userText("Row %1 has %2 cells, and there are only %3 columns", reader.row(),
                                        cells.size(), columns.size()));
        }
        ProductValues values;
        values.qty = Currency::fromScaled(Currency::kScale);
        bool priced = false;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (!columns[i] || cells[i].empty()) {
                continue;
            }
            const ExchangeColumn& column = *columns[i];
            if (column.amount) {
                values.*column.amount = amountIn(cells[i], reader.row(), column, separator);
                priced = priced || column.amount == &ProductValues::extPrice;
            } else {
                values.*column.text = unguarded(cells[i]);
            }
        }
        if (!priced) {
            values.extPrice = extendedPrice(values.unitPrice, values.qty, values.discPrcnt);
        }
        products.push_back(std::move(values));
    }
    return products;
}

} // namespace orvan

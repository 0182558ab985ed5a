#include "orvan/components/catalogue/lists/ListReader.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/Text.h"
#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/components/catalogue/PriceText.h"
#include "orvan/components/catalogue/lists/Encoding.h"
#include "orvan/components/catalogue/lists/ListWords.h"

#include <algorithm>
#include <utility>

namespace orvan {

namespace {

constexpr std::uint64_t kRowsBetweenReports = 1000;
constexpr std::size_t kQuotedCharacters = 40; // how much of a refused value a reason quotes

std::string_view quoted(std::string_view value)
{
    return firstCharacters(value, kQuotedCharacters);
}

std::string_view withoutBlanks(std::string_view text)
{
    text = trimmed(text, " \t\r\n");
    while (text.starts_with("\u00A0")) {
        text = trimmed(text.substr(2), " \t\r\n");
    }
    while (text.ends_with("\u00A0")) {
        text = trimmed(text.substr(0, text.size() - 2), " \t\r\n");
    }
    return text;
}

bool isBlank(std::string_view text)
{
    return withoutBlanks(text).empty();
}

/// Whether a spreadsheet wrote the number in its short form, and so without its last digits: "4.00638E+12".
bool hasLostDigits(std::string_view barcode)
{
    const std::size_t exponent = barcode.find("E+");
    const auto isPart = [](char c) { return isDigit(c) || c == '.' || c == ','; };
    return exponent != barcode.npos && exponent > 0 &&
           std::all_of(barcode.begin(), barcode.begin() + static_cast<std::ptrdiff_t>(exponent), isPart) &&
           std::all_of(barcode.begin() + static_cast<std::ptrdiff_t>(exponent) + 2, barcode.end(), isDigit);
}

} // namespace

/// What one of the columns that may have the price tells.
struct ListReader::PriceColumn {
    std::size_t column;
    bool filled = false;
    char decimal = 0;
    std::string ambiguous = {};

    bool isDone() const { return filled && decimal != 0; }
    void look(std::string_view price, bool isNumber)
    {
        filled = filled || !isBlank(price);
        if (isNumber || isDone()) {
            return; // a number by its type tells nothing about the texts
        }
        switch (decimalEvidence(price)) {
        case DecimalEvidence::none: break;
        case DecimalEvidence::ambiguous: ambiguous = price; break;
        case DecimalEvidence::comma: decimal = ','; break;
        case DecimalEvidence::point: decimal = '.'; break;
        }
    }
};

ListReader::ListReader(const ImportSource& source, const CatalogueImportOptions& options)
    : source_(source), options_(options), form_(foundForm(source, options)), columns_(form_.found.columns),
      rows_(openRows(source, form_)), decimal_(options.decimalSeparator)
{
}

UserText ListReader::missingColumns() const
{
    UserText reasons;
    for (const ColumnKind* const kind : form_.found.missing) {
        const UserText reason = whyMissing(*kind, options_.columns);
        reasons = reasons.empty() ? reason : userText("%1; %2", reasons, reason);
    }
    if (reasons.empty() || form_.headerLine == 0) {
        return reasons;
    }
    return userText("%1; line %2 has %3", reasons, form_.headerLine,
                    listed({form_.header.begin(), form_.header.end()}));
}

bool ListReader::findPrices(const GoesOn& goesOn)
{
    std::vector<PriceColumn> prices;
    if (columns_.unitPrice) {
        prices.push_back({*columns_.unitPrice});
    }
    for (const std::size_t other : columns_.otherPrices) {
        prices.push_back({other});
    }
    const std::unique_ptr<RowSource> rows = openRows(source_, form_);
    for (std::uint64_t count = 0; !prices.empty() && !prices.front().isDone() && rows->next(); ++count) {
        if (count % kRowsBetweenReports == 0 && !goesOn(rows->bytesRead())) {
            return false;
        }
        if (!rows->problem().empty() || rows->line() < form_.firstLine || !whyShaped(*rows).empty()) {
            continue; // no entry
        }
        for (PriceColumn& price : prices) {
            if (price.column < rows->cells().size()) {
                price.look(rows->cells()[price.column], rows->isNumber(price.column));
            }
        }
        if (options_.decimalSeparator != 0 && prices.front().filled) {
            break;
        }
    }
    const auto filled = std::find_if(prices.begin(), prices.end(), [](const PriceColumn& each) { return each.filled; });
    if (filled == prices.end()) {
        decimal_ = decimal_ != 0 ? decimal_ : '.';
        return true;
    }
    columns_.unitPrice = filled->column;
    if (decimal_ == 0) {
        decimal_ = filled->decimal != 0 ? filled->decimal : '.';
        ambiguousPrice_ = filled->decimal != 0 ? std::string() : filled->ambiguous;
    }
    return ambiguousPrice_.empty();
}

std::string_view ListReader::cell(const std::optional<std::size_t>& column) const
{
    return column && *column < rows_->cells().size() ? withoutBlanks(rows_->cells()[*column]) : std::string_view();
}

bool ListReader::isRepeatedHeader() const
{
    const std::vector<std::string_view>& cells = rows_->cells();
    return form_.headerLine != 0 && cells.size() == form_.header.size() &&
           std::equal(cells.begin(), cells.end(), form_.header.begin(),
                      [](std::string_view cell, const std::string& name) { return trimmed(cell) == trimmed(name); });
}

/// Whether the row sums up others: it lacks a name or a part number, one cell says "Total", and the others are numbers.
bool ListReader::isTotal() const
{
    if (!cell(columns_.name).empty() && !cell(columns_.partNum).empty()) {
        return false;
    }
    bool total = false;
    for (const std::string_view cell : rows_->cells()) {
        if (isWordOf(ListWords::total, cell) && !isBlank(cell)) {
            total = true;
        } else if (readListPrice(cell, decimal_).kind == ListPrice::Kind::unreadable) {
            return false;
        }
    }
    return total;
}

bool ListReader::next()
{
    do {
        if (!rows_->next()) {
            return false;
        }
    } while (rows_->line() < form_.firstLine);
    judge();
    return true;
}

void ListReader::judge()
{
    reason_ = rows_->problem();
    kind_ = Kind::refused;
    if (!reason_.empty()) {
        return;
    }
    const std::vector<std::string_view>& cells = rows_->cells();
    if (std::all_of(cells.begin(), cells.end(), isBlank)) {
        kind_ = Kind::skipped;
        reason_ = userText("nothing stands in it");
    } else if (isRepeatedHeader()) {
        kind_ = Kind::skipped;
        reason_ = userText("it repeats the names of the columns");
    } else if (isTotal()) {
        kind_ = Kind::skipped;
        reason_ = userText("it is a row of totals");
    } else if (reason_ = whyRefused(); reason_.empty()) {
        kind_ = Kind::entry;
    }
}

UserText ListReader::whyShaped(const RowSource& rows) const
{
    const std::vector<std::string_view>& cells = rows.cells();
    const auto named = std::find_if_not(form_.header.rbegin(), form_.header.rend(), isBlank);
    const std::size_t least = form_.headerLine == 0 ? 0 : static_cast<std::size_t>(named.base() - form_.header.begin());
    const bool tooFew = cells.size() < least && !rows.endsEarly();
    const bool tooMany = cells.size() > form_.width &&
                         !std::all_of(cells.begin() + static_cast<std::ptrdiff_t>(form_.width), cells.end(), isBlank);
    if (!tooFew && !tooMany) {
        return {};
    }
    return userText("%1 fields where the header has %2", cells.size(), form_.width);
}

UserText ListReader::readPriceOf(std::size_t column)
{
    entry_.unitPrice = {};
    if (column >= rows_->cells().size()) {
        return {};
    }
    const std::string_view text = rows_->cells()[column];
    const ListPrice price = readListPrice(text, rows_->isNumber(column) ? '.' : decimal_);
    switch (price.kind) {
    case ListPrice::Kind::none: break;
    case ListPrice::Kind::amount: entry_.unitPrice = price.amount; break;
    case ListPrice::Kind::negative: return userText("the unit price \"%1\" is negative", quoted(trimmed(text)));
    case ListPrice::Kind::unreadable:
        return decimal_ == '.'
                   ? userText("the unit price \"%1\" is no amount with a decimal point", quoted(trimmed(text)))
                   : userText("the unit price \"%1\" is no amount with a decimal comma", quoted(trimmed(text)));
    }
    return {};
}

/// Reads the row's values. Returns why the row is refused; empty if it is an entry.
UserText ListReader::whyRefused()
{
    if (UserText reason = whyShaped(*rows_); !reason.empty()) {
        return reason;
    }
    entry_ = {.ownId = cell(columns_.itemId),
              .name = cell(columns_.name),
              .key = cell(columns_.key),
              .partNum = cell(columns_.partNum),
              .unitPrice = {},
              .note = cell(columns_.note),
              .barcode = cell(columns_.barcode)};
    for (const std::string_view text :
         {entry_.ownId, entry_.name, entry_.key, entry_.partNum, entry_.note, entry_.barcode}) {
        if (!isUtf8(text) || (!form_.workbook && form_.encoding != kUtf8 && text.find("\uFFFD") != text.npos)) {
            return userText("text that is not %1", form_.workbook ? std::string(kUtf8) : form_.encoding);
        }
    }
    if (entry_.name.empty() && entry_.partNum.empty()) {
        return userText("neither a name nor a part number");
    }
    if (hasLostDigits(entry_.barcode)) {
        return userText("the barcode \"%1\" has lost its last digits in a spreadsheet", quoted(entry_.barcode));
    }
    return columns_.unitPrice ? readPriceOf(*columns_.unitPrice) : UserText();
}

} // namespace orvan

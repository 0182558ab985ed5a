#include "LineFiles.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"
#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/components/catalogue/CsvReader.h"
#include "orvan/components/catalogue/PriceText.h"
#include "orvan/components/catalogue/lists/Encoding.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/core/SpreadsheetCell.h"
#include "orvan/ui/qt/Translation.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>
#include <memory>
#include <sstream>
#include <utility>

namespace orvan::desk {

namespace {

constexpr std::size_t kLeastRead = 4096;      // bytes
constexpr std::size_t kQuotedCharacters = 40; // how much of a refused value a reason quotes

void appendCell(std::string& line, std::string_view cell, char delimiter)
{
    const bool plain = cell.find_first_of("\r\n\"") == std::string_view::npos && !cell.starts_with(' ') &&
                       !cell.ends_with(' ') && cell.find(delimiter) == std::string_view::npos;
    if (plain) {
        line += cell;
    } else {
        appendQuoted(line, cell);
    }
}

std::string amountText(Currency amount, char decimalSeparator)
{
    std::string text;
    appendAmount(text, amount, {&decimalSeparator, 1});
    return text;
}

bool isBlank(const std::vector<std::string_view>& cells)
{
    return std::all_of(cells.begin(), cells.end(), [](std::string_view cell) { return trimmed(cell).empty(); });
}

/// Whether these are names of columns: at least one that is known, and no number.
bool isHeader(const std::vector<std::string_view>& cells)
{
    const auto isKnown = [](std::string_view cell) { return fieldNamed(cell).has_value(); };
    const auto isNumber = [](std::string_view cell) { return readPrice(cell, '.') || readPrice(cell, ','); };
    return std::any_of(cells.begin(), cells.end(), isKnown) && std::none_of(cells.begin(), cells.end(), isNumber);
}

/// Each field once: the first column of several with the same name has it.
LineColumns columnsOf(const std::vector<std::string_view>& cells, bool hasHeader)
{
    LineColumns columns;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        std::optional<LineField> field;
        if (hasHeader) {
            field = fieldNamed(cells[i]);
        } else if (i < kLineFields.size()) {
            field = kLineFields[i].field;
        }
        columns.push_back(std::find(columns.begin(), columns.end(), field) == columns.end() ? field : std::nullopt);
    }
    return columns;
}

/// A discount may have its sign behind it, as a spreadsheet writes a cell that it shows as a percentage.
std::string_view withoutPercent(std::string_view cell, LineField field)
{
    const std::string_view text = trimmed(cell);
    return field == LineField::discPrcnt && text.ends_with('%') ? text.substr(0, text.size() - 1) : text;
}

/// One reading of the file. The decimal separator needs one of its own, because any line may tell it.
class Reading {
public:
    Reading(std::string_view bytes, const std::string& name, const LineReading& how)
        : stream_(std::string(bytes)),
          reader_(stream_, name, how.delimiter, std::clamp(bytes.size() + 1, kLeastRead, CsvReader::kReadSize))
    {
        while ((more_ = reader_.next()) && reader_.problem().empty() && isBlank(reader_.cells())) {
        }
        if (!more_ || !reader_.problem().empty()) {
            fail(name, more_ ? userText("its first line cannot be read") : userText("it has no lines"));
        }
        if (reader_.cells().size() > LineReading::kMostColumns) {
            fail(name, userText("it has %1 columns, and at most %2 can be read", reader_.cells().size(),
                                LineReading::kMostColumns));
        }
        hasHeader = how.hasHeader.value_or(isHeader(reader_.cells()));
        columns = how.columns && how.columns->size() == reader_.cells().size() ? *how.columns
                                                                               : columnsOf(reader_.cells(), hasHeader);
        if (hasHeader) {
            captions.assign(reader_.cells().begin(), reader_.cells().end());
        }
        pending_ = !hasHeader;
    }

    /// The next line that is not blank.
    bool next()
    {
        if (std::exchange(pending_, false)) {
            return true;
        }
        while ((more_ = reader_.next()) && reader_.problem().empty() && isBlank(reader_.cells())) {
        }
        return more_;
    }
    const CsvReader& reader() const { return reader_; }

    bool hasHeader = false;
    LineColumns columns;
    std::vector<std::string> captions;

private:
    [[noreturn]] static void fail(const std::string& name, const UserText& reason)
    {
        throw RuntimeError(ErrorNumber::invalidFileFormat, {}, userText("%1: %2", name, reason));
    }

    std::istringstream stream_;
    CsvReader reader_;
    bool more_ = false;
    bool pending_ = false; ///< The first line has been read, and is no header.
};

/// The first amount that can be read in one way only tells.
char foundDecimalSeparator(Reading reading, char usual)
{
    while (reading.next()) {
        const std::vector<std::string_view>& cells = reading.reader().cells();
        if (!reading.reader().problem().empty()) {
            continue;
        }
        for (std::size_t i = 0; i < std::min(cells.size(), reading.columns.size()); ++i) {
            const std::optional<LineField> field = reading.columns[i];
            const auto evidence = field && rowOf(*field).amount ? decimalEvidence(withoutPercent(cells[i], *field))
                                                                : DecimalEvidence::none;
            if (evidence == DecimalEvidence::comma || evidence == DecimalEvidence::point) {
                return evidence == DecimalEvidence::comma ? ',' : '.';
            }
        }
    }
    return usual;
}

UserText amountProblem(std::string_view cell, LineField field, const UserText& problem)
{
    return userText("%1 “%2”: %3", captionOf(field).toStdString(), firstCharacters(cell, kQuotedCharacters), problem);
}

/// The problem with one of the line's cells; empty if there is none.
UserText readCell(std::string_view cell, LineField field, char decimalSeparator, const ProductRecord& rules,
                  ProductValues& values)
{
    const LineFieldRow& row = rowOf(field);
    if (row.text) {
        values.*row.text = unguarded(cell);
        return {};
    }
    const std::string_view text = withoutPercent(cell, field);
    if (text.empty()) {
        return {};
    }
    const std::optional<Currency> amount = readPrice(amountOfPrice(text), decimalSeparator);
    if (!amount) {
        return amountProblem(cell, field,
                             decimalSeparator == '.' ? userText("this is no amount with a decimal point")
                                                     : userText("this is no amount with a decimal comma"));
    }
    const bool possible = field == LineField::qty         ? rules.IsValidQty(*amount)
                          : field == LineField::unitPrice ? rules.IsValidUnitPrice(*amount)
                          : field == LineField::discPrcnt ? rules.IsValidDiscPrcnt(*amount)
                                                          : true;
    values.*row.amount = *amount;
    return possible ? UserText() : amountProblem(cell, field, userText("no product can have this"));
}

/// Reads the present line. Returns why it is refused; empty if it is not.
UserText readLine(const Reading& reading, char decimalSeparator, const ProductRecord& rules, ProductValues& values)
{
    const std::vector<std::string_view>& cells = reading.reader().cells();
    if (!reading.reader().problem().empty()) {
        return reading.reader().problem();
    }
    if (cells.size() != reading.columns.size()) {
        return userText("%1 fields where the first line has %2", cells.size(), reading.columns.size());
    }
    if (!std::all_of(cells.begin(), cells.end(), isUtf8)) {
        return userText("text that is not UTF-8");
    }
    values.qty = Currency::fromScaled(Currency::kScale);
    bool priced = false;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (const std::optional<LineField> field = reading.columns[i]) {
            if (UserText problem = readCell(cells[i], *field, decimalSeparator, rules, values); !problem.empty()) {
                return problem;
            }
            priced = priced || (field == LineField::extPrice && !trimmed(cells[i]).empty());
        }
    }
    try {
        if (!priced) {
            values.extPrice = extendedPrice(values.unitPrice, values.qty, values.discPrcnt);
        }
    } catch (const RuntimeError&) {
        return userText("the price of this quantity is too large");
    }
    return {};
}

std::string asUtf8(std::string_view bytes)
{
    std::istringstream stream{std::string(bytes)};
    const std::string encoding = foundEncoding(stream);
    if (encoding == kUtf8) {
        return std::string(bytes);
    }
    const auto text = utf8Stream(std::make_unique<std::istringstream>(std::string(bytes)), encoding);
    return {std::istreambuf_iterator<char>(*text), {}};
}

ShownLine shownLine(const Reading& reading, const ProductValues& values, bool refused, char decimalSeparator)
{
    const std::vector<std::string_view>& cells = reading.reader().cells();
    ShownLine shown{.line = reading.reader().line(), .cells = {cells.begin(), cells.end()}, .refused = refused};
    for (std::size_t i = 0; !refused && i < cells.size(); ++i) {
        if (const std::optional<LineField> field = reading.columns[i]) {
            const LineFieldRow& row = rowOf(*field);
            shown.cells[i] = row.text ? values.*row.text : amountText(values.*row.amount, decimalSeparator);
        }
    }
    return shown;
}

} // namespace

std::string linesToCsv(const std::vector<ProductValues>& lines, LineFormat format)
{
    std::string text;
    const auto append = [&](LineField field, std::string_view cell) {
        text.append(field == LineField::partNum ? 0 : 1, format.delimiter);
        appendCell(text, cell, format.delimiter);
    };
    for (const LineFieldRow& row : kLineFields) {
        append(row.field, captionOf(row.field).toStdString());
    }
    text += "\r\n"; // as spreadsheets write it
    for (const ProductValues& values : lines) {
        for (const LineFieldRow& row : kLineFields) {
            append(row.field,
                   row.amount ? amountText(values.*row.amount, format.decimalSeparator) : guarded(values.*row.text));
        }
        text += "\r\n";
    }
    return isAscii(text) ? text : "\xEF\xBB\xBF" + text;
}

LinesRead readLines(std::string_view fileBytes, const std::string& fileName, const LineReading& how,
                    const ProductRecord& rules)
{
    const std::string bytes = asUtf8(fileBytes);
    Reading reading(bytes, fileName, how);
    LinesRead read;
    read.format.delimiter = reading.reader().delimiter();
    read.format.decimalSeparator = how.decimalSeparator != 0
                                       ? how.decimalSeparator
                                       : foundDecimalSeparator({bytes, fileName, how}, how.usualDecimal);
    read.hasHeader = reading.hasHeader;
    read.columns = reading.columns;
    read.captions = reading.captions;
    while (reading.next()) {
        ProductValues values;
        const UserText problem = readLine(reading, read.format.decimalSeparator, rules, values);
        if (!problem.empty() && ++read.refusedCount <= how.mostRefused) {
            read.refused.push_back({.line = reading.reader().line(), .reason = problem});
        }
        if (read.shown.size() < how.mostShown) {
            read.shown.push_back(shownLine(reading, values, !problem.empty(), how.usualDecimal));
        }
        if (problem.empty()) {
            read.lines.push_back(std::move(values));
        }
    }
    return read;
}

} // namespace orvan::desk

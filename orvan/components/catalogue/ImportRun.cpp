#include "orvan/components/catalogue/ImportRun.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"
#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/components/catalogue/PriceText.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace orvan {

namespace {

using Outcome = CatalogueImportResult::Outcome;

constexpr std::uint64_t kRowsBetweenReports = 1000;
constexpr std::uint64_t kLeastRead = 4096;    // bytes: a short list may have grown since its size was asked for
constexpr std::size_t kQuotedCharacters = 40; // how much of a refused value a reason quotes

[[noreturn]] void raise(const ImportSource& source, const UserText& reason)
{
    throw RuntimeError(ErrorNumber::invalidFileFormat, {}, userText("%1: %2", source.name, reason));
}

bool readId(std::string_view text, std::int32_t& id)
{
    const std::string_view digits = trimmed(text);
    const char* const end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, id);
    return error == std::errc() && rest == end;
}

std::string_view quoted(std::string_view value)
{
    return firstCharacters(value, kQuotedCharacters);
}

/// The first read has to hold the whole first line, in which the delimiter is found.
std::size_t readSize(const ImportSource& source)
{
    return std::clamp<std::size_t>(source.bytes + 1, kLeastRead, CsvReader::kReadSize);
}

} // namespace

ImportRun::Rows::Rows(const ImportSource& source, const CatalogueImportOptions& options)
    : stream_(source.open()), reader_(*stream_, source.name, options.delimiter, readSize(source))
{
    if (!reader_.next() || !reader_.problem().empty()) {
        raise(source, userText("it does not begin with the names of its columns"));
    }
    columns_ = findColumns(reader_.fields(), options.columns, source.name);
    width_ = reader_.fields().size();
}

std::string_view ImportRun::Rows::field(const std::optional<std::size_t>& column) const
{
    return column ? reader_.fields()[*column] : std::string_view();
}

ImportRun::ImportRun(ImportSource source, const CatalogueImportOptions& options)
    : source_(std::move(source)), options_(options), rows_(source_, options)
{
    progress_.bytesTotal = source_.bytes;
    result_.delimiter = rows_.reader().delimiter();
}

CatalogueImportResult ImportRun::end(bool imported)
{
    if (!imported) {
        result_.outcome = result_.refusedCount > 0          ? Outcome::refused
                          : !result_.ambiguousPrice.empty() ? Outcome::ambiguous
                                                            : Outcome::cancelled;
    }
    return std::move(result_);
}

bool ImportRun::findDecimalSeparator()
{
    result_.decimalSeparator = options_.decimalSeparator;
    if (result_.decimalSeparator != 0) {
        return true;
    }
    result_.decimalSeparator = '.';
    Rows all(source_, options_);
    std::string ambiguous;
    for (std::uint64_t rows = 0; all.reader().next(); ++rows) {
        if (rows % kRowsBetweenReports == 0 && !goesOn()) {
            return false;
        }
        if (!all.isComplete()) {
            continue; // write() refuses this row
        }
        const std::string_view price = all.field(all.columns().unitPrice);
        switch (decimalEvidence(price)) {
        case DecimalEvidence::none: break;
        case DecimalEvidence::ambiguous: ambiguous = price; break;
        case DecimalEvidence::comma: result_.decimalSeparator = ','; return true;
        case DecimalEvidence::point: return true;
        }
    }
    result_.ambiguousPrice = ambiguous;
    return ambiguous.empty();
}

bool ImportRun::write(const std::filesystem::path& catalogue, const std::optional<std::filesystem::path>& former)
{
    CatalogueWriter writer(catalogue, {.former = former, .language = options_.language});
    CsvReader& reader = rows_.reader();
    while (reader.next()) {
        if (const UserText reason = add(writer); reason.empty()) {
            ++result_.rows;
        } else {
            refuse(reader.line(), reason);
        }
        ++progress_.rows;
        progress_.bytesRead = reader.bytesRead();
        if (progress_.rows % kRowsBetweenReports == 0 && !goesOn()) {
            result_.refusedCount = 0; // so that the outcome is `cancelled` and not `refused`
            result_.refused.clear();
            return false;
        }
    }
    if (progress_.rows == 0) {
        raise(source_, userText("it holds no rows"));
    }
    writer.setOrigin({.source = source_.origin, .entries = static_cast<std::int64_t>(result_.rows)});
    return result_.refusedCount == 0 && writer.finish([&](int built, int all) {
        progress_.indexesBuilt = built;
        progress_.indexesTotal = all;
        return goesOn();
    });
}

void ImportRun::refuse(std::uint64_t line, const UserText& reason)
{
    ++result_.refusedCount;
    if (result_.refused.size() < options_.mostRefused) {
        result_.refused.push_back({line, reason});
    }
}

/// Adds the current record. Returns the reason when it is refused, and an empty text when it was added.
UserText ImportRun::add(CatalogueWriter& writer)
{
    const CsvReader& reader = rows_.reader();
    const CatalogueColumns& columns = rows_.columns();
    if (!reader.problem().empty()) {
        return reader.problem();
    }
    if (!rows_.isComplete()) {
        return userText("%1 fields where the first line has %2", reader.fields().size(), rows_.width());
    }
    CatalogueEntry entry{.name = rows_.field(columns.name),
                         .key = rows_.field(columns.key),
                         .partNum = rows_.field(columns.partNum),
                         .unitPrice = {},
                         .note = rows_.field(columns.note)};
    for (const std::string_view text : {entry.name, entry.key, entry.partNum, entry.note}) {
        if (!isUtf8(text)) {
            return userText("text that is not UTF-8");
        }
    }
    if (entry.name.empty() && entry.partNum.empty()) {
        return userText("neither a name nor a part number");
    }
    const std::string_view price = trimmed(rows_.field(columns.unitPrice));
    entry.unitPrice = readPrice(price, result_.decimalSeparator);
    if (!price.empty() && !entry.unitPrice) {
        return result_.decimalSeparator == '.'
                   ? userText("the unit price \"%1\" is no amount with a decimal point", quoted(price))
                   : userText("the unit price \"%1\" is no amount with a decimal comma", quoted(price));
    }
    if (entry.unitPrice && *entry.unitPrice < Currency()) {
        // The editor takes no sign, and a price that lost it would be a price like any other.
        return userText("the unit price \"%1\" is negative", quoted(price));
    }
    if (columns.itemId) {
        entry.ownId = rows_.field(columns.itemId);
        if (std::int32_t id = 0; !readId(entry.ownId, id)) {
            return userText("the item id \"%1\" is no whole number of 32 bits", quoted(entry.ownId));
        }
    }
    return writer.add(entry) ? UserText()
                             : userText("the item id \"%1\" is in an earlier row, too", quoted(trimmed(entry.ownId)));
}

} // namespace orvan

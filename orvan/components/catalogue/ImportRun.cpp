#include "orvan/components/catalogue/ImportRun.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"

#include <utility>

namespace orvan {

namespace {

using Outcome = CatalogueImportResult::Outcome;

constexpr std::uint64_t kRowsBetweenReports = 1000;
constexpr std::size_t kQuotedCharacters = 40; // how much of a refused value a reason quotes

[[noreturn]] void raise(const ImportSource& source, const UserText& reason)
{
    throw RuntimeError(ErrorNumber::invalidFileFormat, {}, userText("%1: %2", source.name, reason));
}

} // namespace

ImportRun::ImportRun(ImportSource source, const CatalogueImportOptions& options)
    : source_(std::move(source)), options_(options), rows_(source_, options)
{
    if (const UserText missing = rows_.missingColumns(); !missing.empty()) {
        raise(source_, missing);
    }
    progress_.bytesTotal = source_.bytes;
    const ListForm& form = rows_.form();
    result_.delimiter = form.delimiter;
    result_.encoding = form.encoding;
    result_.sheet = form.workbook ? form.sheets[form.sheet] : std::string();
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

bool ImportRun::findPrices()
{
    const bool found = rows_.findPrices([this](std::uint64_t /*bytesRead*/) { return goesOn(); });
    result_.decimalSeparator = rows_.decimalSeparator();
    result_.ambiguousPrice = rows_.ambiguousPrice();
    return found;
}

bool ImportRun::write(const std::filesystem::path& catalogue, const std::optional<std::filesystem::path>& former)
{
    CatalogueWriter writer(catalogue, {.former = former, .language = options_.language});
    while (rows_.next()) {
        switch (rows_.kind()) {
        case ListReader::Kind::entry: add(writer); break;
        case ListReader::Kind::skipped: note(result_.skipped, result_.skippedCount, rows_.reason()); break;
        case ListReader::Kind::refused: refuse(rows_.reason()); break;
        }
        ++progress_.rows;
        progress_.bytesRead = rows_.bytesRead();
        if (progress_.rows % kRowsBetweenReports == 0 && !goesOn()) {
            result_.refusedCount = 0; // so that the outcome is `cancelled` and not `refused`
            result_.refused.clear();
            return false;
        }
    }
    if (result_.rows + result_.refusedCount == 0) {
        raise(source_, userText("it holds no rows"));
    }
    writer.setOrigin({.source = source_.origin, .entries = static_cast<std::int64_t>(result_.rows)});
    const bool complete = result_.refusedCount == 0 || (options_.skipBadRows && result_.rows > 0);
    return complete && writer.finish([&](int built, int all) {
        progress_.indexesBuilt = built;
        progress_.indexesTotal = all;
        return goesOn();
    });
}

/// Notes a row that is not imported.
void ImportRun::note(std::vector<RefusedRow>& rows, std::uint64_t& count, const UserText& reason) const
{
    ++count;
    if (rows.size() < options_.mostRefused) {
        rows.push_back({rows_.line(), reason});
    }
}

void ImportRun::refuse(const UserText& reason)
{
    note(result_.refused, result_.refusedCount, reason);
    if (options_.eachRefused) {
        options_.eachRefused({rows_.line(), reason}, rows_.cells());
    }
}

void ImportRun::add(CatalogueWriter& writer)
{
    const CatalogueEntry& entry = rows_.entry();
    if (!writer.add(entry)) {
        refuse(
            userText("the item id \"%1\" is in an earlier row, too", firstCharacters(entry.ownId, kQuotedCharacters)));
        return;
    }
    ++result_.rows;
    result_.withoutPrice += entry.unitPrice ? 0 : 1;
}

} // namespace orvan

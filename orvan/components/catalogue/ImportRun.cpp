#include "orvan/components/catalogue/ImportRun.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"

#include <algorithm>
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

bool ImportRun::read(const Add& add)
{
    while (rows_.next()) {
        switch (rows_.kind()) {
        case ListReader::Kind::entry: take(add); break;
        case ListReader::Kind::skipped:
            note(result_.skipped, result_.skippedCount, rows_.reason(), rows_.line());
            break;
        case ListReader::Kind::refused: refuse(rows_.reason(), rows_); break;
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
    return isUsable();
}

bool ImportRun::builds(int built, int all)
{
    progress_.indexesBuilt = built;
    progress_.indexesTotal = all;
    return goesOn();
}

bool ImportRun::write(const std::filesystem::path& catalogue, const std::optional<std::filesystem::path>& former)
{
    CatalogueWriter writer(catalogue, {.former = former, .language = options_.language});
    const bool usable = read([&](const CatalogueEntry& entry, std::uint64_t /*line*/) {
        return writer.add(entry) ? UserText() : whyTwice(entry);
    });
    writer.setOrigin({.source = source_.origin, .entries = static_cast<std::int64_t>(result_.rows)});
    return usable && writer.finish([&](int built, int all) { return builds(built, all); });
}

/// Notes a row that is not imported.
void ImportRun::note(std::vector<RefusedRow>& rows, std::uint64_t& count, const UserText& reason,
                     std::uint64_t line) const
{
    ++count;
    if (rows.size() < options_.mostRefused) {
        rows.push_back({line, reason});
    }
}

void ImportRun::refuse(const UserText& reason, const ListReader& rows)
{
    note(result_.refused, result_.refusedCount, reason, rows.line());
    if (options_.eachRefused) {
        options_.eachRefused({rows.line(), reason}, rows.cells());
    }
}

void ImportRun::take(const Add& add)
{
    const CatalogueEntry& entry = rows_.entry();
    if (const UserText reason = add(entry, rows_.line()); !reason.empty()) {
        refuse(reason, rows_);
        return;
    }
    ++result_.rows;
    result_.withoutPrice += entry.unitPrice ? 0 : 1;
}

bool ImportRun::refuseTaken(const std::vector<std::uint64_t>& lines, const Reason& reason)
{
    ListReader again(source_, options_);
    static_cast<void>(again.findPrices([](std::uint64_t /*bytesRead*/) { return true; })); // it has been found before
    for (auto line = lines.begin(); line != lines.end() && again.next();) {
        if (again.line() != *line || again.kind() != ListReader::Kind::entry) {
            continue;
        }
        ++line;
        refuse(reason(again.entry()), again);
        --result_.rows;
        result_.withoutPrice -= again.entry().unitPrice ? 0 : 1;
    }
    std::stable_sort(result_.refused.begin(), result_.refused.end(),
                     [](const RefusedRow& a, const RefusedRow& b) { return a.line < b.line; });
    return isUsable();
}

UserText whyTwice(const CatalogueEntry& entry)
{
    return userText("the item id \"%1\" is in an earlier row, too", firstCharacters(entry.ownId, kQuotedCharacters));
}

} // namespace orvan

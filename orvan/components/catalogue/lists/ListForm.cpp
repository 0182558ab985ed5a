#include "orvan/components/catalogue/lists/ListForm.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CsvReader.h"
#include "orvan/components/catalogue/PriceText.h"
#include "orvan/components/catalogue/lists/Encoding.h"
#include "orvan/components/catalogue/lists/Workbook.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <sstream>
#include <utility>

namespace orvan {

namespace {

constexpr std::size_t kSampleBytes = std::size_t{256} * 1024;
constexpr std::size_t kSampleRows = 60;
constexpr std::size_t kMostSheetsLookedAt = 20;
constexpr std::uint64_t kLeastRead = 4096; // bytes: a short list may have grown since its size was asked for
constexpr std::string_view kDelimiters = ",;\t|";

[[noreturn]] void raise(const ImportSource& source, const UserText& reason,
                        std::int32_t number = ErrorNumber::invalidFileFormat)
{
    throw RuntimeError(number, {}, userText("%1: %2", source.name, reason));
}

/// Reads a text file's records.
class TextRows final : public RowSource {
public:
    TextRows(const ImportSource& source, const std::string& encoding, char delimiter)
        : stream_(utf8Stream(source.open(), encoding, converted_)),
          reader_(*stream_, source.name, delimiter,
                  std::clamp<std::size_t>(source.bytes + 1, kLeastRead, CsvReader::kReadSize)),
          converts_(knownEncoding(encoding) != kUtf8)
    {
    }

    bool next() override { return reader_.next(); }
    const std::vector<std::string_view>& cells() const override { return reader_.cells(); }
    const UserText& problem() const override { return reader_.problem(); }
    std::uint64_t line() const override { return reader_.line(); }
    std::uint64_t bytesRead() const override { return converts_ ? converted_->load() : reader_.bytesRead(); }

private:
    const ReadCount converted_ = std::make_shared<std::atomic<std::uint64_t>>(0);
    const std::unique_ptr<std::istream> stream_;
    CsvReader reader_;
    const bool converts_;
};

/// The first rows of a list, if it is read in a certain way.
struct Sample {
    struct Row {
        std::uint64_t line;
        std::vector<std::string> cells;
        std::size_t filled; ///< How many cells are not blank.
    };
    std::vector<Row> rows;
    std::size_t header = 0;   ///< The row that has the columns' names.
    bool headerKnown = false; ///< It has columns that are known, or the caller has named it.
    ColumnsFound found;
    std::size_t regular = 0; ///< How many cells stand in rows that have as many cells as most of them.

    bool isBetterThan(const Sample& other) const
    {
        return std::pair(found.named, regular) > std::pair(other.found.named, other.regular);
    }
};

std::vector<std::string_view> viewsOf(const std::vector<std::string>& cells)
{
    return {cells.begin(), cells.end()};
}

std::size_t regularCells(const std::vector<Sample::Row>& rows)
{
    std::map<std::size_t, std::size_t> counts; // of rows, by their number of cells
    std::size_t most = 0;
    for (const Sample::Row& row : rows) {
        const std::size_t width = row.cells.size();
        most = width > 1 ? std::max(most, ++counts[width] * width) : most;
    }
    return most;
}

bool hasAmount(const Sample::Row& row)
{
    return std::any_of(row.cells.begin(), row.cells.end(), [](const std::string& cell) {
        return std::any_of(cell.begin(), cell.end(), isDigit) &&
               (readListPrice(cell, '.').kind == ListPrice::Kind::amount ||
                readListPrice(cell, ',').kind == ListPrice::Kind::amount);
    });
}

/// Finds the header: the row in which most columns are known. Where none is, the first row that is about as full as the
/// fullest one, because titles stand alone.
void findHeader(Sample& sample, const CatalogueImportOptions& options)
{
    std::size_t fullest = 0, first = 0;
    for (const Sample::Row& row : sample.rows) {
        fullest = std::max(fullest, row.filled);
    }
    while (first + 1 < sample.rows.size() && sample.rows[first].filled * 2 < fullest) {
        ++first;
    }
    for (std::size_t at = 0; at < sample.rows.size(); ++at) {
        const Sample::Row& row = sample.rows[at];
        const bool chosen = options.headerLine == row.line;
        if (options.headerLine && !chosen) {
            continue;
        }
        ColumnsFound found = findColumns(viewsOf(row.cells), options.columns);
        if (chosen || found.named > std::max<std::size_t>(sample.found.named, 1)) {
            sample.header = at;
            sample.found = std::move(found);
            sample.headerKnown = true;
        }
    }
    if (!sample.headerKnown && !sample.rows.empty()) {
        sample.header = first;
        sample.found = findColumns(viewsOf(sample.rows[first].cells), options.columns);
        sample.headerKnown = options.headerLine.has_value() || sample.found.named > 0;
    }
}

Sample sampleOf(RowSource& rows, const CatalogueImportOptions& options)
{
    Sample sample;
    const std::uint64_t lastLine = options.headerLine.value_or(0);
    while ((sample.rows.size() < kSampleRows || rows.line() < lastLine) && rows.next()) {
        const auto isFilled = [](std::string_view cell) { return !trimmed(cell).empty(); };
        const auto filled = static_cast<std::size_t>(std::count_if(rows.cells().begin(), rows.cells().end(), isFilled));
        if (rows.problem().empty() && filled > 0) {
            sample.rows.push_back({rows.line(), {rows.cells().begin(), rows.cells().end()}, filled});
        }
        if (sample.rows.size() > kSampleRows && options.headerLine) { // only the header is still looked for
            sample.rows.erase(sample.rows.begin());
        }
    }
    findHeader(sample, options);
    sample.regular = regularCells(sample.rows);
    return sample;
}

Sample sampleOfText(const ImportSource& source, ListForm& form, const CatalogueImportOptions& options)
{
    // A list of another encoding is longer as UTF-8: at most three bytes for one.
    const auto room = static_cast<std::size_t>(std::clamp<std::uint64_t>(source.bytes * 3, kLeastRead, kSampleBytes));
    const auto bytes = std::make_unique_for_overwrite<char[]>(room); // clearing them would take long
    const std::unique_ptr<std::istream> stream = utf8Stream(source.open(), form.encoding);
    stream->read(bytes.get(), static_cast<std::streamsize>(room));
    const std::string start(bytes.get(), static_cast<std::size_t>(stream->gcount()));
    const auto read = [&](char delimiter) {
        std::istringstream text(start);
        CsvReader rows(text, source.name, delimiter, start.size() + 3);
        Sample sample = sampleOf(rows, options);
        form.delimiter = rows.delimiter();
        return sample;
    };
    if (options.delimiter != 0) {
        return read(options.delimiter);
    }
    Sample best = read(0); // what "sep=" names, or the first line shows
    char delimiter = form.delimiter;
    if (kDelimiters.find(delimiter) != kDelimiters.npos && best.found.missing.empty()) {
        return best;
    }
    const char tried = form.delimiter;
    bool absentTried = start.find(tried) == start.npos;
    for (const char other : kDelimiters) {
        if (other == tried || (start.find(other) == start.npos && std::exchange(absentTried, true))) {
            continue; // delimiters that the text does not have all make the same rows of it
        }
        if (Sample sample = read(other); sample.isBetterThan(best)) {
            best = std::move(sample);
            delimiter = other;
        }
    }
    form.delimiter = delimiter;
    return best;
}

std::size_t namedSheet(const ImportSource& source, const std::vector<std::string>& sheets, const std::string& name)
{
    const auto found = std::find(sheets.begin(), sheets.end(), name);
    std::size_t number = static_cast<std::size_t>(found - sheets.begin());
    if (found == sheets.end() && name.starts_with('#')) {
        std::from_chars(name.data() + 1, name.data() + name.size(), number);
        --number;
    }
    if (number >= sheets.size()) {
        raise(source,
              userText("it has no sheet \"%1\"; its sheets are %2", name, listed({sheets.begin(), sheets.end()})));
    }
    return number;
}

Sample sampleOfWorkbook(const ImportSource& source, ListForm& form, const CatalogueImportOptions& options)
{
    form.workbook = openWorkbook(source);
    form.sheets = sheetsOf(*form.workbook);
    const auto read = [&](std::size_t sheet) {
        const std::unique_ptr<RowSource> rows = openSheet(form.workbook, sheet);
        return sampleOf(*rows, options);
    };
    if (!options.sheet.empty()) {
        form.sheet = namedSheet(source, form.sheets, options.sheet);
        return read(form.sheet);
    }
    Sample best;
    for (std::size_t sheet = 0; sheet < std::min(form.sheets.size(), kMostSheetsLookedAt); ++sheet) {
        Sample sample = read(sheet);
        if (sheet == 0 || sample.found.named > best.found.named || (best.rows.empty() && !sample.rows.empty())) {
            best = std::move(sample);
            form.sheet = sheet;
        }
    }
    return best;
}

/// Refuses forms that people take for a table, but that are none that can be read.
bool isWorkbook(const ImportSource& source)
{
    std::string start(1024, '\0');
    const std::unique_ptr<std::istream> stream = source.open();
    stream->read(start.data(), static_cast<std::streamsize>(start.size()));
    start.resize(static_cast<std::size_t>(stream->gcount()));
    if (start.starts_with("\xD0\xCF\x11\xE0")) {
        raise(source, userText("it is a workbook of an older form, or one with a password; save it as .xlsx or CSV"));
    }
    if (start.starts_with("%PDF")) {
        raise(source, userText("it is a PDF file; ask for the list as .xlsx or CSV"));
    }
    const std::string_view text = trimmed(start, " \t\r\n\xEF\xBB\xBF");
    if (text.starts_with("<?xml") || text.starts_with("<!DOCTYPE") || text.starts_with("<html") ||
        text.starts_with("<table")) {
        raise(source, userText("it is a web page or XML; open it in a spreadsheet and save it as .xlsx or CSV"));
    }
    return start.starts_with("PK\x03\x04");
}

std::string encodingOf(const ImportSource& source, const std::string& given)
{
    if (given.empty()) {
        return foundEncoding(*source.open());
    }
    if (knownEncoding(given).empty()) {
        raise(source, userText("there is no encoding \"%1\"", given), ErrorNumber::invalidProcedureCall);
    }
    return knownEncoding(given) == kUtf8 ? std::string(kUtf8) : given;
}

} // namespace

ListForm foundForm(const ImportSource& source, const CatalogueImportOptions& options)
{
    ListForm form;
    const bool workbook = isWorkbook(source);
    if (!workbook) {
        form.encoding = encodingOf(source, options.encoding);
    }
    Sample sample = workbook ? sampleOfWorkbook(source, form, options) : sampleOfText(source, form, options);
    if (sample.rows.empty()) {
        raise(source, userText("it does not begin with the names of its columns"));
    }
    const bool headless = !sample.headerKnown && hasAmount(sample.rows[sample.header]);
    if (options.headerLine == 0u || headless) {
        for (const Sample::Row& row : sample.rows) {
            form.width = std::max(form.width, row.cells.size());
        }
        const std::vector<std::string> none(form.width);
        form.found = findColumns(viewsOf(none), options.columns);
    } else {
        const Sample::Row& row = sample.rows[sample.header];
        if (options.headerLine && row.line != *options.headerLine) {
            raise(source, userText("line %1 has no names of columns", *options.headerLine));
        }
        form.headerLine = row.line;
        form.header = row.cells;
        form.width = row.cells.size();
        form.found = std::move(sample.found);
    }
    form.firstLine = options.firstLine != 0 ? options.firstLine : form.headerLine + 1;
    return form;
}

std::unique_ptr<RowSource> openRows(const ImportSource& source, const ListForm& form)
{
    if (form.workbook) {
        return openSheet(form.workbook, form.sheet);
    }
    return std::make_unique<TextRows>(source, form.encoding, form.delimiter);
}

} // namespace orvan

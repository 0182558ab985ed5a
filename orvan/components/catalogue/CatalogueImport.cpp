#include "orvan/components/catalogue/CatalogueImport.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"
#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/components/catalogue/CatalogueColumns.h"
#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/components/catalogue/CsvReader.h"
#include "orvan/components/catalogue/PriceText.h"
#include "orvan/files/FormerFile.h"
#include "orvan/files/NewFile.h"

#include <charconv>
#include <fstream>
#include <memory>
#include <optional>
#include <utility>

namespace orvan {

namespace {

using Outcome = CatalogueImportResult::Outcome;
namespace fs = std::filesystem;

constexpr std::uint64_t kRowsBetweenReports = 1000;
constexpr std::size_t kQuotedCharacters = 40; // how much of a refused value a reason quotes

[[noreturn]] void raise(std::int32_t number, const fs::path& source, const std::string& reason)
{
    throw RuntimeError(number, {}, source.string().append(": ").append(reason));
}

/// Runs a step that makes the catalogue's new file. Its errors are told with the catalogue's name.
template <class Step>
auto naming(const fs::path& catalogue, Step&& step)
{
    try {
        return step();
    } catch (const RuntimeError& error) {
        raiseCatalogueError(error.number(), catalogue, error.text());
    }
}

/// Opens the source file and reads its header; the rows follow.
class Source {
public:
    Source(const fs::path& file, const CatalogueImportOptions& options)
        : stream_(open(file)), reader_(stream_, file.string(), options.delimiter)
    {
        if (!reader_.next() || !reader_.problem().empty()) {
            raise(ErrorNumber::invalidFileFormat, file, "it does not begin with the names of its columns");
        }
        columns_ = findColumns(reader_.fields(), options.columns, file.string());
        width_ = reader_.fields().size();
    }

    CsvReader& reader() { return reader_; }
    bool isComplete() const { return reader_.fields().size() == width_; }
    std::size_t width() const { return width_; }
    const CatalogueColumns& columns() const { return columns_; }
    /// Returns "" for a column that the file does not have.
    std::string_view field(const std::optional<std::size_t>& column) const
    {
        return column ? reader_.fields()[*column] : std::string_view();
    }

private:
    static std::ifstream open(const fs::path& file)
    {
        std::error_code error;
        if (!fs::is_regular_file(file, error)) {
            raise(ErrorNumber::pathFileAccess, file, error ? error.message() : "it is no file");
        }
        std::ifstream stream(file, std::ios::binary);
        if (!stream) {
            raise(ErrorNumber::pathFileAccess, file, "it cannot be opened");
        }
        return stream;
    }

    std::ifstream stream_;
    CsvReader reader_;
    CatalogueColumns columns_;
    std::size_t width_ = 0;
};

class Import {
public:
    Import(fs::path source, const CatalogueImportOptions& options)
        : file_(std::move(source)), options_(options), source_(file_, options)
    {
        progress_.bytesTotal = fs::file_size(file_);
        result_.delimiter = source_.reader().delimiter();
    }

    CatalogueImportResult run(const fs::path& catalogue)
    {
        if (findDecimalSeparator()) {
            const auto file = naming(catalogue, [&] {
                return std::make_unique<files::NewFile>(catalogue, files::NewFile::Others::refused);
            });
            if (write(file->path())) {
                // The new catalogue stands. That a power failure could bring the former one back is no failure of it.
                static_cast<void>(naming(catalogue, [&] { return commit(*file); }));
                return std::move(result_);
            }
        }
        result_.outcome = result_.refusedCount > 0          ? Outcome::refused
                          : !result_.ambiguousPrice.empty() ? Outcome::ambiguous
                                                            : Outcome::cancelled;
        return std::move(result_);
    }

private:
    /// Gives the new catalogue its name. An empty file that it replaces is no catalogue, and is not kept.
    std::string commit(files::NewFile& file)
    {
        const bool keeps = options_.keepFormer && isCatalogue(file.target());
        std::string warning = file.commit(keeps ? files::NewFile::Former::kept : files::NewFile::Former::dropped);
        if (keeps) {
            result_.former = files::formerFileOf(file.target()).value_or(fs::path());
        }
        return warning;
    }

    bool goesOn() const { return !options_.progress || options_.progress(progress_); }

    /// Reads the file from its beginning up to the first price that tells the decimal separator. Returns false when
    /// the import was cancelled, and when there are ambiguous prices but none that tells.
    bool findDecimalSeparator()
    {
        result_.decimalSeparator = options_.decimalSeparator;
        if (result_.decimalSeparator != 0) {
            return true;
        }
        result_.decimalSeparator = '.';
        Source source(file_, options_);
        std::string ambiguous;
        for (std::uint64_t rows = 0; source.reader().next(); ++rows) {
            if (rows % kRowsBetweenReports == 0 && !goesOn()) {
                return false;
            }
            if (!source.isComplete()) {
                continue; // write() refuses this row
            }
            const std::string_view price = source.field(source.columns().unitPrice);
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

    /// Writes the new catalogue. Returns false when it is not to be used: rows were refused, or the user cancelled.
    bool write(const fs::path& file)
    {
        CatalogueWriter writer(file);
        CsvReader& reader = source_.reader();
        while (reader.next()) {
            if (const std::string reason = add(writer); reason.empty()) {
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
            raise(ErrorNumber::invalidFileFormat, file_, "it holds no rows");
        }
        writer.setOrigin({.source = options_.sourceName.empty() ? file_.filename().string() : options_.sourceName,
                          .entries = static_cast<std::int64_t>(result_.rows)});
        return result_.refusedCount == 0 && writer.finish([&](int built, int all) {
            progress_.indexesBuilt = built;
            progress_.indexesTotal = all;
            return goesOn();
        });
    }

    void refuse(std::uint64_t line, const std::string& reason)
    {
        ++result_.refusedCount;
        if (result_.refused.size() < options_.mostRefused) {
            result_.refused.push_back({line, reason});
        }
    }

    /// Adds the current record. Returns the reason when it is refused, and an empty text when it was added.
    std::string add(CatalogueWriter& writer)
    {
        const CsvReader& reader = source_.reader();
        const CatalogueColumns& columns = source_.columns();
        if (!reader.problem().empty()) {
            return std::string(reader.problem());
        }
        if (!source_.isComplete()) {
            return std::to_string(reader.fields().size()) + " fields where the first line has " +
                   std::to_string(source_.width());
        }
        CatalogueEntry entry{.itemId = 0,
                             .name = source_.field(columns.name),
                             .key = source_.field(columns.key),
                             .partNum = source_.field(columns.partNum),
                             .unitPrice = {},
                             .note = source_.field(columns.note)};
        for (const std::string_view text : {entry.name, entry.key, entry.partNum, entry.note}) {
            if (!isUtf8(text)) {
                return "text that is not UTF-8";
            }
        }
        if (entry.name.empty() && entry.partNum.empty()) {
            return "neither a name nor a part number";
        }
        const std::string_view price = trimmed(source_.field(columns.unitPrice));
        entry.unitPrice = readPrice(price, result_.decimalSeparator);
        if (!price.empty() && !entry.unitPrice) {
            return refusal("the unit price", price, "is no amount with a decimal ")
                .append(result_.decimalSeparator == '.' ? "point" : "comma");
        }
        if (!columns.itemId) {
            entry.itemId = static_cast<std::int32_t>(progress_.rows + 1);
        } else if (const std::string_view id = source_.field(columns.itemId); !readId(id, entry.itemId)) {
            return refusal("the item id", id, "is no whole number of 32 bits");
        }
        return writer.add(entry) ? std::string()
                                 : refusal("the item id", std::to_string(entry.itemId), "is in an earlier row, too");
    }

    static bool readId(std::string_view text, std::int32_t& id)
    {
        const std::string_view digits = trimmed(text);
        const char* const end = digits.data() + digits.size();
        const auto [rest, error] = std::from_chars(digits.data(), end, id);
        return error == std::errc() && rest == end;
    }

    static std::string refusal(std::string_view what, std::string_view value, std::string_view problem)
    {
        std::string text(what);
        return text.append(" \"").append(firstCharacters(value, kQuotedCharacters)).append("\" ").append(problem);
    }

    const fs::path file_;
    const CatalogueImportOptions& options_;
    Source source_;
    CatalogueImportProgress progress_;
    CatalogueImportResult result_;
};

} // namespace

CatalogueImportResult importCatalogue(const fs::path& source, const fs::path& catalogue,
                                      const CatalogueImportOptions& options)
{
    const bool goodDelimiter = std::string_view("\"\r\n").find(options.delimiter) == std::string_view::npos;
    const bool goodDecimal =
        options.decimalSeparator == 0 || options.decimalSeparator == '.' || options.decimalSeparator == ',';
    if (!goodDelimiter || !goodDecimal) {
        throw RuntimeError(ErrorNumber::invalidProcedureCall, {},
                           "The delimiter cannot be a quote or line break; the decimal separator is '.' or ','");
    }
    std::error_code error;
    const bool overwrites =
        fs::exists(catalogue, error) && (!fs::is_regular_file(catalogue, error) || fs::file_size(catalogue, error) > 0);
    if (overwrites && !isCatalogue(catalogue)) { // the price list itself, perhaps, if the user mixed up the arguments
        raiseCatalogueError(ErrorNumber::invalidFileFormat, catalogue, "there is another file of this name");
    }
    return Import(source, options).run(catalogue);
}

} // namespace orvan

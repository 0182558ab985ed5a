// ImportRun: reads a price list into a new catalogue file. It does not decide where the list's bytes come from and what
// becomes of the new file: importCatalogue gives it files, and the fuzzer gives it texts in memory. What is read and
// what is refused is described in orvan/components/catalogue/CatalogueImport.h.
//
// Thread: one at a time. Errors: those of importCatalogue.
#pragma once

#include "orvan/base/UserText.h"
#include "orvan/components/catalogue/CatalogueColumns.h"
#include "orvan/components/catalogue/CatalogueImport.h"
#include "orvan/components/catalogue/CatalogueWriter.h"
#include "orvan/components/catalogue/CsvReader.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <istream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace orvan {

/// A price list.
struct ImportSource {
    std::string name;        ///< How messages name the list.
    std::string origin = {}; ///< What the catalogue keeps as the name of the list that it was made from.
    std::uint64_t bytes = 0; ///< The list's size.
    /// Opens the list at its beginning. Called for the rows, and once more if the decimal separator is to be found.
    std::function<std::unique_ptr<std::istream>()> open;
};

class ImportRun {
public:
    /// Opens the source and reads its header. The options must outlive the run.
    ImportRun(ImportSource source, const CatalogueImportOptions& options);

    /// Reads the list from its beginning up to the first price that tells the decimal separator. Returns false when
    /// the import was cancelled, and when there are ambiguous prices but none that tells the separator.
    [[nodiscard]] bool findDecimalSeparator();
    /// Writes the new catalogue, whose entries keep the numbers that they have in the former one, if there is one.
    /// Returns false when it is not to be used: rows were refused, or the user cancelled.
    [[nodiscard]] bool write(const std::filesystem::path& catalogue,
                             const std::optional<std::filesystem::path>& former = {});
    /// Puts into the result where the replaced catalogue is kept; an empty path if it is not kept.
    void setFormer(std::filesystem::path former) { result_.former = std::move(former); }
    /// The result; `imported` says whether both steps returned true. To be called once, at the end.
    [[nodiscard]] CatalogueImportResult end(bool imported);

private:
    /// The list's header and, after it, its rows.
    class Rows {
    public:
        Rows(const ImportSource& source, const CatalogueImportOptions& options);

        CsvReader& reader() { return reader_; }
        bool isComplete() const { return reader_.fields().size() == width_; }
        std::size_t width() const { return width_; }
        const CatalogueColumns& columns() const { return columns_; }
        /// Returns "" for a column that the list does not have.
        std::string_view field(const std::optional<std::size_t>& column) const;

    private:
        std::unique_ptr<std::istream> stream_;
        CsvReader reader_;
        CatalogueColumns columns_;
        std::size_t width_ = 0;
    };

    bool goesOn() const { return !options_.progress || options_.progress(progress_); }
    void refuse(std::uint64_t line, const UserText& reason);
    UserText add(CatalogueWriter& writer);

    const ImportSource source_;
    const CatalogueImportOptions& options_;
    Rows rows_;
    CatalogueImportProgress progress_;
    CatalogueImportResult result_;
};

} // namespace orvan

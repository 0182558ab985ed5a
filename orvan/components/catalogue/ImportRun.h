// ImportRun: writes the entries of a price list into a new catalogue file. It does not decide where the list's bytes
// come from and what becomes of the new file: importCatalogue gives it files, and the fuzzer gives it texts in memory.
// What is read and what is refused is described in orvan/components/catalogue/CatalogueImport.h.
//
// Thread: one at a time. Errors: those of importCatalogue.
#pragma once

#include "orvan/base/UserText.h"
#include "orvan/components/catalogue/CatalogueImport.h"
#include "orvan/components/catalogue/CatalogueWriter.h"
#include "orvan/components/catalogue/lists/ListReader.h"

#include <cstdint>
#include <filesystem>
#include <utility>
#include <vector>

namespace orvan {

class ImportRun {
public:
    /// Opens the source and finds out how it is written. The options must outlive the run.
    ImportRun(ImportSource source, const CatalogueImportOptions& options);

    /// Reads the list from its beginning up to the first price that tells the decimal separator. Returns false when
    /// the import was cancelled, and when there are ambiguous prices but none that tells the separator.
    [[nodiscard]] bool findPrices();
    /// Writes the new catalogue, whose entries keep the numbers that they have in the former one, if there is one.
    /// Returns false when it is not to be used: rows were refused, or the user cancelled.
    [[nodiscard]] bool write(const std::filesystem::path& catalogue,
                             const std::optional<std::filesystem::path>& former = {});
    /// Puts into the result where the replaced catalogue is kept; an empty path if it is not kept.
    void setFormer(std::filesystem::path former) { result_.former = std::move(former); }
    /// The result; `imported` says whether both steps returned true. To be called once, at the end.
    [[nodiscard]] CatalogueImportResult end(bool imported);

private:
    bool goesOn() const { return !options_.progress || options_.progress(progress_); }
    void note(std::vector<RefusedRow>& rows, std::uint64_t& count, const UserText& reason) const;
    void refuse(const UserText& reason);
    void add(CatalogueWriter& writer);

    const ImportSource source_;
    const CatalogueImportOptions& options_;
    ListReader rows_;
    CatalogueImportProgress progress_;
    CatalogueImportResult result_;
};

} // namespace orvan

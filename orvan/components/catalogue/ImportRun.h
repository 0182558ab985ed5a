// ImportRun: reads the entries of a price list, and writes them into a new catalogue file. It does not decide where the
// list's bytes come from and what becomes of the entries or of the new file: importCatalogue gives it files, the fuzzer
// gives it texts in memory, and importToServer takes the entries to a server.
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
#include <functional>
#include <utility>
#include <vector>

namespace orvan {

/// Why a row is refused whose own id an earlier row has.
[[nodiscard]] UserText whyTwice(const CatalogueEntry& entry);

class ImportRun {
public:
    /// Opens the source and finds out how it is written. The options must outlive the run.
    ImportRun(ImportSource source, const CatalogueImportOptions& options);

    /// Reads the list from its beginning up to the first price that tells the decimal separator. Returns false when
    /// the import was cancelled, and when there are ambiguous prices but none that tells the separator.
    [[nodiscard]] bool findPrices();
    /// Reads the list, and gives each entry to `add`, which returns why it refuses the row in the given line; empty if
    /// it takes it. Returns false when the entries are not to be used: rows were refused, or the user cancelled.
    using Add = std::function<UserText(const CatalogueEntry& entry, std::uint64_t line)>;
    [[nodiscard]] bool read(const Add& add);
    /// Refuses rows that `add` has taken, and reads the list again for their cells. `lines` are in order. Returns what
    /// read() would have returned.
    using Reason = std::function<UserText(const CatalogueEntry& entry)>;
    [[nodiscard]] bool refuseTaken(const std::vector<std::uint64_t>& lines, const Reason& reason);
    /// Tells the progress of what is done with the entries. Returns false when the user cancels.
    [[nodiscard]] bool builds(int built, int all);
    /// Writes the new catalogue, whose entries keep the numbers that they have in the former one, if there is one.
    /// Returns false when it is not to be used: rows were refused, or the user cancelled.
    [[nodiscard]] bool write(const std::filesystem::path& catalogue,
                             const std::optional<std::filesystem::path>& former = {});
    /// Puts into the result where the replaced catalogue is kept; an empty path if it is not kept.
    void setFormer(std::filesystem::path former) { result_.former = std::move(former); }
    /// Where the list comes from, as the catalogue keeps it.
    [[nodiscard]] const std::string& origin() const { return source_.origin; }
    /// The result; `imported` says whether both steps returned true. To be called once, at the end.
    [[nodiscard]] CatalogueImportResult end(bool imported);

private:
    bool goesOn() const { return !options_.progress || options_.progress(progress_); }
    bool isUsable() const { return result_.refusedCount == 0 || (options_.skipBadRows && result_.rows > 0); }
    void note(std::vector<RefusedRow>& rows, std::uint64_t& count, const UserText& reason, std::uint64_t line) const;
    void refuse(const UserText& reason, const ListReader& rows);
    void take(const Add& add);

    const ImportSource source_;
    const CatalogueImportOptions& options_;
    ListReader rows_;
    CatalogueImportProgress progress_;
    CatalogueImportResult result_;
};

} // namespace orvan

// ListPreview: what an import would understand of a price list, before anything is imported.
//
// The caller shows it, and changes the options where the list was misunderstood; the import with the same options reads
// the list in the same way. Only the import itself sees whether two rows have the same id. Thread: any. Errors: those
// of foundForm.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/catalogue_export.h"
#include "orvan/components/catalogue/lists/ListReader.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvan {

struct PreviewedRow {
    std::uint64_t line = 0;
    std::vector<std::string> cells; ///< As they stand in the list.
    ListReader::Kind kind = ListReader::Kind::entry;
    UserText reason = {}; ///< Why it is skipped or refused.
    std::optional<Currency> unitPrice = {};
};

struct ListPreview {
    ListForm form;
    CatalogueColumns columns; ///< Which column has what; its `found` in the form says what is missing.
    char decimalSeparator = '.';
    std::string ambiguousPrice; ///< A price that can be read in two ways, where none tells how; else empty.
    std::vector<PreviewedRow> rows;
    std::uint64_t entries = 0, withoutPrice = 0;
    std::uint64_t refusedCount = 0, skippedCount = 0;
    std::vector<RefusedRow> refused, skipped;
    bool complete = false; ///< Whether the whole list was read; the numbers are those of its beginning otherwise.
};

/// `goesOn` is called now and then; when it returns false, the rest of the list is not read, except for `mostRows`
/// rows.
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL ListPreview previewList(const std::filesystem::path& file,
                                                               const CatalogueImportOptions& options,
                                                               std::size_t mostRows,
                                                               const std::function<bool()>& goesOn);

/// A price list in a file. `origin` is what the catalogue keeps as its name; if empty, the file's own name.
[[nodiscard]] ImportSource importSource(const std::filesystem::path& file, const std::string& origin = {});

} // namespace orvan

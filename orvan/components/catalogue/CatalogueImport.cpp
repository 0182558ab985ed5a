#include "orvan/components/catalogue/CatalogueImport.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/components/catalogue/ImportRun.h"
#include "orvan/components/catalogue/lists/ListPreview.h"
#include "orvan/files/FormerFile.h"
#include "orvan/files/NewFile.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orvan {

namespace {

namespace fs = std::filesystem;

/// Runs a step that makes the catalogue's new file. Its errors are told with the catalogue's name.
template <class Step>
auto naming(const fs::path& catalogue, Step&& step)
{
    try {
        return step();
    } catch (const RuntimeError& error) {
        raiseCatalogueError(error.number(), catalogue, error.userText());
    }
}

/// Gives the new catalogue its name. An empty file that it replaces is no catalogue, and is not kept.
UserText commit(ImportRun& run, files::NewFile& file, bool keepFormer)
{
    const bool keeps = keepFormer && isCatalogue(file.target());
    UserText warning = file.commit(keeps ? files::NewFile::Former::kept : files::NewFile::Former::dropped);
    if (keeps) {
        run.setFormer(files::formerFileOf(file.target()).value_or(fs::path()));
    }
    return warning;
}

/// Returns false when the former catalogue, if there is one, stays.
bool replaceCatalogue(ImportRun& run, const fs::path& catalogue, bool keepFormer)
{
    if (!run.findPrices()) {
        return false;
    }
    const auto file =
        naming(catalogue, [&] { return std::make_unique<files::NewFile>(catalogue, files::NewFile::Others::refused); });
    const bool hasFormer = isCatalogue(file->target());
    if (!run.write(file->path(), hasFormer ? std::optional(file->target()) : std::nullopt)) {
        return false;
    }
    // The warning that a power failure could bring the former catalogue back is dropped: the import has succeeded.
    static_cast<void>(naming(catalogue, [&] { return commit(run, *file, keepFormer); }));
    return true;
}

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
        raiseCatalogueError(ErrorNumber::invalidFileFormat, catalogue, userText("there is another file of this name"));
    }
    refuseNewerCatalogue(catalogue);
    ImportRun run(importSource(source, options.sourceName), options);
    return run.end(replaceCatalogue(run, catalogue, options.keepFormer));
}

} // namespace orvan

// Workbook: reads the sheets of a workbook (.xlsx) as rows of cells.
//
// The reader of these files, with the libraries that it needs, stands in a shared library of its own, the module
// orvan_workbooks. It is loaded when the first workbook is opened (orvan/components/catalogue/LoadedModule.h), so that
// programs start without it.
//
// Ownership: a sheet keeps its workbook. Thread: one at a time for a workbook. Errors: 429 where the module is missing,
// 321 for a file that is damaged or hostile, 75 for one that cannot be read; the description begins with its name.
#pragma once

#include "orvan/components/catalogue/lists/RowSource.h"

#include <memory>
#include <string>
#include <vector>

namespace orvan {

class WorkbookFile;

[[nodiscard]] std::shared_ptr<WorkbookFile> openWorkbook(const ImportSource& source);
/// The names of the sheets that are not hidden.
[[nodiscard]] const std::vector<std::string>& sheetsOf(const WorkbookFile& workbook);
[[nodiscard]] std::unique_ptr<RowSource> openSheet(const std::shared_ptr<WorkbookFile>& workbook, std::size_t sheet);

} // namespace orvan

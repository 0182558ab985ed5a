// WorkbookModule: what the module orvan_workbooks gives to the library that loads it, and what it gets.
//
// Both are built from the same sources with the same compiler. No exception passes between them: the module gives each
// failure as a value. Thread: one at a time for a workbook.
#pragma once

#include "orvan/base/UserText.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvan {

/// The bytes of a workbook's file.
class WorkbookBytes {
public:
    virtual ~WorkbookBytes() = default;
    virtual std::uint64_t size() const noexcept = 0;
    /// Returns how many bytes were read; -1 for an error.
    virtual std::int64_t readAt(std::uint64_t place, char* into, std::uint64_t size) noexcept = 0;
};

struct WorkbookFailure {
    std::int32_t number = 0; ///< An ErrorNumber; 0 if there is no failure.
    UserText reason = {};
};

class WorkbookSheet {
public:
    virtual ~WorkbookSheet() = default;
    /// Reads the next row that has content. Returns false at the end, and for a failure.
    virtual bool next() noexcept = 0;
    virtual const std::vector<std::string_view>& cells() const noexcept = 0;
    virtual bool isNumber(std::size_t cell) const noexcept = 0;
    virtual std::uint64_t line() const noexcept = 0;
    virtual const WorkbookFailure& failure() const noexcept = 0;
};

class WorkbookParts {
public:
    virtual ~WorkbookParts() = default;
    virtual const std::vector<std::string>& sheets() const noexcept = 0;
    /// Null for a failure.
    virtual std::unique_ptr<WorkbookSheet> open(std::size_t sheet) noexcept = 0;
    /// Of opening the workbook or a sheet.
    virtual const WorkbookFailure& failure() const noexcept = 0;
};

/// Opens a workbook; `bytes` outlives it. Null where memory runs out.
using OpenWorkbookParts = WorkbookParts* (*)(WorkbookBytes& bytes);
inline constexpr const char* kOpenWorkbookParts = "orvanOpenWorkbookParts";

} // namespace orvan

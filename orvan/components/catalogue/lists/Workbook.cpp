#include "orvan/components/catalogue/lists/Workbook.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/LoadedModule.h"
#include "orvan/components/catalogue/lists/WorkbookModule.h"

#include <algorithm>
#include <utility>

namespace orvan {

namespace {

OpenWorkbookParts loadedModule()
{
    std::string reasons;
    if (void* const function = moduleFunction("orvan_workbooks", kOpenWorkbookParts, reasons)) {
        return reinterpret_cast<OpenWorkbookParts>(function);
    }
    throw RuntimeError(ErrorNumber::cannotCreateComponent, {},
                       userText("workbooks cannot be read, because a part of this program is missing (%1); save the "
                                "list as CSV",
                                reasons));
}

} // namespace

class WorkbookFile : private WorkbookBytes {
public:
    explicit WorkbookFile(const ImportSource& source) : name_(source.name), size_(source.bytes), stream_(source.open())
    {
        static const OpenWorkbookParts openParts = [&] {
            try {
                return loadedModule();
            } catch (const RuntimeError& error) {
                raise({error.number(), error.userText()});
            }
        }();
        parts_.reset(openParts(*this));
        check(parts_ ? parts_->failure() : WorkbookFailure{ErrorNumber::outOfMemory});
    }

    const std::vector<std::string>& sheets() const { return parts_->sheets(); }
    std::unique_ptr<WorkbookSheet> open(std::size_t sheet)
    {
        read_ = 0;
        std::unique_ptr<WorkbookSheet> opened = parts_->open(sheet);
        check(opened ? WorkbookFailure() : parts_->failure());
        return opened;
    }
    void check(const WorkbookFailure& failure) const
    {
        if (failure.number != 0) {
            raise(failure);
        }
    }
    std::uint64_t bytesRead() const { return std::min(read_, size_); }

private:
    [[noreturn]] void raise(const WorkbookFailure& failure) const
    {
        throw RuntimeError(failure.number, {}, userText("%1: %2", name_, failure.reason));
    }

    std::uint64_t size() const noexcept override { return size_; }
    std::int64_t readAt(std::uint64_t place, char* into, std::uint64_t size) noexcept override
    {
        try {
            stream_->clear();
            stream_->seekg(static_cast<std::streamoff>(place));
            stream_->read(into, static_cast<std::streamsize>(size));
            if (stream_->bad()) {
                return -1;
            }
            read_ += static_cast<std::uint64_t>(stream_->gcount());
            return stream_->gcount();
        } catch (...) {
            return -1;
        }
    }

    const std::string name_;
    const std::uint64_t size_;
    const std::unique_ptr<std::istream> stream_;
    std::unique_ptr<WorkbookParts> parts_;
    std::uint64_t read_ = 0; ///< Since a sheet was opened.
};

namespace {

class SheetRows final : public RowSource {
public:
    SheetRows(std::shared_ptr<WorkbookFile> file, std::size_t sheet)
        : file_(std::move(file)), sheet_(file_->open(sheet))
    {
    }

    bool next() override
    {
        const bool more = sheet_->next();
        file_->check(sheet_->failure());
        return more;
    }
    const std::vector<std::string_view>& cells() const override { return sheet_->cells(); }
    bool isNumber(std::size_t cell) const override { return sheet_->isNumber(cell); }
    bool endsEarly() const override { return true; }
    const UserText& problem() const override { return noProblem_; }
    std::uint64_t line() const override { return sheet_->line(); }
    std::uint64_t bytesRead() const override { return file_->bytesRead(); }

private:
    const std::shared_ptr<WorkbookFile> file_;
    const std::unique_ptr<WorkbookSheet> sheet_;
    const UserText noProblem_;
};

} // namespace

std::shared_ptr<WorkbookFile> openWorkbook(const ImportSource& source)
{
    return std::make_shared<WorkbookFile>(source);
}

const std::vector<std::string>& sheetsOf(const WorkbookFile& workbook)
{
    return workbook.sheets();
}

std::unique_ptr<RowSource> openSheet(const std::shared_ptr<WorkbookFile>& workbook, std::size_t sheet)
{
    return std::make_unique<SheetRows>(workbook, sheet);
}

} // namespace orvan

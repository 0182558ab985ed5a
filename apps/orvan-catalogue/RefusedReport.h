// RefusedReport: the file in which an import writes the rows that it refuses, as CSV: the line, the reason, the cells.
//
// A report of an earlier import is replaced, and removed where no row is refused. Thread: one at a time. Errors: 75.
#pragma once

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CatalogueImport.h"
#include "orvan/core/SpreadsheetCell.h"
#include "orvan/files/NewFile.h"

#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvan::tool {

class RefusedReport {
public:
    /// Writes nothing if the name is empty.
    explicit RefusedReport(std::string file) : file_(std::move(file)) {}

    void add(const RefusedRow& row, const std::vector<std::string_view>& cells)
    {
        if (file_.empty()) {
            return;
        }
        if (!new_) {
            new_ = std::make_unique<files::NewFile>(file_, files::NewFile::Others::refused);
            stream_.open(new_->path(), std::ios::binary);
            stream_ << "line,reason\r\n";
        }
        std::string line = std::to_string(row.line) + ',';
        appendQuoted(line, row.reason.english());
        for (const std::string_view cell : cells) {
            line += ',';
            appendQuoted(line, guarded(cell));
        }
        stream_ << line << "\r\n";
    }

    void finish()
    {
        if (!new_) {
            return;
        }
        stream_.close();
        if (!stream_) {
            throw RuntimeError(ErrorNumber::pathFileAccess, {}, userText("%1: it cannot be written", file_));
        }
        // The warning that a power failure could bring the former report back is dropped.
        static_cast<void>(new_->commit(files::NewFile::Former::dropped));
        written_ = true;
    }

    [[nodiscard]] bool written() const { return written_; }
    [[nodiscard]] const std::string& file() const { return file_; }

private:
    const std::string file_;
    std::unique_ptr<files::NewFile> new_;
    std::ofstream stream_;
    bool written_ = false;
};

} // namespace orvan::tool

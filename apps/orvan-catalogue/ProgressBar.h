// ProgressBar: shows how far an import is.
#pragma once

#include "orvan/components/catalogue/CatalogueImport.h"

#include <iostream>
#include <sstream>
#include <string>

#include <unistd.h>

namespace orvan::tool {

/// A progress bar in one line, which each call overwrites. Shows nothing if the output is not a terminal.
class ProgressBar {
public:
    explicit ProgressBar(bool shown) : shown_(shown && ::isatty(STDERR_FILENO) != 0) {}
    ~ProgressBar()
    {
        if (!last_.empty()) {
            std::cerr << "\r\033[K" << std::flush;
        }
    }

    void show(const CatalogueImportProgress& progress)
    {
        if (!shown_ || progress.bytesTotal == 0) {
            return;
        }
        const bool reading = progress.indexesTotal == 0;
        const double done = reading ? double(progress.bytesRead) / double(progress.bytesTotal)
                                    : double(progress.indexesBuilt) / progress.indexesTotal;
        constexpr int kWidth = 40;
        const int filled = static_cast<int>(done * kWidth);
        std::ostringstream line;
        line << (reading ? "Reading  [" : "Indexing [") << std::string(static_cast<std::size_t>(filled), '#')
             << std::string(static_cast<std::size_t>(kWidth - filled), '.') << "] " << static_cast<int>(done * 100)
             << " %  " << progress.rows << " rows";
        if (line.str() != last_) {
            last_ = line.str();
            std::cerr << '\r' << last_ << std::flush;
        }
    }

    /// Writes a line of its own, also where the bar is not shown.
    void tell(const char* line)
    {
        std::cerr << (last_.empty() ? "" : "\r\033[K") << line << std::endl;
        last_.clear();
    }

private:
    const bool shown_;
    std::string last_;
};

} // namespace orvan::tool

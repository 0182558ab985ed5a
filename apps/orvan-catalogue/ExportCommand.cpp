#include "ExportCommand.h"

#include "CommandLine.h"
#include "Interruption.h"
#include "ServerCommands.h"

#include "apps/shared/TerminalText.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/components/catalogue/server/ServerSchema.h"
#include "orvan/core/SpreadsheetCell.h"
#include "orvan/files/NewFile.h"

#include <array>
#include <fstream>
#include <iostream>

namespace orvan::tool {

using shared::countOf;
using shared::terminalText;

const char kExportHelp[] =
    R"(export      Writes all entries of CATALOGUE, which may be a file or on a server, to FILE: CSV in UTF-8 that import
            reads again.
)";

namespace {

constexpr std::size_t kPrice = 5;
constexpr std::array<const char*, 7> kColumns = {"id", "name", "key", "part number", "barcode", "unit price", "note"};

/// Writes rows of cells. The prices are in ten-thousandths.
class ExportedList {
public:
    explicit ExportedList(const std::string& file) : file_(file)
    {
        if (isCatalogue(file)) {
            throw WrongUse{file + " is a catalogue, and is not replaced by a price list"};
        }
        new_.emplace(file_, files::NewFile::Others::refused);
        stream_.open(new_->path(), std::ios::binary);
        std::string header;
        for (const char* const column : kColumns) {
            header.append(header.empty() ? "" : ",").append(column);
        }
        stream_ << header << "\r\n";
    }

    template <class Rows>
    void add(const Rows& rows, bool hasPrice)
    {
        line_.clear();
        for (std::size_t column = 0; column < kColumns.size(); ++column) {
            line_.append(column == 0 ? "" : ",");
            if (column != kPrice) {
                const std::string_view text = rows.text(static_cast<int>(column));
                if (!text.empty()) {
                    appendQuoted(line_, text);
                }
            } else if (hasPrice) {
                appendPrice(Currency::fromScaled(rows.integer(static_cast<int>(kPrice))));
            }
        }
        stream_ << line_ << "\r\n";
        ++count_;
        if (interrupted != 0) {
            throw RuntimeError(ErrorNumber::pathFileAccess); // main says why
        }
    }

    /// Returns how many entries were written.
    std::int64_t finish()
    {
        stream_.close();
        if (!stream_) {
            throw RuntimeError(ErrorNumber::pathFileAccess, {}, userText("%1: it cannot be written", file_));
        }
        // The warning that a power failure could bring the former file back is dropped.
        static_cast<void>(new_->commit(files::NewFile::Former::dropped));
        return count_;
    }

private:
    /// Three decimals would look like a separator of thousands, so a fourth one follows.
    void appendPrice(Currency price)
    {
        const std::size_t begin = line_.size();
        appendAmount(line_, price, ".");
        const std::size_t point = line_.find('.', begin);
        line_.append(point != line_.npos && line_.size() - point == 4 ? "0" : "");
    }

    const std::string file_;
    std::optional<files::NewFile> new_;
    std::ofstream stream_;
    std::string line_;
    std::int64_t count_ = 0;
};

void exportFile(const std::string& file, ExportedList& list)
{
    SqliteFile catalogue = openCatalogue(file);
    const bool isFirst = catalogueVersion(catalogue) == kFirstCatalogueVersion;
    SqliteStatement all(catalogue, isFirst
                                       ? "SELECT item_id, name, key, part_num, '', unit_price, note FROM product"
                                         " ORDER BY item_id"
                                       : "SELECT own_id, name, key, part_num, barcode, unit_price, note FROM product"
                                         " ORDER BY item_id");
    SqliteRows rows = all.query();
    while (rows.next()) {
        list.add(rows, rows.type(kPrice) != SqliteType::null);
    }
}

void exportServer(const ServerUri& uri, ExportedList& list)
{
    ServerConnection server(uri, connectionOptions());
    static_cast<void>(serverState(server));
    ServerRows rows = server.query("SELECT own_id, name, key, part_num, barcode, unit_price, note FROM orvan.product"
                                   " ORDER BY id");
    while (rows.next()) {
        list.add(rows, !rows.isNull(kPrice));
    }
}

} // namespace

int exportCatalogue(const std::vector<std::string>& words)
{
    const auto files = positional(words, [&](const std::string& option, const auto& /*value*/) {
        throw WrongUse{"export has no option " + option};
    });
    if (files.size() != 2) {
        throw WrongUse{"export needs two arguments, a catalogue and the file to be written"};
    }
    endInOrderAtSignals();
    const std::optional<ServerUri> server = serverUri(files[0]);
    ExportedList list(files[1]);
    if (server) {
        exportServer(*server, list);
    } else {
        exportFile(files[0], list);
    }
    std::cout << countOf(static_cast<std::uint64_t>(list.finish()), "entry", "entries") << " in "
              << terminalText(files[1]) << '\n';
    return kDone;
}

} // namespace orvan::tool

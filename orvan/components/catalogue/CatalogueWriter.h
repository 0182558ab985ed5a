// CatalogueWriter: writes a new catalogue file (CatalogueFile.h).
//
// The entries are first gathered in the list's order, in a second file beside the new one that has no name any more
// once it is open, so that nothing is left of it however the program ends. finish() writes them in the order of their
// names, and everything that a search needs. There is no journal, because an unfinished file is thrown away. The memory
// that this takes does not depend on the number of entries.
//
// Thread: one at a time. Errors: those of SqliteFile.h, and 6 when all numbers of 32 bits are used up.
#pragma once

#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/components/catalogue/CatalogueIds.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace orvan {

struct CatalogueWriterOptions {
    /// The catalogue that the new one replaces, whose entries keep their numbers.
    std::optional<std::filesystem::path> former = {};
    /// The language in whose order the lists are shown, such as "sv" or "de_AT"; the order of most languages if
    /// empty or unknown.
    std::string language = {};
};

class CatalogueWriter {
public:
    /// Fills an empty file that nobody else uses.
    explicit CatalogueWriter(const std::filesystem::path& file, CatalogueWriterOptions options = {});
    ~CatalogueWriter();
    CatalogueWriter(const CatalogueWriter&) = delete;
    CatalogueWriter& operator=(const CatalogueWriter&) = delete;

    /// Removes blanks around the part number, the barcode and the own id. Returns false, and adds nothing, when there
    /// is already an entry with this own id, or with the number that the entry brings.
    bool add(const CatalogueEntry& entry);
    /// Records where the entries come from; only the name of the list is used.
    void setOrigin(const CatalogueOrigin& origin) { source_ = origin.source; }
    /// For entries that bring their numbers: the name that all catalogues with these numbers share. `entries` is what
    /// the catalogue says of its size, where it is the layer of another one (CatalogueLayers.h).
    void setNumbering(std::string lineage, std::optional<std::int64_t> entries)
    {
        lineage_ = std::move(lineage);
        entries_ = entries;
    }
    /// For tables of the caller's own, to be written before finish().
    SqliteFile& file() { return file_; }
    /// Writes the catalogue and marks the file as one. Calls `goOn` now and then with the number of steps done so far
    /// and the number of all steps. If `goOn` returns false, this stops and returns false, and the file is useless.
    bool finish(const std::function<bool(int built, int all)>& goOn);

private:
    void addFunctions();
    bool writeWords(const std::function<bool()>& goesOn);
    void gatherWords(std::int64_t rank, const SqliteRows& texts);
    bool writeCrowded(LookUpText list, const std::function<bool()>& goesOn);
    void writeRetired();
    void writeOrigin();

    SqliteFile file_;
    const CatalogueWriterOptions options_;
    CatalogueIds ids_;
    SqliteStatement insert_, findOwn_, gatherWord_;
    std::string source_, lineage_;
    std::optional<std::int64_t> entries_;
    std::string words_; // Scratch buffer; a member so that its capacity is reused.
    struct SeenWord {
        std::string word;
        std::int64_t rank = 0;
        bool inSeveral = false;
    };
    /// Words that were met lately, each at the place that its hash gives: most words come again and again.
    std::array<SeenWord, 16'384> seenWords_;
};

} // namespace orvan

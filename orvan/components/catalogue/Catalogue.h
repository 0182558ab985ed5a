// SqliteCatalogue: the catalogue look-up on a catalogue file (orvan/components/catalogue/CatalogueFile.h).
//
// Matching. A typed text matches the entries whose text (part number or name) begins with it without
// regard to case, in the folding of orvan/components/catalogue/CaseFolding.h. Every character is literal: "%", "_",
// quotes and backslashes too. An empty text matches nothing: otherwise the editor would complete the empty box of a
// new product, and apply an entry that the user did not ask for.
//
// Order of a filtered list:
//   1. entries that begin with exactly the typed characters, ordered by text, then by id;
//   2. the other matches, ordered by folded text, then by text, then by id.
// Texts compare by code point. A shorter text stands before its continuations, so that "AB" can be
// typed and kept where there is also "ABC".
//
// Completion. The box shows row 0's text and selects all of it that the user has not typed. Row 0's text must
// therefore begin with exactly the typed text. Where no entry does (all matches are of kind 2), row 0 shows the typed
// characters in place of the beginning of its entry: "bolt M8" for the typed "bolt" and the entry "BOLT M8". This
// holds even where a folding has another number of characters ("STRAS" and "Straße" give "STRASse"), so that the
// length of the selection is never negative. The other rows keep the catalogue's spelling, because the box takes a
// chosen row's text unchanged.
//
// The whole list holds the entries whose text is not empty, ordered by folded text, then by text, then by id.
//
// The file is opened read-only; a new version of a catalogue replaces the file as a whole. When a list or an entry is
// asked for and another file has the name, that one is opened. Otherwise the open file is used, even if its name no
// longer exists, so that no result mixes two files. The current entry is a copy, which does not change.
//
// Columns: 0 item id, 1 folded name, 2 folded part number, 3 name, 4 key, 5 part number, 6 unit price,
// 7 note. A price that is a whole number in the file is returned as a Currency; any other value (a text, a double,
// Null) is returned unchanged, and toCurrency (orvan/lookup/LookUpValue.h) converts or refuses it.
//
// Thread: the thread that created it. Errors: 75 and 321 with the file and the reason in the description
// (orvan/components/catalogue/SqliteFile.h); 9 for a column outside 0 to 7; 91 for a column when there is no current
// entry.
#pragma once

#include "orvan/components/catalogue/CatalogueFactory.h"
#include "orvan/lookup/ProductLkpMgr.h"

#include <memory>
#include <string_view>
#include <vector>

namespace orvan {

class SqliteCatalogue final : public ProductLkpMgr {
public:
    /// Raises 75 or 321 when the file cannot be used. Does not use the option `report`.
    explicit SqliteCatalogue(CatalogueOptions options);
    ~SqliteCatalogue() override;

    LookUpList GetPartNumList(std::string_view sText, bool all) override;
    LookUpList GetProductNameList(std::string_view sText, bool all) override;
    void SeekItem(std::int32_t itemId) override;
    bool IsEOF() override { return entry_.empty(); }
    LookUpValue GetFieldValue(std::int32_t column) override;
    std::optional<LookUpSummary> summary(std::int64_t itemId) override;
    std::size_t mostMatches() const override { return options_.mostMatches; }

private:
    struct Column;
    struct File;

    File& file();
    LookUpList list(Column File::*column, std::string_view sText, bool all);
    /// The entry's columns; empty when there is no such entry.
    std::vector<LookUpValue> read(std::int64_t itemId);

    CatalogueOptions options_;
    std::unique_ptr<File> file_;
    std::vector<LookUpValue> entry_; ///< The current entry's columns; empty when there is no current entry.
};

} // namespace orvan

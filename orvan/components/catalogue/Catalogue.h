// SqliteCatalogue: the catalogue look-up on a catalogue file (orvan/components/catalogue/CatalogueFile.h).
//
// Matching. A typed text matches the entries whose text (part number or name) begins with it without
// regard to case, in the folding of orvan/components/catalogue/CaseFolding.h. Every character is literal: "%", "_",
// quotes and backslashes too. An empty text matches nothing: the editor would complete the box of a
// new product, and apply what nobody asked for.
//
// Order of a filtered list:
//   1. entries that begin with exactly the typed characters, by text, equal ones by id;
//   2. the other matches, by folded text, then by text, equal ones by id.
// Texts compare by code point. A shorter text stands before its continuations, so that "AB" can be
// typed and kept where there is also "ABC".
//
// Completion. The box shows row 0 with what is beyond the typed length selected, so row 0's text always
// begins with exactly the typed text: where no entry does (there are matches of kind 2 alone), row 0
// shows the typed characters in place of its entry's own beginning ("bolt M8" for the typed "bolt" and
// the entry "BOLT M8"). It is the typed text and something after it, even where a folding has another
// number of characters ("STRAS" and "Straße": "STRASse"), so a selection length, which is the
// difference, is never negative. The other rows keep the catalogue's spelling: choosing one takes it as it
// stands.
//
// The whole list holds the entries whose text is not empty, by folded text, then text, then id.
//
// The file is opened read-only and only ever replaced as a whole. A list or SeekItem that finds another
// file under the name opens that one; until then, and when the file has gone, the one opened before
// serves: no answer mixes the two. The current entry is a copy and stays as it was read.
//
// Columns: 0 item id, 1 folded name, 2 folded part number, 3 name, 4 key, 5 part number, 6 unit price,
// 7 note. A price that is a whole number in the file is a Currency; anything else (text, a double, Null)
// is handed over as it stands, and converts or fails as the look-up's values do.
//
// Thread: the thread that created it. Errors: 75 and 321 with the file and the reason in the description
// (orvan/components/catalogue/SqliteFile.h); 9 for a column beyond 0 to 7, 91 for a column without a current entry.
#pragma once

#include "orvan/components/catalogue/CatalogueFactory.h"
#include "orvan/lookup/ProductLkpMgr.h"

#include <memory>
#include <string_view>
#include <vector>

namespace orvan {

class SqliteCatalogue final : public ProductLkpMgr {
public:
    /// Raises 75 or 321 when the file cannot be used. `report` is not used here.
    explicit SqliteCatalogue(CatalogueOptions options);
    ~SqliteCatalogue() override;

    LookUpList GetPartNumList(std::string_view sText, bool all) override;
    LookUpList GetProductNameList(std::string_view sText, bool all) override;
    void SeekItem(std::int32_t itemId) override;
    bool IsEOF() override { return entry_.empty(); }
    LookUpValue GetFieldValue(std::int32_t column) override;

private:
    struct Column;
    struct File;

    File& file();
    LookUpList list(Column File::*column, std::string_view sText, bool all);

    CatalogueOptions options_;
    std::unique_ptr<File> file_;
    std::vector<LookUpValue> entry_; ///< Empty: none.
};

} // namespace orvan

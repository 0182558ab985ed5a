// SqliteCatalogue: the catalogue look-up on a catalogue file (orvan/components/catalogue/CatalogueFile.h).
//
// Matching. A typed text matches the entries whose text (part number or name) begins with it without
// regard to case, in the folding of orvan/components/catalogue/CaseFolding.h. Every character is literal: "%", "_",
// quotes and backslashes too. An empty text matches nothing: otherwise the editor would complete the empty box of a
// new product, and apply an entry that the user did not ask for. A part number or barcode of one entry alone that is
// typed whole, but without its dashes and blanks, matches in the list of part numbers.
//
// Order of a filtered list:
//   1. full matches, those that are spelled as typed first;
//   2. the other entries that begin with the typed text;
//   3. entries that have the typed words anywhere in name, part number, barcode or note, in any order, without regard
//   to
//      case, diacritics, dashes and blanks;
//   4. if there are fewer than 20 rows so far, and no full match: entries that have the typed words but for one typing
//      error. Of several words, only those that begin no word of the catalogue are taken for an error.
// Kinds 3 and 4 come only behind entries of kind 1 or 2. If there are none, there is no list, and the next call begins
// the whole list with kinds 3 and 4, if it asks for the whole list of the same text; any other call forgets the search.
//
// Texts are ordered as the language orders them that the import was told of, entries of kinds 3 and 4 by their names.
// A catalogue that version 2.1.30 or another program has made has no kinds 3 and 4, and is ordered by folded text.
//
// Completion. The box shows row 0's text and selects all of it that the user has not typed. Row 0's text therefore
// begins with the typed text but for the case: it is the catalogue's spelling. Where a folding has another number of
// characters ("STRAS" and "Straße" give "STRASse"), and with CatalogueOptions::completionAsTyped, the typed characters
// stand in place of the beginning. So the length of the selection is never negative. The other rows always keep the
// catalogue's spelling, because the box takes a chosen row's text unchanged.
//
// The whole list holds the entries whose text is not empty.
//
// Versions. The file is opened read-only; a new version of a catalogue replaces the file as a whole. The next list is
// read from the new one. Until then, entries come from the version of the last list; an entry that this version does
// not have comes from the version of the other text's last list. So what a list shows is what is applied. If a file was
// overwritten in place (`cp`), its entries are gone: they come from the present file, if the same numbers mean the same
// entries there (CatalogueIds.h). A list that fails is tried again while the file is changing. The current entry is a
// copy, which does not change.
//
// Columns: 0 item id, 1 folded name, 2 folded part number, 3 name, 4 key, 5 part number, 6 unit price,
// 7 note. A price that is a whole number in the file is returned as a Currency; any other value (a text, a double,
// Null) is returned unchanged, and toCurrency (orvan/lookup/LookUpValue.h) converts or refuses it.
//
// Thread: the thread that created it. Errors: 75 and 321 with the file and the reason in the description
// (orvan/components/catalogue/SqliteFile.h); 9 for a column outside 0 to 7; 91 for a column when there is no current
// entry.
#pragma once

#include "orvan/catalogue_export.h"
#include "orvan/components/catalogue/CatalogueFactory.h"
#include "orvan/lookup/ProductLkpMgr.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace orvan {

class CatalogueVersion;
enum class LookUpText;

class ORVAN_CATALOGUE_INTERNAL SqliteCatalogue final : public ProductLkpMgr {
public:
    /// Raises 75 or 321 when the file cannot be used. Does not use the option `report`.
    explicit SqliteCatalogue(CatalogueOptions options);
    ~SqliteCatalogue() override;

    LookUpList GetPartNumList(std::string_view sText, bool all) override;
    LookUpList GetProductNameList(std::string_view sText, bool all) override;
    void SeekItem(std::int32_t itemId) override;
    bool IsEOF() override;
    LookUpValue GetFieldValue(std::int32_t column) override;
    std::optional<LookUpSummary> summary(std::int64_t itemId) override;
    std::size_t mostMatches() const override { return options_.mostMatches; }

private:
    using Version = std::shared_ptr<CatalogueVersion>;

    Version present();
    LookUpList list(LookUpText text, std::string_view sText, bool all);
    /// Tries a step again that fails while the file is being changed.
    template <class Step>
    auto tried(Step&& step) -> decltype(step());
    /// The entry's columns; empty when there is no such entry.
    std::vector<LookUpValue> read(std::int64_t itemId);

    std::vector<LookUpValue> readFrom(const Version& version, std::int64_t itemId);

    /// What the last list of a text was.
    struct Listed {
        Version version;
        std::unordered_set<std::int64_t> ids;
    };

    CatalogueOptions options_;
    Version last_;                 ///< That of the next list, unless another has come; null after a failure.
    std::array<Listed, 2> listed_; ///< By LookUpText.
    std::size_t lastText_ = 0;     ///< Of which text the last list was.
    std::array<std::optional<std::string>, 2> missed_; ///< The search before, if nothing began with its text.
    std::vector<LookUpValue> entry_; ///< The current entry's columns; empty when there is no current entry.
};

} // namespace orvan

// ProductLkpMgr: the interface of the catalogue look-up: it gives lists of entries, and the values of one current
// entry.
//
// orvan/components/catalogue/CatalogueFactory.h has the one that comes with the library. A host that brings its own
// registers a factory of it, before its first editor opens:
//
//     host.components().registerClass(std::string(orvan::kProductLkpMgrClassName),
//                                     [] { return std::make_shared<AcmeLookUp>(); });
//
// orvan/testing/ProductLkpMgrConformance.h tests a look-up against what is said here.
//
// Ownership: shared. The editor has the factory make a new object for each session, and releases it when the session
// ends. So the factory, and not the object, should keep what takes long to open, such as a file or a connection.
// Several objects may exist at the same time, and each has a current entry of its own. Texts are UTF-8 and valid during
// the call only. The look-up decides which entries match, in what order they are listed and how many are listed, within
// what is said below.
//
// Errors: any operation may throw anything. An error of GetPartNumList or GetProductNameList closes the editor with a
// message, or keeps it from opening. So a look-up that cannot reach its catalogue should return no list rather than
// throw: the user can then go on without a catalogue. The editor ignores an error of SeekItem or GetFieldValue: it
// applies a column that cannot be read as 0 or as an empty text. Where IsEOF fails, the editor goes on as if there were
// an entry. Where summary fails, the row shows its own text alone.
//
// Thread: the thread that created the object, which is the thread of the user interface. The user waits while a list is
// made.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/base/SafeVariant.h"
#include "orvan/ui/ComponentFactory.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvan {

/// Class name of the catalogue look-up component.
inline constexpr std::string_view kProductLkpMgrClassName = "KTBOrvanProductEditor.ProductLkpMgr";

/// One row of a list. A row with an empty text is not shown, and an id beyond 32 bits is error 6.
struct LookUpRow {
    std::int64_t itemId = 0;
    std::string text;
};

/// Rows in the order in which they are shown. No list at all (Null) means that there are no entries; the editor
/// treats an empty list in the same way.
using LookUpList = std::optional<std::vector<LookUpRow>>;

/// A column's value as the catalogue holds it; monostate is Null.
using LookUpValue = SafeVariant<std::monostate, std::int64_t, double, Currency, std::string>;

/// Columns of the current entry that the editor reads.
enum class LookUpColumn : std::int32_t { name = 3, key = 4, partNum = 5, unitPrice = 6, note = 7 };

/// What the list that drops down shows of an entry. Null, or an empty text, is shown as nothing.
struct LookUpSummary {
    LookUpValue partNum;
    LookUpValue name;
    LookUpValue unitPrice;
};

class ORVAN_EXPORT ProductLkpMgr : public ui::Component {
public:
    /// Asked for half a second after the last key, and for the whole list when the editor opens.
    /// The entries whose part number begins with sText. The best completion comes first: row 0's text begins with
    /// sText, but for the case, and so has at least as many characters: the box shows this text and selects what has
    /// not been typed. Rows 1 and on may hold other entries that the user may have meant. Must return no list for an
    /// empty sText, because the box of a new product is empty, and the best match would be applied to that product.
    /// With `all`, returns the whole list and ignores sText; the editor passes "". Where nothing begins with sText, the
    /// editor asks for the whole list next, without a text: a look-up may then remember the search that found nothing,
    /// and begin the next whole list of the same column with the entries that the user may have meant. Any other call
    /// has to make it forget that search.
    [[nodiscard]] virtual LookUpList GetPartNumList(std::string_view sText, bool all) = 0;
    /// The same for entries whose name begins with sText.
    [[nodiscard]] virtual LookUpList GetProductNameList(std::string_view sText, bool all) = 0;
    /// Makes the entry with this id the current one; where there is none, there is no current entry then. The id is one
    /// that a list of this object had; the catalogue may have changed since.
    virtual void SeekItem(std::int32_t itemId) = 0;
    /// True when there is no current entry, as in a new object. Asked right after SeekItem.
    [[nodiscard]] virtual bool IsEOF() = 0;
    /// The column's value of the current entry; the library asks for LookUpColumn's columns only, and only when there
    /// is such an entry. Part number and name are those of the lists. A price that is a text is read as the user's
    /// locale writes amounts; Null counts as 0 or as an empty text.
    [[nodiscard]] virtual LookUpValue GetFieldValue(std::int32_t column) = 0;

    // A catalogue can do without the following: the lists then show the texts of their rows alone.

    /// The entry with this id, for showing it in a list; nothing where there is none. Asked for each row while the list
    /// is painted, so it should be quick. The current entry stays what it is.
    [[nodiscard]] virtual std::optional<LookUpSummary> summary(std::int64_t /*itemId*/) { return std::nullopt; }
    /// The most rows of a list of matches, which leaves out further ones; 0: a list has all matches.
    [[nodiscard]] virtual std::size_t mostMatches() const { return 0; }
};

} // namespace orvan

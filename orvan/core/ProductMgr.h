// The product data contract: a manager that holds the product list, and the records it hands out.
//
// The library shows and edits a list that it does not own. Everything it does with products goes through these two
// interfaces; orvan/components/products/InProcessProductMgr.h is the manager that comes with the library. A host that
// brings its own registers a factory of it before it makes its first view:
//
//     host.components().registerClass(std::string(orvan::kProductMgrClassName),
//                                     [] { return std::make_shared<AcmeManager>(); });
//
// or names a shared library that has it (orvan/hosting/ComponentRegistry.h). At each call, the factory makes a new
// manager with an empty list, because several managers exist at a time. A view has the factory make one when the view
// itself is made, one for each Show, and one before each paste or duplicate; the view asks this last one how large the
// new products are. orvan/testing/ProductMgrConformance.h and ProductRecordConformance.h test a manager against what is
// said here.
//
// Positions are 1-based: the first product is 1, the last is the count. Amounts are Currency (ten-thousandths). Texts
// are UTF-8 of any length and with any characters, line breaks and separators included.
//
// Ownership: shared; the list lives as long as somebody holds the manager. No pointer that is handed out may be null:
// null is treated as error 91.
//
// Errors: any operation may throw anything; what it throws reaches the library's caller as currentError() gives it. The
// numbers named below are those that the library's own manager raises; of them, the library itself looks at 14 alone.
// An error while the user edits closes the editor, with a message, except where something else is said; one in a
// command of the list is shown by the trace (orvan/core/Trace.h); one in an operation that the host has called goes to
// the host.
//
// Thread: the thread that created the manager; the library never calls it from another one, and locks nothing. While an
// operation runs, it may call the host, and the host may even destroy the view: the library keeps the manager alive
// until the operation has returned.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/ui/ComponentFactory.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace orvan {

/// Class name by which the library creates the product manager.
inline constexpr std::string_view kProductMgrClassName = "KTBOrvanProductMgr.ProductMgr";

/// Separators of the products string. The library passes these and no others.
inline const std::string kRecordSeparator = "~";
inline const std::string kFieldSeparator = ":";

/// One line item, read and written in place: the manager sees every write at once, so the next GetTotalValue and the
/// next products string have it. A record stays with its product, whatever is added, moved or deleted beside it, and
/// can still be read and written when it has left the list or its manager is gone. Two calls for one product may hand
/// out one object or two.
///
/// A text or an amount is given back exactly as it was set; the editor takes any difference for a change by the user.
/// No setter changes another property. The text that a setter gets lives during the call only.
class ORVAN_EXPORT ProductRecord {
public:
    virtual ~ProductRecord() = default;

    [[nodiscard]] virtual std::string Name() const = 0;
    virtual void SetName(std::string_view name) = 0;
    /// Catalogue key; "" for a product that did not come from the catalogue.
    [[nodiscard]] virtual std::string Key() const = 0;
    virtual void SetKey(std::string_view key) = 0;
    [[nodiscard]] virtual std::string PartNum() const = 0;
    virtual void SetPartNum(std::string_view partNum) = 0;
    [[nodiscard]] virtual Currency UnitPrice() const = 0;
    virtual void SetUnitPrice(Currency unitPrice) = 0;
    /// May be fractional.
    [[nodiscard]] virtual Currency Qty() const = 0;
    virtual void SetQty(Currency qty) = 0;
    /// Percent: 10 means 10 %.
    [[nodiscard]] virtual Currency DiscPrcnt() const = 0;
    virtual void SetDiscPrcnt(Currency discPrcnt) = 0;
    /// The record stores the extended price as given and does not compute it. The code that changes a price, a quantity
    /// or a discount must set it.
    [[nodiscard]] virtual Currency ExtPrice() const = 0;
    virtual void SetExtPrice(Currency extPrice) = 0;
    [[nodiscard]] virtual std::string Note() const = 0;
    virtual void SetNote(std::string_view note) = 0;

    // Whether the record accepts the amount, by rules of its own. The editor asks at each keystroke in the amount's
    // box, and when the box is left or the product is saved. True: it sets the amount. False: it sets 0 and says
    // nothing, so a record takes 0 in any case. Asking changes nothing. The amount may be any that fits, but no
    // discount above 100: the editor takes that for 0 before it asks. Before products are pasted, a new record of
    // another manager is asked about all of their amounts, and a paste with one that is not accepted is refused as a
    // whole. The price of a catalogue's entry is not asked about.
    [[nodiscard]] virtual bool IsValidUnitPrice(Currency cyValue) const = 0;
    [[nodiscard]] virtual bool IsValidQty(Currency cyValue) const = 0;
    [[nodiscard]] virtual bool IsValidDiscPrcnt(Currency cyValue) const = 0;
};

/// The properties of a record. The texts are the record's own, and are valid until it is changed or destroyed.
struct ProductFields {
    std::string_view name;
    std::string_view key;
    std::string_view partNum;
    Currency unitPrice;
    Currency qty;
    Currency discPrcnt;
    Currency extPrice;
    std::string_view note;
};

/// A record that can be read in place. Each refresh of the list looks at every product, and a list of such records is
/// refreshed several times as fast: a product that has not changed is not read again, and no text is copied. A
/// manager's records need not be of this class; it is for managers of long lists. Neither operation may call the
/// library or the host.
class ORVAN_EXPORT InPlaceRecord : public ProductRecord {
public:
    [[nodiscard]] virtual ProductFields fields() const noexcept = 0;
    /// A number that the record has only as long as none of its properties changes, and that no other record of the
    /// process ever has; newRecordStamp() makes one. Never 0.
    [[nodiscard]] virtual std::uint64_t stamp() const noexcept = 0;
};

/// Thread: any.
[[nodiscard]] ORVAN_EXPORT std::uint64_t newRecordStamp() noexcept;

/// A new operation is always the last one, and each makes kComponentInterfaceVersion larger
/// (orvan/hosting/ComponentLibrary.h).
class ORVAN_EXPORT ProductMgr : public ui::Component {
public:
    /// Not negative.
    virtual std::int32_t GetProductCount() = 0;
    /// Sum of all extended prices, 0 for an empty list. Raises 6 when it does not fit. The editor asks at each
    /// keystroke in an amount's box, so this should not go through a long list.
    virtual Currency GetTotalValue() = 0;
    /// Moves lIndex by lOffset to a position that holds a product. Where there is none, found is false, and lIndex
    /// stays what it was: the list then asks GetProduct for it all the same, so that an error of the manager is not
    /// taken for the end of the list. Offset 0 asks only whether lIndex still names a product; lIndex may be any
    /// number. The library passes no offsets but -1, 0 and +1; what others do is up to the manager.
    virtual void SeekIndex(std::int32_t& lIndex, std::int32_t lOffset, bool& found) = 0;
    /// Appends a record; its position is the new count. Its texts are "", its amounts 0, and its quantity 1. (The
    /// editor sets key, quantity and discount to these values again, and shows the other properties as they are.)
    virtual std::shared_ptr<ProductRecord> AddNewProduct() = 0;
    /// Raises 9 when no product is there.
    virtual std::shared_ptr<ProductRecord> GetProduct(std::int32_t lIndex) = 0;
    /// Later products move up by one. Raises 9 when no product is there; the list is then as it was.
    virtual void DeleteProduct(std::int32_t lIndex) = 0;
    /// Raises 9 when either position holds no product; the list is then as it was. The library passes neighbouring
    /// positions only: the two products change places.
    virtual void MoveProduct(std::int32_t from, std::int32_t to) = 0;
    /// Replaces the whole list; "" is the empty one. The string is one that GetProductsString of the same class
    /// returned, perhaps in an earlier run, or what the host gave to Show. A manager that cannot read it raises an
    /// error (321, or 6 for a number beyond its range) and keeps the list that it has: after No to the question whether
    /// to save, the editor in the careful way stays open on that list. Records of the former list that somebody holds
    /// can still be used. What the flag does is up to the manager: the library passes false to show a list, and true to
    /// put back the one from before the editor's session.
    virtual void SetProductsString(std::string_view sProducts, const std::string& recordSeparator,
                                   const std::string& fieldSeparator, bool flag) = 0;
    /// The whole list as one string, from which SetProductsString makes the same list again, in the same order. The
    /// manager alone decides which fields the string has, how they are escaped, and whether it uses the separators at
    /// all. The library does not read the string, except in two places. Before a revert, the careful editor says how
    /// many products differ: it compares the parts between the record separators, where a backslash escapes a
    /// separator. Before products are pasted or duplicated, the view adds the sizes of the list's string, of the new
    /// products' string and of one separator, and refuses products that would exceed the limit. The editor asks for the
    /// string when it opens, so a list beyond the limit can be shown, but not edited.
    ///
    /// Raises an error when the string exceeds GetMaxDataSize(), and keeps the list.
    virtual std::string GetProductsString(const std::string& recordSeparator, const std::string& fieldSeparator) = 0;
    /// Largest size of the products string that the manager accepts, in bytes. It may change: it is read when a size
    /// has been refused, for the message, and before a paste.
    virtual std::int32_t GetMaxDataSize() = 0;
    /// Raises what GetProductsString would raise now with these separators, and does nothing else. The editor calls it
    /// at each save, that is, whenever the user goes to another product, so a manager that knows the size of its data
    /// without making the string overrides it. The editor tells the user of the error and stays open. In the classic
    /// way of editing, it says of any error that the data are too large. In the careful way, it says so of error 14,
    /// and shows the text of any other error.
    virtual void CheckDataSize(const std::string& recordSeparator, const std::string& fieldSeparator)
    {
        static_cast<void>(GetProductsString(recordSeparator, fieldSeparator));
    }
};

} // namespace orvan

// The product data contract: a manager that holds the product list, and the records it hands out.
//
// The library shows and edits a list that it does not own. Everything it does with products goes
// through these two interfaces; the manager is created by class name, so a host can bring its own
// (orvan/components/products/InProcessProductMgr.h is the one that comes with the library).
//
// Positions are 1-based: the first product is 1, the last is the count. Amounts are Currency
// (ten-thousandths). Texts are UTF-8. Ownership: shared; the list lives as long as somebody holds the manager.
// Errors: any operation may throw; what it throws reaches the caller as currentError() gives it.
// Thread: the thread that created the manager.
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

/// Separators of the products string, as this library passes them.
inline const std::string kRecordSeparator = "~";
inline const std::string kFieldSeparator = ":";

/// One line item, read and written in place: the manager sees every write at once. A record outlives
/// its deletion from the list, and its manager, as long as somebody holds it.
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

    /// Whether the record accepts the amount; the record decides by rules of its own. For an amount that is not
    /// accepted the editor stores 0.
    [[nodiscard]] virtual bool IsValidUnitPrice(Currency cyValue) const = 0;
    [[nodiscard]] virtual bool IsValidQty(Currency cyValue) const = 0;
    [[nodiscard]] virtual bool IsValidDiscPrcnt(Currency cyValue) const = 0;
};

class ORVAN_EXPORT ProductMgr : public ui::Component {
public:
    virtual std::int32_t GetProductCount() = 0;
    /// Sum of all extended prices. Raises 6 when it does not fit.
    virtual Currency GetTotalValue() = 0;
    /// Moves lIndex by lOffset (-1, 0 or +1) to a position that holds a product; found is false
    /// when there is none, and lIndex is then not to be used. Offset 0 asks only whether lIndex
    /// still names a product.
    virtual void SeekIndex(std::int32_t& lIndex, std::int32_t lOffset, bool& found) = 0;
    /// Appends an empty record; its position is the new count.
    virtual std::shared_ptr<ProductRecord> AddNewProduct() = 0;
    /// Raises 9 when no product is there.
    virtual std::shared_ptr<ProductRecord> GetProduct(std::int32_t lIndex) = 0;
    /// Later products move up by one. Raises 9 when no product is there.
    virtual void DeleteProduct(std::int32_t lIndex) = 0;
    /// Raises 9 when either position holds no product.
    virtual void MoveProduct(std::int32_t from, std::int32_t to) = 0;
    /// Replaces the whole list. What the flag does is up to the manager: this library passes false to show a
    /// list and true to go back to an earlier one.
    virtual void SetProductsString(std::string_view sProducts, const std::string& recordSeparator,
                                   const std::string& fieldSeparator, bool flag) = 0;
    /// Raises an error when the data exceeds GetMaxDataSize().
    virtual std::string GetProductsString(const std::string& recordSeparator, const std::string& fieldSeparator) = 0;
    /// Largest size of the products string that the manager accepts, in bytes.
    virtual std::int32_t GetMaxDataSize() = 0;
    /// Raises what GetProductsString would raise now with these separators, and does nothing else. The editor calls it
    /// at each save, so a manager that knows the size of its data without making the string overrides it.
    virtual void CheckDataSize(const std::string& recordSeparator, const std::string& fieldSeparator)
    {
        static_cast<void>(GetProductsString(recordSeparator, fieldSeparator));
    }
};

} // namespace orvan

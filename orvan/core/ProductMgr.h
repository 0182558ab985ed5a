// The product data contract: a manager that holds the product list, and the records it hands out.
//
// The library shows and edits a list that it does not own. Everything it does with products goes
// through these two interfaces; the manager is created by class name, so a host can bring its own
// (orvan/components/products/InProcessProductMgr.h is the one that comes with the library).
//
// Positions are 1-based: the first product is 1, the last is the count. Amounts are Currency
// (ten-thousandths). Texts are UTF-8. Any operation may throw; what it throws reaches the caller as
// currentError() gives it. Thread: the thread that created the manager.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/ui/ComponentFactory.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace orvan {

/// Class name of the product manager component.
inline constexpr std::string_view kProductMgrClassName = "KTBOrvanProductMgr.ProductMgr";

/// Separators of the products string, as this library passes them.
inline const std::string kRecordSeparator = "~";
inline const std::string kFieldSeparator = ":";

/// One line item, read and written in place: the manager sees every write at once. A record outlives
/// its deletion from the list, and its manager, as long as somebody holds it.
class ProductRecord {
public:
    virtual ~ProductRecord() = default;

    virtual std::string Name() const = 0;
    virtual void SetName(std::string_view sName) = 0;
    /// Catalogue key; "" for a product that did not come from the catalogue.
    virtual std::string Key() const = 0;
    virtual void SetKey(std::string_view sKey) = 0;
    virtual std::string PartNum() const = 0;
    virtual void SetPartNum(std::string_view sPartNum) = 0;
    virtual Currency UnitPrice() const = 0;
    virtual void SetUnitPrice(Currency cyUnitPrice) = 0;
    /// May be fractional.
    virtual Currency Qty() const = 0;
    virtual void SetQty(Currency cyQty) = 0;
    /// Percent: 10 means 10 %.
    virtual Currency DiscPrcnt() const = 0;
    virtual void SetDiscPrcnt(Currency cyDiscPrcnt) = 0;
    /// Stored as given: who changes a price computes it.
    virtual Currency ExtPrice() const = 0;
    virtual void SetExtPrice(Currency cyExtPrice) = 0;
    virtual std::string Note() const = 0;
    virtual void SetNote(std::string_view sNote) = 0;

    virtual bool IsValidUnitPrice(Currency cyValue) const = 0;
    virtual bool IsValidQty(Currency cyValue) const = 0;
    virtual bool IsValidDiscPrcnt(Currency cyValue) const = 0;
};

class ProductMgr : public ui::Component {
public:
    virtual std::int32_t GetProductCount() = 0;
    /// Sum of all extended prices. Raises 6 when it does not fit.
    virtual Currency GetTotalValue() = 0;
    /// Moves lIndex by lOffset (-1, 0 or +1) to a position that holds a product; bFound is false
    /// when there is none, and lIndex is then not to be used. Offset 0 asks only whether lIndex
    /// still names a product.
    virtual void SeekIndex(std::int32_t& lIndex, std::int32_t lOffset, bool& bFound) = 0;
    /// Appends an empty record; its position is the new count.
    virtual std::shared_ptr<ProductRecord> AddNewProduct() = 0;
    /// Raises 9 when no product is there.
    virtual std::shared_ptr<ProductRecord> GetProduct(std::int32_t lIndex) = 0;
    /// Later products move up by one. Raises 9 when no product is there.
    virtual void DeleteProduct(std::int32_t lIndex) = 0;
    /// Raises 9 when either position holds no product.
    virtual void MoveProduct(std::int32_t lFrom, std::int32_t lTo) = 0;
    /// Replaces the whole list. bFlag is the manager's business: this library passes false to show
    /// a list and true to go back to an earlier one.
    virtual void SetProductsString(std::string_view sProducts, const std::string& sRecordSep,
                                   const std::string& sFieldSep, bool bFlag) = 0;
    /// Raises an error when the data exceeds GetMaxDataSize().
    virtual std::string GetProductsString(const std::string& sRecordSep, const std::string& sFieldSep) = 0;
    /// Largest size of the products string that the manager accepts, in bytes.
    virtual std::int32_t GetMaxDataSize() = 0;
};

} // namespace orvan

// ProductValues: the values of one product, apart from any list.
//
// Amounts are Currency (ten-thousandths); texts are UTF-8. Thread: any; reading and writing a record, the record's.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/core_export.h"

#include <optional>
#include <string>

namespace orvan {

class ProductRecord;

struct ProductValues {
    std::string name;
    std::string key;
    std::string partNum;
    Currency unitPrice;
    Currency qty;
    Currency discPrcnt;
    Currency extPrice;
    std::string note;

    friend bool operator==(const ProductValues&, const ProductValues&) = default;
};

/// Raises what the record raises.
[[nodiscard]] ORVAN_CORE_INTERNAL ProductValues valuesOf(const ProductRecord& record);
ORVAN_CORE_INTERNAL void setValues(ProductRecord& record, const ProductValues& values);

/// The amounts on the way to an extended price, in the order in which they are computed. A step that is beyond the
/// range is empty, and so are those after it.
struct PriceSteps {
    std::optional<Currency> share; ///< What is left of 100 percent; 100 for a discount above 100, which counts as none.
    std::optional<Currency> gross; ///< Quantity times unit price, rounded to four decimals.
    double net = 0;                ///< The share of the gross price, before it is rounded.
    std::optional<Currency> price;
};

/// Fills the steps. Raises 6 at the first one that is beyond the range.
ORVAN_CORE_INTERNAL void computePrice(PriceSteps& steps, Currency unitPrice, Currency qty, Currency discPrcnt);

/// The price of `qty` pieces less the discount in percent; a discount above 100 counts as none. Raises 6 beyond the
/// range.
[[nodiscard]] ORVAN_CORE_INTERNAL Currency extendedPrice(Currency unitPrice, Currency qty, Currency discPrcnt);

} // namespace orvan

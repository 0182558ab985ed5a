// ProductValues: the values of one product, apart from any list.
//
// Amounts are Currency (ten-thousandths); texts are UTF-8. Thread: any; reading and writing a record, the record's.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/core_export.h"

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

/// The price of `qty` pieces less the discount in percent; a discount above 100 counts as none. Raises 6 beyond the
/// range.
[[nodiscard]] ORVAN_CORE_INTERNAL Currency extendedPrice(Currency unitPrice, Currency qty, Currency discPrcnt);

} // namespace orvan

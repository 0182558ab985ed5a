// The product manager that comes with the library: the list in memory, of the calling process.
//
// A host registers it under kProductMgrClassName (orvan/core/ProductMgr.h) with the factory below, or
// brings a manager of its own. What is its own business as a manager:
//
//   - A new record has quantity 1, everything else 0 or "".
//   - The string is the one of orvan/components/products/ProductsString.h; a string that cannot be read raises 321 or 6
//     as that header says and leaves the list as it was. Unusable separators raise 5.
//   - GetProductsString raises 14 when the string would exceed the largest size.
//     SetProductsString does not ask for the size: a list that was stored elsewhere, under another
//     limit, can still be shown and shortened.
//   - The flag of SetProductsString has no effect: a list shown and a list gone back to are the same.
//   - A record that is no longer in a list (deleted, replaced, its manager gone) keeps its values and
//     its rules, and can be read and written.
//
// The total and the records' texts are kept up to date: asking for the total, the count or a record
// costs the same however long the list is, and writing serialises the changed records only.
//
// Thread: the manager and its records belong to the thread that created the manager.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/ui/ComponentFactory.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace orvan {

/// What the records' validation operations answer; asked anew at each call. An empty rule accepts
/// every value.
struct ProductRules {
    std::function<bool(Currency)> isValidUnitPrice = [](Currency value) { return value >= Currency(); };
    std::function<bool(Currency)> isValidQty = [](Currency value) { return value >= Currency(); };
    std::function<bool(Currency)> isValidDiscPrcnt = [](Currency value) {
        return value >= Currency() && value <= Currency::fromScaled(100 * Currency::kScale);
    };
};

struct ProductMgrOptions {
    std::int32_t maxDataSize = 1024 * 1024; ///< Largest products string that is handed out, in bytes.
    ProductRules rules = {};
};

/// What a component factory calls to create a manager; each call makes a new one with an empty list.
/// May be called from any thread; all managers it makes share one set of rules.
[[nodiscard]] std::function<std::shared_ptr<ui::Component>()> productMgrFactory(ProductMgrOptions options = {});

} // namespace orvan

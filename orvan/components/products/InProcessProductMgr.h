// The product manager that comes with the library: it holds the list in the memory of the calling process.
//
// A host registers it under kProductMgrClassName (orvan/core/ProductMgr.h) with the factory below, or
// registers a manager of its own. In what every manager decides for itself, this one does the following:
//
//   - A new record has quantity 1, everything else 0 or "".
//   - The string is the one of orvan/components/products/ProductsString.h; a string that cannot be read raises 321 or 6
//     as that header says and leaves the list as it was. Unusable separators raise 5.
//   - GetProductsString and CheckDataSize raise 14 when the string would exceed the largest size.
//     SetProductsString does not check the size: a list that was stored elsewhere, under another
//     limit, can still be shown and shortened.
//   - The flag of SetProductsString (a list is shown, or put back as it was) has no effect.
//   - A record that is no longer in a list (it was deleted or replaced, or its manager was destroyed) keeps its values
//     and its rules, and can be read and written.
//
// The total, the size and the records' texts are kept up to date: asking for the total, the count or a record, and
// checking the size, cost the same however long the list is, and writing serialises the changed records only. (The size
// is that with the separators of the last loading or checking; a check with others goes through the list once.)
//
// Thread: the manager and its records belong to the thread that created the manager.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/core_export.h"
#include "orvan/ui/ComponentFactory.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace orvan {

/// The rules that decide what the records' IsValid operations return; a rule is called each time. An empty rule
/// accepts every value.
struct ProductRules {
    std::function<bool(Currency)> isValidUnitPrice = [](Currency value) { return value >= Currency(); };
    std::function<bool(Currency)> isValidQty = [](Currency value) { return value >= Currency(); };
    std::function<bool(Currency)> isValidDiscPrcnt = [](Currency value) {
        return value >= Currency() && value <= Currency::fromScaled(100 * Currency::kScale);
    };
};

struct ProductMgrOptions {
    std::int32_t maxDataSize = 1024 * 1024; ///< In bytes. GetProductsString returns no longer string.
    ProductRules rules = {};
};

/// Returns the factory that creates managers; each call of the factory makes a new one with an empty list. The factory
/// may be called from any thread; all managers that it makes share one set of rules.
[[nodiscard]] ORVAN_CORE_EXPORT std::function<std::shared_ptr<ui::Component>()>
productMgrFactory(ProductMgrOptions options = {});

} // namespace orvan

// ProductsJournal: a record of each change that was made to the list of a product manager.
//
// The desk's product managers are wrapped in ones that note each change here, so that the desk can undo it. A change
// holds the values of the one product that changed, and never the whole list. Positions are 1-based. Thread: the
// user-interface thread.
#pragma once

#include "orvan/core/ProductMgr.h"
#include "orvan/core/ProductValues.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace orvan::desk {

struct ListChange {
    enum class Kind { insert, remove, move, edit };

    Kind kind = Kind::edit;
    std::int32_t position = 0; ///< Of a move: where the product was.
    std::int32_t to = 0;       ///< Of a move: where it is.
    ProductValues before = {}; ///< Of a removed or edited product.
    ProductValues after = {};  ///< Of an inserted or edited product.
};

class JournalledProductMgr : public ProductMgr {
public:
    /// The changes since the last call, or since the list was last replaced as a whole; oldest first.
    [[nodiscard]] virtual std::vector<ListChange> takeChanges() = 0;
    /// Makes the change again, or takes it back, without noting it. Raises what the manager raises.
    virtual void apply(const ListChange& change, bool backwards) = 0;
};

/// Makes a manager that passes everything on to `inner` and notes what changes its list. `shown` is called when the
/// manager is given products, as the one whose list is shown is. The records of `inner` are InPlaceRecords, as those of
/// the library's own manager are; for others, GetProduct and AddNewProduct raise 91.
[[nodiscard]] std::shared_ptr<JournalledProductMgr>
journalled(std::shared_ptr<ProductMgr> inner,
           std::function<void(const std::shared_ptr<JournalledProductMgr>& manager)> shown);

} // namespace orvan::desk

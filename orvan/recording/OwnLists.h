// OwnLists: makes product managers, and remembers which one holds the list that is shown.
//
// A recording has the lists of the library's own manager instead of each of its answers. A host may change a list
// through the manager itself, and then has it read anew; the recording has the whole list at that point. So the manager
// that was handed a string last has to be known.
//
// Ownership: the inner factory must outlive it; managers are shared with whoever asked for them. Thread: the
// user-interface thread.
#pragma once

#include "orvan/core/ProductMgr.h"
#include "orvan/ui/ComponentFactory.h"

#include <memory>
#include <string>
#include <string_view>

namespace orvan::recording {

class OwnLists final : public ui::ComponentFactory {
public:
    explicit OwnLists(ui::ComponentFactory& inner);

    std::shared_ptr<ui::Component> create(std::string_view className) override;

    /// The list that is shown, as a string; "" if there is none. Raises what the manager raises.
    [[nodiscard]] std::string products() const;
    /// Replaces it. Does nothing if there is none.
    void setProducts(std::string_view products);

private:
    class Manager;

    ui::ComponentFactory& inner_;
    std::shared_ptr<std::weak_ptr<ProductMgr>> shown_; ///< Shared with the managers, which may live longer.
};

} // namespace orvan::recording

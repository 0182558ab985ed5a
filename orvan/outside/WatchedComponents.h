// WatchedFactory: hands the library components whose calls are watched (orvan/outside/CallWatch.h).
//
// Ownership: the watch and the wrapped factory must outlive it; the components are shared. Thread: the user-interface
// thread.
#pragma once

#include "orvan/catalogue_export.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/core/Trace.h"
#include "orvan/lookup/ProductLkpMgr.h"
#include "orvan/outside/CallWatch.h"
#include "orvan/ui/ComponentFactory.h"

#include <memory>
#include <string_view>

namespace orvan::outside {

// Each wraps one component. A null one is never called: the watch answers each call then.
[[nodiscard]] ORVAN_CATALOGUE_EXPORT std::shared_ptr<ProductMgr> watched(std::shared_ptr<ProductMgr> manager,
                                                                         CallWatch& watch);
[[nodiscard]] ORVAN_CATALOGUE_EXPORT std::shared_ptr<ProductLkpMgr> watched(std::shared_ptr<ProductLkpMgr> catalogue,
                                                                            CallWatch& watch);
[[nodiscard]] ORVAN_CATALOGUE_EXPORT std::shared_ptr<Trace> watched(std::shared_ptr<Trace> trace, CallWatch& watch);

/// An object that is neither a manager nor a catalogue nor a trace is passed on as it is.
class ORVAN_CATALOGUE_EXPORT WatchedFactory : public ui::ComponentFactory {
public:
    /// Components of the class `unwatchedClass` are passed on as they are; "*": all of them are.
    WatchedFactory(ui::ComponentFactory& inner, CallWatch& watch, std::string_view unwatchedClass = {})
        : inner_(inner), watch_(watch), unwatchedClass_(unwatchedClass)
    {
    }

    std::shared_ptr<ui::Component> create(std::string_view className) override;

private:
    ui::ComponentFactory& inner_;
    CallWatch& watch_;
    std::string_view unwatchedClass_;
};

} // namespace orvan::outside

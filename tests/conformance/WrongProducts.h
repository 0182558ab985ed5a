// What the wrong managers and the wrong records share: managers of the library, with patches.
#pragma once

#include "orvan/testing/Patched.h"
#include "tests/conformance/Subjects.h"
#include "tests/conformance/Wrong.h"

namespace orvan::test {

using conformance::ProductMgrFactory;
using P = testkit::ProductMgrPatches;
using Record = std::shared_ptr<ProductRecord>;

inline std::shared_ptr<ProductMgr> ours()
{
    return std::dynamic_pointer_cast<ProductMgr>(productMgrs()());
}

/// Makes managers with the patches, which each gets anew.
struct Patched {
    P (*patches)();
    operator ProductMgrFactory() const
    {
        return [make = patches] { return std::make_shared<testkit::PatchedProductMgr>(ours(), make()); };
    }
};

[[noreturn]] inline void raise(std::int32_t number)
{
    throw RuntimeError(number);
}

} // namespace orvan::test

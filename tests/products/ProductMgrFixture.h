// What the product tests share: a manager made as a host makes one.
#pragma once

#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/core/ProductMgr.h"
#include "tests/support/Raised.h"

#include <gtest/gtest.h>

namespace orvan {

using test::Raised;
using test::raisedBy;

inline std::shared_ptr<ProductMgr> makeManager(ProductMgrOptions options = {})
{
    return std::dynamic_pointer_cast<ProductMgr>(productMgrFactory(std::move(options))());
}

inline std::string saved(ProductMgr& manager)
{
    return manager.GetProductsString(kRecordSeparator, kFieldSeparator);
}

inline void load(ProductMgr& manager, std::string_view text)
{
    manager.SetProductsString(text, kRecordSeparator, kFieldSeparator, false);
}

} // namespace orvan

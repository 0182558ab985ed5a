// What the product tests share: a manager made as a host makes one, and errors as values.
#pragma once

#include "base/RuntimeError.h"
#include "core/InProcessProductMgr.h"
#include "core/ProductMgr.h"

#include <gtest/gtest.h>

#include <functional>

namespace orvan {

inline std::shared_ptr<ProductMgr> makeManager(ProductMgrOptions options = {})
{
    return std::dynamic_pointer_cast<ProductMgr>(productMgrFactory(std::move(options))());
}

/// The raised error; number 5 without a text when nothing was raised.
inline RuntimeError errorOf(const std::function<void()>& body)
{
    try {
        body();
    } catch (const RuntimeError& error) {
        return error;
    }
    return RuntimeError(0);
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

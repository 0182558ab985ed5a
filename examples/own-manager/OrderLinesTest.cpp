// The manager of this host, and its records, keep what the library asks of every manager.

#include "OrderLines.h"

//! [conformance]
#include <orvan/testing/ProductRecordConformance.h>

const auto kMakeLines = [] { return std::make_shared<OrderLines>(); };
const auto kManagerTests = orvan::conformance::addProductMgrTests("OrderLines", kMakeLines);
const auto kRecordTests = orvan::conformance::addProductRecordTests("OrderLines", kMakeLines);
//! [conformance]

// The look-up of this host keeps what the library asks of every look-up.

#include "Goods.h"

//! [conformance]
#include <orvan/testing/ProductLkpMgrConformance.h>

const auto kTests = orvan::conformance::addProductLkpMgrTests("Goods", [] { return std::make_shared<GoodsLookUp>(); });
//! [conformance]

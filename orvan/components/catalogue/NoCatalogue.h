// NoCatalogue: a catalogue look-up without entries.
//
// For hosts that bring no catalogue: the editor's look-up boxes are then plain boxes. Thread: any.
#pragma once

#include "orvan/lookup/ProductLkpMgr.h"

namespace orvan {

class NoCatalogue final : public ProductLkpMgr {
public:
    LookUpList GetPartNumList(std::string_view /*sText*/, bool /*bAll*/) override { return {}; }
    LookUpList GetProductNameList(std::string_view /*sText*/, bool /*bAll*/) override { return {}; }
    void SeekItem(std::int32_t /*lItemId*/) override {}
    bool IsEOF() override { return true; }
    LookUpValue GetFieldValue(std::int32_t /*iColumn*/) override { return {}; }
};

} // namespace orvan

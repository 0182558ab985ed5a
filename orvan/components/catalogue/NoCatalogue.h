// NoCatalogue: a catalogue look-up without entries.
//
// It is used where a host has no catalogue; the editor's look-up boxes then complete nothing. Thread: any.
#pragma once

#include "orvan/lookup/ProductLkpMgr.h"

namespace orvan {

class NoCatalogue final : public ProductLkpMgr {
public:
    LookUpList GetPartNumList(std::string_view /*sText*/, bool /*all*/) override { return {}; }
    LookUpList GetProductNameList(std::string_view /*sText*/, bool /*all*/) override { return {}; }
    void SeekItem(std::int32_t /*itemId*/) override {}
    bool IsEOF() override { return true; }
    LookUpValue GetFieldValue(std::int32_t /*column*/) override { return {}; }
};

} // namespace orvan

// LookUpValue: what the catalogue delivers, converted to what the editor takes. Texts are UTF-8.
//
// Thread: that of the locale service. Errors: by number, as below.
#pragma once

#include "orvan/lookup/ProductLkpMgr.h"

namespace orvan {

namespace ui {
class LocaleService;
}

/// Raises 6 for an id beyond 32 bits.
[[nodiscard]] std::int32_t toItemData(std::int64_t itemId);

/// Text is read by the user's formats. Raises 94 for Null, 13 for text that is no amount and 6 beyond
/// the range.
[[nodiscard]] Currency toCurrency(const LookUpValue& value, ui::LocaleService& locale);

/// Numbers as plain decimals, '.' their decimal point in every locale. Raises 94 for Null and 6 for a
/// double that is no number.
[[nodiscard]] std::string toText(const LookUpValue& value);

} // namespace orvan

// LookUpValue: conversions from the values that a catalogue delivers to those that the editor uses. Texts are UTF-8.
//
// Thread: the locale service's. Errors: the numbers that each function names.
#pragma once

#include "orvan/core_export.h"
#include "orvan/lookup/ProductLkpMgr.h"

namespace orvan {

namespace ui {
class LocaleService;
}

/// Raises 6 for an id beyond 32 bits.
[[nodiscard]] ORVAN_CORE_INTERNAL std::int32_t toItemData(std::int64_t itemId);

/// A text is read with the user's number formats. Raises 94 for Null, 13 for a text that is not an amount and 6 for an
/// amount out of range.
[[nodiscard]] Currency toCurrency(const LookUpValue& value, ui::LocaleService& locale);

/// A number becomes a plain decimal, with '.' as its decimal point in every locale. Raises 94 for Null and 6 for a
/// double that is not a finite number.
[[nodiscard]] ORVAN_CORE_INTERNAL std::string toText(const LookUpValue& value);

} // namespace orvan

// LocaleSeparators: reading one item of the user's locale, and the separators that a grid shows.
//
// The logic and every platform read the locale here, so that an amount looks the same wherever it is
// shown. Raises nothing: a default replaces an item that cannot be read. Thread: the user-interface
// thread.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/FormDesign.h"
#include "orvan/ui/GridFormat.h"

namespace orvan::ui {

class LocaleService;
enum class LocaleItem : std::int32_t;

/// The item's text, or `defaultText` where the service fails to give it: it raises, does not know
/// the item, or needs more than 126 bytes for it.
[[nodiscard]] std::string readLocaleItem(LocaleService& locale, LocaleItem item, std::string_view defaultText);

/// The user's separators of plain numbers; "," and "." if the service does not give them.
[[nodiscard]] ORVAN_CORE_INTERNAL NumberSeparators gridSeparators(LocaleService& locale);

/// What the keypad's decimal key types into a box: the user's decimal separator of numbers or of money, depending on
/// what the box is used for; "." for plain text.
[[nodiscard]] ORVAN_CORE_INTERNAL std::string keypadDecimal(LocaleService& locale, TextUse use);

} // namespace orvan::ui

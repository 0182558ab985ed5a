// The list view's preferences: the two chosen fields and every column's width, for each host form.
//
// Kept in the settings store under application "Orvan", section "KTVOrvanProduct_ProductView_Prefs"
// and key "ViewSettings_" + the host form's type name, as "4~1~250^1800^700^...": field One and
// field Two by their ViewFieldEnum values, then the widths in twips by column index, as the grid
// stands when they are saved. Written whenever the user changes them, read when a control is loaded.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/SettingsStore.h"

#include <string>
#include <string_view>

namespace orvan {

/// Stores `value` for a host form whose user has no preferences yet: with it a host gives its list view
/// widths that suit the place it stands in. To be called before the view is shown. Raises 75 when the
/// store cannot be read or written.
ORVAN_CORE_EXPORT void seedProductViewPrefs(ui::SettingsStore& settings, const std::string& hostTypeName,
                                            std::string_view value);

} // namespace orvan

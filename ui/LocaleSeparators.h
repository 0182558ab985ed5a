// LocaleSeparators: the separators that a grid's display formats show, read from the locale service.
//
// One reading for every platform, so that an amount looks the same wherever it is shown. Thread: the
// user-interface thread.
#pragma once

#include "ui/GridFormat.h"

namespace orvan::ui {

class LocaleService;

/// The user's separators of plain numbers; "," and "." stand where the service has none to give.
NumberSeparators gridSeparators(LocaleService& locale);

} // namespace orvan::ui

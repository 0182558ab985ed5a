// namedInStyleSheets: tells whether a host's style sheets set the look of a part of a widget. If they do, Qt paints
// that part; if not, the library does.
//
// Qt does not tell which rules apply to a widget, so the function searches the texts of the style sheets for a name.
// Thread: the user-interface thread.
#pragma once

class QLatin1String;
class QWidget;

namespace orvan::qt {

/// Whether the style sheet of the widget, of a widget around it or of the application contains that name.
[[nodiscard]] bool namedInStyleSheets(const QWidget& widget, QLatin1String name);

/// Whether one of these style sheets says anything. Its rules may depend on the focus and on the window's activity.
[[nodiscard]] bool hasStyleSheets(const QWidget& widget);

} // namespace orvan::qt

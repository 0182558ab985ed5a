// namedInStyleSheets: whether a host's style sheet sets something that the library paints by itself otherwise.
//
// Qt does not tell which rules apply to a widget, so the texts of the sheets are searched. Thread: the user-interface
// thread.
#pragma once

class QLatin1String;
class QWidget;

namespace orvan::qt {

/// Whether the style sheet of the widget, of a widget around it or of the application contains that name.
[[nodiscard]] bool namedInStyleSheets(const QWidget& widget, QLatin1String name);

} // namespace orvan::qt

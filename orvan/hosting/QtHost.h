// QtHost: the library's services for a Qt application.
//
// Thread: the user-interface thread. Raises 51 when the locale library's data is missing.
#pragma once

#include "orvan/hosting/Host.h"
#include "orvan/qt_export.h"
#include "orvan/ui/qt/QtPlatform.h"

#include <cstdint>

class QWidget;

namespace orvan {

using QtHost = Host<qt::QtPlatform>;

/// The application's own host. The first call makes it, after the QApplication was made; it lives to the end of the
/// process. Its options have to be set before the first call.
ORVAN_QT_EXPORT QtHost& qtHost();
/// Raises 5 once the host exists.
ORVAN_QT_EXPORT void setQtHostOptions(const HostOptions& options);

/// The handle by which ProductDlg, and what shows a ui::Message, name the window that the widget is in; 0 for null. It
/// stays the window's own, and names no window once that one is destroyed.
[[nodiscard]] ORVAN_QT_EXPORT std::int32_t ownerWindow(QWidget* widget);

} // namespace orvan

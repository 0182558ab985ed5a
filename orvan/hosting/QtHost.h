// QtHost: the library's services for a Qt application.
//
// Thread: the user-interface thread. Raises 51 when the locale library's data is missing.
#pragma once

#include "orvan/hosting/Host.h"
#include "orvan/ui/qt/QtPlatform.h"

namespace orvan {

using QtHost = Host<qt::QtPlatform>;

/// The application's own host, made when it is first asked for (after QApplication) and kept to the
/// end of the process. Its options are set before that.
QtHost& qtHost();
/// Raises 5 once the host exists.
void setQtHostOptions(const HostOptions& options);

} // namespace orvan

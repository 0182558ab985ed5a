// QtHost: the library's services for a Qt application.
//
// Thread: the user-interface thread. Raises 51 when the locale library's data is missing.
#pragma once

#include "orvan/hosting/Host.h"
#include "orvan/ui/qt/QtPlatform.h"

namespace orvan {

using QtHost = Host<qt::QtPlatform>;

/// The application's own host. The first call makes it, after the QApplication was made; it lives to the end of the
/// process. Its options have to be set before the first call.
QtHost& qtHost();
/// Raises 5 once the host exists.
void setQtHostOptions(const HostOptions& options);

} // namespace orvan

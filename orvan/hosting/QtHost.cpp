#include "orvan/hosting/QtHost.h"

#include "orvan/ui/qt/WindowHandles.h"

#include <QWidget>

#include <optional>

namespace orvan {

namespace {

std::optional<HostOptions> chosenOptions;
bool hostExists = false;

} // namespace

QtHost& qtHost()
{
    return asRuntimeError([]() -> QtHost& {
        static QtHost host(chosenOptions.value_or(HostOptions()));
        hostExists = true;
        return host;
    });
}

void setQtHostOptions(const HostOptions& options)
{
    if (hostExists) {
        throw RuntimeError(ErrorNumber::invalidProcedureCall, {}, "the host's options were set too late");
    }
    asRuntimeError([&] { chosenOptions = options; });
}

std::int32_t ownerWindow(QWidget* widget)
{
    return asRuntimeError([&] { return widget ? qt::windowHandle(widget->window()) : 0; });
}

} // namespace orvan

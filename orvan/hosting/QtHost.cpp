#include "orvan/hosting/QtHost.h"

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

} // namespace orvan

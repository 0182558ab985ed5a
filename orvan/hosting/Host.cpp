#include "orvan/hosting/Host.h"

#include "orvan/ui/icu/IcuLocaleService.h"

namespace orvan {

std::unique_ptr<ui::LocaleService> makeLocaleService(const icu::LocaleNames& names)
{
    return asRuntimeError([&] { return std::make_unique<icu::IcuLocaleService>(names); });
}

} // namespace orvan

#include "orvan/ui/icu/LocaleNames.h"

#include <cstdlib>

namespace orvan::icu {

LocaleNames localeNamesFromEnvironment(const EnvironmentReader& read)
{
    const auto firstSet = [&](const char* category) -> std::string {
        for (const char* variable : {"LC_ALL", category, "LANG"}) {
            const char* const value = read(variable);
            if (value != nullptr && *value != '\0') {
                return value;
            }
        }
        return {};
    };
    return {.monetary = firstSet("LC_MONETARY"), .numeric = firstSet("LC_NUMERIC")};
}

LocaleNames localeNamesFromEnvironment()
{
    return localeNamesFromEnvironment([](const char* variable) { return std::getenv(variable); });
}

LocaleNameParts splitLocaleName(std::string_view name)
{
    LocaleNameParts parts;
    const std::size_t at = name.find('@');
    if (at != std::string_view::npos) {
        parts.modifier = name.substr(at + 1);
        name = name.substr(0, at);
    }
    parts.base = name.substr(0, name.find('.'));
    return parts;
}

} // namespace orvan::icu

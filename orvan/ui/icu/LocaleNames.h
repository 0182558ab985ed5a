// LocaleNames: which locale the user wants money and numbers written in.
//
// Names are as the C library takes them (language_TERRITORY.codeset@modifier) or as ICU does
// (language_Script_TERRITORY@key=value). Thread: reading the environment must not run beside a
// change of it.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace orvan::icu {

struct LocaleNames {
    std::string monetary;
    std::string numeric;
};

/// Value of an environment variable, or null when it is not set: std::getenv or a stand-in.
using EnvironmentReader = std::function<const char*(const char* variable)>;

/// For each of the two the first that is not empty of LC_ALL, LC_MONETARY or LC_NUMERIC, and LANG,
/// as the C library's setlocale decides; "" when there is none.
LocaleNames localeNamesFromEnvironment(const EnvironmentReader& read);
/// From the process's own environment.
LocaleNames localeNamesFromEnvironment();

/// A locale name taken apart; texts are as written.
struct LocaleNameParts {
    std::string_view base;     ///< language, script, territory
    std::string_view modifier; ///< without its '@'; "euro", "latin", "currency=EUR"
};

/// Drops the codeset: texts are UTF-8 here whatever the user's terminal speaks. The parts are views
/// into name.
LocaleNameParts splitLocaleName(std::string_view name);

} // namespace orvan::icu

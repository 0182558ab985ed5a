// LocaleNames: which locale the user wants money and numbers written in.
//
// Names are as the C library takes them (language_TERRITORY.codeset@modifier) or as ICU does
// (language_Script_TERRITORY@key=value). Thread: any, but no other thread may change
// the environment while it is read.
#pragma once

#include "orvan/core_export.h"

#include <functional>
#include <string>
#include <string_view>

namespace orvan::icu {

struct LocaleNames {
    std::string monetary;
    std::string numeric;
    std::string currency = {}; ///< ISO 4217 code of the currency that money is written in; empty: the locale's own.
};

/// Returns the value of an environment variable, or null if it is not set: std::getenv, or a replacement in a test.
using EnvironmentReader = std::function<const char*(const char* variable)>;

/// The locale of money is the first of LC_ALL, LC_MONETARY and LANG that is not empty, as the C library's setlocale
/// decides; for numbers LC_NUMERIC takes the place of LC_MONETARY. "" if all are empty.
ORVAN_CORE_EXPORT LocaleNames localeNamesFromEnvironment(const EnvironmentReader& read);
/// The same, read from the environment of this process.
ORVAN_CORE_EXPORT LocaleNames localeNamesFromEnvironment();

/// The parts of a locale name, unchanged.
struct LocaleNameParts {
    std::string_view base;     ///< language, script, territory
    std::string_view modifier; ///< without its '@'; "euro", "latin", "currency=EUR"
};

/// Splits a locale name. The codeset is dropped, because the library's texts are always UTF-8. The parts are views into
/// `name`.
ORVAN_CORE_EXPORT LocaleNameParts splitLocaleName(std::string_view name);

} // namespace orvan::icu

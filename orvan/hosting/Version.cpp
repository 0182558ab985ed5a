#include "orvan/hosting/Version.h"

#include "orvan/version.h"

#include <string>

namespace orvan {

namespace {

std::string padded(int number, std::size_t digits)
{
    std::string text = std::to_string(number);
    return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

} // namespace

std::string_view libraryVersion()
{
    return ORVAN_VERSION_TEXT;
}

std::string_view fileVersion()
{
    static const std::string text = std::to_string(ORVAN_VERSION_MAJOR) + "." + padded(ORVAN_VERSION_MINOR, 2) + "." +
                                    padded(ORVAN_VERSION_REVISION, 4);
    return text;
}

std::string_view libraryDescription()
{
    return ORVAN_DESCRIPTION;
}

} // namespace orvan

#include "orvan/hosting/Version.h"

#include <string>

namespace orvan {

namespace {

std::string padded(int number, std::size_t digits)
{
    std::string text = std::to_string(number);
    return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

std::string versionText(std::size_t minorDigits, std::size_t revisionDigits)
{
    return std::to_string(ORVAN_VERSION_MAJOR) + "." + padded(ORVAN_VERSION_MINOR, minorDigits) + "." +
           padded(ORVAN_VERSION_REVISION, revisionDigits);
}

} // namespace

std::string_view libraryVersion()
{
    static const std::string text = versionText(1, 1);
    return text;
}

std::string_view fileVersion()
{
    static const std::string text = versionText(2, 4);
    return text;
}

std::string_view libraryDescription()
{
    return ORVAN_DESCRIPTION;
}

} // namespace orvan

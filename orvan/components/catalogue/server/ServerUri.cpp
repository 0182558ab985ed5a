#include "orvan/components/catalogue/server/ServerUri.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <functional>

namespace orvan {

namespace {

constexpr std::array<std::string_view, 2> kSchemes = {"postgresql://", "postgres://"};
constexpr std::size_t kLongestIdentity = 200; // a file system's names have 255 bytes at most
constexpr char kHexDigits[] = "0123456789ABCDEF";

/// The reason never quotes the text, because a password may stand at any place of a wrong URI.
[[noreturn]] void refuse(const UserText& reason)
{
    throw RuntimeError(ErrorNumber::invalidFileFormat, {}, userText("the address of the server is wrong: %1", reason));
}

int hexDigit(char c)
{
    return isDigit(c) ? c - '0' : c >= 'a' && c <= 'f' ? c - 'a' + 10 : c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

std::string decoded(std::string_view text)
{
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '%') {
            plain += text[at];
            continue;
        }
        const int high = at + 2 < text.size() ? hexDigit(text[at + 1]) : -1;
        const int low = at + 2 < text.size() ? hexDigit(text[at + 2]) : -1;
        if (high < 0 || low < 0) {
            refuse(userText("two hexadecimal digits must follow each percent sign"));
        }
        if (high == 0 && low == 0) {
            refuse(userText("it has a character 0"));
        }
        plain += static_cast<char>(high * 16 + low);
        at += 2;
    }
    return plain;
}

bool isPlain(char c)
{
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '.' || c == '-' || c == '_';
}

std::string encoded(std::string_view text)
{
    std::string result;
    for (const char c : text) {
        if (isPlain(c)) {
            result += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            result.append(1, '%').append(1, kHexDigits[byte / 16]).append(1, kHexDigits[byte % 16]);
        }
    }
    return result;
}

/// The beginning up to one of the characters; takes it from the text.
std::string_view cutTo(std::string_view& text, std::string_view characters)
{
    const std::string_view beginning = text.substr(0, text.find_first_of(characters));
    text.remove_prefix(beginning.size());
    return beginning;
}

bool isSecret(std::string_view name)
{
    return name == "password" || name == "sslpassword";
}

} // namespace

bool ServerUri::isUri(std::string_view text) noexcept
{
    return std::any_of(kSchemes.begin(), kSchemes.end(), [&](auto scheme) { return text.starts_with(scheme); });
}

ServerUri::ServerUri(std::string_view text)
{
    const auto scheme = std::find_if(kSchemes.begin(), kSchemes.end(), [&](auto one) { return text.starts_with(one); });
    if (scheme == kSchemes.end()) {
        refuse(userText("it does not begin with postgresql://"));
    }
    text.remove_prefix(scheme->size());
    shown_ = kSchemes.front();
    if (const std::size_t at = text.find_first_of("@/"); at != text.npos && text[at] == '@') {
        readUser(text.substr(0, at));
        text.remove_prefix(at + 1);
    }
    const std::string_view hosts = cutTo(text, "/?");
    readHosts(hosts);
    shown_.append(hosts);
    if (text.starts_with('/')) {
        text.remove_prefix(1);
        const std::string_view database = cutTo(text, "?");
        if (!database.empty()) {
            set("dbname", decoded(database));
        }
        shown_.append(1, '/').append(database);
    }
    if (!text.empty()) {
        readOptions(text.substr(1));
    }
}

void ServerUri::set(std::string_view name, std::string value)
{
    if (isSecret(name) && !value.empty()) {
        secrets_.push_back(value);
    }
    parameters_.emplace_back(name, std::move(value));
}

void ServerUri::readUser(std::string_view text)
{
    const std::string_view user = cutTo(text, ":");
    if (!user.empty()) {
        set("user", decoded(user));
    }
    if (text.size() > 1) {
        set("password", decoded(text.substr(1)));
    }
    shown_.append(user).append(1, '@');
}

void ServerUri::readHosts(std::string_view text)
{
    std::string hosts, ports;
    bool anyPort = false;
    for (bool more = !text.empty(); more;) {
        std::string_view host;
        if (text.starts_with('[')) {
            text.remove_prefix(1);
            host = cutTo(text, "]");
            if (text.empty() || host.empty()) {
                refuse(userText("an address in brackets must end with ]"));
            }
            text.remove_prefix(1);
        } else {
            host = cutTo(text, ":,");
        }
        const std::string_view port = text.starts_with(':') ? cutTo(text, ",").substr(1) : std::string_view();
        if (!std::all_of(port.begin(), port.end(), [](char c) { return isDigit(c); }) ||
            (!text.empty() && !text.starts_with(','))) {
            refuse(userText("a port must be a number; percent-encode the characters : / @ in names and passwords"));
        }
        hosts.append(decoded(host));
        ports.append(port);
        anyPort |= !port.empty();
        more = !text.empty();
        if (more) {
            text.remove_prefix(1);
            hosts += ',';
            ports += ',';
        }
    }
    if (!hosts.empty()) {
        set("host", hosts);
    }
    if (anyPort) {
        set("port", ports);
    }
}

void ServerUri::readOptions(std::string_view text)
{
    char separator = '?';
    while (!text.empty()) {
        std::string_view option = cutTo(text, "&");
        text.remove_prefix(text.empty() ? 0 : 1);
        const std::string_view raw = option;
        const std::string name = decoded(cutTo(option, "="));
        if (name.empty() || option.empty() || option.find('=', 1) != option.npos) {
            refuse(userText("behind the ?, options have the form name=value and stand between &"));
        }
        if (name == "ssl" && option == "=true") { // as other drivers call it
            set("sslmode", "require");
        } else {
            set(name, decoded(option.substr(1)));
        }
        if (!isSecret(name)) {
            shown_.append(1, separator).append(raw);
            separator = '&';
        }
    }
}

std::string ServerUri::value(std::string_view name) const
{
    const auto last =
        std::find_if(parameters_.rbegin(), parameters_.rend(), [&](const auto& one) { return one.first == name; });
    return last == parameters_.rend() ? std::string() : last->second;
}

std::string ServerUri::identity() const
{
    constexpr std::array<std::pair<const char*, const char*>, 6> kParts = {{{"service", "PGSERVICE"},
                                                                            {"host", "PGHOST"},
                                                                            {"hostaddr", "PGHOSTADDR"},
                                                                            {"port", "PGPORT"},
                                                                            {"dbname", "PGDATABASE"},
                                                                            {"user", "PGUSER"}}};
    std::string identity;
    for (const auto& [name, variable] : kParts) {
        std::string part = value(name);
        const char* const outside = part.empty() ? std::getenv(variable) : nullptr;
        // A blank is encoded, so it cannot be a part's own, and cannot join two parts to a third one.
        identity.append(identity.empty() ? "" : "%20").append(encoded(outside ? outside : part));
    }
    if (identity.size() > kLongestIdentity) {
        const std::size_t hash = std::hash<std::string>()(identity);
        identity = identity.substr(0, kLongestIdentity).append("%20").append(std::to_string(hash));
    }
    return identity;
}

std::string ServerUri::withoutPasswords(std::string text) const
{
    for (const std::string& secret : secrets_) {
        for (std::size_t at = text.find(secret); at != text.npos; at = text.find(secret, at)) {
            text.replace(at, secret.size(), "");
        }
    }
    return text;
}

} // namespace orvan

// ServerUri: names a catalogue on a PostgreSQL server, as "postgresql://user@host:port/database?sslmode=require".
//
// The form is the one that PostgreSQL's own programs take: several hosts, IPv6 addresses in brackets, a folder of Unix
// sockets as host, services ("postgresql://?service=company"), percent-encoding. What is left out comes from the
// environment, the service file and ~/.pgpass, when a connection is made.
//
// A password never stands in a text that this class makes, nor in its errors. Thread: a plain value. Errors: 321 for a
// text that is no such URI.
#pragma once

#include "orvan/catalogue_export.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvan {

class ORVAN_CATALOGUE_INTERNAL ServerUri {
public:
    using Parameters = std::vector<std::pair<std::string, std::string>>;

    /// Whether the text names a server, and not a file; it may still be no correct URI.
    [[nodiscard]] static bool isUri(std::string_view text) noexcept;

    explicit ServerUri(std::string_view text);

    /// The URI without its password, for people.
    [[nodiscard]] const std::string& shown() const noexcept { return shown_; }
    [[nodiscard]] bool hasPassword() const noexcept { return !secrets_.empty(); }
    /// What tells one server, database and user from another, with what the environment adds. It has only letters,
    /// digits, '.', '-', '_' and '%', and is short enough for the name of a folder.
    [[nodiscard]] std::string identity() const;
    /// The parameters by libpq's names, the password among them.
    [[nodiscard]] const Parameters& parameters() const noexcept { return parameters_; }
    /// The text without the passwords that may stand in it.
    [[nodiscard]] std::string withoutPasswords(std::string text) const;

private:
    void set(std::string_view name, std::string value);
    void readUser(std::string_view text);
    void readHosts(std::string_view text);
    void readOptions(std::string_view text);
    [[nodiscard]] std::string value(std::string_view name) const;

    Parameters parameters_;
    std::vector<std::string> secrets_;
    std::string shown_;
};

} // namespace orvan

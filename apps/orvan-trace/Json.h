// Json: writes JSON piece by piece, so that a long result need not be in memory.
//
//     Json json(std::cout);
//     json.begin('{').name("lines").value(3).end('}');
//
// Texts may hold any bytes: what is not UTF-8 becomes U+FFFD. Thread: one.
#pragma once

#include <shared/TerminalText.h>

#include <concepts>
#include <cstdio>
#include <ostream>
#include <string_view>

namespace orvan::trace_reader {

class Json {
public:
    explicit Json(std::ostream& out) : out_(out) {}

    Json& begin(char bracket)
    {
        separate();
        out_ << bracket;
        first_ = true;
        return *this;
    }
    Json& end(char bracket)
    {
        out_ << bracket;
        first_ = false;
        return *this;
    }
    Json& name(std::string_view name)
    {
        value(name);
        out_ << ':';
        first_ = true; // no comma before the value
        return *this;
    }
    /// "true", "false" or "null".
    Json& word(std::string_view word)
    {
        separate();
        out_ << word;
        return *this;
    }
    Json& value(std::integral auto number)
    {
        separate();
        out_ << number;
        return *this;
    }
    Json& value(std::string_view text)
    {
        separate();
        out_ << '"';
        while (!text.empty()) {
            auto [character, bytes] = shared::firstCharacter(text);
            if ((bytes == 3 && character < 0x800) || (character >= 0xD800 && character < 0xE000) ||
                (bytes == 4 && (character < 0x10000 || character > 0x10FFFF))) {
                bytes = 0; // it looks like a character, but readers of JSON refuse it
            }
            if (bytes == 0) {
                out_ << "\\ufffd";
            } else if (shared::steersOutput(character)) { // a terminal may show the JSON
                char escape[16];
                std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(character));
                out_ << escape;
            } else if (character == '"' || character == '\\') {
                out_ << '\\' << static_cast<char>(character);
            } else {
                out_ << text.substr(0, bytes);
            }
            text.remove_prefix(bytes == 0 ? 1 : bytes);
        }
        out_ << '"';
        return *this;
    }

private:
    void separate()
    {
        out_ << (first_ ? "" : ",");
        first_ = false;
    }

    std::ostream& out_;
    bool first_ = true;
};

} // namespace orvan::trace_reader

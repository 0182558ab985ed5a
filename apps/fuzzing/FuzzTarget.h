// FuzzTarget: the function that every fuzz target defines, and helpers to write one with.
//
// A target takes any bytes and hands them to a reader of the library or the desk. It compares the result with that of
// an independent reader, which is written as plainly as possible, or has the result written and read again.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace orvan::fuzz {

/// The target itself, which each of the sources *Fuzz.cpp defines.
void runTarget(std::string_view input);

/// Ends the program with a message where a target finds a difference.
inline void require(bool holds, const char* what)
{
    if (!holds) {
        std::fprintf(stderr, "This does not hold: %s\n", what);
        std::abort();
    }
}

/// Removes the first line from the input and returns it without its line feed.
inline std::string_view takeLine(std::string_view& input)
{
    const std::size_t end = input.find('\n');
    const std::string_view line = input.substr(0, end);
    input.remove_prefix(end == input.npos ? input.size() : end + 1);
    return line;
}

/// Removes the first byte from the input and returns it; 0 at its end.
inline char takeByte(std::string_view& input)
{
    const char byte = input.empty() ? '\0' : input.front();
    input.remove_prefix(input.empty() ? 0 : 1);
    return byte;
}

} // namespace orvan::fuzz

// Errors as values that a test can compare.
#pragma once

#include "orvan/base/RuntimeError.h"

#include <cstdint>
#include <string>

namespace orvan::test {

/// What an action raised; number 0 for nothing.
struct Raised {
    std::int32_t number = 0;
    std::string source = {};
    std::string description = {};
};

/// Anything but a RuntimeError passes on, and fails the test.
template <class Action>
Raised raisedBy(Action&& action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return {error.number(), error.source(), error.description()};
    }
    return {};
}

/// The number alone.
template <class Action>
std::int32_t errorOf(Action&& action)
{
    return raisedBy(action).number;
}

/// The text that `action` returns, or "error" and the number of what it raised.
template <class Action>
std::string textOrError(Action&& action)
{
    std::string text;
    const std::int32_t number = errorOf([&] { text = action(); });
    return number == 0 ? text : "error " + std::to_string(number);
}

/// What a procedure does with an error of that number.
template <class TraceObject>
void traceErrorOf(TraceObject& trace, std::int32_t number)
{
    try {
        throw RuntimeError(number);
    } catch (...) {
        trace.TraceError("");
    }
}

} // namespace orvan::test

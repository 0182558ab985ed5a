// RuntimeError: every failure of the library, as a number, a source and a text.
//
// The numbers are those that existing hosts know from their own runtime (see ErrorNumber).
// Ownership: a RuntimeError owns its texts. Thread: any.
#pragma once

#include "orvan/base/UserText.h"
#include "orvan/core_export.h"

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

/// Marks a function that a shared library exports, or a class whose objects pass between a host and a shared library,
/// even where the library is built with hidden symbols.
#define ORVAN_EXPORT __attribute__((visibility("default")))

namespace orvan {

/// The error numbers that the library raises, as the runtime of existing hosts numbers its errors.
struct ErrorNumber {
    enum Value : std::int32_t {
        invalidProcedureCall = 5,
        overflow = 6,
        outOfMemory = 7,
        subscriptOutOfRange = 9,
        divisionByZero = 11,
        typeMismatch = 13,
        outOfStringSpace = 14,
        internalError = 51,
        pathFileAccess = 75,
        objectNotSet = 91,
        invalidUseOfNull = 94,
        invalidFileFormat = 321,
        objectUnloaded = 364,
        invalidPropertyValue = 380,
        formAlreadyShown = 400,
        objectRequired = 424,
        cannotCreateComponent = 429,
        interfaceNotSupported = 430,
        automationError = 440,
    };
};

/// The standard text of an error number; "Application-defined or object-defined error" for a number without one.
[[nodiscard]] ORVAN_CORE_EXPORT std::string_view standardErrorText(std::int32_t number);

class ORVAN_EXPORT RuntimeError : public std::exception {
public:
    /// Number 0 means "no error" and cannot be raised: it becomes 5 (invalid procedure call), as in the
    /// runtime that the numbers come from.
    explicit RuntimeError(std::int32_t number, std::string source = {}, const UserText& description = {});

    std::int32_t number() const noexcept { return number_; }
    const std::string& source() const noexcept { return source_; }
    /// The description that was given when the error was raised; may be empty.
    const std::string& description() const noexcept { return description_; }
    /// The description; the standard text of the number if the description is empty. English, as in the trace.
    std::string_view text() const noexcept;
    /// The same text for the user, who may read another language.
    [[nodiscard]] UserText userText() const;
    const char* what() const noexcept override;

private:
    std::int32_t number_;
    std::string source_;
    std::string description_;
    std::shared_ptr<const UserText> userText_; ///< The description; null if it is empty. Copies of the error share it.
};

/// The error that the calling thread is handling, whatever type was thrown; to be called inside a catch block only.
/// A component of a host may throw any type, and the library handles numbers only: std::bad_alloc becomes 7,
/// std::out_of_range 9, std::bad_cast 13, and anything else 440 with what() as its text. If there is no memory for the
/// texts, the number comes without them.
[[nodiscard]] ORVAN_CORE_EXPORT RuntimeError currentError() noexcept;

/// Raises the error that the calling thread is handling: a RuntimeError as it is, anything else as currentError() gives
/// it. To be called inside a catch block only.
[[noreturn]] ORVAN_CORE_EXPORT void raiseCurrentError();

/// Runs `body`, and raises whatever it throws by raiseCurrentError. Each operation that hosts call and that runs code
/// of a host, or may run out of memory, uses it, so that hosts need to catch one type only.
template <class Body>
decltype(auto) asRuntimeError(Body&& body)
{
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        raiseCurrentError();
    }
}

} // namespace orvan

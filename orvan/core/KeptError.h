// KeptError: the error that procedures pass on to each other, with the text that it had when it was raised.
//
// A procedure that passes an error on raises its number alone, so that only who saw it first knows its text. A
// KeptError is told of each error that is recorded, and keeps the first one while the same one is only passed on.
// Ownership: it owns its error. Thread: one at a time. Errors: none.
#pragma once

#include "orvan/base/RuntimeError.h"

#include <optional>
#include <utility>

namespace orvan {

class KeptError {
public:
    /// A procedure records the error. One without a text that has the same number as the kept one is that one again, if
    /// it has been passed on.
    void note(RuntimeError error) noexcept
    {
        const bool sameAgain = passedOn_ && error_ && error.number() == error_->number() && error.source().empty() &&
                               error.description().empty();
        if (!sameAgain) {
            error_ = std::move(error);
        }
        passedOn_ = false;
    }
    /// The procedure raises it again, by its number.
    void passOn() noexcept { passedOn_ = true; }
    /// The procedure goes on instead.
    void goOn() noexcept { passedOn_ = false; }
    void forget() noexcept { error_.reset(); }

    [[nodiscard]] const std::optional<RuntimeError>& error() const noexcept { return error_; }

private:
    std::optional<RuntimeError> error_;
    bool passedOn_ = false;
};

} // namespace orvan

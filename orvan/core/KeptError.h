// KeptError: the error that procedures pass on to each other, with the text that it had when it was raised.
//
// A procedure that passes an error on raises the error's number alone. So only the first procedure that records an
// error still has its text. A KeptError is told of each error that is recorded. It keeps the one that was recorded
// first as long as procedures only pass this error on. Ownership: it owns its error. Thread: one at a time. Errors:
// none.
#pragma once

#include "orvan/base/RuntimeError.h"

#include <optional>
#include <utility>

namespace orvan {

class KeptError {
public:
    /// To be called when a procedure records an error. After passOn(), an error that has the number of the kept error
    /// and no text of its own is taken for the kept error, which has come to the next procedure.
    void note(RuntimeError error) noexcept
    {
        const bool sameAgain = passedOn_ && error_ && error.number() == error_->number() && error.source().empty() &&
                               error.description().empty();
        if (!sameAgain) {
            error_ = std::move(error);
        }
        passedOn_ = false;
    }
    /// To be called when the procedure raises the recorded error again, by its number.
    void passOn() noexcept { passedOn_ = true; }
    /// To be called when the procedure does not raise the recorded error again, but goes on.
    void goOn() noexcept { passedOn_ = false; }
    void forget() noexcept { error_.reset(); }

    [[nodiscard]] const std::optional<RuntimeError>& error() const noexcept { return error_; }

private:
    std::optional<RuntimeError> error_;
    bool passedOn_ = false;
};

} // namespace orvan

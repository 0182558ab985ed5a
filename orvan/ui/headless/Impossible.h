// raiseImpossible: for driving methods, when no user could do what is asked of them.
#pragma once

#include "orvan/base/RuntimeError.h"

#include <string>
#include <utility>

namespace orvan::headless {

[[noreturn]] inline void raiseImpossible(std::string what)
{
    throw RuntimeError(ErrorNumber::invalidProcedureCall, {}, std::move(what));
}

} // namespace orvan::headless

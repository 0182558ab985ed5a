// raiseImpossible: for driving methods that are asked for what no user could do. Raises 5. Thread: any.
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

// raiseImpossible: raises 5 when a test or host asks for an action that no user could do. Thread: any.
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

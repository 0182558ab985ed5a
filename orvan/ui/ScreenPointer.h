// ScreenPointer: the shape of the mouse pointer over all windows of the program.
//
// Ownership: the platform. Thread: the user-interface thread.
#pragma once

#include "orvan/core_export.h"

#include <cstdint>

namespace orvan::ui {

/// Existing hosts know these codes.
enum class PointerCode : std::int32_t {
    standard = 0,        ///< The shape that the control under the pointer asks for.
    arrowHourglass = 13, ///< Busy, and the user may go on.
};

class ORVAN_CORE_EXPORT ScreenPointer {
public:
    virtual ~ScreenPointer() = default;

    /// The code set last; standard at first.
    virtual PointerCode code() const = 0;
    virtual void setCode(PointerCode code) = 0;
};

} // namespace orvan::ui

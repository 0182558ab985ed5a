// alignmentOf: a design's alignment as Qt needs it. Thread: any.
#pragma once

#include "orvan/ui/FormDesign.h"

#include <Qt>

namespace orvan::qt {

/// Amounts stand at the right edge in every language. Without AlignAbsolute Qt would put an Arabic one at the left
/// edge, because its text begins with a mark for the writing direction. A name that is written from right to left
/// begins at the right edge of a box whose design says left, as its reader expects.
[[nodiscard]] inline Qt::Alignment alignmentOf(ui::Alignment alignment)
{
    return Qt::AlignVCenter |
           (alignment == ui::Alignment::right ? Qt::AlignRight | Qt::AlignAbsolute : Qt::Alignment(Qt::AlignLeft));
}

} // namespace orvan::qt

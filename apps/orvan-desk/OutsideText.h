// OutsideText: texts and names from outside the desk, made fit for what the desk shows. Thread: any.
#pragma once

#include "orvan/ui/qt/QtText.h"

#include <QString>

namespace orvan::desk {

using qt::pathOf;

/// A text from outside, as a short piece of one line for a message, a label or a title: a damaged file may hold a
/// megabyte where a date belongs. Characters that would break the line or turn its writing direction are replaced.
[[nodiscard]] QString shortened(const QString& text);

/// The file's name without its folder, shortened.
[[nodiscard]] QString shortFileName(const QString& path);

} // namespace orvan::desk

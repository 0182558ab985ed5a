// Translation: the texts of the library in the user's language.
//
// A translation is a translator that the application has installed (QCoreApplication::installTranslator). It has the
// texts in the context "orvan", with the English text as the key. A text that no translator has is shown in English.
// Thread: the user-interface thread.
#pragma once

#include "orvan/base/UserText.h"
#include "orvan/qt_export.h"

#include <QString>

#include <exception>
#include <string_view>

namespace orvan::qt {

[[nodiscard]] QString translatedSentence(std::string_view english);
[[nodiscard]] ORVAN_QT_INTERNAL QString translated(const UserText& text);
/// The text of an error. That of an error that is no RuntimeError is taken as it is.
[[nodiscard]] ORVAN_QT_INTERNAL QString translated(const std::exception& error);

} // namespace orvan::qt

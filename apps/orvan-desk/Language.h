// Language: chooses the language in which the desk shows its menus, questions and messages.
//
// The formats of numbers and dates do not depend on that language: they are those of the user's locale. Thread: the
// user-interface thread, before the first window.
#pragma once

#include <QString>
#include <QStringList>

namespace orvan::desk {

/// The names of the languages that the desk has: "ar", "de", "en".
[[nodiscard]] QStringList languages();

/// Shows texts of the desk, the library and Qt in the first of these languages that the desk has, from now on; English
/// if it has none. A name may have a country: "de_AT" is shown as "de".
void useLanguage(const QStringList& wanted);

/// The language that useLanguage has chosen; English before that.
[[nodiscard]] QString usedLanguage();

} // namespace orvan::desk

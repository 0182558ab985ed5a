#include "OutsideText.h"

#include "apps/shared/TerminalText.h"

#include <QFileInfo>

namespace orvan::desk {

namespace {

constexpr qsizetype kMostInMessage = 60; // characters

} // namespace

QString shortened(const QString& text)
{
    // Twice as many of QString's units as characters are taken, because a character may have two.
    QList<uint> characters = text.left(2 * kMostInMessage + 2).toUcs4();
    const bool cut = characters.size() > kMostInMessage;
    characters.resize(std::min(characters.size(), kMostInMessage));
    for (uint& character : characters) {
        if (shared::steersOutput(character)) {
            character = QChar::ReplacementCharacter;
        }
    }
    const QString shown =
        QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()), characters.size());
    return cut ? shown + QStringLiteral("…") : shown;
}

QString shortFileName(const QString& path)
{
    return shortened(QFileInfo(path).fileName());
}

} // namespace orvan::desk

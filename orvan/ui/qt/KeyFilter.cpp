#include "orvan/ui/qt/KeyFilter.h"

#include <QKeyEvent>

namespace orvan::qt {

namespace {

constexpr char32_t kBackspace = 8;
constexpr char32_t kEnter = 13;

bool has(const QKeyEvent& key, Qt::KeyboardModifier modifier)
{
    return key.modifiers().testFlag(modifier);
}

/// Whether a key types text, by the rule of Qt's own boxes. Ctrl with Alt can type a character, because some systems
/// report AltGr as these two keys.
bool isTyped(const QKeyEvent& key)
{
    if (key.text().isEmpty() || (has(key, Qt::ControlModifier) && !has(key, Qt::AltModifier))) {
        return false;
    }
    const char32_t first = key.text().toUcs4().front();
    return QChar::isPrint(first) || QChar::category(first) == QChar::Other_Format ||
           QChar::category(first) == QChar::Other_PrivateUse;
}

} // namespace

std::u32string charactersOf(const QKeyEvent& key)
{
    switch (key.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Escape:
    case Qt::Key_Delete: return {};
    case Qt::Key_Return:
    case Qt::Key_Enter: return has(key, Qt::AltModifier) ? std::u32string() : std::u32string(1, kEnter);
    case Qt::Key_Backspace: return has(key, Qt::AltModifier) ? std::u32string() : std::u32string(1, kBackspace);
    default: break;
    }
    if (isTyped(key)) {
        return key.text().toStdU32String();
    }
    const bool control = has(key, Qt::ControlModifier) && !has(key, Qt::AltModifier) && !has(key, Qt::MetaModifier);
    if (control && key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z) {
        return std::u32string(1, static_cast<char32_t>(key.key() - Qt::Key_A + 1));
    }
    return {};
}

bool isControl(const std::u32string& characters)
{
    return characters.size() == 1 && characters[0] < U' ';
}

bool isKeypadDecimal(const QKeyEvent& key)
{
    return has(key, Qt::KeypadModifier) && (key.key() == Qt::Key_Period || key.key() == Qt::Key_Comma) &&
           !has(key, Qt::ControlModifier) && !has(key, Qt::AltModifier);
}

bool goesBeforeShortcuts(const QKeyEvent& key)
{
    return !charactersOf(key).empty() && (!has(key, Qt::AltModifier) || has(key, Qt::ControlModifier));
}

} // namespace orvan::qt

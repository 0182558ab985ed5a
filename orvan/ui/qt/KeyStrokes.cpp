#include "orvan/ui/qt/KeyStrokes.h"

#include "orvan/ui/qt/KeyFilter.h"

#include <QKeyEvent>

#include <algorithm>
#include <iterator>

namespace orvan::qt {

namespace {

struct QtKey {
    int qt;
    ui::Key key;
};
constexpr QtKey kKeys[] = {
    {Qt::Key_Return, ui::Key::enter},
    {Qt::Key_Enter, ui::Key::enter},
    {Qt::Key_Escape, ui::Key::escape},
    {Qt::Key_Insert, ui::Key::insert},
    {Qt::Key_Backspace, ui::Key::backspace},
    {Qt::Key_Delete, ui::Key::del},
    {Qt::Key_Home, ui::Key::home},
    {Qt::Key_End, ui::Key::end},
    {Qt::Key_PageUp, ui::Key::pageUp},
    {Qt::Key_PageDown, ui::Key::pageDown},
    {Qt::Key_Up, ui::Key::up},
    {Qt::Key_Down, ui::Key::down},
    {Qt::Key_Left, ui::Key::left},
    {Qt::Key_Right, ui::Key::right},
    {Qt::Key_Menu, ui::Key::menu},
};

} // namespace

ui::KeyStroke keyStrokeOf(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    ui::KeyStroke stroke{.control = modifiers.testFlag(Qt::ControlModifier),
                         .shift = modifiers.testFlag(Qt::ShiftModifier),
                         .alt = modifiers.testFlag(Qt::AltModifier)};
    if (modifiers.testFlag(Qt::MetaModifier)) {
        return stroke; // the window manager's key
    }
    const auto* const named =
        std::find_if(std::begin(kKeys), std::end(kKeys), [&](const QtKey& key) { return key.qt == event.key(); });
    if (named != std::end(kKeys)) {
        stroke.key = named->key;
    } else if (event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F12) {
        stroke.key = static_cast<ui::Key>(static_cast<int>(ui::Key::f1) + event.key() - Qt::Key_F1);
    } else if (const std::u32string typed = charactersOf(event);
               !typed.empty() && !isControl(typed) && stroke.alt == stroke.control) {
        // With both, because some systems report AltGr so. Alt alone opens a menu.
        stroke = {.key = ui::Key::character, .character = typed.front()};
    } else if (event.key() >= Qt::Key_Space && event.key() <= Qt::Key_AsciiTilde) {
        stroke.key = ui::Key::character;
        stroke.character = static_cast<char32_t>(event.key());
    }
    return stroke;
}

} // namespace orvan::qt

#include "orvan/ui/EventTap.h"

#include "orvan/base/Text.h"
#include "orvan/ui/Surface.h"

#include <algorithm>

namespace orvan::ui {

namespace {

/// Whether keyStroke takes the character as a key's name of its own.
bool isPlainCharacter(char32_t character)
{
    return character > U' ' && character < 0x7F;
}

} // namespace

std::string keyText(const KeyStroke& key)
{
    std::string text =
        std::string(key.control ? "Ctrl+" : "").append(key.shift ? "Shift+" : "").append(key.alt ? "Alt+" : "");
    if (key.key == Key::character) {
        return text + (key.character == U' ' ? "Space" : toUtf8(key.character));
    }
    if (key.key >= Key::f1 && key.key <= Key::f12) {
        return text + "F" + std::to_string(static_cast<int>(key.key) - static_cast<int>(Key::f1) + 1);
    }
    const auto* const named =
        std::find_if(kNamedKeys.begin(), kNamedKeys.end(), [&](const NamedKey& each) { return each.key == key.key; });
    return named == kNamedKeys.end() ? text : text.append(named->name);
}

KeyStroke keyOfText(std::string_view text)
{
    const std::size_t last = text.rfind('+', text.size() < 2 ? std::string_view::npos : text.size() - 2);
    const std::string_view name = last == std::string_view::npos ? text : text.substr(last + 1);
    if (characterCount(name) != 1 || isPlainCharacter(characterAt(name, 0))) {
        return keyStroke(text);
    }
    KeyStroke stroke = keyStroke(std::string(text.substr(0, text.size() - name.size())) + "A"); // the modifiers
    stroke.character = characterAt(name, 0);
    return stroke;
}

const std::shared_ptr<EventTap>* Tapped::tapOf(const Surface* surface)
{
    return surface ? &surface->platform().tap : nullptr;
}

void Tapped::begin(const std::shared_ptr<EventTap>& tap, const Surface& surface, const Event& event)
{
    tap_ = tap;
    tap_->begin(surface, event);
}

void raiseUnplayable(std::string_view name, const Event& event)
{
    throw RuntimeError(ErrorNumber::invalidProcedureCall, {},
                       std::string(name) + ": no event \"" +
                           std::string(kEventNames[static_cast<std::size_t>(event.kind)]) + "\" happens here");
}

void Tapped::returned(std::string_view result) const
{
    if (tap_) {
        tap_->returned(result);
    }
}

void Tapped::raised(std::int32_t errorNumber) const noexcept
{
    if (tap_) {
        tap_->raised(errorNumber);
    }
}

std::int32_t measuredBy(const Surface* surface, std::string_view what, std::int32_t value)
{
    const std::shared_ptr<EventTap>* const tap = Tapped::tapOf(surface);
    return tap && *tap ? (*tap)->measured(what, value) : value;
}

} // namespace orvan::ui

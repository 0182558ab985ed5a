// EventTap: hears of all that comes to the logic from a platform, before the logic does. A recording is made with it.
//
// What a user does reaches the logic through the abstract controls alone, so these tell the tap of the platform, if
// there is one: each event as the control saw it, and each measure of the screen that the logic asks for. A replay
// makes the same events happen by Surface::play, and answers the same measures.
//
// An event that is reported while the logic works on another one is its consequence, such as the click on a cancel
// button that Escape causes. It is not told, because the replay of the first event brings it about again. While the
// logic waits (for a message box, a modal form, or a call out of the library), events are told, for they have a cause
// of their own.
//
// Ownership: the platform shares its tap. Thread: the user-interface thread. Errors: a tap must not throw.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/KeyStroke.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace orvan::ui {

class Platform;
class Surface;

/// What the user or the host did, or what came to pass. The comments say what Event's `first`, `second` and `text`
/// hold.
enum class EventKind : std::uint8_t {
    opened,      ///< The form's window can take keys: its first control gets the focus.
    focused,     ///< A control got the focus.
    resized,     ///< The area of the controls has another size: width and height in twips.
    formKey,     ///< The form took a key: text names it.
    escape,      ///< Escape was pressed in the form.
    close,       ///< The form was asked to close: first is the UnloadMode.
    clicked,     ///< A button was pressed.
    tool,        ///< A tool was chosen: text is its ID.
    timer,       ///< A timer's interval has passed.
    key,         ///< A key in a box: first is its character.
    typed,       ///< The text of a box changed: from character first on, second characters became text.
    selected,    ///< Second characters of a box are selected, from first on.
    chose,       ///< Row first of a combo box's list was chosen.
    gridKey,     ///< A key in a grid: text names it.
    gridRow,     ///< Row first was chosen: second is the RowChoice.
    gridDrag,    ///< The selected rows were dragged to the place above row first.
    gridWidth,   ///< Column first was made second twips wide.
    doubleClick, ///< On row first.
    rightClick,  ///< On row first and column second.
    // What a host does with a list view (orvan/hosting/HostedView.h).
    created,
    placed,   ///< The view has been placed on a form: text is the form's type name.
    show,     ///< A list is shown: text is the products string.
    products, ///< The host asks for the products string.
    total,    ///< The host asks for the total.
    readOnly, ///< First says whether the list can only be read.
    refresh,  ///< The host has changed the list, and has it read anew.
    run,      ///< Runs a command: text is its id.
    current,  ///< Makes the product at position first the current one.
    fitted,   ///< The view's controls have been made as large as they need, and are laid out.
    destroyed,
};

/// The name of each action in the order of the enumerators, as recordings write it.
inline constexpr std::array kEventNames = {
    std::string_view("opened"),     std::string_view("focused"),   std::string_view("resized"),
    std::string_view("formKey"),    std::string_view("escape"),    std::string_view("close"),
    std::string_view("clicked"),    std::string_view("tool"),      std::string_view("timer"),
    std::string_view("key"),        std::string_view("typed"),     std::string_view("selected"),
    std::string_view("chose"),      std::string_view("gridKey"),   std::string_view("gridRow"),
    std::string_view("gridDrag"),   std::string_view("gridWidth"), std::string_view("doubleClick"),
    std::string_view("rightClick"), std::string_view("created"),   std::string_view("placed"),
    std::string_view("show"),       std::string_view("products"),  std::string_view("total"),
    std::string_view("readOnly"),   std::string_view("refresh"),   std::string_view("run"),
    std::string_view("current"),    std::string_view("fitted"),    std::string_view("destroyed"),
};

struct Event {
    EventKind kind = EventKind::opened;
    std::string_view control = {}; ///< Its name; empty for an event of the surface itself.
    std::int32_t first = 0;
    std::int32_t second = 0;
    std::string text = {};
};

/// The text from which keyStroke makes the same key; a typed character stands for itself, also one beyond ASCII.
[[nodiscard]] ORVAN_CORE_INTERNAL std::string keyText(const KeyStroke& key);
/// The key of such a text. Raises 5 for a text that names no key.
[[nodiscard]] ORVAN_CORE_INTERNAL KeyStroke keyOfText(std::string_view text);

class ORVAN_CORE_EXPORT EventTap {
public:
    virtual ~EventTap() = default;

    /// Whether the tap makes events happen itself. A platform that opens a form for it then causes no event of its own.
    [[nodiscard]] virtual bool plays() const { return false; }
    /// Whether events that come now are consequences of another one, and are not to be told.
    [[nodiscard]] virtual bool busy() const = 0;
    /// The logic is going to work on an event.
    virtual void begin(const Surface& surface, const Event& event) = 0;
    /// The event that began last gave the host this.
    virtual void returned(std::string_view result) = 0;
    /// The event that began last raised this error to the host.
    virtual void raised(std::int32_t errorNumber) noexcept = 0;
    /// The logic has worked on the event that began last.
    virtual void end() noexcept = 0;
    /// The logic asks how large something is on the screen, or works with such a number. Returns the number that it is
    /// to work with.
    virtual std::int32_t measured(std::string_view what, std::int32_t value) = 0;
    /// A form runs until it is unloaded; events come meanwhile.
    virtual void waitForForm(const Surface& form) = 0;
    virtual void formClosed() noexcept = 0;
    /// The services that the logic is to use as long as the tap is there, in place of the platform's.
    virtual Platform& platform() = 0;
};

/// Tells the tap of an event, and of its end when this object is destroyed, by when the control may be gone. Without a
/// tap it costs a look at a pointer.
class ORVAN_CORE_INTERNAL Tapped {
public:
    /// Whether an event is told that is the consequence of another one. Only what a replay does not bring about by
    /// itself is told then.
    enum class Consequences { untold, told };

    /// `make` returns the event; it is called only if there is a tap. `surface` may be null: nothing is told then.
    template <class Make>
    Tapped(const Surface* surface, const Make& make, Consequences consequences = Consequences::untold)
    {
        if (const std::shared_ptr<EventTap>* tap = tapOf(surface);
            tap && *tap && (consequences == Consequences::told || !(*tap)->busy())) {
            begin(*tap, *surface, make());
        }
    }
    Tapped(const Tapped&) = delete;
    Tapped& operator=(const Tapped&) = delete;
    ~Tapped()
    {
        if (tap_) {
            tap_->end();
        }
    }

    /// Tells what the event gives the host.
    void returned(std::string_view result) const;
    void raised(std::int32_t errorNumber) const noexcept;

    /// The tap of the surface's platform; null without a surface.
    [[nodiscard]] static const std::shared_ptr<EventTap>* tapOf(const Surface* surface);

private:
    void begin(const std::shared_ptr<EventTap>& tap, const Surface& surface, const Event& event);

    std::shared_ptr<EventTap> tap_; ///< Null when nothing has been told.
};

/// Raises 5: an event of this action does not happen to what has the name.
[[noreturn]] ORVAN_CORE_INTERNAL void raiseUnplayable(std::string_view name, const Event& event);

/// What the tap says about a measure; without a tap, the value itself.
[[nodiscard]] ORVAN_CORE_INTERNAL std::int32_t measuredBy(const Surface* surface, std::string_view what,
                                                          std::int32_t value);

} // namespace orvan::ui

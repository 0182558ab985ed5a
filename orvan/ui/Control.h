// Control: what every control has: a name, a kind, a position, a size and, for some kinds, the keyboard focus.
//
// Position and size are kept here as they were set, in twips. A platform rounds them to its own unit
// when it places its widget, and never writes them back, so that a length reads back as it was set.
//
// Each event has one handler. Events are raised here and in the other abstract controls, never by a
// platform, so that the same changes raise the same events everywhere. An error that leaves a handler
// reaches Platform::onUnhandledError and never the statement that caused the event. A form that has
// been unloaded raises no event. A handler may destroy the surface that its control is on.
//
// Ownership: a Surface owns its controls. Thread: the user-interface thread.
#pragma once

#include "orvan/base/RunHandler.h"
#include "orvan/core_export.h"
#include "orvan/ui/EventTap.h"
#include "orvan/ui/FormDesign.h"
#include "orvan/ui/Platform.h"

#include <functional>
#include <string>
#include <utility>

namespace orvan::ui {

class Surface;

class ORVAN_CORE_INTERNAL Control {
public:
    /// The design must outlive the control.
    explicit Control(const ControlDesign& design);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    const std::string& name() const { return name_; }
    ControlKind kind() const { return design_.kind; }

    float left() const { return left_; }
    float top() const { return top_; }
    float width() const { return width_; }
    float height() const { return height_; }
    /// Moves the control without changing its size. Raises 6 for a position that is not finite.
    void move(float left, float top);
    /// Raises 380 for a negative size and 6 for a length that is not finite; the control then stays as it is.
    void move(float left, float top, float width, float height);

    /// Moves the keyboard focus to this control. When this returns, the events that it causes have finished, such
    /// as onLostFocus of the control that had the focus. Raises 5 when the control cannot take the focus.
    void setFocus();
    bool hasFocus() const;
    /// True for buttons, boxes and grids, unless the control or a frame around it is disabled.
    bool canTakeFocus() const;

    /// The control got the focus from another control of the surface, or lost it to one. The control does not lose it
    /// to another window, a menu, a list that drops down or a message box.
    std::function<void()> onGotFocus;
    std::function<void()> onLostFocus;

    /// See Surface::play. Raises 5 for an event that does not happen to this kind of control.
    virtual void play(const Event& event);

protected:
    /// The platform places the widget at left(), top(), width(), height().
    virtual void doMove() = 0;

    Surface* surface() const { return surface_; }
    /// An event of this control, to be told to the platform's tap.
    Event told(EventKind kind, std::int32_t first = 0, std::int32_t second = 0, std::string text = {}) const
    {
        return {kind, name_, first, second, std::move(text)};
    }
    /// Raises an event. Its handler may destroy this control, so the caller must not touch the control afterwards.
    template <class... Parameters, class... Arguments>
    void raise(const std::function<void(Parameters...)>& handler, Arguments&&... arguments) const
    {
        if (Platform* platform = eventPlatform()) {
            platform->dispatch([&] { runHandler(handler, std::forward<Arguments>(arguments)...); });
        }
    }
    /// Whether the user can act on the control: neither it nor a frame around it is disabled.
    virtual bool takesInput() const { return !parent_ || parent_->takesInput(); }
    /// The platform reports that the user moved the focus to this control. Raises 5 when it cannot take the focus.
    void userFocused();
    /// To be called when the control has been disabled: moves the focus to a neighbour if this control, or one inside
    /// it, has it.
    void giveFocusAway();

private:
    friend class Surface;

    /// The platform that raises the control's events. Null if there are to be none: before the control is on a surface,
    /// and after its form has been unloaded.
    Platform* eventPlatform() const;
    void requireFocusable() const;

    const ControlDesign& design_;
    std::string name_;
    Surface* surface_ = nullptr;      ///< The surface that owns the control sets surface_ and parent_.
    const Control* parent_ = nullptr; ///< The frame around the control; null if it is on the surface itself.
    float left_;
    float top_;
    float width_;
    float height_;
};

/// A control that can be disabled: a button, or a frame together with all controls inside it.
class EnabledControl : public Control {
public:
    using Control::Control;

    bool enabled() const { return enabled_; }
    /// A control that is not enabled is shown greyed and takes neither clicks nor the focus. If it, or a control in it,
    /// has the focus, a neighbour gets it.
    void setEnabled(bool enabled);

protected:
    /// The platform shows whether the control is enabled.
    virtual void doSetEnabled() = 0;

private:
    bool takesInput() const override { return enabled_ && Control::takesInput(); }

    bool enabled_ = true;
};

} // namespace orvan::ui

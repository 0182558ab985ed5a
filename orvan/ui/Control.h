// Control: what every control has: a name, a kind, a place, and its share of the keyboard focus.
//
// Position and size are kept here as they were set, in twips; a platform rounds them to its own
// unit when it places its widget and never writes them back, so that a length reads back as set.
//
// Events are single-slot handlers. They are raised here and in the other abstract controls, never
// by a platform, so that it is decided once which program's own change raises one. An error that
// leaves a handler reaches Platform::onUnhandledError and never the statement that caused the event;
// a form that has been unloaded raises none. A handler may destroy the surface it stands on.
//
// Ownership: a Surface owns its controls. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/FormDesign.h"

#include <functional>
#include <string>

namespace orvan::ui {

class Surface;

class Control {
public:
    explicit Control(const ControlDesign& design);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    const std::string& name() const { return name_; }
    ControlKind kind() const { return kind_; }

    float left() const { return left_; }
    float top() const { return top_; }
    float width() const { return width_; }
    float height() const { return height_; }
    /// Keeps the size. Raises 6 for a position that is not finite.
    void move(float left, float top);
    /// Raises 380 for a negative size and 6 for a length that is not finite; nothing moves then.
    void move(float left, float top, float width, float height);

    /// Moves the keyboard focus here. The control that is left has finished onLostFocus when this
    /// returns. Raises 5 when the control cannot take the focus.
    void setFocus();
    bool hasFocus() const;
    /// Buttons, boxes and grids, unless they or the frame they stand in are not enabled.
    bool canTakeFocus() const;

    /// The focus came from another control of the surface, or went to one. Another window, a menu, a
    /// list that drops down or a message box takes no focus in this sense: the box is not left.
    std::function<void()> onGotFocus;
    std::function<void()> onLostFocus;

protected:
    /// Place the widget at the lengths above.
    virtual void doMove() = 0;

    Surface* surface() const { return surface_; }
    /// Runs an event's handler. It may destroy this control, so this is a caller's last statement
    /// about it.
    void raise(const std::function<void()>& handler) const;
    /// Whether the user can do something to it: see orvan/ui/EnabledControl.h.
    virtual bool takesInput() const { return !parent_ || parent_->takesInput(); }
    /// The control takes no input any more: a focus that is on it, or inside it, goes elsewhere.
    void giveFocusAway();

private:
    friend class Surface;

    std::string name_;
    ControlKind kind_;
    Surface* surface_ = nullptr;      ///< Both set by the surface that owns it.
    const Control* parent_ = nullptr; ///< The frame it stands in.
    float left_;
    float top_;
    float width_;
    float height_;
};

} // namespace orvan::ui

// Control: what every control has: a name, a kind, a place.
//
// Position and size are kept here as they were set, in twips; a platform rounds them to its own
// unit when it places its widget and never writes them back, so that a length reads back as set.
// Ownership: a Surface owns its controls. Thread: the user-interface thread.
#pragma once

#include "ui/FormDesign.h"

#include <string>

namespace orvan::ui {

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

protected:
    /// Place the widget at the lengths above.
    virtual void doMove() = 0;

private:
    std::string name_;
    ControlKind kind_;
    float left_;
    float top_;
    float width_;
    float height_;
};

} // namespace orvan::ui

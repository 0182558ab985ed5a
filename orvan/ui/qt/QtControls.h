// QtControls: frame, label, line and button as Qt widgets.
//
// Each shows its design in a widget of its own, a child of `parent`, and is placed in pixels while
// it keeps its lengths in twips. Ownership: see orvan/ui/qt/QtWidgetHolder.h. Thread: the user-interface
// thread.
#pragma once

#include "orvan/ui/Button.h"
#include "orvan/ui/Frame.h"
#include "orvan/ui/Label.h"
#include "orvan/ui/Line.h"
#include "orvan/ui/qt/QtWidgetHolder.h"

namespace orvan::qt {

class QtFrame final : public ui::Frame, public QtWidgetHolder {
public:
    /// `hasCells` says that the frame's controls are laid out in rows and columns; see orvan/ui/qt/FieldCard.h.
    QtFrame(const ui::ControlDesign& design, QWidget* parent, bool hasCells);

private:
    void doMove() override { place(*this); }
    void doSetEnabled() override { showEnabled(enabled()); }
};

class QtLabel final : public ui::Label, public QtWidgetHolder {
public:
    QtLabel(const ui::ControlDesign& design, QWidget* parent);

    /// Makes the label's mnemonic move the focus to `widget`. Until this is called, the label shows no mnemonic.
    void nameFor(QWidget* widget);

private:
    void doMove() override { place(*this); }

    QString marked_;
};

class QtLine final : public ui::Line, public QtWidgetHolder {
public:
    QtLine(const ui::ControlDesign& design, QWidget* parent);

private:
    void doMove() override { place(*this); }
};

class QtButton final : public ui::Button, public QtWidgetHolder {
public:
    /// Raises 380 for a picture that does not exist.
    QtButton(const ui::ControlDesign& design, QWidget* parent);

private:
    void doMove() override { place(*this); }
    void doSetEnabled() override { showEnabled(enabled()); }
};

} // namespace orvan::qt

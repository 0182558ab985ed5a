// QtComboBox: an editable QComboBox that changes its text only as its user or the program does.
//
// The list that drops down reads the abstract rows as it shows them; filling it costs Qt nothing.
// Ownership: see orvan/ui/qt/QtWidgetHolder.h.
#pragma once

#include "orvan/ui/ComboBox.h"
#include "orvan/ui/qt/QtEntry.h"

namespace orvan::qt {

class ComboWidget;

class ComboPort : public EntryPort {
public:
    virtual const ui::ComboBox& combo() const = 0;
    virtual void reportChoice(std::int32_t row) = 0;
};

class QtComboBox final : public QtEntry<ui::ComboBox, ComboPort> {
public:
    QtComboBox(const ui::ControlDesign& design, QWidget* parent, ui::Platform& platform);

private:
    QtComboBox(const ui::ControlDesign& design, ComboWidget* widget);

    void doListChanged() override;
    const ui::ComboBox& combo() const override { return *this; }
    void reportChoice(std::int32_t row) override { userChoseRow(row); }

    ComboWidget& comboWidget_;
};

} // namespace orvan::qt

// QtComboBox: an editable QComboBox that changes its text only as its user or the program does.
//
// The list that drops down reads the rows of the ui::ComboBox as it shows them; filling it costs Qt nothing.
// Ownership: see orvan/ui/qt/QtWidgetHolder.h. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/ComboBox.h"
#include "orvan/ui/qt/QtEntry.h"

class QComboBox;

namespace orvan::qt {

class ComboWidget;

/// Whether the widget is that of a QtComboBox.
[[nodiscard]] bool isLookUpBox(const QComboBox& combo);

/// Through this the list that drops down reads the combo box and reports to it. A report may destroy the combo box.
class ComboPort {
public:
    virtual const ui::ComboBox& combo() const = 0;
    virtual void reportChoice(std::int32_t row) = 0;

protected:
    ~ComboPort() = default;
};

class QtComboBox final : public QtEntry<ui::ComboBox>, private ComboPort {
public:
    QtComboBox(const ui::ControlDesign& design, QWidget* parent, ui::Platform& platform);
    ~QtComboBox() override;

private:
    QtComboBox(const ui::ControlDesign& design, ComboWidget* widget);

    void doListChanged() override;
    void doShowRemark() override;
    const ui::ComboBox& combo() const override { return *this; }
    void reportChoice(std::int32_t row) override { userChoseRow(row); }

    ComboWidget& comboWidget_; ///< Has been destroyed if widget() is null.
};

} // namespace orvan::qt

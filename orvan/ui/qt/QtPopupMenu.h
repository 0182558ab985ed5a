// QtPopupMenu: the pop-up menu as a QMenu.
//
// The widget that the menu pops up over owns it, so either may be destroyed first (see orvan/ui/qt/QtWidgetHolder.h).
// Thread: the user-interface thread.
#pragma once

#include "orvan/ui/ToolSet.h"

#include <QMenu>
#include <QPointer>

namespace orvan::qt {

class QtPopupMenu final : public ui::PopupMenu {
public:
    QtPopupMenu(const ui::ControlDesign& design, QWidget* parent);
    ~QtPopupMenu() override;

    void popUp() override;

private:
    void doMove() override {}
    void doSetToolEnabled(std::size_t index, bool enabled) override;

    QPointer<QMenu> menu_;
    QObject context_;               ///< Receiver of the tools' signals: none is reported once this is destroyed.
    std::vector<QAction*> actions_; ///< By tool. They go with the menu.
};

} // namespace orvan::qt

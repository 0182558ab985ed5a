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
    void popUpAt(ui::Grid& grid) override;

private:
    void doMove() override {}
    void doSetToolEnabled(std::size_t index, bool enabled) override;
    void doSetToolCaption(std::size_t index, std::string_view caption) override;
    void doSetToolChecked(std::size_t index, bool checked) override;

    QPointer<QMenu> menu_;
    QObject context_;               ///< Receives the tools' signals, so that none is reported after it is destroyed.
    std::vector<QAction*> actions_; ///< One action per tool, in the design's order. The menu owns them.
};

} // namespace orvan::qt

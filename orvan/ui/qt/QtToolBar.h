// QtToolBar: the tool bar's menu bar as a QMenuBar.
//
// It is at the design's place and always reaches to the right edge of the window.
// Ownership: see orvan/ui/qt/QtWidgetHolder.h. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/ToolSet.h"
#include "orvan/ui/qt/QtWidgetHolder.h"

class QAction;

namespace orvan::qt {

class QtToolBar final : public ui::ToolBar, public QtWidgetHolder {
public:
    QtToolBar(const ui::ControlDesign& design, QWidget* parent);

private:
    void doMove() override { place(*this); }
    void doSetToolEnabled(std::size_t index, bool enabled) override;
    void doSetToolCaption(std::size_t index, std::string_view caption) override;
    void doSetToolChecked(std::size_t index, bool checked) override;

    std::vector<QAction*> actions_; ///< One action per tool, in the design's order. The widget owns them.
};

} // namespace orvan::qt

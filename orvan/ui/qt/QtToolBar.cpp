#include "orvan/ui/qt/QtToolBar.h"

#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/QtTools.h"

#include <QEvent>
#include <QMenuBar>

namespace orvan::qt {

namespace {

class MenuBar final : public QMenuBar {
public:
    explicit MenuBar(QWidget* parent) : QMenuBar(parent)
    {
        setNativeMenuBar(false); // the bar stays in its form, even on a desktop that shows one bar for all windows
    }

protected:
    /// Follows the width of the window. It gets these events because QMenuBar installs itself as an event filter of its
    /// parent.
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == parentWidget() && event->type() == QEvent::Resize) {
            stretch();
        }
        return QMenuBar::eventFilter(watched, event);
    }

    void moveEvent(QMoveEvent* event) override
    {
        QMenuBar::moveEvent(event);
        stretch();
    }

    void resizeEvent(QResizeEvent* event) override
    {
        QMenuBar::resizeEvent(event);
        stretch();
    }

private:
    void stretch() { resize(parentWidget()->width() - x(), sizeHint().height()); }
};

} // namespace

QtToolBar::QtToolBar(const ui::ControlDesign& design, QWidget* parent)
    : ToolBar(design), QtWidgetHolder(new MenuBar(parent), design)
{
    auto* bar = static_cast<QMenuBar*>(widget());
    bar->setAccessibleName(plainCaption(design.caption));
    actions_ = addTools(*bar, *this, context(), [this](std::string_view id) { userChoseTool(id); });
}

void QtToolBar::doSetToolEnabled(std::size_t index, bool enabled)
{
    if (widget()) {
        actions_[index]->setEnabled(enabled);
    }
}

void QtToolBar::doSetToolCaption(std::size_t index, std::string_view caption)
{
    if (widget()) {
        actions_[index]->setText(markedCaption(caption, tools()[index].mnemonic));
    }
}

void QtToolBar::doSetToolChecked(std::size_t index, bool checked)
{
    if (widget()) {
        actions_[index]->setCheckable(checked);
        actions_[index]->setChecked(checked);
    }
}

} // namespace orvan::qt

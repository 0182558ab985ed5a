#include "orvan/ui/qt/QtPopupMenu.h"

#include "orvan/ui/qt/QtGrid.h"
#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/QtTools.h"

#include <QCursor>

namespace orvan::qt {

QtPopupMenu::QtPopupMenu(const ui::ControlDesign& design, QWidget* parent)
    : PopupMenu(design), menu_(new QMenu(parent)),
      actions_(addTools(*menu_, *this, &context_, [this](std::string_view id) { userChoseTool(id); }))
{
    menu_->setObjectName(toQt(design.name));
    menu_->setAccessibleName(plainCaption(design.caption));
}

QtPopupMenu::~QtPopupMenu()
{
    if (menu_) {
        menu_->hide();
        // Not deleted at once, because the menu may still be handling the choice that destroys this object.
        menu_->deleteLater();
    }
}

void QtPopupMenu::popUp()
{
    if (menu_) {
        menu_->popup(QCursor::pos());
    }
}

void QtPopupMenu::popUpAt(ui::Grid& grid)
{
    const auto* qtGrid = dynamic_cast<QtGrid*>(&grid);
    if (menu_ && qtGrid) {
        menu_->popup(qtGrid->menuPlace());
        menu_->setActiveAction(menu_->actions().value(0)); // the arrow keys go on from there
    }
}

void QtPopupMenu::doSetToolEnabled(std::size_t index, bool enabled)
{
    if (menu_) {
        actions_[index]->setEnabled(enabled);
    }
}

void QtPopupMenu::doSetToolCaption(std::size_t index, std::string_view caption)
{
    if (menu_) {
        actions_[index]->setText(markedCaption(caption, tools()[index].mnemonic));
    }
}

void QtPopupMenu::doSetToolChecked(std::size_t index, bool checked)
{
    if (menu_) {
        actions_[index]->setCheckable(checked); // a place for a mark is kept only in menus that have one
        actions_[index]->setChecked(checked);
    }
}

} // namespace orvan::qt

#include "KeySheet.h"

#include "FilterLine.h"

#include "orvan/editor/frmProductDesign.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "orvan/ui/qt/QtText.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace orvan::desk {

namespace {

using Place = KeyRow::Place;

QString plain(const QString& caption)
{
    return qt::withoutMnemonic(caption).remove(u'…').trimmed();
}

QList<QKeySequence> keysOf(std::initializer_list<std::string_view> names)
{
    QList<QKeySequence> keys;
    for (const std::string_view name : names) {
        if (!name.empty()) {
            keys << QKeySequence(qt::toQt(name), QKeySequence::PortableText);
        }
    }
    return keys;
}

void addMenu(std::vector<KeyRow>& rows, const QList<QAction*>& actions, const QString& menu)
{
    for (const QAction* const action : actions) {
        if (action->menu()) {
            const QString name = plain(action->text());
            addMenu(rows, action->menu()->actions(), menu.isEmpty() ? name : menu + QStringLiteral(" > ") + name);
        } else if (!action->shortcuts().isEmpty() && action->shortcutContext() != Qt::WidgetShortcut) {
            // A command of the list is in the desk's menus, too, but its key acts in the list alone.
            rows.push_back({Place::desk, plain(action->iconText()), menu, action->shortcuts()});
        }
    }
}

QString nameOf(Place place)
{
    return place == Place::list     ? KeySheet::tr("In the list")
           : place == Place::editor ? KeySheet::tr("In the editor")
                                    : KeySheet::tr("In the desk");
}

} // namespace

std::vector<KeyRow> allKeys(ProductViewWidget& list, const QMenuBar& desk)
{
    std::vector<KeyRow> rows;
    rows.reserve(kCommands.size());
    for (const CommandRow& row : kCommands) {
        rows.push_back({Place::list, plain(list.action(row.command)->text()), {}, keysOf({row.key, row.otherKey})});
    }
    for (const ui::ControlDesign& control : kProductFormDesign.controls) {
        for (const ui::ToolDesign& tool : control.tools) {
            rows.push_back({Place::editor, qt::plainCaption(tool.caption, tool.mnemonic), {}, keysOf({tool.key})});
        }
    }
    addMenu(rows, desk.actions(), {});
    std::erase_if(rows, [](const KeyRow& row) { return row.keys.isEmpty(); });
    return rows;
}

KeySheet::KeySheet(const std::vector<KeyRow>& rows, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Keys"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* const list = new QTreeWidget;
    list->setHeaderLabels({tr("Command"), tr("Key"), tr("Menu")});
    list->setRootIsDecorated(false);
    list->setItemsExpandable(false);
    list->setAllColumnsShowFocus(true);
    list->setAccessibleName(windowTitle());
    QTreeWidgetItem* heading = nullptr;
    for (const KeyRow& row : rows) {
        if (!heading || heading->text(0) != nameOf(row.place)) {
            heading = new QTreeWidgetItem(list, {nameOf(row.place)});
            heading->setFlags(Qt::ItemIsEnabled);
            heading->setFirstColumnSpanned(true);
            QFont bold = list->font();
            bold.setBold(true);
            heading->setFont(0, bold);
        }
        QStringList keys;
        for (const QKeySequence& key : row.keys) {
            keys << key.toString(QKeySequence::NativeText);
        }
        new QTreeWidgetItem(heading, {row.command, keys.join(tr(" or ")), row.menu});
    }
    list->expandAll();
    const int em = fontMetrics().averageCharWidth();
    for (int i = 0; i + 1 < list->columnCount(); ++i) {
        list->resizeColumnToContents(i);
        list->setColumnWidth(i, list->columnWidth(i) + 2 * em); // apart from the next column
    }
    auto* const filter = new FilterLine(*list);
    filter->setPlaceholderText(tr("Find a command or a key"));
    filter->setAccessibleName(filter->placeholderText());
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(filter);
    column->addWidget(list, 1);
    column->addWidget(buttons);
    resize(QSize(90 * em, 40 * fontMetrics().lineSpacing()).boundedTo(screen()->availableSize() * 4 / 5));
}

} // namespace orvan::desk

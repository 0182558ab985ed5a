#include "orvan/ui/qt/QtTools.h"

#include "orvan/ui/qt/QtText.h"

#include <QKeySequence>
#include <QMenu>

#include <map>

namespace orvan::qt {

std::vector<QAction*> addTools(QWidget& to, const ui::ToolSet& set, QObject* context,
                               const std::function<void(std::string_view id)>& chosen)
{
    std::vector<QAction*> actions;
    std::map<std::string_view, QWidget*> places{{"", &to}};
    for (const ui::ToolDesign& tool : set.tools()) {
        QWidget* place = places.at(tool.menu);
        const QString caption = markedCaption(tool.caption, tool.mnemonic);
        if (!tool.id.empty() && set.opensMenu(tool.id)) {
            auto* menu = new QMenu(caption, place);
            places[tool.id] = menu;
            actions.push_back(menu->menuAction());
        } else {
            auto* action = new QAction(caption, place);
            action->setObjectName(toQt(tool.id));
            action->setSeparator(tool.id.empty());
            // The menu only shows the key. The control that the menu belongs to handles it while it has the focus.
            action->setShortcut(QKeySequence(toQt(tool.key)));
            action->setShortcutContext(Qt::WidgetShortcut);
            action->setShortcutVisibleInContextMenu(true);
            QObject::connect(action, &QAction::triggered, context, [chosen, id = tool.id] { chosen(id); });
            actions.push_back(action);
        }
        place->addAction(actions.back());
    }
    return actions;
}

} // namespace orvan::qt

// KeySheet: a window with the keys of all commands.
//
// The keys are read from what answers to them: the list's commands (orvan/core/Command.h), the editor's menu
// (orvan/editor/frmProductDesign.h) and the actions in the desk's menus. A command that is added there is on the sheet.
// Thread: the user-interface thread.
#pragma once

#include <QDialog>
#include <QKeySequence>
#include <QList>

#include <vector>

class QMenuBar;

namespace orvan {
class ProductViewWidget;
}

namespace orvan::desk {

struct KeyRow {
    enum class Place { list, editor, desk };

    Place place = Place::desk;
    QString command; ///< As its menu shows it, without marks.
    QString menu;    ///< Of the desk: the menu in which it is found.
    QList<QKeySequence> keys;
};

/// All commands that have a key, place by place, in the order of their menus.
[[nodiscard]] std::vector<KeyRow> allKeys(ProductViewWidget& list, const QMenuBar& desk);

class KeySheet : public QDialog {
    Q_OBJECT

public:
    KeySheet(const std::vector<KeyRow>& rows, QWidget* parent);
};

} // namespace orvan::desk

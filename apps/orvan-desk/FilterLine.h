// FilterLine: a box above a list; what is typed into it hides the list's entries that do not contain it.
//
// The keys that move in a list act on the list while the box has the focus, so that a user types and chooses without
// changing the focus. Entries with children are headings: they are shown while one of their children is.
// Ownership: the list outlives the box. Thread: the user-interface thread.
#pragma once

#include <QLineEdit>

class QTreeWidget;

namespace orvan::desk {

class FilterLine : public QLineEdit {
    Q_OBJECT

public:
    explicit FilterLine(QTreeWidget& list, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void filter();

    QTreeWidget& list_;
};

} // namespace orvan::desk

#include "FilterLine.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QTreeWidget>

namespace orvan::desk {

namespace {

/// Whether one of the entry's texts contains what was typed, or one of its children's does.
bool showMatching(QTreeWidgetItem& entry, const QString& typed)
{
    bool matches = false;
    for (int child = 0; child < entry.childCount(); ++child) {
        matches = showMatching(*entry.child(child), typed) || matches;
    }
    for (int column = 0; entry.childCount() == 0 && column < entry.columnCount(); ++column) {
        matches = matches || entry.text(column).contains(typed, Qt::CaseInsensitive);
    }
    entry.setHidden(!matches);
    return matches;
}

/// The first entry that is shown and can be chosen.
QTreeWidgetItem* firstShown(QTreeWidget& list)
{
    for (QTreeWidgetItemIterator at(&list, QTreeWidgetItemIterator::NotHidden); *at; ++at) {
        if ((*at)->childCount() == 0) {
            return *at;
        }
    }
    return nullptr;
}

} // namespace

FilterLine::FilterLine(QTreeWidget& list, QWidget* parent) : QLineEdit(parent), list_(list)
{
    setClearButtonEnabled(true);
    connect(this, &QLineEdit::textChanged, this, &FilterLine::filter);
}

void FilterLine::filter()
{
    for (int i = 0; i < list_.topLevelItemCount(); ++i) {
        showMatching(*list_.topLevelItem(i), text().trimmed());
    }
    if (const QTreeWidgetItem* const current = list_.currentItem(); !current || current->isHidden()) {
        list_.setCurrentItem(firstShown(list_)); // none, where nothing matches
    }
    if (list_.currentItem()) {
        list_.scrollToItem(list_.currentItem());
    }
}

void FilterLine::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: QCoreApplication::sendEvent(&list_, event); break;
    default: QLineEdit::keyPressEvent(event);
    }
}

} // namespace orvan::desk

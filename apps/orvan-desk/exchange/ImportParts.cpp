#include "ImportParts.h"

#include "apps/orvan-desk/OutsideText.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QTableWidget>
#include <QWheelEvent>

namespace orvan::desk {

namespace {

constexpr int kWidestColumn = 30; // characters
constexpr int kProblemLines = 3;  // of text, which are always to be seen

} // namespace

void FieldChoice::focusInEvent(QFocusEvent* event)
{
    QComboBox::focusInEvent(event);
    table_.scrollTo(table_.model()->index(0, column_));
}

void FieldChoice::wheelEvent(QWheelEvent* event)
{
    hasFocus() ? QComboBox::wheelEvent(event) : event->ignore();
}

QString importedText(const std::string& text)
{
    const QString shown = shortened(qt::toQt(text));
    return QGuiApplication::isRightToLeft() ? u'\u2068' + shown + u'\u2069' : shown;
}

void setUpImportTable(QTableWidget& table)
{
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    table.setTabKeyNavigation(false); // Tab goes to the boxes in the first row
    table.setMinimumHeight(5 * table.fontMetrics().lineSpacing());
}

void fitImportTable(QTableWidget& table)
{
    table.horizontalHeader()->setMaximumSectionSize(kWidestColumn * table.fontMetrics().averageCharWidth());
    table.resizeColumnsToContents();
    table.resizeRowsToContents();
}

void setUpProblems(QPlainTextEdit& problems)
{
    problems.setReadOnly(true);
    problems.setTabChangesFocus(true);
    problems.setFixedHeight(kProblemLines * problems.fontMetrics().lineSpacing() + 2 * problems.frameWidth() +
                            static_cast<int>(2 * problems.document()->documentMargin()));
}

QWidget* scrolling(QWidget* contents)
{
    auto* const scroller = new QScrollArea;
    scroller->setFrameShape(QFrame::NoFrame);
    scroller->setWidgetResizable(true);
    scroller->setWidget(contents);
    return scroller;
}

} // namespace orvan::desk

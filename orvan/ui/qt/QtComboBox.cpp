#include "orvan/ui/qt/QtComboBox.h"

#include "orvan/ui/qt/Assistance.h"
#include "orvan/ui/qt/DropDownColumns.h"
#include "orvan/ui/qt/Edge.h"
#include "orvan/ui/qt/EntryLine.h"
#include "orvan/ui/qt/KeyFilter.h"
#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/Translation.h"

#include <QAbstractListModel>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QHash>
#include <QKeyEvent>
#include <QListView>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace orvan::qt {

namespace {

/// The list is as wide as its first kMeasuredRows rows need, but at most kWidestInBoxes times as wide as the box.
constexpr int kMeasuredRows = 200;
constexpr int kMeasuredColumns = 60; ///< Rows with columns: the catalogue is asked for each.
constexpr int kWidestInBoxes = 3;
/// The least width of the box, in characters. If none were set, Qt would measure every row of the list.
constexpr int kLeastCharacters = 8;
/// How many rows Qt lays out before it paints the list; it lays out the others while the program is idle.
constexpr int kRowsAtOnce = 1000;

} // namespace

/// The rows as they were when the list was opened, without those that have been removed since.
class ComboRows final : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    ComboPort* port = nullptr; ///< Null once the control has been destroyed.

    void readAgain()
    {
        beginResetModel();
        count_ = port ? port->combo().count() : 0;
        columns_.clear();
        endResetModel();
    }
    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : count_; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (!port || index.row() >= port->combo().count()) {
            return {};
        }
        const bool asText = role == Qt::DisplayRole || role == Qt::EditRole;
        if (!asText && role != kColumnsRole && role != Qt::AccessibleTextRole) {
            return {};
        }
        const QStringList columns = asText ? QStringList() : columnsOf(index.row());
        if (role == kColumnsRole) {
            return columns;
        }
        if (!columns.isEmpty()) {
            return columns.join(QStringLiteral(", "));
        }
        const QString text = toQt(port->combo().itemText(index.row()));
        // The list paints the display text, which may be shortened. The box gets the edit text of a chosen row, which
        // is whole.
        return role == Qt::DisplayRole ? boundedText(text) : text;
    }

private:
    QStringList columnsOf(int row) const
    {
        const auto known = columns_.constFind(row);
        if (known != columns_.cend()) {
            return *known;
        }
        QStringList columns;
        for (const std::string& text : port->combo().columns(row)) {
            columns << boundedText(toQt(text));
        }
        return *columns_.insert(row, columns);
    }

    int count_ = 0;
    mutable QHash<int, QStringList> columns_; ///< Of the rows that have been in view: the catalogue is asked once.
};

/// The list that drops down. Text that is typed while it is open goes into the line; Qt would search the list for it.
class DropDownList final : public QListView {
public:
    DropDownList(QWidget* parent, EntryLine& line) : QListView(parent), line_(line) {}

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (charactersOf(*event).empty()) {
            QListView::keyPressEvent(event);
        } else {
            line_.QLineEdit::event(event);
        }
    }

private:
    EntryLine& line_;
};

class ComboWidget final : public QComboBox {
public:
    ComboWidget(const ui::ControlDesign& design, QWidget* parent, ui::Platform& platform)
        : QComboBox(parent), line_(new EntryLine(design, this, platform)), rows_(new ComboRows(this)),
          list_(new DropDownList(this, *line_)), delegate_(new DropDownColumns(list_))
    {
        setEditable(true);
        setLineEdit(line_);
        setCompleter(nullptr);
        setInsertPolicy(NoInsert);
        // At Enter, and when the focus leaves, Qt would search the list for the text and choose what it finds.
        QObject::disconnect(line_, &QLineEdit::editingFinished, this, nullptr);
        setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
        setMinimumContentsLength(kLeastCharacters);
        list_->setUniformItemSizes(true);
        list_->setLayoutMode(QListView::Batched);
        list_->setBatchSize(kRowsAtOnce);
        list_->setTextElideMode(Qt::ElideRight);
        setModel(rows_);
        setView(list_);
        setItemDelegate(delegate_);
        // QComboBox would clear the text when the model is reset. The list has a connection of its own, which stays.
        QObject::disconnect(rows_, nullptr, this, nullptr);
        connect(this, &QComboBox::activated, this, [this](int row) { choose(row); });
    }

    EntryLine& line() { return *line_; }

    void showRemark(const QString& remark)
    {
        line_->setRemark(remark);
        announce(*this, remark);
    }

    void attach(ComboPort* port) { rows_->port = port; }

    void listChanged()
    {
        stale_ = true;
        if (list_->isVisible() && !reading_) {
            // The rows are read when the present event has ended, once for all rows that are added during it.
            reading_ = true;
            QMetaObject::invokeMethod(
                this, [this] { readWhileOpen(); }, Qt::QueuedConnection);
        }
    }

    void showPopup() override
    {
        readAgain();
        if (rows_->rowCount({}) == 0) {
            return;
        }
        fitWidth();
        QComboBox::showPopup();
        const int chosen = rows_->port ? rows_->port->combo().listIndex() : -1;
        list_->setCurrentIndex(rows_->index(chosen));
    }

    void hidePopup() override
    {
        // Qt writes the chosen row into the line before it reports the choice. That must not be reported as typing.
        line_->setQuiet(true);
        QComboBox::hidePopup();
        QMetaObject::invokeMethod(
            this, [this] { line_->setQuiet(false); }, Qt::QueuedConnection);
    }

protected:
    /// Arrows choose a row, and all other keys go to the line; Qt's own handling would search the list.
    void keyPressEvent(QKeyEvent* event) override
    {
        const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
        const bool arrow = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
        if ((event->key() == Qt::Key_F4 && modifiers == Qt::NoModifier) || (arrow && modifiers == Qt::AltModifier)) {
            showPopup();
        } else if (arrow && modifiers == Qt::NoModifier && rows_->port) {
            const ui::ComboBox& combo = rows_->port->combo();
            const std::int32_t row = combo.listIndex() + (event->key() == Qt::Key_Down ? 1 : -1);
            if (row >= 0 && row < combo.count()) {
                rows_->port->reportChoice(row);
            }
        } else {
            line_->QLineEdit::event(event);
        }
    }

    void paintEvent(QPaintEvent* event) override
    {
        QComboBox::paintEvent(event);
        paintEdge(*this);
    }

    /// The mouse wheel must not choose another row while the user scrolls the form.
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }

private:
    void choose(int row)
    {
        line_->setQuiet(false);
        if (rows_->port && row >= 0 && row < rows_->port->combo().count()) {
            rows_->port->reportChoice(row);
        }
    }

    void readAgain()
    {
        if (stale_) {
            stale_ = false;
            rows_->readAgain();
        }
    }

    void readWhileOpen()
    {
        reading_ = false;
        if (!list_->isVisible()) {
            return;
        }
        if (rows_->port && rows_->port->combo().count() == 0) {
            hidePopup();
        } else {
            showPopup(); // called again so that the list gets the height of the new rows
        }
    }

    /// Makes the list as wide as its first rows need, because a user most likely looks at those.
    void fitWidth()
    {
        const int measured = std::min(rows_->rowCount({}), kMeasuredRows);
        QStyleOptionViewItem option;
        option.initFrom(list_);
        int texts = 0;
        int widest = delegate_->measure(*rows_, std::min(measured, kMeasuredColumns), option);
        for (int row = 0; widest == 0 && row < measured; ++row) {
            texts = std::max(texts, list_->sizeHintForIndex(rows_->index(row)).width());
        }
        widest = std::max(widest, texts);
        widest += 2 * list_->frameWidth() + list_->verticalScrollBar()->sizeHint().width();
        list_->setMinimumWidth(std::min({widest, kWidestInBoxes * width(), screen()->availableSize().width()}));
    }

    EntryLine* line_;
    ComboRows* rows_;
    DropDownList* list_;
    DropDownColumns* delegate_;
    bool stale_ = true;
    bool reading_ = false;
};

bool isLookUpBox(const QComboBox& combo)
{
    return dynamic_cast<const ComboWidget*>(&combo) != nullptr;
}

QtComboBox::QtComboBox(const ui::ControlDesign& design, QWidget* parent, ui::Platform& platform)
    : QtComboBox(design, new ComboWidget(design, parent, platform))
{
}

QtComboBox::QtComboBox(const ui::ControlDesign& design, ComboWidget* widget)
    : QtEntry(design, widget, widget->line()), comboWidget_(*widget)
{
    comboWidget_.attach(this);
}

QtComboBox::~QtComboBox()
{
    if (widget()) {
        comboWidget_.attach(nullptr);
    }
}

void QtComboBox::doListChanged()
{
    if (widget()) {
        comboWidget_.listChanged();
    }
}

void QtComboBox::doShowRemark()
{
    if (widget()) {
        comboWidget_.showRemark(translated(remark()));
    }
}

} // namespace orvan::qt

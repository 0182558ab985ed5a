#include "apps/orvan-desk/undo/QuoteHistory.h"

#include "apps/orvan-desk/OutsideText.h"
#include "apps/orvan-desk/WatchedProducts.h"
#include "apps/orvan-desk/undo/ProductsJournal.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "orvan/ui/qt/Translation.h"

#include <QAction>
#include <QDateEdit>
#include <QLineEdit>

#include <algorithm>
#include <memory>
#include <utility>

namespace orvan::desk {

namespace {

using Kind = ListChange::Kind;

QString quoted(const ProductValues& fields)
{
    const std::string& text = !fields.name.empty() ? fields.name : fields.partNum;
    return u'\'' + shortened(QString::fromStdString(text)) + u'\'';
}

/// Where a product that stands at `position` stood before the change; 0 if the change has inserted it.
std::int32_t placeBefore(const ListChange& change, std::int32_t position)
{
    switch (change.kind) {
    case Kind::edit: return position;
    case Kind::insert: return position == change.position ? 0 : position - (position > change.position ? 1 : 0);
    case Kind::remove: return position + (position >= change.position ? 1 : 0);
    case Kind::move: break;
    }
    if (position == change.to) {
        return change.position;
    }
    const std::int32_t without = position - (position > change.to ? 1 : 0);
    return without + (without >= change.position ? 1 : 0);
}

/// Adds an edit to the step before that made or edited the same product. False if there is none.
bool mergeEdit(std::vector<ListChange>& changes, const ListChange& edit)
{
    std::int32_t position = edit.position;
    const auto found = std::find_if(changes.rbegin(), changes.rend(), [&position](const ListChange& change) {
        const bool same = change.position == position && (change.kind == Kind::edit || change.kind == Kind::insert);
        position = same ? position : placeBefore(change, position);
        return same;
    });
    if (found != changes.rend()) {
        found->after = edit.after;
    }
    return found != changes.rend();
}

/// The changes of an editor's session, with all edits of a product in one.
std::vector<ListChange> merged(const std::vector<ListChange>& changes)
{
    std::vector<ListChange> result;
    for (const ListChange& change : changes) {
        if (change.kind != Kind::edit || !mergeEdit(result, change)) {
            result.push_back(change);
        }
    }
    return result;
}

/// The list view makes products by duplicating and by pasting. A product that the list has twice was most likely
/// duplicated.
QString describeCopies(const ProductValues& first, int count)
{
    const std::vector<ProductValues> products = watchedValues();
    const bool pasted = std::count(products.begin(), products.end(), first) < 2;
    if (count == 1) {
        return (pasted ? QuoteHistory::tr("Paste %1") : QuoteHistory::tr("Duplicate %1")).arg(quoted(first));
    }
    return pasted ? QuoteHistory::tr("Paste %n Products", nullptr, count)
                  : QuoteHistory::tr("Duplicate %n Products", nullptr, count);
}

/// What a step did, for the menu: "Delete 'Desk lamp'".
QString describe(const std::vector<ListChange>& changes, bool inEditor)
{
    const ListChange& first = changes.front();
    const auto count = [&](Kind kind) {
        return static_cast<int>(std::count_if(changes.begin(), changes.end(),
                                              [kind](const ListChange& change) { return change.kind == kind; }));
    };
    if (const int inserted = count(Kind::insert); inserted > 0) {
        return inEditor ? QuoteHistory::tr("Add %1").arg(quoted(first.after)) : describeCopies(first.after, inserted);
    }
    if (const int removed = count(Kind::remove); removed > 0) {
        return removed == 1 ? QuoteHistory::tr("Delete %1").arg(quoted(first.before))
                            : QuoteHistory::tr("Delete %n Products", nullptr, removed);
    }
    if (first.kind == Kind::edit) {
        return QuoteHistory::tr("Edit %1").arg(quoted(first.after.name.empty() ? first.before : first.after));
    }
    return QuoteHistory::tr("Move Products");
}

} // namespace

class QuoteHistory::ListStep final : public QUndoCommand {
public:
    ListStep(QuoteHistory& history, std::vector<ListChange> changes, bool inEditor, int rowBefore, int rowAfter)
        : history_(history), changes_(std::move(changes)), rowBefore_(rowBefore), rowAfter_(rowAfter)
    {
        setText(describe(changes_, inEditor));
    }

    void undo() override
    {
        history_.perform([this] {
            std::for_each(changes_.rbegin(), changes_.rend(),
                          [](const ListChange& change) { applyToWatched(change, true); });
            show(rowBefore_);
        });
    }

    void redo() override
    {
        if (std::exchange(done_, false)) { // QUndoStack calls this when the step is pushed
            return;
        }
        history_.perform([this] {
            for (const ListChange& change : changes_) {
                applyToWatched(change, false);
            }
            show(rowAfter_);
        });
    }

private:
    void show(int row)
    {
        history_.products_.refresh();
        history_.products_.setCurrentProduct(row);
    }

    QuoteHistory& history_;
    std::vector<ListChange> changes_;
    int rowBefore_;
    int rowAfter_;
    bool done_ = true;
};

/// A field's change from one value to another.
template <class Value>
class QuoteHistory::FieldStep final : public QUndoCommand {
public:
    FieldStep(QuoteHistory& history, const QString& name, Value before, Value after,
              std::function<void(const Value&)> set)
        : QUndoCommand(name), history_(history), before_(std::move(before)), after_(std::move(after)),
          set_(std::move(set))
    {
    }

    void undo() override
    {
        history_.perform([this] { set_(before_); });
    }
    void redo() override
    {
        if (!std::exchange(done_, false)) {
            history_.perform([this] { set_(after_); });
        }
    }

private:
    QuoteHistory& history_;
    Value before_;
    Value after_;
    std::function<void(const Value&)> set_;
    bool done_ = true;
};

QuoteHistory::QuoteHistory(ProductViewWidget& products, QObject* parent) : QObject(parent), products_(products)
{
    connect(&products, &ProductViewWidget::editorOpened, this, [this] { editorOpen_ = true; });
    connect(&products, &ProductViewWidget::editorClosed, this, [this] {
        takeListChanges();
        editorOpen_ = false;
    });
    connect(&products, &ProductViewWidget::changed, this, [this] {
        if (!editorOpen_) {
            takeListChanges();
        }
    });
    connect(&products, &ProductViewWidget::currentProductChanged, this, [this](int row) { row_ = row; });
}

void QuoteHistory::takeListChanges()
{
    std::vector<ListChange> changes = takeWatchedChanges();
    const int row = products_.currentProduct();
    if (!changes.empty() && !editorOpen_) {
        stack_.push(new ListStep(*this, std::move(changes), false, row_, row));
    } else if (!changes.empty()) {
        for (ListChange& change : merged(changes)) {
            const int place = change.position;
            stack_.push(new ListStep(*this, {std::move(change)}, true, place, place));
        }
    }
    row_ = row;
}

void QuoteHistory::watch(QLineEdit& field, const QString& name)
{
    watchValue(field, name, &QLineEdit::text, &QLineEdit::setText);
}

void QuoteHistory::watch(QDateEdit& field, const QString& name)
{
    watchValue(field, name, &QDateEdit::date, &QDateEdit::setDate);
}

template <class Field, class Value, class Base, class Argument>
void QuoteHistory::watchValue(Field& field, const QString& name, Value (Base::*value)() const,
                              void (Base::*setValue)(Argument))
{
    const auto known = std::make_shared<Value>((field.*value)());
    const auto set = [&field, known, setValue](const Value& to) {
        (field.*setValue)(to);
        *known = to;
    };
    connect(&field, &Field::editingFinished, this, [this, &field, known, set, name, value] {
        if (const Value now = (field.*value)(); now != *known) {
            stack_.push(new FieldStep<Value>(*this, name, std::exchange(*known, now), now, set));
        }
    });
    forgetters_.emplace_back([&field, known, value] { *known = (field.*value)(); });
}

QList<QAction*> QuoteHistory::makeActions(QObject* parent)
{
    const auto make = [&](const QString& plain, const QString& named, const QKeySequence& key) {
        auto* const action = new QAction(plain, parent);
        action->setShortcut(key);
        action->setIconText(qt::withoutMnemonic(plain)); // the command without the step, for the list of keys
        action->setEnabled(false);
        // The step's name is put into a sentence, because each language has its own order of words.
        const auto name = [=](QString step) {
            action->setText(step.isEmpty() ? plain : named.arg(step.replace(u'&', QStringLiteral("&&"))));
        };
        return std::pair(action, name);
    };
    // While the list can only be read, its steps are kept, and these actions are disabled.
    const auto takesSteps = [this](QAction* action, void (QUndoStack::*take)(), bool (QUndoStack::*can)() const,
                                   void (QUndoStack::*canChanged)(bool)) {
        connect(action, &QAction::triggered, this, [this, take] {
            if (!products_.isReadOnly()) {
                (stack_.*take)();
            }
        });
        const auto enable = [this, action, can] { action->setEnabled((stack_.*can)() && !products_.isReadOnly()); };
        connect(&stack_, canChanged, action, enable);
        connect(&products_, &ProductViewWidget::readOnlyChanged, action, enable);
    };
    const auto [undo, nameUndo] = make(tr("&Undo"), tr("&Undo %1"), QKeySequence::Undo);
    takesSteps(undo, &QUndoStack::undo, &QUndoStack::canUndo, &QUndoStack::canUndoChanged);
    connect(&stack_, &QUndoStack::undoTextChanged, undo, nameUndo);
    const auto [redo, nameRedo] = make(tr("&Redo"), tr("&Redo %1"), QKeySequence(tr("Ctrl+Shift+Z")));
    takesSteps(redo, &QUndoStack::redo, &QUndoStack::canRedo, &QUndoStack::canRedoChanged);
    connect(&stack_, &QUndoStack::redoTextChanged, redo, nameRedo);
    return {undo, redo};
}

void QuoteHistory::restart()
{
    static_cast<void>(takeWatchedChanges());
    stack_.clear();
    for (const auto& forget : forgetters_) {
        forget();
    }
    row_ = products_.currentProduct();
}

void QuoteHistory::perform(const std::function<void()>& work)
{
    try {
        work();
        row_ = products_.currentProduct();
    } catch (const RuntimeError& error) {
        // Half a step is not a state to go on from. What is shown stays, and can be saved or closed without saving.
        QMetaObject::invokeMethod(
            this,
            [this, why = qt::translated(error)] {
                restart();
                Q_EMIT failed(why);
            },
            Qt::QueuedConnection);
    }
    Q_EMIT applied();
}

} // namespace orvan::desk

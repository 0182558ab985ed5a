// QuoteHistory: the changes of the open quote that can be undone and done again.
//
// Each command on the list is one step. A session of the editor gives one step for each product that it changed, when
// the editor closes; a session that the user took back gives none. A field beside the list gives a step when the user
// leaves it. A step holds only the values that it changed, so that a long list costs nothing.
//
// Ownership: the window; the list view and the fields outlive it. Thread: the user-interface thread.
#pragma once

#include <QList>
#include <QObject>
#include <QUndoStack>

#include <functional>
#include <vector>

class QAction;
class QDateEdit;
class QLineEdit;

namespace orvan {
class ProductViewWidget;
}

namespace orvan::desk {

class QuoteHistory : public QObject {
    Q_OBJECT

public:
    explicit QuoteHistory(ProductViewWidget& products, QObject* parent = nullptr);

    /// Notes the changes that a user makes in a field beside the list. `name` stands in the menu: "Undo Customer".
    void watch(QLineEdit& field, const QString& name);
    void watch(QDateEdit& field, const QString& name);

    /// Another quote is shown: nothing can be undone any more.
    void restart();
    QUndoStack& stack() { return stack_; }
    /// Actions for a menu that undo a step and do it again, and name the step. They are disabled while the list can
    /// only be read. `parent` owns them.
    [[nodiscard]] QList<QAction*> makeActions(QObject* parent);

Q_SIGNALS:
    /// A step was undone or done again.
    void applied();
    /// A step could not be undone; the history is empty now.
    void failed(const QString& why);

private:
    class ListStep;
    template <class Value>
    class FieldStep;

    template <class Field, class Value, class Base, class Argument>
    void watchValue(Field& field, const QString& name, Value (Base::*value)() const, void (Base::*setValue)(Argument));
    void takeListChanges();
    /// Runs what a step does. Steps that are pushed have been done already.
    void perform(const std::function<void()>& work);

    ProductViewWidget& products_;
    QUndoStack stack_;
    std::vector<std::function<void()>> forgetters_; ///< Each field takes its present value as the one to go back to.
    bool editorOpen_ = false;
    int row_ = 0; ///< The current row before the change that comes next.
};

} // namespace orvan::desk

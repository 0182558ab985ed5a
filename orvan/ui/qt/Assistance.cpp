#include "orvan/ui/qt/Assistance.h"

#include "orvan/ui/qt/GridAccessible.h"
#include "orvan/ui/qt/GridView.h"
#include "orvan/ui/qt/QtComboBox.h"

#include <QAccessibleWidget>
#include <QComboBox>
#include <QLineEdit>

namespace orvan::qt {

namespace {

/// A point of the window that nobody sees and that has a name: what was announced last.
class Announcer final : public QWidget {
public:
    explicit Announcer(QWidget* window) : QWidget(window)
    {
        setFocusPolicy(Qt::NoFocus);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setGeometry(0, 0, 1, 1);
        hide();
    }
};

class DialogAccessible final : public QAccessibleWidget {
public:
    explicit DialogAccessible(QWidget& window) : QAccessibleWidget(&window, QAccessible::Dialog) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = widget()->isModal();
        return state;
    }
};

/// Qt's own interface of a combo box has the text in the box as its name.
class ComboAccessible final : public QAccessibleWidget {
public:
    explicit ComboAccessible(QComboBox& combo) : QAccessibleWidget(&combo, QAccessible::ComboBox), combo_(combo) {}

    int childCount() const override { return 2; }
    QAccessibleInterface* child(int index) const override
    {
        return index == 0   ? QAccessible::queryAccessibleInterface(combo_.view())
               : index == 1 ? QAccessible::queryAccessibleInterface(combo_.lineEdit())
                            : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return child->object() == combo_.view() ? 0 : child->object() == combo_.lineEdit() ? 1 : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override
    {
        QLineEdit& line = *combo_.lineEdit();
        return line.rect().contains(line.mapFromGlobal(QPoint(x, y))) ? child(1) : nullptr;
    }
    QAccessibleInterface* focusChild() const override { return combo_.hasFocus() ? child(1) : nullptr; }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? combo_.currentText() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = combo_.view()->isVisible();
        state.editable = true;
        return state;
    }
    QStringList actionNames() const override { return {showMenuAction()}; }
    QString localizedActionDescription(const QString& name) const override
    {
        return name == showMenuAction() ? QComboBox::tr("Open the combo box selection popup") : QString();
    }
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }
    void doAction(const QString& name) override
    {
        if (name == showMenuAction()) {
            combo_.view()->isVisible() ? combo_.hidePopup() : combo_.showPopup();
        }
    }

private:
    QComboBox& combo_;
};

/// Qt calls this once for each class that the object has, with the class's name.
QAccessibleInterface* interfaceOf(const QString& /*className*/, QObject* object)
{
    auto* const widget = qobject_cast<QWidget*>(object);
    if (!widget) {
        return nullptr;
    }
    if (auto* const grid = dynamic_cast<GridView*>(widget)) {
        return new GridAccessible(*grid);
    }
    if (auto* const combo = qobject_cast<QComboBox*>(widget); combo && isLookUpBox(*combo)) {
        return new ComboAccessible(*combo);
    }
    if (dynamic_cast<DialogWindow*>(widget)) {
        return new DialogAccessible(*widget);
    }
    return dynamic_cast<Announcer*>(widget) ? new QAccessibleWidget(widget, QAccessible::Notification) : nullptr;
}

Announcer& announcerOf(QWidget& window)
{
    for (QObject* const child : window.children()) {
        if (auto* const announcer = dynamic_cast<Announcer*>(child)) {
            return *announcer;
        }
    }
    return *new Announcer(&window);
}

} // namespace

void installAssistance()
{
    QAccessible::installFactory(interfaceOf);
}

void announce(const QWidget& from, const QString& text)
{
    QWidget& window = *from.window();
    if (!QAccessible::isActive() || !window.isVisible() || text.isEmpty()) {
        return;
    }
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(&window, text);
    QAccessible::updateAccessibility(&event);
#else
    // Before 6.8 Qt had no announcements. Screen readers say the name of a notification that appears.
    Announcer& announcer = announcerOf(window);
    announcer.hide();
    announcer.setAccessibleName(text);
    announcer.show();
#endif
}

} // namespace orvan::qt

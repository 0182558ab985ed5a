// QtEntry: what a text box and the edit part of a combo box share: reports, selection, keys, limit.
//
// Three parts: the control (QtEntry), the widget it shows (EntryWidget, a base of the Qt widget), and
// the port that the widget reports through. The port goes with its control, so a widget outlives it
// unharmed. A handler may end the control; every report is therefore a caller's last use of the port.
// Thread: the user-interface thread.
#pragma once

#include "orvan/ui/FormDesign.h"
#include "orvan/ui/TextEntry.h"
#include "orvan/ui/qt/EntryText.h"
#include "orvan/ui/qt/QtWidgetHolder.h"

#include <QPointer>
#include <QString>

#include <utility>

class QInputMethodEvent;
class QKeyEvent;

namespace orvan::ui {
class Platform;
}

namespace orvan::qt {

/// From a widget to its control.
class EntryPort : public QObject {
public:
    virtual const ui::TextEntry& entry() const = 0;
    virtual void reportText(std::string text) = 0;
    virtual void reportSelection(std::int32_t start, std::int32_t length) = 0;
    virtual char32_t reportKey(char32_t character) = 0;
};

/// Positions are the widget's own, in UTF-16 units.
struct WidgetRange {
    qsizetype start = 0;
    qsizetype length = 0;
};

/// The base of each widget that is an entry. The widget calls the protected procedures from its event
/// handlers and signals.
class EntryWidget {
public:
    EntryWidget(const EntryWidget&) = delete;
    EntryWidget& operator=(const EntryWidget&) = delete;

    /// Once, before any text is shown.
    void attach(EntryPort* port) { port_ = port; }
    /// Show the entry's text, caret at its start; show its selection. Nothing is reported.
    void showText();
    void showSelection();
    /// While quiet, the widget's changes are none of the user's.
    void setQuiet(bool quiet) { quiet_ = quiet; }

protected:
    EntryWidget(const ui::ControlDesign& design, ui::Platform& platform, bool lines);
    ~EntryWidget() = default;

    virtual QString heldText() const = 0;
    virtual void holdText(const QString& text) = 0;
    virtual WidgetRange heldSelection() const = 0;
    virtual void holdSelection(WidgetRange range) = 0;
    /// Of a text that has just been held.
    virtual void holdCaretAtStart() { holdSelection({0, 0}); }
    /// What the key does by itself, whatever the filter.
    virtual void nativeKeyPress(QKeyEvent& key) = 0;
    virtual void nativeInput(QInputMethodEvent& input) = 0;

    /// The widget's text or selection may be another one.
    void reportChange();
    void reportSelection();

    void pressKey(QKeyEvent& key);
    /// Whether a key is the box's although a shortcut has it; the widget accepts the event then.
    bool claims(const QKeyEvent& key) const;
    /// What an input method writes goes through the filter as keys do; what it only proposes does not.
    void input(QInputMethodEvent& input);
    /// As much of a text as may come in place of `replaced`, its line ends made the widget's own.
    QString fit(const QString& piece, WidgetRange replaced) const;

private:
    bool hearsKeys() const { return port_ && port_->entry().onKeyPress; }
    /// Each character as the filter wants it typed. The port may be gone afterwards.
    std::u32string filtered(const std::u32string& characters);
    void type(const QString& text);

    QPointer<EntryPort> port_;
    EntryText text_;
    bool lines_;
    bool quiet_ = false;
    std::u32string keypadDecimal_; ///< Empty: the key types what its keyboard says.
};

/// The control: `Box` on a widget that `entry` is, or holds.
template <class Box, class Port = EntryPort>
class QtEntry : public Box, public QtWidgetHolder, protected Port {
protected:
    QtEntry(const ui::ControlDesign& design, QWidget* widget, EntryWidget& shown)
        : Box(design), QtWidgetHolder(widget, design), shown_(shown)
    {
        shown.attach(this);
    }

    /// Null once the widget has been destroyed.
    EntryWidget* shown() const { return this->widget() ? &shown_ : nullptr; }

private:
    void doMove() override { this->place(*this); }
    void doSetText() override
    {
        if (shown()) {
            shown()->showText();
        }
    }
    void doSetMaxLength() override {} // asked for at each change
    void doSelect() override
    {
        if (shown()) {
            shown()->showSelection();
        }
    }
    const ui::TextEntry& entry() const override { return *this; }
    void reportText(std::string text) override { this->userChangedText(std::move(text)); }
    void reportSelection(std::int32_t start, std::int32_t length) override { this->userSelected(start, length); }
    char32_t reportKey(char32_t character) override { return this->userPressedKey(character); }

    EntryWidget& shown_;
};

} // namespace orvan::qt

// QtEntry: what a text box and the edit part of a combo box share: reports, selection, keys, limit.
//
// Three parts: the control (QtEntry), the widget that shows it (EntryWidget, a base of the Qt widget), and the port
// that the widget reports through. A handler may destroy the control: the control then detaches its port, so that the
// widget may outlive it, and the widget looks again whether it has a port after each report. Ownership: see
// orvan/ui/qt/QtWidgetHolder.h. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/EntryPort.h"
#include "orvan/ui/qt/EntryText.h"
#include "orvan/ui/qt/QtWidgetHolder.h"

#include <QString>

class QInputMethodEvent;
class QKeyEvent;

namespace orvan::ui {
class Platform;
}

namespace orvan::qt {

/// A range of the widget's text, in UTF-16 units.
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

    /// Sets the port. To be called before any text is shown, and with null when the control is destroyed.
    void attach(ui::EntryPort* port) { port_ = port; }
    /// Show the entry's text with the caret at its start, and its selection. Neither is reported.
    void showText();
    void showSelection();
    /// While quiet, the widget reports no change, because the user did not make it.
    void setQuiet(bool quiet) { quiet_ = quiet; }

protected:
    EntryWidget(const ui::ControlDesign& design, ui::Platform& platform, bool lines);
    ~EntryWidget() = default;

    /// Read and write the text and the selection of the Qt widget.
    virtual QString heldText() const = 0;
    virtual void holdText(const QString& text) = 0;
    virtual WidgetRange heldSelection() const = 0;
    virtual void holdSelection(WidgetRange range) = 0;
    /// Puts the caret at the start of the text. Called just after holdText.
    virtual void holdCaretAtStart() { holdSelection({0, 0}); }
    /// Whether the widget's text is the one that was reported last.
    virtual bool heldIsReported() const { return heldText() == text_.shown(); }
    /// What has changed since then.
    virtual WidgetChange heldChange() const { return text_.changeTo(heldText()); }
    const EntryText& reported() const { return text_; }
    /// Pass an event to the Qt class's own handler.
    virtual void nativeKeyPress(QKeyEvent& key) = 0;
    virtual void nativeInput(QInputMethodEvent& input) = 0;

    /// The widget's text, or its selection, may have changed.
    void reportChange();
    void reportSelection();

    void pressKey(QKeyEvent& key);
    /// Whether the box takes a key that is also a shortcut of the window; the widget then accepts the event.
    bool claims(const QKeyEvent& key) const;
    /// Handles text from an input method. The final text goes through onKeyPress as typed keys do; text that the input
    /// method only proposes does not.
    void input(QInputMethodEvent& input);
    /// The part of a text that the box takes in place of `replaced`, with the box's line ends.
    QString fit(const QString& piece, WidgetRange replaced) const;

private:
    bool filtersKeys() const { return port_ && port_->entry().onKeyPress; }
    /// Passes each character to onKeyPress and returns those that are to be typed. The port may be null afterwards.
    std::u32string filtered(const std::u32string& characters);
    void type(const QString& text);

    ui::EntryPort* port_ = nullptr;
    EntryText text_;
    bool lines_;
    bool quiet_ = false;
    std::u32string keypadDecimal_; ///< Empty: the key types the character of the keyboard layout.
};

/// The control for a `Box`. `shown` is the control's widget or a child of it.
template <class Box>
class QtEntry : public ui::EntryWithPort<Box>, public QtWidgetHolder {
protected:
    QtEntry(const ui::ControlDesign& design, QWidget* widget, EntryWidget& shown)
        : ui::EntryWithPort<Box>(design), QtWidgetHolder(widget, design), shown_(shown)
    {
        shown.attach(this);
    }
    ~QtEntry() override
    {
        if (widget()) {
            shown_.attach(nullptr);
        }
    }

private:
    void doMove() override { place(*this); }
    void doSetText() override
    {
        if (widget()) {
            shown_.showText();
        }
    }
    void doSetMaxLength() override {} // the widget reads the limit at each change
    void doSelect() override
    {
        if (widget()) {
            shown_.showSelection();
        }
    }

    EntryWidget& shown_; ///< Has been destroyed if widget() is null.
};

} // namespace orvan::qt

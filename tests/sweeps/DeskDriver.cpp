// DeskDriver: a plug-in that plays the user of the real orvan-desk without a screen, for the sweeps over system calls
// and kills.
//
// Qt loads it if the environment variable QT_QPA_GENERIC_PLUGINS names "desk-driver". It does the steps that
// ORVAN_DESK_STEPS lists, separated by ";", one after the other, whenever no dialog is open:
//
//     type TEXT       types the text into the customer's field
//     trigger TEXT    chooses the menu command with this caption
//     await MS        waits for this many milliseconds
//     copied          waits until there is a recovery copy, or a status message since this step began
//                     (at most 20 seconds)
//     again N         goes back to the first step, N times in all
//     signal NUMBER   sends this signal to the process
//     end             ends the process without asking
//
// A dialog is closed as with Escape, or by the button whose caption is in ORVAN_DESK_ANSWER. The plug-in writes what a
// user would read to the standard output, a line each: "box: TEXT" and "status: TEXT". After a step that changes the
// window's mark for unsaved changes it writes "saved" or "unsaved".

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QGenericPlugin>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QStatusBar>
#include <QTimer>

#include <csignal>
#include <cstdio>

#include <unistd.h>

namespace {

constexpr int kPause = 2; // milliseconds between two looks at the window
constexpr int kMostPauses = 10'000;
constexpr int kPausesBetweenLooks = 50; // at the folder of copies: each look is a system call that may be made to fail

void print(const char* kind, const QString& text)
{
    std::printf("%s%s\n", kind, qPrintable(QString(text).replace(u'\n', u' ')));
    std::fflush(stdout);
}

class DeskDriver : public QObject {
public:
    DeskDriver()
    {
        timer_.setInterval(kPause);
        connect(&timer_, &QTimer::timeout, this, &DeskDriver::look);
        timer_.start();
    }

private:
    void look()
    {
        if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            answer(*dialog);
        } else if (!window_) {
            findWindow();
        } else if (awaitingCopy_ > 0) {
            --awaitingCopy_;
            if (statusShown_ || (awaitingCopy_ % kPausesBetweenLooks == 0 && isCopied())) {
                awaitingCopy_ = 0;
            }
        } else if (!inStep_ && --pauses_ < 0) {
            inStep_ = true;
            // The step may open a dialog and return only when the dialog closes. It must not run in the timer's slot:
            // Qt does not call a timer's slot again before the slot has returned, and nobody would answer the dialog.
            QMetaObject::invokeMethod(
                this,
                [this] {
                    step();
                    inStep_ = false;
                },
                Qt::QueuedConnection);
        }
    }

    static bool isCopied()
    {
        const QDir copies(qEnvironmentVariable("XDG_STATE_HOME") + QStringLiteral("/orvan/recovery"));
        return !copies.entryList({QStringLiteral("*.recovery.json")}).isEmpty();
    }

    void findWindow()
    {
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            auto* const window = qobject_cast<QMainWindow*>(widget);
            if (window && window->isVisible()) {
                window_ = window;
                connect(window->statusBar(), &QStatusBar::messageChanged, this, [this](const QString& text) {
                    if (!text.isEmpty()) {
                        print("status: ", text);
                        statusShown_ = true;
                    }
                });
            }
        }
    }

    void answer(QDialog& dialog)
    {
        const auto* const box = qobject_cast<QMessageBox*>(&dialog);
        print("box: ", box ? box->text() : dialog.windowTitle());
        if (box) {
            for (QAbstractButton* const button : box->buttons()) {
                if (button->text().remove(u'&') == qEnvironmentVariable("ORVAN_DESK_ANSWER")) {
                    button->click();
                    return;
                }
            }
        }
        dialog.reject();
    }

    void step()
    {
        const QString step = steps_.value(at_++, QStringLiteral("end"));
        const QString word = step.section(u' ', 0, 0);
        const QString text = step.section(u' ', 1);
        if (word == u"type") {
            auto* const customer = window_->findChild<QLineEdit*>();
            customer->setFocus();
            customer->insert(text);
            // The desk looks for changes at each key press, and insert() presses none. Shift alone changes nothing.
            QKeyEvent key(QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier);
            QCoreApplication::sendEvent(customer, &key);
        } else if (word == u"trigger") {
            trigger(text);
        } else if (word == u"await") {
            pauses_ = text.toInt() / kPause;
        } else if (word == u"copied") {
            awaitingCopy_ = kMostPauses;
            statusShown_ = false;
        } else if (word == u"again") {
            if (rounds_++ < text.toInt()) {
                at_ = 0;
            }
        } else if (word == u"signal") {
            ::kill(::getpid(), text.toInt());
        } else {
            ::_exit(word == u"end" ? 0 : 3);
        }
        if (window_->isWindowModified() != modified_) {
            modified_ = !modified_;
            print(modified_ ? "unsaved" : "saved", {});
        }
    }

    void trigger(const QString& caption)
    {
        for (QAction* const action : window_->findChildren<QAction*>()) {
            if (action->text().remove(u'&') == caption) {
                action->trigger();
                return;
            }
        }
        print("no command ", caption);
        ::_exit(3);
    }

    const QStringList steps_ = qEnvironmentVariable("ORVAN_DESK_STEPS").split(u';');
    QTimer timer_;
    QMainWindow* window_ = nullptr;
    qsizetype at_ = 0;
    int pauses_ = 0;
    int awaitingCopy_ = 0;
    bool statusShown_ = false;
    int rounds_ = 0;
    bool inStep_ = false;
    bool modified_ = false;
};

class DeskDriverPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "DeskDriver.json")

public:
    QObject* create(const QString& name, const QString& /*arguments*/) override
    {
        return name == u"desk-driver" ? new DeskDriver : nullptr;
    }
};

} // namespace

#include "DeskDriver.moc"

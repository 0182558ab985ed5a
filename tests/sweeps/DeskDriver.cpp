#include "DeskDriver.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
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

} // namespace

QObject* DeskDriverPlugin::create(const QString& name, const QString& /*arguments*/)
{
    return name == u"desk-driver" ? new DeskDriver : nullptr;
}

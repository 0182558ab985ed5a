#include "orvan/ui/qt/QtMessageBox.h"

#include "orvan/ui/qt/MessageKeys.h"
#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/Translation.h"
#include "orvan/ui/qt/WindowHandles.h"

#include <QMessageBox>
#include <QPointer>

namespace orvan::qt {

namespace {

struct Buttons {
    QMessageBox::StandardButtons shown;
    QMessageBox::StandardButton preset;  ///< The button that Enter presses.
    QMessageBox::StandardButton closing; ///< The button that Escape and closing the box stand for.
};

Buttons buttonsOf(ui::MessageButtons buttons)
{
    switch (buttons) {
    case ui::MessageButtons::ok: break;
    case ui::MessageButtons::yesNo: return {QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, QMessageBox::No};
    case ui::MessageButtons::yesNoCancel:
        return {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes, QMessageBox::Cancel};
    }
    return {QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok};
}

QMessageBox::Icon iconOf(ui::MessageIcon icon)
{
    switch (icon) {
    case ui::MessageIcon::critical: return QMessageBox::Critical;
    case ui::MessageIcon::question: return QMessageBox::Question;
    case ui::MessageIcon::exclamation: return QMessageBox::Warning;
    case ui::MessageIcon::information: return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

ui::MessageResult resultOf(QMessageBox::StandardButton button)
{
    switch (button) {
    case QMessageBox::Yes: return ui::MessageResult::yes;
    case QMessageBox::No: return ui::MessageResult::no;
    case QMessageBox::Cancel: return ui::MessageResult::cancel;
    default: return ui::MessageResult::ok;
    }
}

} // namespace

ui::MessageResult QtMessageBox::show(const ui::Message& message)
{
    const Buttons buttons = buttonsOf(message.buttons);
    QWidget* owner = windowOf(message.ownerWindow);
    // The box is not on the stack, because its owner may be destroyed while it is open and then destroys it.
    QPointer<QMessageBox> box = new QMessageBox(owner ? owner->window() : nullptr);
    box->setTextFormat(Qt::PlainText);
    box->setText(boundedText(translated(message.text)));
    box->setWindowTitle(titleText(translatedSentence(message.title)));
    box->setIcon(iconOf(message.icon));
    box->setStandardButtons(buttons.shown);
    box->setDefaultButton(buttons.preset);
    box->setEscapeButton(buttons.closing);
    giveMnemonics(*box);
    if (message.ignoresTypeAhead) {
        new TypeAheadGuard(*box);
    }
    box->exec();
    if (!box) {
        return resultOf(buttons.closing);
    }
    QAbstractButton* clicked = box->clickedButton();
    const auto answer = clicked ? box->standardButton(clicked) : buttons.closing;
    box->deleteLater();
    return resultOf(answer);
}

} // namespace orvan::qt

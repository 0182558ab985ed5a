#include "orvan/ui/qt/MessageKeys.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QKeySequence>
#include <QMessageBox>
#include <QSet>
#include <QTimerEvent>
#include <QWindow>

namespace orvan::qt {

namespace {

/// Milliseconds. Nobody reads a question and answers it in less; somebody who types pauses for less.
constexpr int kSeenAfter = 300;

/// Whether a keyboard has a key for the letter. Chinese, Japanese and Korean are written through an input method, which
/// Alt does not reach.
bool hasKey(QChar letter)
{
    switch (letter.script()) {
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Hangul:
    case QChar::Script_Bopomofo: return false;
    default: return letter.isLetter();
    }
}

/// The letter that a button without any of its own gets: that of its English name.
QChar englishLetter(QMessageBox::StandardButton button)
{
    switch (button) {
    case QMessageBox::Yes: return u'Y';
    case QMessageBox::No: return u'N';
    case QMessageBox::Cancel: return u'C';
    default: return u'O';
    }
}

/// The button's text with a mnemonic that is not in `taken`.
QString marked(const QString& text, QChar english, const QSet<QChar>& taken)
{
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (hasKey(text[at]) && !taken.contains(text[at].toUpper())) {
            return QString(text).insert(at, u'&');
        }
    }
    return taken.contains(english) ? text : QStringLiteral("%1 (&%2)").arg(text, english);
}

/// The letter after the text's '&'; null if it has none.
QChar mnemonicOf(const QString& text)
{
    for (qsizetype at = text.indexOf(u'&'); at >= 0 && at + 1 < text.size(); at = text.indexOf(u'&', at + 2)) {
        if (text[at + 1] != u'&') {
            return text[at + 1].toUpper();
        }
    }
    return {};
}

} // namespace

void giveMnemonics(QMessageBox& box)
{
    QSet<QChar> taken;
    QList<QAbstractButton*> without;
    for (QAbstractButton* const button : box.buttons()) {
        const QChar mnemonic = mnemonicOf(button->text());
        if (mnemonic.isNull() || taken.contains(mnemonic)) {
            without.append(button);
        } else {
            taken.insert(mnemonic);
        }
    }
    for (QAbstractButton* const button : without) {
        QString plain = button->text();
        const QString text = marked(plain.remove(u'&'), englishLetter(box.standardButton(button)), taken);
        button->setText(text);
        taken.insert(mnemonicOf(text));
    }
}

TypeAheadGuard::TypeAheadGuard(QMessageBox& box) : QObject(&box), box_(box)
{
    qApp->installEventFilter(this);
}

bool TypeAheadGuard::isBoxOrInside(const QObject* object) const
{
    for (; object; object = object->parent()) {
        if (object == &box_ || object == box_.windowHandle()) {
            return true;
        }
    }
    return false;
}

bool TypeAheadGuard::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Paint:
        if (watched == &box_ && !pause_.isActive()) {
            pause_.start(kSeenAfter, this);
        }
        return false;
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (!isBoxOrInside(watched)) {
            return false;
        }
        if (pause_.isActive()) {
            pause_.start(kSeenAfter, this); // from the beginning
        }
        event->accept();
        return true;
    default: return false;
    }
}

void TypeAheadGuard::timerEvent(QTimerEvent* /*event*/)
{
    pause_.stop();
    qApp->removeEventFilter(this);
    deleteLater();
}

} // namespace orvan::qt

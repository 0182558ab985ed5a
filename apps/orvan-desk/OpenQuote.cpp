#include "OpenQuote.h"

#include "OutsideText.h"
#include "PlainBox.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/ui/qt/Translation.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QPushButton>

#include <utility>

namespace orvan::desk {

namespace {

/// A question with two ways to go on; Cancel is the default, so that Enter loses nothing.
int ask(QWidget* window, const QString& text, const QString& first, const QString& second)
{
    PlainBox box(QMessageBox::Warning, text, QMessageBox::Cancel, window);
    const QPushButton* const one = box.addButton(first, QMessageBox::AcceptRole);
    const QPushButton* const two = box.addButton(second, QMessageBox::AcceptRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == one ? 1 : box.clickedButton() == two ? 2 : 0;
}

} // namespace

QString timeText(const QDateTime& time)
{
    const bool today = time.date() == QDate::currentDate();
    return today ? QLocale().toString(time.time(), QLocale::ShortFormat)
                 : QLocale().toString(time, QLocale::ShortFormat);
}

QString describe(const files::LockHolder& holder)
{
    return OpenQuote::tr("%1 on %2 since %3")
        .arg(shortened(QString::fromStdString(holder.user)), shortened(QString::fromStdString(holder.host)),
             timeText(QDateTime::fromSecsSinceEpoch(holder.since)));
}

OpeningChoice askAboutHolder(const QString& path, const files::LockHolder& holder, QWidget* window)
{
    const int answer =
        ask(window,
            OpenQuote::tr("“%1” is open elsewhere: %2.\n\nWho saves last would overwrite the other's work.")
                .arg(shortFileName(path), describe(holder)),
            OpenQuote::tr("Open to &Read"), OpenQuote::tr("Open &Anyway"));
    return answer == 1 ? OpeningChoice::openToRead : answer == 2 ? OpeningChoice::openAnyway : OpeningChoice::cancel;
}

void OpenQuote::setNew(const Quote& quote)
{
    path_.clear();
    saved_ = quote;
    lock_ = {};
}

void OpenQuote::setRead(const QString& path, const QuoteOnDisk& onDisk, files::EditLock lock)
{
    if (path != path_ || lock.held()) { // who opens the same quote again has its lock already
        lock_ = std::move(lock);
    }
    path_ = path;
    saved_ = onDisk.quote;
    stamp_ = onDisk.stamp;
}

OpenQuote::Saving OpenQuote::save(const QString& path, const Quote& quote, QWidget* window, QString& warning)
{
    if (const Saving answer = askAboutTheDisk(path, window); answer != Saving::saved) {
        return answer;
    }
    const files::ReplacedFile replaced = writeQuote(path, quote);
    if (path != path_) {
        lock_ = files::EditLock(pathOf(path), true);
    }
    path_ = path;
    saved_ = quote;
    stamp_ = replaced.stamp;
    warning = qt::translated(replaced.warning);
    return Saving::saved;
}

/// `saved` where nothing stands against it.
OpenQuote::Saving OpenQuote::askAboutTheDisk(const QString& path, QWidget* window) const
{
    QString problem;
    QString overwrite = OpenQuote::tr("&Overwrite");
    if (path != path_) {
        const files::EditLock lock(pathOf(path)); // given back at once: nothing has been decided yet
        if (!lock.holder()) {
            return Saving::saved; // whether a file of that name may be replaced has been asked by the file dialog
        }
        problem = OpenQuote::tr("“%1” is open elsewhere: %2.").arg(shortFileName(path), describe(*lock.holder()));
    } else {
        std::optional<files::FileStamp> now;
        try {
            now = files::currentStamp(pathOf(path), kMostQuoteBytes);
        } catch (const RuntimeError&) {
            now = files::FileStamp(); // something else has this name now; writing will say what
        }
        if (now && now->sameContent(stamp_)) {
            return Saving::saved;
        }
        if (now) {
            problem = OpenQuote::tr(
                          "Another program has changed “%1” since it was opened here, at %2.\n\nSaving would overwrite "
                          "these changes.")
                          .arg(shortFileName(path), timeText(QFileInfo(path).lastModified()));
        } else {
            problem =
                OpenQuote::tr("“%1” has been deleted or moved since it was opened here.").arg(shortFileName(path));
            overwrite = OpenQuote::tr("&Save There Again");
        }
    }
    const int answer = ask(window, problem, overwrite, OpenQuote::tr("Save &Elsewhere…"));
    return answer == 1 ? Saving::saved : answer == 2 ? Saving::saveElsewhere : Saving::cancelled;
}

} // namespace orvan::desk

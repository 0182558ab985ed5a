// The window's quotes in files: opened, saved, asked about, and kept for the case that the desk ends.

#include "MainWindow.h"
#include "OutsideText.h"
#include "PlainBox.h"
#include "QuoteLocale.h"
#include "RecentFiles.h"
#include "StatusLine.h"
#include "WatchedProducts.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "orvan/ui/qt/Translation.h"

#include <QDateEdit>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QStatusBar>

#include <filesystem>
#include <optional>
#include <utility>

namespace orvan::desk {

namespace {

Quote emptyQuote()
{
    return {.customer = {}, .number = {}, .date = QDate::currentDate(), .products = {}};
}

/// What a recovered quote has that its file, or an empty quote, has not.
QString differences(const Quote& recovered, const Quote& onDisk)
{
    QStringList parts;
    const std::pair<bool, QString> fields[] = {
        {recovered.customer != onDisk.customer, MainWindow::tr("the customer")},
        {recovered.number != onDisk.number, MainWindow::tr("the quote number")},
        {recovered.date != onDisk.date, MainWindow::tr("the date")},
        {!onDisk.currency.isEmpty() && recovered.currency != onDisk.currency, MainWindow::tr("the currency")},
    };
    for (const auto& [differ, name] : fields) {
        if (differ) {
            parts << name;
        }
    }
    if (const std::size_t count = differingProducts(recovered.products, onDisk.products); count > 0) {
        parts << (count == 1 ? MainWindow::tr("1 product")
                             : MainWindow::tr("%n products", nullptr, static_cast<int>(count)));
    }
    return parts.isEmpty() ? MainWindow::tr("nothing") : parts.join(QStringLiteral(", "));
}

/// The quote in the file now; an empty one where there is none that can be read.
QuoteOnDisk onDiskNow(const QString& path)
{
    try {
        return path.isEmpty() ? QuoteOnDisk{.quote = emptyQuote(), .stamp = {}} : readQuote(path, checkProducts);
    } catch (const std::exception&) {
        return {.quote = emptyQuote(), .stamp = {}};
    }
}

} // namespace

void MainWindow::showNew()
{
    Quote quote = emptyQuote();
    quote.currency = showCurrency({});
    file_.setNew(quote);
    showQuote(quote);
}

bool MainWindow::open(const QString& chosen)
{
    // The open quote's own lock would stand in the way where another path leads to the same file.
    const QString path = isSameFile(chosen, file_.path()) ? file_.path() : chosen;
    if (!mayDiscard()) {
        return false;
    }
    const std::filesystem::path file = pathOf(path);
    files::EditLock lock(file);
    if (lock.holder() && path != file_.path() && !onProblem) {
        switch (askAboutHolder(path, *lock.holder(), this)) {
        case OpeningChoice::cancel: return false;
        case OpeningChoice::openAnyway: lock = files::EditLock(file, true); break;
        case OpeningChoice::openToRead: {
            const bool opened = openLocked(path, std::nullopt);
            setReadOnly(opened || products_->isReadOnly()); // where it could not be opened, the former quote stays
            updateTitle();
            return opened;
        }
        case OpeningChoice::open: break;
        }
    }
    const std::optional<files::LockHolder> dead = lock.deadHolder();
    const bool opened = openLocked(path, std::move(lock));
    if (opened && dead) {
        const QString other = tr("Another desk ended without closing this quote: %1.").arg(describe(*dead));
        statusBar()->showMessage((other + u' ' + statusBar()->currentMessage()).trimmed());
    }
    return opened;
}

bool MainWindow::openLocked(const QString& path, std::optional<files::EditLock> lock)
{
    try {
        const QuoteOnDisk onDisk = readQuote(path, checkProducts);
        if (lock) {
            file_.setRead(path, onDisk, std::move(*lock));
        } else {
            file_.setNew(onDisk.quote);
        }
        showQuote(onDisk.quote);
        file_.setShown(currentQuote());
        recovery_.discard();
        updateTitle();
        if (!path.startsWith(u':')) { // no sample
            noteRecent(path);
            if (onDisk.quote.currency.isEmpty()) {
                statusBar()->showMessage(noCurrencyNotice(currency_));
            }
        }
        return true;
    } catch (const std::exception& error) {
        tell(tr("“%1” could not be opened.").arg(shortened(QDir::toNativeSeparators(path))), qt::translated(error));
        return false;
    }
}

/// Not where nobody is at the desk: a picture that a script has made is not what the user worked on.
void MainWindow::noteRecent(const QString& path)
{
    if (!onProblem) {
        recent_->note(path);
    }
}

bool MainWindow::openSample(const QString& name)
{
    return mayDiscard() && openLocked(QStringLiteral(":/samples/%1.quote.json").arg(name), std::nullopt);
}

void MainWindow::newQuote()
{
    if (!mayDiscard()) {
        return;
    }
    try {
        showNew();
        recovery_.discard();
        customer_->setFocus();
    } catch (const RuntimeError& error) {
        tell(tr("A new quote could not be made."), qt::translated(error));
    }
}

void MainWindow::chooseAndOpen()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Open Quote"),
                                                      file_.path().isEmpty() ? lastFolder(kQuoteFolder) : file_.path(),
                                                      tr("Quotes (*.quote.json);;All files (*)"));
    if (!path.isEmpty()) {
        open(path);
    }
}

void MainWindow::saveFile()
{
    save();
}

void MainWindow::saveAsFile()
{
    saveAs();
}

bool MainWindow::save()
{
    return file_.path().isEmpty() ? saveAs() : saveTo(file_.path());
}

bool MainWindow::saveAs()
{
    QString name = number_->text().isEmpty() ? tr("Quote") : shortened(number_->text());
    name.replace(u'/', u'-'); // a quote's number may contain a slash, but a file name may not
    QFileDialog dialog(this, tr("Save Quote"), lastFolder(kQuoteFolder), tr("Quotes (*.quote.json);;All files (*)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("quote.json"));
    dialog.selectFile(file_.path().isEmpty() ? name + QStringLiteral(".quote.json") : file_.path());
    return dialog.exec() == QDialog::Accepted && saveTo(dialog.selectedFiles().constFirst());
}

bool MainWindow::saveTo(const QString& path)
{
    try {
        QString warning;
        switch (file_.save(path, currentQuote(), this, warning)) {
        case OpenQuote::Saving::cancelled: return false;
        case OpenQuote::Saving::saveElsewhere: return saveAs();
        case OpenQuote::Saving::saved: break;
        }
        recovery_.discard();
        setReadOnly(false); // the file is this desk's own now
        updateTitle();
        noteRecent(path);
        status_->tellSaved();
        if (!warning.isEmpty()) {
            tell(tr("“%1” has been saved.").arg(shortened(QDir::toNativeSeparators(path))), warning);
        }
        return true;
    } catch (const std::exception& error) {
        tell(tr("“%1” could not be saved.").arg(shortened(QDir::toNativeSeparators(path))), qt::translated(error));
        return false;
    }
}

bool MainWindow::mayDiscard()
{
    if (!isUnsaved()) {
        return true;
    }
    PlainBox box(QMessageBox::Question, tr("Save the changes to this quote?"),
                 QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box.setInformativeText(tr("Changes that are not saved will be lost."));
    box.setDefaultButton(QMessageBox::Save);
    const int answer = box.exec();
    if (answer == QMessageBox::Discard) {
        recovery_.discard();
    }
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && save());
}

void MainWindow::updateRecoveryCopy()
{
    Quote quote{.customer = customer_->text(),
                .number = number_->text(),
                .date = date_->date(),
                .products = {},
                .currency = currency_,
                .unknown = file_.saved().unknown};
    try {
        quote.products = watchedProducts(); // also while the editor is open: what has reached the list
    } catch (const RuntimeError&) {
        return; // a list past the manager's limit; the copy before it stays
    }
    if (quote == file_.saved()) {
        recovery_.discard();
    } else {
        recovery_.keep({.quote = quote,
                        .path = file_.path(),
                        .unsavedSince = status_->unsavedSince().value_or(QDateTime::currentDateTime())});
    }
}

bool MainWindow::keepUnsavedWork()
{
    updateRecoveryCopy();
    return recovery_.finish();
}

void MainWindow::offerAbandonedWork()
{
    std::vector<QString> unreadable;
    for (const AbandonedWork& abandoned : claimAbandonedWork(defaultRecoveryFolder(), unreadable)) {
        const UnsavedWork& work = abandoned.work;
        const QString name =
            work.path.isEmpty() ? tr("a quote without a file") : tr("“%1”").arg(shortFileName(work.path));
        PlainBox box(QMessageBox::Question,
                     tr("The desk ended at %1 with unsaved changes to %2.\n\nChanged: %3.")
                         .arg(QLocale().toString(abandoned.time, QLocale::ShortFormat), name,
                              differences(work.quote, onDiskNow(work.path).quote)),
                     QMessageBox::NoButton, this);
        const QPushButton* const take = box.addButton(tr("&Recover"), QMessageBox::AcceptRole);
        const QPushButton* const drop = box.addButton(tr("&Discard"), QMessageBox::DestructiveRole);
        box.addButton(tr("&Later"), QMessageBox::RejectRole);
        box.exec();
        if (box.clickedButton() == take && mayDiscard()) {
            recover(abandoned);
        } else if (box.clickedButton() == drop) {
            QFile::remove(abandoned.file);
        }
    }
    for (const QString& file : unreadable) {
        statusBar()->showMessage(
            tr("The recovery copy “%1” cannot be read.").arg(shortened(QDir::toNativeSeparators(file))));
    }
}

void MainWindow::recover(const AbandonedWork& abandoned)
{
    const UnsavedWork& work = abandoned.work;
    try {
        checkProducts(work.quote.products);
        const QuoteOnDisk onDisk = onDiskNow(work.path);
        if (work.path.isEmpty()) {
            file_.setNew(onDisk.quote);
        } else {
            file_.setRead(work.path, onDisk, files::EditLock(pathOf(work.path)));
        }
        showQuote(work.quote);
        status_->setUnsavedSince(work.unsavedSince.isValid() ? work.unsavedSince.toLocalTime() : abandoned.time);
        listChanged_ = true;     // what is shown is not what the file has
        if (keepUnsavedWork()) { // the copy is this desk's own now; only then may the other one go
            QFile::remove(abandoned.file);
        }
        updateTitle();
    } catch (const std::exception& error) {
        tell(tr("The unsaved changes could not be recovered."), qt::translated(error));
    }
}

} // namespace orvan::desk

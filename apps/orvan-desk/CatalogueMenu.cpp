#include "CatalogueMenu.h"

#include "OutsideText.h"
#include "PlainBox.h"
#include "RecentFiles.h"
#include "pricelists/PriceListDialog.h"
#include "servers/ServerCatalogue.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/files/FormerFile.h"
#include "orvan/ui/qt/Translation.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <exception>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

namespace orvan::desk {

namespace {

using Outcome = CatalogueImportResult::Outcome;

const QString kSample = QStringLiteral(":/catalogue/products.csv");
constexpr const char* kSampleName = "sample products"; // as catalogues keep it, in every language

/// Milliseconds. An import that ends within this time shows no progress window, which would only flicker.
constexpr unsigned kUnnoticed = 200;
constexpr int kBetweenLooks = 40;
constexpr int kSteps = 1000;
/// How many refused rows the message itself shows; its details show all that are described.
constexpr qsizetype kRowsInMessage = 5;

/// A count in the form that Qt's plurals take.
int clamped(quint64 count)
{
    return static_cast<int>(std::min<quint64>(count, std::numeric_limits<int>::max()));
}

QString productCount(qint64 count)
{
    return count == 1 ? CatalogueMenu::tr("1 product")
                      : CatalogueMenu::tr("%Ln products", nullptr, clamped(static_cast<quint64>(count)));
}

/// What a catalogue contains, as a text for the user: "1,234 products from “prices.csv”"
QString contentOf(const std::filesystem::path& catalogue)
{
    SqliteFile file = openCatalogue(catalogue);
    const CatalogueOrigin origin = catalogueOrigin(file);
    const QString products = productCount(origin.entries);
    return origin.source.empty() ? products
                                 : CatalogueMenu::tr("%1 from “%2”").arg(products, sourceName(origin.source));
}

/// The same for a question, which must be possible about a damaged catalogue, too.
QString contentOrDamage(const std::filesystem::path& catalogue)
{
    try {
        return contentOf(catalogue);
    } catch (const RuntimeError&) {
        return CatalogueMenu::tr("products that cannot be read");
    }
}

std::optional<std::filesystem::path> formerOf(const std::filesystem::path& catalogue)
{
    try {
        return files::formerFileOf(catalogue);
    } catch (const std::exception&) {
        return std::nullopt; // the catalogue is a link that leads nowhere
    }
}

/// The refused rows, each with its line and the reason.
QStringList linesOf(const CatalogueImportResult& result)
{
    QStringList rows;
    for (const RefusedRow& row : result.refused) {
        rows << CatalogueMenu::tr("Line %1: %2").arg(row.line).arg(qt::translated(row.reason));
    }
    if (result.refusedCount > result.refused.size()) {
        rows << CatalogueMenu::tr("… and %n more", nullptr, clamped(result.refusedCount - result.refused.size()));
    }
    return rows;
}

/// A label for a text with names from outside, which must not be taken for markup.
QLabel* plainLabel()
{
    auto* const label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

/// An import's progress, written by the import's thread and read by the user-interface thread.
struct Progress {
    std::atomic<int> step = 0;
    std::atomic<std::uint64_t> rows = 0;
    std::atomic<bool> indexing = false;
    std::atomic<bool> cancelled = false;

    bool take(const CatalogueImportProgress& progress)
    {
        const bool builds = progress.indexesTotal > 0; // building takes about as long as reading, so each is one half
        const double read = progress.bytesTotal > 0 ? double(progress.bytesRead) / double(progress.bytesTotal) : 0;
        const double half = builds ? double(progress.indexesBuilt) / progress.indexesTotal : read;
        step = static_cast<int>((half + (builds ? 1 : 0)) / 2 * kSteps);
        rows = progress.rows;
        indexing = builds;
        return !cancelled;
    }
};

} // namespace

QString defaultCatalogueFile()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))
        .filePath(QStringLiteral("products.catalogue"));
}

QString sourceName(const std::string& source)
{
    return source == kSampleName ? CatalogueMenu::tr("sample products") : shortened(QString::fromStdString(source));
}

CatalogueOptions catalogueOptionsFor(const QString& catalogue)
{
    CatalogueOptions options;
    options.file = pathOf(catalogue);
    options.copies = pathOf(copiesFolder());
    options.report = [](const UserText& problem) {
        PlainBox(QMessageBox::Warning, qt::translated(problem), QMessageBox::Ok, QApplication::activeWindow()).exec();
    };
    return options;
}

HostOptions lookUpProductsIn(const QString& catalogue)
{
    HostOptions options;
    options.components.catalogue = catalogueOptionsFor(catalogue);
    return options;
}

CatalogueMenu::CatalogueMenu(const QString& catalogue, QWidget* window, Tell tell)
    : QMenu(tr("Ca&talogue"), window), catalogue_(catalogue), window_(window), tell_(std::move(tell))
{
    addAction(tr("&Import Price List…"), this, &CatalogueMenu::chooseAndImport);
    addAction(tr("Use the &Sample Products"), this, &CatalogueMenu::useSample);
    addSeparator();
    bringBack_ = addAction(tr("&Bring Back the Former Catalogue"), this, &CatalogueMenu::bringBackFormer);
    for (QAction* const action : actions()) {
        action->setEnabled(!catalogue_.isEmpty());
    }
    connect(this, &QMenu::aboutToShow, this, [this] {
        bringBack_->setEnabled(!locked_ && !catalogue_.isEmpty() && formerOf(pathOf(catalogue_)).has_value());
    });
}

void CatalogueMenu::lock()
{
    locked_ = true;
    setToolTipsVisible(true); // which menus do not show otherwise
    for (QAction* const action : actions()) {
        if (!action->isSeparator()) {
            action->setEnabled(false);
            action->setToolTip(tr("The administrator has set the catalogue for all users of this computer."));
        }
    }
}

/// Asks only if there is a catalogue. If something else has its name, the import itself refuses to replace it.
bool CatalogueMenu::mayReplace(const QString& question)
{
    const std::filesystem::path catalogue = pathOf(catalogue_);
    if (!isCatalogue(catalogue)) {
        return true;
    }
    QString text = tr("The catalogue contains %1.\n\n%2\n\nThe present catalogue is kept: “Bring Back the Former "
                      "Catalogue” in the same menu brings it back.")
                       .arg(contentOrDamage(catalogue), question);
    if (const auto former = formerOf(catalogue)) {
        text += tr("\n\nThe former catalogue that has been kept so far is deleted: %1.").arg(contentOrDamage(*former));
    }
    PlainBox box(QMessageBox::Question, text, QMessageBox::Cancel, window_);
    const QPushButton* const replace = box.addButton(tr("&Replace"), QMessageBox::AcceptRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == replace;
}

void CatalogueMenu::useSample()
{
    if (mayReplace(tr("Replace it with the sample products?")) && importSample()) {
        inform(tr("The catalogue now contains the sample products."));
    }
}

void CatalogueMenu::bringBackFormer()
{
    try {
        const std::filesystem::path catalogue = pathOf(catalogue_);
        if (const auto former = formerOf(catalogue)) {
            static_cast<void>(contentOf(*former)); // a damaged one does not become the catalogue
        }
        files::swapWithFormer(catalogue);
        inform(tr("The catalogue now contains %1.\n\nThe same command brings the other one back.")
                   .arg(contentOf(catalogue)));
    } catch (const std::exception& error) {
        tell_(tr("The former catalogue could not be brought back."), qt::translated(error), {});
    }
}

void CatalogueMenu::inform(const QString& text)
{
    PlainBox(QMessageBox::Information, text, QMessageBox::Ok, window_).exec();
}

void CatalogueMenu::importSampleIfNone()
{
    if (!QFileInfo::exists(catalogue_)) {
        importSample();
    }
}

/// Copies the sample into a temporary file first: it is a resource inside the program, but an import reads a file.
bool CatalogueMenu::importSample()
{
    const QTemporaryDir folder;
    const QString copy = folder.filePath(QFileInfo(kSample).fileName());
    try {
        if (!QDir().mkpath(QFileInfo(catalogue_).path()) || !QFile::copy(kSample, copy)) {
            throw RuntimeError(ErrorNumber::pathFileAccess, {}, userText("its folder cannot be made"));
        }
        CatalogueImportOptions options;
        options.sourceName = kSampleName;
        return importShowingProgress(copy, options).outcome == Outcome::imported;
    } catch (const std::exception& error) {
        tell_(tr("The sample products could not be imported into the catalogue."), qt::translated(error), {});
        return false;
    }
}

void CatalogueMenu::chooseAndImport()
{
    const QString source = QFileDialog::getOpenFileName(window_, tr("Import Price List"), lastFolder(kPriceListFolder),
                                                        tr("Price lists (*.csv *.tsv *.txt *.xlsx);;All files (*)"));
    if (!source.isEmpty()) {
        keepFolderOf(source, kPriceListFolder);
        importFrom(source);
    }
}

bool CatalogueMenu::importFrom(const QString& source)
{
    CatalogueImportResult result;
    try {
        if (!mayReplace(tr("Replace it with the products of “%1”?").arg(shortFileName(source)))) {
            return false;
        }
        QDir().mkpath(QFileInfo(catalogue_).path());
        result = import(source);
    } catch (const std::exception& error) {
        tell_(tr("“%1” could not be imported.").arg(shortFileName(source)), qt::translated(error), {});
        return false;
    }
    if (result.outcome == Outcome::refused) {
        tellRefused(source, result);
    } else if (result.outcome == Outcome::imported) {
        tellImported(result);
    }
    return result.outcome == Outcome::imported;
}

/// Shows how the list is understood first.
CatalogueImportResult CatalogueMenu::import(const QString& source)
{
    PriceListDialog dialog(source, window_);
    if (dialog.exec() != QDialog::Accepted) {
        CatalogueImportResult cancelled;
        cancelled.outcome = Outcome::cancelled;
        return cancelled;
    }
    return importShowingProgress(source, dialog.options());
}

CatalogueImportResult CatalogueMenu::importShowingProgress(const QString& source, CatalogueImportOptions options)
{
    Progress progress;
    CatalogueImportResult result;
    std::exception_ptr failure;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        try {
            options.keepFormer = true;
            options.language = QLocale::system().name().toStdString();
            options.progress = [&](const CatalogueImportProgress& state) { return progress.take(state); };
            result = importCatalogue(pathOf(source), pathOf(catalogue_), options);
        } catch (...) {
            failure = std::current_exception();
        }
    }));
    thread->start();
    if (!thread->wait(kUnnoticed)) {
        QProgressDialog dialog({}, tr("Cancel"), 0, kSteps, window_);
        dialog.setLabel(plainLabel());
        dialog.setLabelText(tr("Reading “%1”…").arg(shortFileName(source)));
        dialog.setWindowTitle(tr("Import Price List"));
        dialog.setWindowModality(Qt::WindowModal);
        dialog.setMinimumDuration(0);
        dialog.setAutoReset(false); // the dialog closes when the thread has ended, not at the last step
        dialog.setMinimumWidth(dialog.fontMetrics().averageCharWidth() * 60);
        QTimer look;
        connect(&look, &QTimer::timeout, &dialog, [&] {
            const int rows = clamped(progress.rows);
            dialog.setLabelText(progress.indexing
                                    ? tr("Sorting %Ln products…", nullptr, rows)
                                    : tr("Reading “%1”: %Ln products", nullptr, rows).arg(shortFileName(source)));
            dialog.setValue(progress.step);
            if (thread->isFinished()) { // not a signal of the thread, which may end before the signal is connected
                dialog.accept();
            }
        });
        look.start(kBetweenLooks);
        connect(&dialog, &QProgressDialog::canceled, &dialog, [&] { progress.cancelled = true; });
        dialog.exec();
        progress.cancelled = true; // the thread may still run: the user has cancelled, or the program is to end
        thread->wait();
    }
    if (failure) {
        std::rethrow_exception(failure);
    }
    return result;
}

void CatalogueMenu::tellImported(const CatalogueImportResult& result)
{
    QString text = tr("The catalogue now contains %1.").arg(productCount(static_cast<qint64>(result.rows)));
    if (result.withoutPrice > 0) {
        text += u'\n' + tr("%1 without a price.").arg(productCount(static_cast<qint64>(result.withoutPrice)));
    }
    if (result.refusedCount == 0) {
        inform(text);
        return;
    }
    PlainBox box(QMessageBox::Information,
                 text + u'\n' +
                     (result.refusedCount == 1
                          ? tr("1 row with errors was left out.")
                          : tr("%Ln rows with errors were left out.", nullptr, clamped(result.refusedCount))),
                 QMessageBox::Ok, window_);
    box.setDetailedText(linesOf(result).join(u'\n'));
    box.exec();
}

void CatalogueMenu::tellRefused(const QString& source, const CatalogueImportResult& result)
{
    const QStringList rows = linesOf(result);
    const QString what = result.refusedCount == 1
                             ? tr("“%1” was not imported: one row has an error.").arg(shortFileName(source))
                             : tr("“%1” was not imported: %n rows have errors.", nullptr, clamped(result.refusedCount))
                                   .arg(shortFileName(source));
    const bool all = rows.size() <= kRowsInMessage;
    tell_(what,
          rows.mid(0, kRowsInMessage).join(u'\n') + (all ? QString() : QStringLiteral("\n…")) +
              tr("\n\nThe catalogue was not changed."),
          all ? QString() : rows.join(u'\n'));
}

} // namespace orvan::desk

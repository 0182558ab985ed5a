#include "ExchangeActions.h"

#include "FormatChoice.h"
#include "ImportDialog.h"
#include "apps/orvan-desk/OutsideText.h"
#include "apps/orvan-desk/RecentFiles.h"
#include "apps/orvan-desk/WatchedProducts.h"
#include "apps/orvan-desk/undo/DoneStep.h"
#include "apps/orvan-desk/undo/ProductsJournal.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/files/WholeFile.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/qt/Translation.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QLocale>
#include <QMenu>
#include <QPushButton>

#include <algorithm>
#include <memory>
#include <utility>

namespace orvan::desk {

namespace {

/// A larger file cannot be a quote's lines, and would fill the memory.
constexpr std::int64_t kMostBytes = 64LL * 1024 * 1024;

/// All of the changes, or none.
void applyAll(const std::vector<ListChange>& changes)
{
    std::size_t done = 0;
    try {
        for (; done < changes.size(); ++done) {
            applyToWatched(changes[done], false);
        }
    } catch (...) {
        while (done > 0) {
            applyToWatched(changes[--done], true);
        }
        throw;
    }
}

void takeBack(const std::vector<ListChange>& changes)
{
    std::for_each(changes.rbegin(), changes.rend(), [](const ListChange& change) { applyToWatched(change, true); });
}

/// Why a quote cannot take the lines; empty if it can.
QString whyTheyDoNotFit(const std::vector<ProductValues>& lines, bool replace)
{
    std::vector<ProductValues> all = replace ? std::vector<ProductValues>() : watchedValues();
    all.insert(all.end(), lines.begin(), lines.end());
    try {
        const std::size_t size = sizeOf(all), most = largestSize();
        return size <= most ? QString()
                            : ExchangeActions::tr("The quote would be too large to be saved: %L1 bytes, and at most "
                                                  "%L2 are possible.")
                                  .arg(size)
                                  .arg(most);
    } catch (const RuntimeError& error) {
        return error.number() == ErrorNumber::overflow ? ExchangeActions::tr("The total would be too large.")
                                                       : qt::translated(error);
    }
}

/// Asks how the file is to be written. False if the user cancels.
bool askFormat(LineFormat& format, QWidget* window)
{
    QDialog dialog(window);
    dialog.setWindowTitle(ExchangeActions::tr("Export Lines"));
    auto* const delimiter = delimiterChoice();
    auto* const decimal = decimalChoice();
    choose(*delimiter, format.delimiter);
    choose(*decimal, format.decimalSeparator);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Save)->setText(ExchangeActions::tr("&Choose File…"));
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* const form = new QFormLayout(&dialog);
    form->addRow(ExchangeActions::tr("&Separator"), delimiter);
    form->addRow(ExchangeActions::tr("&Decimals"), decimal);
    form->addRow(buttons);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    format = {.delimiter = chosenCharacter(*delimiter), .decimalSeparator = chosenCharacter(*decimal)};
    return accepted;
}

} // namespace

ExchangeActions::ExchangeActions(QMenu* menu, const Desk& desk) : QObject(desk.window), desk_(desk)
{
    QAction* const import = menu->addAction(tr("&Import Lines…"), this, &ExchangeActions::chooseAndImport);
    connect(&desk.products, &ProductViewWidget::readOnlyChanged, import, &QAction::setDisabled);
    menu->addAction(tr("E&xport Lines…"), this, &ExchangeActions::chooseAndExport);
}

void ExchangeActions::chooseAndExport()
{
    LineFormat format = usualFormat(desk_.platform.locale());
    if (!askFormat(format, desk_.window)) {
        return;
    }
    const QString suffix = format.delimiter == '\t' ? QStringLiteral("tsv") : QStringLiteral("csv");
    const QString number = desk_.quoteNumber();
    QString name = number.isEmpty() ? tr("Lines") : shortened(number);
    name.replace(u'/', u'-'); // a quote's number may contain a slash, but a file name may not
    QFileDialog dialog(desk_.window, tr("Export Lines"), lastFolder(kLinesFolder),
                       tr("Lines for a spreadsheet (*.%1);;All files (*)").arg(suffix));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(name + u'.' + suffix);
    if (dialog.exec() == QDialog::Accepted && exportTo(dialog.selectedFiles().constFirst(), format)) {
        keepFolderOf(dialog.selectedFiles().constFirst(), kLinesFolder);
    }
}

bool ExchangeActions::exportTo(const QString& path, LineFormat format)
{
    const QString shown = shortened(QDir::toNativeSeparators(path));
    try {
        const UserText warning = files::replaceFile(pathOf(path), linesToCsv(watchedValues(), format)).warning;
        if (!warning.empty()) {
            desk_.tell(tr("“%1” has been written.").arg(shown), qt::translated(warning));
        }
        return true;
    } catch (const std::exception& error) {
        desk_.tell(tr("“%1” could not be written.").arg(shown), qt::translated(error));
        return false;
    }
}

void ExchangeActions::chooseAndImport()
{
    const QString path = QFileDialog::getOpenFileName(desk_.window, tr("Import Lines"), lastFolder(kLinesFolder),
                                                      tr("Lines of a spreadsheet (*.csv *.tsv *.txt);;All files (*)"));
    if (!path.isEmpty()) {
        keepFolderOf(path, kLinesFolder);
        importFrom(path);
    }
}

bool ExchangeActions::importFrom(const QString& path)
{
    try {
        ImportedFile file{.name = shortFileName(path), .bytes = files::readFile(pathOf(path), kMostBytes).bytes};
        file.reading.usualDecimal = usualFormat(desk_.platform.locale()).decimalSeparator;
        const auto scratch = ui::createComponent<ProductMgr>(desk_.platform.components(), kProductMgrClassName);
        const std::shared_ptr<ProductRecord> rules = scratch->AddNewProduct();
        ImportDialog dialog(std::move(file), *rules, whyTheyDoNotFit, desk_.window);
        if (dialog.exec() != QDialog::Accepted) {
            return false;
        }
        import(dialog.lines(), dialog.replaces());
        return true;
    } catch (const std::exception& error) {
        desk_.tell(tr("“%1” could not be imported.").arg(shortened(QDir::toNativeSeparators(path))),
                   qt::translated(error));
        return false;
    }
}

void ExchangeActions::import(const std::vector<ProductValues>& lines, bool replace)
{
    const std::vector<ProductValues> present = watchedValues();
    auto changes = std::make_shared<std::vector<ListChange>>();
    auto position = static_cast<std::int32_t>(present.size());
    for (; replace && position > 0; --position) {
        changes->push_back({.kind = ListChange::Kind::remove,
                            .position = position,
                            .before = present[static_cast<std::size_t>(position) - 1]});
    }
    const int row = desk_.products.currentProduct(), first = position + 1;
    for (const ProductValues& line : lines) {
        changes->push_back({.kind = ListChange::Kind::insert, .position = ++position, .after = line});
    }
    const auto show = [&products = desk_.products](int current) {
        products.refresh();
        products.setCurrentProduct(current);
    };
    const auto redo = [changes, show, first] {
        applyAll(*changes);
        show(first);
    };
    const auto undo = [changes, show, row] {
        takeBack(*changes);
        show(row);
    };
    redo();
    const QString name =
        lines.size() == 1 ? tr("Import 1 Line") : tr("Import %Ln Lines", nullptr, static_cast<int>(lines.size()));
    desk_.history.stack().push(new DoneStep(desk_.history, name, undo, redo));
    Q_EMIT imported();
}

} // namespace orvan::desk

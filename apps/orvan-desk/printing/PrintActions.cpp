#include "PrintActions.h"

#include "LetterheadDialog.h"
#include "Printers.h"
#include "QuotePainter.h"
#include "QuotePdf.h"
#include "apps/orvan-desk/OutsideText.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/LoadedModule.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/qt/Translation.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QPagedPaintDevice>

#include <string>
#include <utility>

namespace orvan::desk {

namespace {

QPageLayout fullPage(QPageLayout page)
{
    page.setMode(QPageLayout::FullPageMode);
    return page;
}

/// The page with margins that the layout of the quote keeps.
QPageLayout standardPage(QPageLayout page)
{
    page.setMode(QPageLayout::StandardMode);
    return page;
}

const Printers& printers()
{
    std::string reasons;
    if (void* const function = moduleFunction("orvan_printers", kPrintersOfModule, reasons)) {
        return *reinterpret_cast<PrintersOfModule>(function)();
    }
    throw RuntimeError(ErrorNumber::cannotCreateComponent, {},
                       userText("printers cannot be used, because a part of this program is missing (%1); export the "
                                "quote as PDF",
                                reasons));
}

} // namespace

PrintActions::PrintActions(QMenu* menu, QWidget* window, ui::Platform& platform, CurrentQuote quote, Tell tell)
    : QObject(window), window_(window), platform_(platform), quote_(std::move(quote)), tell_(std::move(tell))
{
    menu->addAction(tr("Page Set&up…"), this, &PrintActions::setUpPage);
    menu->addAction(tr("&Letterhead and Columns…"), this, &PrintActions::chooseLetterhead);
    menu->addAction(tr("Print Pre&view…"), this, &PrintActions::preview);
    menu->addAction(tr("&Print…"), QKeySequence(QKeySequence::Print), this, &PrintActions::print);
    menu->addAction(tr("&Export as PDF…"), this, &PrintActions::exportAsPdf);
}

void PrintActions::run(const QString& what, const std::function<void()>& work)
{
    try {
        work();
    } catch (const std::exception& error) {
        tell_(what, qt::translated(error));
    }
}

PrintOptions PrintActions::options()
{
    QStringList problems;
    PrintOptions options = readPrintOptions(platform_.settings(), problems);
    if (!problems.isEmpty()) {
        tell_(tr("Some print settings cannot be used."), problems.join(u'\n'));
    }
    return options;
}

void PrintActions::keep(const PrintOptions& options)
{
    run(tr("The print settings could not be kept."), [&] { writePrintOptions(platform_.settings(), options); });
}

PrintedQuote PrintActions::printedQuote(const PrintOptions& options)
{
    PrintedQuote printed = makePrintedQuote(quote_(), options, platform_.locale(), QLocale());
    if (!printed.problems.isEmpty()) {
        tell_(tr("The quote is printed without some of its parts."), printed.problems.join(u'\n'));
    }
    return printed;
}

void PrintActions::setUpPage()
{
    run(tr("The page could not be set up."), [this] {
        PrintOptions chosen = options();
        QPageLayout page = chosen.page;
        if (printers().setUpPage(page, window_)) {
            chosen.page = standardPage(page);
            keep(chosen);
        }
    });
}

void PrintActions::chooseLetterhead()
{
    run(tr("The letterhead could not be changed."), [this] {
        LetterheadDialog dialog(options(), platform_.locale(), window_);
        if (dialog.exec() == QDialog::Accepted) {
            keep(dialog.options());
        }
    });
}

void PrintActions::preview()
{
    run(tr("The quote could not be previewed."), [this] {
        const PrintOptions chosen = options();
        const PrintedQuote printed = printedQuote(chosen);
        printers().preview(fullPage(chosen.page), tr("Print Preview"), window_,
                           [&](const ChosenPrinter& printer) { printOn(printer, printed); });
    });
}

void PrintActions::print()
{
    run(tr("The quote could not be printed."), [this] {
        const PrintOptions chosen = options();
        const PrintedQuote printed = printedQuote(chosen);
        printers().print(fullPage(chosen.page), window_,
                         [&](const ChosenPrinter& printer) { printOn(printer, printed); });
    });
}

void PrintActions::printOn(const ChosenPrinter& printer, const PrintedQuote& quote)
{
    run(tr("The quote could not be printed."), [&] {
        const QPageLayout page = standardPage(printer.device.pageLayout());
        const PageRange range{printer.firstPage, printer.lastPage};
        if (!printer.pdfFile.isEmpty()) {
            const QString warning = qt::translated(writePdf(printer.pdfFile, quote, page, range));
            if (!warning.isEmpty()) {
                tell_(tr("The quote has been printed."), warning);
            }
            return;
        }
        printer.device.setPageLayout(fullPage(page)); // the dialogs of Qt may have changed the mode
        if (!paintPages(printer.device, quote, layOut(quote, page), range)) {
            tell_(tr("The quote could not be printed."), tr("The printer “%1” does not take it.").arg(printer.name));
        }
    });
}

void PrintActions::exportAsPdf()
{
    run(tr("The quote could not be exported."), [this] {
        const QString number = quote_().number;
        QString name = number.isEmpty() ? tr("Quote") : shortened(number);
        name.replace(u'/', u'-'); // a quote's number may contain a slash, but a file name may not
        QFileDialog dialog(window_, tr("Export as PDF"), {}, tr("PDF files (*.pdf);;All files (*)"));
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setDefaultSuffix(QStringLiteral("pdf"));
        dialog.selectFile(name + QStringLiteral(".pdf"));
        if (dialog.exec() == QDialog::Accepted) {
            exportTo(dialog.selectedFiles().constFirst());
        }
    });
}

bool PrintActions::exportTo(const QString& path)
{
    bool written = false;
    const QString shown = shortened(QDir::toNativeSeparators(path));
    run(tr("“%1” could not be written.").arg(shown), [&] {
        const PrintOptions chosen = options();
        const QString warning = qt::translated(writePdf(path, printedQuote(chosen), chosen.page));
        written = true;
        if (!warning.isEmpty()) {
            tell_(tr("“%1” has been written.").arg(shown), warning);
        }
    });
    return written;
}

} // namespace orvan::desk

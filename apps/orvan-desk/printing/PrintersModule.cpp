// The module orvan_printers: Qt's dialogs of printers, for the desk that has loaded it.

#include "Printers.h"

#include <QPageSetupDialog>
#include <QPaintEngine>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QWidget>

namespace orvan::desk {

namespace {

constexpr QSize kLeastPreview(800, 640);

ChosenPrinter asChosen(QPrinter& printer)
{
    ChosenPrinter chosen{.device = printer, .firstPage = printer.fromPage(), .lastPage = printer.toPage()};
    if (printer.paintEngine()->type() != QPaintEngine::Picture) { // no preview
        chosen.name = printer.printerName();
        chosen.pdfFile = printer.outputFormat() == QPrinter::PdfFormat ? printer.outputFileName() : QString();
    }
    return chosen;
}

class QtPrinters final : public Printers {
public:
    bool setUpPage(QPageLayout& page, QWidget* window) const override
    {
        QPrinter printer;
        printer.setPageLayout(page);
        QPageSetupDialog dialog(&printer, window);
        const bool accepted = dialog.exec() == QDialog::Accepted;
        page = accepted ? printer.pageLayout() : page;
        return accepted;
    }

    void preview(const QPageLayout& page, const QString& title, QWidget* window, const Paint& paint) const override
    {
        QPrinter printer;
        printer.setPageLayout(page);
        QPrintPreviewDialog dialog(&printer, window);
        dialog.setWindowTitle(title);
        dialog.resize(window->size().expandedTo(kLeastPreview));
        QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, window,
                         [&](QPrinter* on) { paint(asChosen(*on)); });
        dialog.exec();
    }

    void print(const QPageLayout& page, QWidget* window, const Paint& paint) const override
    {
        QPrinter printer;
        printer.setPageLayout(page);
        QPrintDialog dialog(&printer, window);
        dialog.setOption(QAbstractPrintDialog::PrintPageRange);
        if (dialog.exec() == QDialog::Accepted) {
            paint(asChosen(printer));
        }
    }
};

} // namespace

extern "C" Q_DECL_EXPORT const Printers* orvanPrinters()
{
    static const QtPrinters printers;
    return &printers;
}

} // namespace orvan::desk

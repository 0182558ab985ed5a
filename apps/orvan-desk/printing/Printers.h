// Printers: the dialogs in which a user chooses a printer and its paper, and what is painted on it.
//
// They need Qt's library for printers. It stands in a module, orvan_printers, that is loaded when the user first asks
// for one of them, because loading it took a part of each start. Desk and module are built from the same sources with
// the same compiler. Ownership: the module, which is never unloaded. Thread: the user-interface thread.
#pragma once

#include <QPageLayout>
#include <QString>

#include <functional>

class QPagedPaintDevice;
class QWidget;

namespace orvan::desk {

/// What is painted on: a printer, or the pages of a preview.
struct ChosenPrinter {
    QPagedPaintDevice& device;
    int firstPage = 0, lastPage = 0; ///< Counted from 1, the last one included; 0 stands for the first or the last one.
    QString pdfFile = {};            ///< Where the user prints into this PDF file; else empty.
    QString name = {};               ///< Empty for a preview.
};

class Printers {
public:
    using Paint = std::function<void(const ChosenPrinter& printer)>; ///< Raises nothing.

    virtual ~Printers() = default;
    /// Lets the user choose the paper. False where the user cancels.
    [[nodiscard]] virtual bool setUpPage(QPageLayout& page, QWidget* window) const = 0;
    /// Shows the pages; each change of the user paints them again.
    virtual void preview(const QPageLayout& page, const QString& title, QWidget* window, const Paint& paint) const = 0;
    /// Lets the user choose a printer, and paints on it unless the user cancels.
    virtual void print(const QPageLayout& page, QWidget* window, const Paint& paint) const = 0;
};

/// The module's function, which gives its printers.
using PrintersOfModule = const Printers* (*)();
inline constexpr const char* kPrintersOfModule = "orvanPrinters";

} // namespace orvan::desk

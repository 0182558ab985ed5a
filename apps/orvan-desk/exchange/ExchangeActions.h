// ExchangeActions: the entries of the File menu that write the lines of the quote into a file for a spreadsheet, and
// read lines from such a file.
//
// An import is complete or has no effect, and is one step of the history. Thread: the user-interface thread.
#pragma once

#ifndef Q_MOC_RUN // the meta-object compiler cannot read the standard library's concepts
#include "LineFields.h"
#endif

#include <QObject>

#include <functional>
#include <vector>

class QMenu;
class QWidget;

namespace orvan {
class ProductViewWidget;
namespace ui {
class Platform;
}
} // namespace orvan

namespace orvan::desk {

class QuoteHistory;

class ExchangeActions : public QObject {
    Q_OBJECT

public:
    using Tell = std::function<void(const QString& what, const QString& why)>;

    /// What the actions act on; all of it outlives them.
    struct Desk {
        QWidget* window;
        ui::Platform& platform;
        ProductViewWidget& products;
        QuoteHistory& history;
        std::function<QString()> quoteNumber; ///< From which the name of a new file is made.
        Tell tell;
    };

    ExchangeActions(QMenu* menu, const Desk& desk);

    /// Writes the lines, and tells what went wrong.
    bool exportTo(const QString& path, LineFormat format);
    /// Shows what was understood, and imports what the user agrees to. False if nothing was imported.
    bool importFrom(const QString& path);

Q_SIGNALS:
    /// Lines have been imported.
    void imported();

private:
    void chooseAndExport();
    void chooseAndImport();
    void import(const std::vector<ProductValues>& lines, bool replace);

    const Desk desk_;
};

} // namespace orvan::desk

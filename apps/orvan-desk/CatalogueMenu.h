// The desk's catalogue of products: where it is, and the menu that imports another price list into it.
//
// Thread: the user-interface thread. An import runs in a thread of its own while its progress is shown.
#pragma once

#include "orvan/components/catalogue/CatalogueImport.h"

#include <QMenu>

#include <functional>

namespace orvan::desk {

/// The catalogue of this user; its folder need not exist yet.
QString defaultCatalogueFile();

/// Has the editor look products up in this file; to be called before there is a window. What is wrong with the
/// file is told once, when the editor first asks, and the editor works without entries.
void lookUpProductsIn(const QString& catalogue);

class CatalogueMenu : public QMenu {
    Q_OBJECT

public:
    /// Shows what could not be done, and why; `details` are for who wants to read on.
    using Tell = std::function<void(const QString& what, const QString& why, const QString& details)>;

    CatalogueMenu(const QString& catalogue, QWidget* window, Tell tell);

    /// Imports the products that come with the desk, where there is no catalogue yet.
    void importSampleIfNone();
    /// Imports a price list, tells how that ended, and asks how prices are to be read where the list does
    /// not tell. True when it is the catalogue now.
    bool importFrom(const QString& source);

private:
    bool importSample();
    void chooseAndImport();
    CatalogueImportResult importShowingProgress(const QString& source, char decimalSeparator);
    CatalogueImportResult import(const QString& source);
    char askDecimalSeparator(const QString& price);
    void tellRefused(const QString& source, const CatalogueImportResult& result);

    const QString catalogue_;
    QWidget* const window_;
    const Tell tell_;
};

} // namespace orvan::desk

// The desk's catalogue of products: its file, and the menu that replaces its content by importing a price list.
//
// The user is asked before a catalogue is replaced. The replaced one is kept until the next import, and the menu can
// bring it back.
// Thread: the user-interface thread. An import runs in a thread of its own while its progress is shown.
#pragma once

#include "orvan/components/catalogue/CatalogueImport.h"
#include "orvan/hosting/Host.h"

#include <QMenu>

#include <functional>

namespace orvan::desk {

/// The file of this user's catalogue; its folder need not exist yet.
QString defaultCatalogueFile();

/// The file that a catalogue was imported from, as the user knows it.
[[nodiscard]] QString sourceName(const std::string& source);

/// Options with which the editor looks products up in this file, or in the copy of this server's catalogue. If it
/// cannot be used, the user is told why once, when the editor first looks something up, and the editor works without
/// entries.
[[nodiscard]] CatalogueOptions catalogueOptionsFor(const QString& catalogue);
[[nodiscard]] HostOptions lookUpProductsIn(const QString& catalogue);

class CatalogueMenu : public QMenu {
    Q_OBJECT

public:
    /// Shows what could not be done, and why; `details` holds more for users who want to know it.
    using Tell = std::function<void(const QString& what, const QString& why, const QString& details)>;

    /// Without a catalogue's file, which is so where a server has the catalogue, nothing can be imported.
    CatalogueMenu(const QString& catalogue, QWidget* window, Tell tell);

    /// Takes the entries from the user, and says why: the administrator has set the catalogue for all users.
    void lock();

    /// Imports the products that come with the desk, where there is no catalogue yet.
    void importSampleIfNone();
    /// Asks whether the catalogue may be replaced, shows how a price list is understood (PriceListDialog), imports it
    /// and tells the user the result. True when the catalogue now holds this list.
    bool importFrom(const QString& source);
    /// Asks whether the catalogue may be replaced, and replaces it by the products that come with the desk.
    void useSample();
    /// Exchanges the catalogue and the former one.
    void bringBackFormer();

private:
    bool importSample();
    void chooseAndImport();
    [[nodiscard]] bool mayReplace(const QString& question);
    CatalogueImportResult importShowingProgress(const QString& source, CatalogueImportOptions options);
    CatalogueImportResult import(const QString& source);
    void inform(const QString& text);
    void tellImported(const CatalogueImportResult& result);
    void tellRefused(const QString& source, const CatalogueImportResult& result);

    const QString catalogue_;
    QWidget* const window_;
    const Tell tell_;
    QAction* bringBack_ = nullptr;
    bool locked_ = false;
};

} // namespace orvan::desk

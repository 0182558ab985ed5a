// Where the window's editor looks products up: in a file, or in the copy of a server's catalogue.

#include "CatalogueMenu.h"
#include "DeskSettings.h"
#include "MainWindow.h"
#include "StatusLine.h"
#include "servers/ServerCatalogue.h"
#include "settings/SystemSettings.h"

#include "orvan/hosting/QtHost.h"
#include "orvan/lookup/ProductLkpMgr.h"

#include <QInputDialog>
#include <QMenuBar>
#include <QTimer>

#include <string>
#include <utility>

namespace orvan::desk {

namespace {

/// The editor that is opened next looks products up there.
void lookUpFromNowOnIn(const QString& catalogue, std::function<void(const CatalogueCopyState&)> copyChanged)
{
    CatalogueOptions options = catalogueOptionsFor(catalogue);
    options.copyChanged = std::move(copyChanged);
    options.completionAsTyped = qtHost().platform().editing == ui::EditingWay::classic; // as Host does it
    qtHost().components().registerClass(std::string(kProductLkpMgrClassName), catalogueFactory(std::move(options)));
}

} // namespace

CatalogueMenu* MainWindow::showCatalogueMenu(const QString& file)
{
    if (catalogueMenu_) {
        catalogueMenu_->deleteLater(); // it may be the one whose entry was chosen
        menuBar()->removeAction(catalogueMenu_->menuAction());
    }
    catalogueMenu_ =
        new CatalogueMenu(file, this, [this](const QString& what, const QString& why, const QString& details) {
            tell(what, why, details);
        });
    catalogueMenu_->addSeparator();
    catalogueMenu_->addAction(tr("&Company Catalogue…"), this, &MainWindow::chooseServer);
    if (systemSettings().locks("catalogue")) {
        catalogueMenu_->lock();
    }
    menuBar()->insertMenu(menuBar()->actions().constLast(), catalogueMenu_); // before the help menu
    status_->setCatalogue(file);
    catalogue_ = file;
    copyState_.reset();
    return catalogueMenu_;
}

void MainWindow::useCatalogue(const QString& file, bool sampleIfNone)
{
    CatalogueMenu* const menu = showCatalogueMenu(file);
    QTimer::singleShot(0, menu, [this, menu, sampleIfNone] {
        if (sampleIfNone) {
            menu->importSampleIfNone();
        }
        status_->lookAgain();
    });
}

void MainWindow::useServer(const QString& uri)
{
    server_ = uri;
    showCatalogueMenu({});
    copyWatch_ = std::make_unique<CopyWatch>();
    connect(copyWatch_.get(), &CopyWatch::changed, status_, &StatusLine::setCopy);
    connect(copyWatch_.get(), &CopyWatch::changed, this,
            [this](const CatalogueCopyState& state) { copyState_ = state; });
    lookUpFromNowOnIn(uri, copyWatch_->callback());
}

void MainWindow::chooseServer()
{
    bool accepted = false;
    const QString uri = QInputDialog::getText(this, tr("Company Catalogue"),
                                              tr("The address of the server, such as "
                                                 "postgresql://user@server/database.\n"
                                                 "Without an address, products are looked up in this computer's own "
                                                 "catalogue."),
                                              QLineEdit::Normal, server_, &accepted)
                            .trimmed();
    if (!accepted || uri == server_) {
        return;
    }
    const QString problem = uri.isEmpty()    ? QString()
                            : !isServer(uri) ? tr("An address begins with postgresql://")
                                             : whyRefused(uri);
    if (!problem.isEmpty()) {
        tell(tr("This address cannot be used."), problem);
        return;
    }
    keepText(kServerKey, uri);
    if (uri.isEmpty() && !keptText(kServerKey).isEmpty()) { // the computer's catalogue, which would come back
        keepText(kServerKey, defaultCatalogueFile());
    }
    if (!uri.isEmpty()) {
        useServer(uri);
        return;
    }
    server_.clear();
    copyWatch_.reset();
    lookUpFromNowOnIn(defaultCatalogueFile(), {});
    useCatalogue(defaultCatalogueFile(), true);
}

} // namespace orvan::desk

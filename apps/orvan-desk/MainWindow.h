// The desk's window: one quote with its customer, number, date and products.
#pragma once

#include "OpenQuote.h"
#include "RecoveryCopy.h"
#include "Theme.h"
#include "apps/orvan-desk/undo/QuoteHistory.h"

#include "orvan/components/catalogue/CatalogueFactory.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QAction;
class QDateEdit;
class QLineEdit;

namespace orvan {
class ProductViewWidget;
}

namespace orvan::desk {

class CatalogueMenu;
class CopyWatch;
class KeySheet;
class RecentFiles;
class StatusLine;
struct ListedSetting;

class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    /// Shows a file's quote, after asking about unsaved changes. A file that cannot be read gives a
    /// message and leaves the open quote alone; false then and when the user cancels.
    bool open(const QString& chosen);
    /// Shows a quote that comes with the desk, as a new one without a file.
    bool openSample(const QString& name);

    /// Tells which settings of the computer cannot be used, if there are any. To be called once the window is shown.
    void tellSettingsProblems();
    /// Offers what desks have left that ended with unsaved work. To be called once the window is shown.
    void offerAbandonedWork();
    /// The session ends without asking anybody: returns when the unsaved work is on the disk. False where it could not
    /// be written.
    bool keepUnsavedWork();

    void useTheme(Theme theme);
    /// Adds the menu of the catalogue of products where the editor looks them up (lookUpProductsIn).
    /// `sampleIfNone`: where there is none, it is made of the sample products once the event loop runs.
    void useCatalogue(const QString& file, bool sampleIfNone);
    /// The same for the catalogue of a server; the editor looks products up in its copy from now on.
    void useServer(const QString& uri);

    /// Takes what would be told in a message box, where nobody is there to answer one.
    std::function<void(const QString& problem)> onProblem;

    /// The settings with their origin, for "Copy Details for Support"; nothing is said of them where this is empty.
    std::function<std::vector<ListedSetting>()> settingsForDetails;

    /// Shows what could not be done, and why; in a message box, or by onProblem.
    void tell(const QString& what, const QString& why, const QString& details = {});

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeMenus();
    /// The menus of the list's commands, and of undoing them.
    void makeListMenus();
    QWidget* makeFields();
    QAction* addFileAction(const QString& text, const QKeySequence& keys, void (MainWindow::*slot)());

    /// Replaces the menu of the catalogue.
    CatalogueMenu* showCatalogueMenu(const QString& file);
    void chooseServer();
    void copyDetails();
    void showKeys();
    /// Shows how the current product's price and the total came about.
    void explain();
    void chooseCurrency();
    /// Has the amounts written in that currency, and keeps it with the quote.
    void setCurrency(const QString& code);

    void newQuote();
    void chooseAndOpen();
    void saveFile();
    void saveAsFile();
    bool save();
    bool saveAs();
    bool saveTo(const QString& path);

    Quote currentQuote() const;
    void showQuote(const Quote& quote);
    void showNew();
    /// Whether the user can only look at the quote, until another one is shown or this one has a file of its own. The
    /// title says so when it is updated.
    void setReadOnly(bool readOnly);
    /// Without a lock the quote is shown as one without a file, so that saving asks for a name.
    [[nodiscard]] bool openLocked(const QString& path, std::optional<files::EditLock> lock);
    void recover(const AbandonedWork& abandoned);
    /// The user has changed the list.
    void listEdited();
    /// The quote has changed, or may have: marks it, and keeps a copy of it soon.
    void quoteChanged();
    void keepSoon();
    void updateRecoveryCopy();
    bool isUnsaved() const;
    /// True when nothing would be lost, or the user agreed to lose it.
    bool mayDiscard();
    void updateTitle();
    void noteRecent(const QString& path);

    QLineEdit* customer_ = nullptr;
    QLineEdit* number_ = nullptr;
    QDateEdit* date_ = nullptr;
    ProductViewWidget* products_ = nullptr;
    QuoteHistory* history_ = nullptr;
    QString currency_;            ///< The ISO code of the shown quote's currency.
    QPointer<KeySheet> keySheet_; ///< While it is open.
    RecentFiles* recent_ = nullptr;
    StatusLine* status_ = nullptr;
    QPointer<CatalogueMenu> catalogueMenu_;
    std::unique_ptr<CopyWatch> copyWatch_; ///< Null where no server's catalogue is used.
    QString server_;                       ///< The URI of that server.
    QString catalogue_;                    ///< The file where no server's is used.
    std::optional<CatalogueCopyState> copyState_;
    OpenQuote file_;
    RecoveryKeeper recovery_;
    QTimer recoveryTimer_;     ///< Runs from a change to the copy of it.
    QTimer titleTimer_;        ///< Has a changed list compared with the saved one after it has been painted.
    bool listChanged_ = false; ///< The user has changed the products since they were last shown.
    Theme theme_ = Theme::system;
};

} // namespace orvan::desk

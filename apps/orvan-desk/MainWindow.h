// The desk's window: one quote with its customer, number, date and products.
#pragma once

#include "QuoteFile.h"
#include "Theme.h"

#include <QMainWindow>

#include <functional>

class QAction;
class QDateEdit;
class QLineEdit;

namespace orvan {
class ProductViewWidget;
}

namespace orvan::desk {

class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();

    /// Shows a file's quote, after asking about unsaved changes. If the file cannot be read, shows a message and keeps
    /// the open quote. Returns false then, and when the user cancels.
    bool open(const QString& path);
    /// Shows a quote that comes with the desk, as a new one without a file.
    bool openSample(const QString& name);

    void useTheme(Theme theme);
    /// Adds the menu of the product catalogue that the editor uses (lookUpProductsIn). With `sampleIfNone`, if the file
    /// does not exist, it is made from the sample products once the event loop runs.
    void useCatalogue(const QString& file, bool sampleIfNone);

    /// If set, it is called with a problem's text instead of a message box, for runs without a user.
    std::function<void(const QString& problem)> onProblem;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeMenus();
    QWidget* makeFields();
    QAction* addFileAction(const QString& text, const QKeySequence& keys, void (MainWindow::*slot)());

    void newQuote();
    void chooseAndOpen();
    void saveFile();
    void saveAsFile();
    bool save();
    bool saveAs();
    bool saveTo(const QString& path);

    Quote currentQuote() const;
    void showQuote(const Quote& quote, const QString& path);
    bool load(const QString& source, const QString& path);
    bool isUnsaved() const;
    /// Asks about unsaved changes, if there are any. True when there are none, when the user saved them, and when the
    /// user agreed to lose them.
    bool mayDiscard();
    void updateTitle();
    void tell(const QString& what, const QString& why, const QString& details = {});

    QLineEdit* customer_ = nullptr;
    QLineEdit* number_ = nullptr;
    QDateEdit* date_ = nullptr;
    ProductViewWidget* products_ = nullptr;
    QString path_; ///< Empty for a quote that has no file yet.
    Quote saved_;  ///< The quote as last opened or saved; any difference from it is an unsaved change.
    bool titleUpdatePending_ = false;
    Theme theme_ = Theme::system;
};

} // namespace orvan::desk

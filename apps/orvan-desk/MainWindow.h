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

    /// Shows a file's quote, after asking about unsaved changes. A file that cannot be read gives a
    /// message and leaves the open quote alone; false then and when the user cancels.
    bool open(const QString& path);
    /// Shows a quote that comes with the desk, as a new one without a file.
    bool openSample(const QString& name);

    void useTheme(Theme theme);
    /// Adds the menu of the catalogue of products where the editor looks them up (lookUpProductsIn).
    /// `sampleIfNone`: where there is none, it is made of the sample products once the event loop runs.
    void useCatalogue(const QString& file, bool sampleIfNone);

    /// Takes what would be told in a message box, where nobody is there to answer one.
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
    /// True when nothing would be lost, or the user agreed to lose it.
    bool mayDiscard();
    void updateTitle();
    void tell(const QString& what, const QString& why, const QString& details = {});

    QLineEdit* customer_ = nullptr;
    QLineEdit* number_ = nullptr;
    QDateEdit* date_ = nullptr;
    ProductViewWidget* products_ = nullptr;
    QString path_; ///< Empty for a quote that has no file yet.
    Quote saved_;  ///< As last shown or saved: what differs from it is unsaved.
    bool titleUpdatePending_ = false;
    Theme theme_ = Theme::system;
};

} // namespace orvan::desk

// OrderWindow: a window that shows one order, and saves it to a file.
//
// The file is the products string of the list, in UTF-8. Thread: the user-interface thread. Errors in saving are told
// to the user.
#pragma once

#include <orvan/hosting/ProductViewWidget.h>

#include <QMainWindow>
#include <QString>

class OrderWindow final : public QMainWindow {
    Q_OBJECT

public:
    /// The window is empty at first.
    explicit OrderWindow(QString file);

    /// Shows the order of the file; a file that does not exist is an empty order. False, with a sentence for the user,
    /// if it cannot be read; the window must then not be used, because saving would replace what is in the file.
    bool load(QString* reason);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeMenus();
    /// False if the order could not be saved; the user has been told.
    bool save();

    QString file_;
    orvan::ProductViewWidget view_;
};

#include "OrderWindow.h"

#include <QCloseEvent>
#include <QFile>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QSaveFile>
#include <QStatusBar>

#include <utility>

OrderWindow::OrderWindow(QString file) : file_(std::move(file))
{
    setWindowTitle(QFileInfo(file_).fileName() + "[*]");
    setCentralWidget(&view_);
    makeMenus();
    //! [signals]
    connect(&view_, &orvan::ProductViewWidget::changed, this, [this] { setWindowModified(true); });
    connect(&view_, &orvan::ProductViewWidget::totalChanged, this,
            [this] { statusBar()->showMessage(tr("Total %1").arg(view_.totalText())); });
    //! [signals]
}

void OrderWindow::makeMenus()
{
    QMenu* fileMenu = menuBar()->addMenu(tr("&File"));
    fileMenu->addAction(tr("&Save"), QKeySequence(QKeySequence::Save), this, [this] { save(); });
    fileMenu->addAction(tr("&Quit"), QKeySequence(QKeySequence::Quit), this, [this] { close(); });

    //! [actions]
    QMenu* productMenu = menuBar()->addMenu(tr("&Product"));
    using orvan::Command;
    for (const Command command : {Command::add, Command::edit, Command::duplicate, Command::remove}) {
        productMenu->addAction(view_.action(command));
    }
    //! [actions]
}

//! [load]
bool OrderWindow::load(QString* reason)
{
    QFile stored(file_);
    if (!stored.exists()) {
        return true;
    }
    if (!stored.open(QIODevice::ReadOnly)) {
        *reason = stored.errorString();
        return false;
    }
    return view_.load(QString::fromUtf8(stored.readAll()), reason);
}
//! [load]

//! [save]
bool OrderWindow::save()
{
    QString reason;
    const std::optional<QString> products = view_.products(&reason);
    QSaveFile stored(file_); // replaces the file as a whole, or not at all
    if (products && stored.open(QIODevice::WriteOnly) && stored.write(products->toUtf8()) >= 0 && stored.commit()) {
        setWindowModified(false);
        return true;
    }
    QMessageBox::warning(this, tr("Order"),
                         tr("%1 is not saved: %2").arg(file_, products ? stored.errorString() : reason));
    return false;
}
//! [save]

void OrderWindow::closeEvent(QCloseEvent* event)
{
    if (!isWindowModified()) {
        return;
    }
    const auto answer = QMessageBox::question(this, tr("Order"), tr("Do you want to save the order?"),
                                              QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (answer == QMessageBox::Cancel || (answer == QMessageBox::Yes && !save())) {
        event->ignore();
    }
}

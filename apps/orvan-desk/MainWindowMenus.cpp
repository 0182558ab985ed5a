// The window's menus.

#include "CurrencyDialog.h"
#include "DeskSettings.h"
#include "ExplainDialog.h"
#include "KeySheet.h"
#include "MainWindow.h"
#include "QuoteLocale.h"
#include "RecentFiles.h"
#include "StatusLine.h"
#include "WatchedProducts.h"
#include "exchange/ExchangeActions.h"
#include "printing/PrintActions.h"
#include "support/RecordingAction.h"
#include "support/SupportDetails.h"
#include "undo/DoneStep.h"

#include "orvan/hosting/ProductViewWidget.h"
#include "orvan/hosting/QtHost.h"
#include "orvan/ui/qt/Translation.h"

#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QLocale>
#include <QMenuBar>
#include <QShortcut>
#include <QStatusBar>
#include <QTimer>

#include <optional>
#include <utility>

namespace orvan::desk {

namespace {

constexpr int kDetailsMessageTime = 10'000; // milliseconds; a later look must not take it for a new copy

} // namespace

QAction* MainWindow::addFileAction(const QString& text, const QKeySequence& keys, void (MainWindow::*slot)())
{
    auto* action = new QAction(text, this);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, slot);
    return action;
}

void MainWindow::makeMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(addFileAction(tr("&New"), QKeySequence::New, &MainWindow::newQuote));
    file->addAction(addFileAction(tr("&Open…"), QKeySequence::Open, &MainWindow::chooseAndOpen));
    recent_ = new RecentFiles(this, [this](const QString& path) { open(path); });
    file->addMenu(recent_);
    QMenu* samples = file->addMenu(tr("Open Sa&mple"));
    for (const QFileInfo& sample : QDir(QStringLiteral(":/samples")).entryInfoList()) {
        const QString name = sample.baseName();
        QString caption = name;
        caption[0] = caption[0].toUpper();
        samples->addAction(caption.replace(u'-', u' '), this, [this, name] { openSample(name); });
    }
    file->addSeparator();
    file->addAction(addFileAction(tr("&Save"), QKeySequence::Save, &MainWindow::saveFile));
    file->addAction(addFileAction(tr("Save &As…"), QKeySequence(tr("Ctrl+Shift+S")), &MainWindow::saveAsFile));
    file->addSeparator();
    new PrintActions(
        file, this, qtHost().platform(), [this] { return currentQuote(); },
        [this](const QString& what, const QString& why) { tell(what, why); });
    file->addSeparator();
    const auto* const exchange =
        new ExchangeActions(file, {.window = this,
                                   .platform = qtHost().platform(),
                                   .products = *products_,
                                   .history = *history_,
                                   .quoteNumber = [this] { return number_->text(); },
                                   .tell = [this](const QString& what, const QString& why) { tell(what, why); }});
    connect(exchange, &ExchangeActions::imported, this, &MainWindow::listEdited);
    file->addSeparator();
    auto* quit = new QAction(tr("&Quit"), this);
    quit->setShortcut(QKeySequence(tr("Ctrl+Q")));
    connect(quit, &QAction::triggered, this, &QWidget::close);
    file->addAction(quit);

    QMenu* colours = menuBar()->addMenu(tr("&View"))->addMenu(tr("&Colours"));
    auto* group = new QActionGroup(this);
    const std::pair<Theme, QString> themes[] = {
        {Theme::system, tr("As the &System")}, {Theme::light, tr("&Light")}, {Theme::dark, tr("&Dark")}};
    for (const auto& [theme, caption] : themes) {
        QAction* action = colours->addAction(caption, this, [this, theme = theme] {
            useTheme(theme);
            withSettings([theme](ui::SettingsStore& settings) {
                settings.set(ui::kSettingsApplication, kSettingsSection, kThemeKey, themeName(theme).toStdString());
            });
        });
        action->setCheckable(true);
        action->setData(static_cast<int>(theme));
        group->addAction(action);
    }
    connect(colours, &QMenu::aboutToShow, group, [this, group] {
        for (QAction* action : group->actions()) {
            action->setChecked(action->data() == static_cast<int>(theme_));
        }
    });
}

void MainWindow::makeListMenus()
{
    auto* const edit = new QMenu(tr("&Edit"), this);
    edit->addActions(history_->makeActions(this));
    edit->addSeparator();
    for (const Command command : {Command::cut, Command::copy, Command::paste}) {
        edit->addAction(products_->action(command));
    }
    edit->addSeparator();
    QAction* const currency = edit->addAction(tr("Quote Curre&ncy…"), this, &MainWindow::chooseCurrency);
    connect(products_, &ProductViewWidget::readOnlyChanged, currency, &QAction::setDisabled);
    auto* const product = new QMenu(tr("&Product"), this);
    const std::optional<Command> commands[] = {Command::edit,
                                               Command::add,
                                               Command::duplicate,
                                               Command::remove,
                                               {},
                                               Command::moveUp,
                                               Command::moveDown,
                                               {},
                                               Command::selectAll,
                                               Command::findNext,
                                               Command::findPrevious};
    for (const auto& command : commands) {
        command ? product->addAction(products_->action(*command)) : static_cast<void>(product->addSeparator());
    }
    product->addSeparator();
    product->addAction(tr("E&xplain…"), QKeySequence(tr("F9")), this, &MainWindow::explain);
    const QList<QAction*> menus = menuBar()->actions();
    menuBar()->insertMenu(menus.value(1), edit); // after the file menu
    menuBar()->insertMenu(menus.value(1), product);
    QMenu* const help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&Keys"), QKeySequence(tr("F1")), this, &MainWindow::showKeys);
    help->addAction(tr("Copy &Details for Support"), this, &MainWindow::copyDetails);
    help->addAction(new RecordingAction(*products_, *this));
    connect(products_, &ProductViewWidget::editorOpened, this, [this] {
        if (QWidget* const editor = QApplication::activeModalWidget()) { // it keeps the window's keys from acting
            auto* const shortcut = new QShortcut(QKeySequence(tr("F1")), editor);
            connect(shortcut, &QShortcut::activated, this, &MainWindow::showKeys);
        }
    });
}

void MainWindow::showKeys()
{
    QWidget* const front = QApplication::activeModalWidget();
    if (keySheet_ && keySheet_->parentWidget() != (front ? front : this)) {
        delete keySheet_.data(); // an open editor would not let the user reach it
        keySheet_.clear();
    }
    if (!keySheet_) {
        keySheet_ = new KeySheet(allKeys(*products_, *menuBar()), front ? front : this);
    }
    keySheet_->show();
    keySheet_->raise();
    keySheet_->activateWindow();
}

void MainWindow::explain()
{
    try {
        ExplainDialog(explainWatched(products_->currentProduct()), qtHost().platform().locale(), this).exec();
    } catch (const std::exception& error) {
        tell(tr("The amounts could not be explained."), qt::translated(error));
    }
}

void MainWindow::copyDetails()
{
    try {
        const bool classic = qtHost().platform().editing == ui::EditingWay::classic;
        QApplication::clipboard()->setText(
            supportDetails({.catalogue = server_.isEmpty() ? catalogue_ : server_,
                            .copy = copyState_,
                            .editing = classic ? QStringLiteral("classic") : QStringLiteral("careful"),
                            .settings = settingsForDetails}));
        statusBar()->showMessage(tr("The details for support have been copied."), kDetailsMessageTime);
    } catch (const std::exception& error) {
        tell(tr("The details for support could not be copied."), qt::translated(error));
    }
}

void MainWindow::chooseCurrency()
{
    try {
        CurrencyDialog dialog(currencies(QLocale().name().toStdString()), currency_, this);
        if (dialog.exec() != QDialog::Accepted || dialog.currency() == currency_) {
            return;
        }
        const auto change = [this](const QString& code) { return [this, code] { setCurrency(code); }; };
        const auto undo = change(currency_), redo = change(dialog.currency());
        redo();
        history_->stack().push(new DoneStep(*history_, tr("Quote Currency"), undo, redo));
        quoteChanged();
    } catch (const std::exception& error) {
        tell(tr("The currency could not be changed."), qt::translated(error));
    }
}

void MainWindow::setCurrency(const QString& code)
{
    currency_ = showCurrency(code);
    products_->refresh(); // writes the amounts anew
}

void MainWindow::useTheme(Theme theme)
{
    theme_ = theme;
    applyTheme(theme);
}

} // namespace orvan::desk

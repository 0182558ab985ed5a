#include "MainWindow.h"

#include "CatalogueMenu.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "orvan/hosting/QtHost.h"
#include "orvan/view/ProductViewPrefs.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDateEdit>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenuBar>
#include <QMessageBox>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <utility>

namespace orvan::desk {

namespace {

const QString kFilter = QStringLiteral("Quotes (*.quote.json);;All files (*)");
const QString kFormName = QStringLiteral("OrvanDeskQuote");
constexpr std::string_view kSection = "Desk";
constexpr std::string_view kThemeKey = "Theme";

/// The list view's columns at the desk's first start: quantity and extended price, with widths that suit this window.
/// The list view's own defaults are made for a narrower window.
constexpr std::string_view kFirstPreferences = "4~1~480^7500^1200^1755^1200^1800^1200^1800^3600";

/// Milliseconds; see MainWindow::eventFilter.
constexpr int kAfterDialog = 100;

/// Raises an error for a list that a product manager cannot read, or cannot return because it is too large. Such a list
/// must not be passed to the list view, which would lose the list that it shows.
void checkProducts(const std::string& products)
{
    const auto manager = ui::createComponent<ProductMgr>(qtHost().components(), kProductMgrClassName);
    manager->SetProductsString(products, kRecordSeparator, kFieldSeparator, false);
    manager->GetProductsString(kRecordSeparator, kFieldSeparator);
}

Quote emptyQuote()
{
    return {.customer = {}, .number = {}, .date = QDate::currentDate(), .products = {}};
}

/// The short date format of the user's locale, but with four digits of the year, to tell 1926 from 2026.
QString dateFormat()
{
    QString format = QLocale().dateFormat(QLocale::ShortFormat);
    return format.contains(QStringLiteral("yyyy")) ? format
                                                   : format.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
}

constexpr int kFieldHeight = 28; // pixels

/// Where settings cannot be read or written, the desk logs a warning and goes on without them.
template <class Use>
void withSettings(Use&& use)
{
    try {
        use(qtHost().platform().settings());
    } catch (const RuntimeError& error) {
        qWarning("%s", error.what());
    }
}

QLabel* labelFor(QWidget* field, const QString& text)
{
    auto* label = new QLabel(text);
    label->setBuddy(field);
    return label;
}

} // namespace

MainWindow::MainWindow()
{
    withSettings([](ui::SettingsStore& settings) {
        seedProductViewPrefs(settings, kFormName.toStdString(), kFirstPreferences);
    });
    makeMenus();
    auto* centre = new QWidget;
    auto* column = new QVBoxLayout(centre);
    column->setContentsMargins(16, 12, 16, 16);
    column->setSpacing(14);
    column->addWidget(makeFields());
    products_ = new ProductViewWidget;
    products_->setHostTypeName(kFormName);
    column->addWidget(products_, 1);
    setCentralWidget(centre);
    resize(780, 560);
    Theme theme = Theme::system;
    withSettings([&theme](ui::SettingsStore& settings) {
        theme = themeNamed(QString::fromStdString(settings.get(ui::kSettingsApplication, kSection, kThemeKey)));
    });
    useTheme(theme);
    showQuote(emptyQuote(), {});

    // The list view does not report changes, so the desk compares the quote with the saved one after each input of the
    // user. It does not do so at every event, because reading the list takes time and writes to the trace, nor while a
    // dialog is open, because the user may still cancel what is typed there.
    qApp->installEventFilter(this);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonRelease:
    case QEvent::Wheel:
    case QEvent::InputMethod:
    case QEvent::Drop:
    case QEvent::WindowActivate: // comes when a message box has been answered
        if (!QApplication::activeModalWidget() && !std::exchange(titleUpdatePending_, true)) {
            QMetaObject::invokeMethod(this, &MainWindow::updateTitle, Qt::QueuedConnection);
        }
        break;
    case QEvent::WindowUnblocked: // a dialog has closed; the delay lets the procedure that opened it finish first
        if (watched == windowHandle()) {
            QTimer::singleShot(kAfterDialog, this, &MainWindow::updateTitle);
        }
        break;
    default: break;
    }
    return QMainWindow::eventFilter(watched, event);
}

QWidget* MainWindow::makeFields()
{
    auto* fields = new QWidget;
    auto* grid = new QGridLayout(fields);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(4);
    customer_ = new QLineEdit;
    customer_->setPlaceholderText(tr("Who is this quote for?"));
    number_ = new QLineEdit;
    date_ = new QDateEdit;
    date_->setCalendarPopup(true);
    date_->setDisplayFormat(dateFormat());
    date_->setDateRange(QDate(1, 1, 1), QDate(9999, 12, 31)); // every date that a file can hold
    const std::pair<QWidget*, QString> columns[] = {
        {customer_, tr("&Customer")}, {number_, tr("Quote &number")}, {date_, tr("&Date")}};
    int at = 0;
    for (const auto& [field, caption] : columns) {
        field->setMinimumHeight(kFieldHeight);
        grid->addWidget(labelFor(field, caption), 0, at);
        grid->addWidget(field, 1, at);
        ++at;
    }
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(1, 1);
    return fields;
}

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
                settings.set(ui::kSettingsApplication, kSection, kThemeKey, themeName(theme).toStdString());
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

void MainWindow::useTheme(Theme theme)
{
    theme_ = theme;
    applyTheme(theme);
}

void MainWindow::useCatalogue(const QString& file, bool sampleIfNone)
{
    auto* const menu =
        new CatalogueMenu(file, this, [this](const QString& what, const QString& why, const QString& details) {
            tell(what, why, details);
        });
    menuBar()->addMenu(menu);
    if (sampleIfNone) {
        QTimer::singleShot(0, menu, &CatalogueMenu::importSampleIfNone);
    }
}

Quote MainWindow::currentQuote() const
{
    return Quote{.customer = customer_->text(),
                 .number = number_->text(),
                 .date = date_->date(),
                 .products = products_->Products()};
}

void MainWindow::showQuote(const Quote& quote, const QString& path)
{
    products_->Show(quote.products);
    customer_->setText(quote.customer);
    number_->setText(quote.number);
    date_->setDate(quote.date);
    path_ = path;
    saved_ = currentQuote();
    updateTitle();
}

bool MainWindow::load(const QString& source, const QString& path)
{
    try {
        showQuote(readQuote(source, checkProducts), path);
        return true;
    } catch (const std::exception& error) {
        tell(tr("“%1” could not be opened.").arg(QDir::toNativeSeparators(source)), QString::fromUtf8(error.what()));
        return false;
    }
}

bool MainWindow::open(const QString& path)
{
    return mayDiscard() && load(path, path);
}

bool MainWindow::openSample(const QString& name)
{
    return mayDiscard() && load(QStringLiteral(":/samples/%1.quote.json").arg(name), {});
}

void MainWindow::newQuote()
{
    if (!mayDiscard()) {
        return;
    }
    try {
        showQuote(emptyQuote(), {});
        customer_->setFocus();
    } catch (const RuntimeError& error) {
        tell(tr("A new quote could not be made."), QString::fromUtf8(error.what()));
    }
}

void MainWindow::chooseAndOpen()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Open Quote"), path_, kFilter);
    if (!path.isEmpty()) {
        open(path);
    }
}

void MainWindow::saveFile()
{
    save();
}

void MainWindow::saveAsFile()
{
    saveAs();
}

bool MainWindow::save()
{
    return path_.isEmpty() ? saveAs() : saveTo(path_);
}

bool MainWindow::saveAs()
{
    QString name = number_->text().isEmpty() ? tr("Quote") : number_->text();
    name.replace(u'/', u'-'); // a quote's number may contain a slash, but a file name may not
    QFileDialog dialog(this, tr("Save Quote"), {}, kFilter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("quote.json"));
    dialog.selectFile(path_.isEmpty() ? name + QStringLiteral(".quote.json") : path_);
    return dialog.exec() == QDialog::Accepted && saveTo(dialog.selectedFiles().constFirst());
}

bool MainWindow::saveTo(const QString& path)
{
    try {
        const Quote quote = currentQuote();
        writeQuote(path, quote);
        saved_ = quote;
        path_ = path;
        updateTitle();
        return true;
    } catch (const std::exception& error) {
        tell(tr("“%1” could not be saved.").arg(QDir::toNativeSeparators(path)), QString::fromUtf8(error.what()));
        return false;
    }
}

bool MainWindow::isUnsaved() const
{
    if (customer_->text() != saved_.customer || number_->text() != saved_.number || date_->date() != saved_.date) {
        return true;
    }
    try {
        // Saving does not clear the list's dirty flag. The flag only saves reading a list that was never changed.
        return products_->Dirty() && products_->Products() != saved_.products;
    } catch (const RuntimeError&) {
        return true; // the list has exceeded the manager's size limit, so it cannot be read and has not been saved
    }
}

bool MainWindow::mayDiscard()
{
    if (!isUnsaved()) {
        return true;
    }
    QMessageBox box(QMessageBox::Question, tr("Orvan Desk"), tr("Save the changes to this quote?"),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box.setInformativeText(tr("Changes that are not saved will be lost."));
    box.setDefaultButton(QMessageBox::Save);
    const int answer = box.exec();
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && save());
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(mayDiscard());
}

void MainWindow::updateTitle()
{
    titleUpdatePending_ = false;
    const QString name = !path_.isEmpty()             ? QFileInfo(path_).fileName()
                         : !number_->text().isEmpty() ? number_->text()
                                                      : tr("New quote");
    setWindowTitle(tr("%1[*] – Orvan Desk").arg(name));
    setWindowModified(isUnsaved());
}

void MainWindow::tell(const QString& what, const QString& why, const QString& details)
{
    if (onProblem) {
        onProblem(what + u' ' + why);
        return;
    }
    QMessageBox box(QMessageBox::Warning, tr("Orvan Desk"), what + QStringLiteral("\n\n") + why, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText); // a file's name or content must not be taken for HTML
    box.setDetailedText(details);
    box.exec();
}

} // namespace orvan::desk

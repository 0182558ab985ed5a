#include "MainWindow.h"

#include "DeskSettings.h"
#include "OutsideText.h"
#include "PlainBox.h"
#include "QuoteLocale.h"
#include "StatusLine.h"
#include "WatchedProducts.h"
#include "servers/ServerCatalogue.h"
#include "settings/SystemSettings.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "orvan/hosting/QtHost.h"
#include "orvan/ui/qt/Translation.h"
#include "orvan/view/ProductViewPrefs.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDateEdit>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QStatusBar>
#include <QStyleOptionSpinBox>
#include <QTimer>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWindow>

#include <limits>
#include <utility>

namespace orvan::desk {

namespace {

const QString kFormName = QStringLiteral("OrvanDeskQuote");

/// The list view's columns at the desk's first start: quantity and extended price, with widths that suit this window.
/// The list view's own defaults are made for a narrower window.
constexpr std::string_view kFirstPreferences = "4~1~480^7500^1200^1755^1200^1800^1200^1800^3600";

/// Milliseconds from a change to its recovery copy. Later changes do not prolong it, so that a user who types without a
/// pause has a copy, too.
constexpr int kBeforeRecoveryCopy = 1000;

/// The short date format of the user's locale, but with four digits of the year, to tell 1926 from 2026.
QString dateFormat()
{
    QString format = QLocale().dateFormat(QLocale::ShortFormat);
    return format.contains(QStringLiteral("yyyy")) ? format
                                                   : format.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
}

constexpr int kFieldHeight = 28; // pixels
/// Pixels. In a smaller window the list view's buttons would cover its total.
constexpr QSize kLeastSize(440, 320);

QLabel* labelFor(QWidget* field, const QString& text)
{
    auto* label = new QLabel(text);
    label->setBuddy(field);
    return label;
}

/// The mouse wheel changes the date only while the box has the focus. Otherwise a user who scrolls, and whose pointer
/// merely rests on the box, would change the quote unnoticed.
class DateField final : public QDateEdit {
public:
    DateField() { setFocusPolicy(Qt::StrongFocus); } // by default the wheel gives the box the focus

protected:
    /// Tab leaves the box, and does not go from the day to the month: the arrow keys do that.
    bool focusNextPrevChild(bool next) override
    {
        return QWidget::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call): passes over QDateTimeEdit's
    }

    /// A date that takes no input looks as the line edits beside it do.
    void initStyleOption(QStyleOptionSpinBox* option) const override
    {
        QDateEdit::initStyleOption(option);
        if (isReadOnly()) {
            option->palette.setBrush(QPalette::Base, palette().brush(QPalette::Window));
        }
    }

    void wheelEvent(QWheelEvent* event) override
    {
        if (hasFocus()) {
            QDateEdit::wheelEvent(event);
        } else {
            event->ignore();
        }
    }
};

} // namespace

MainWindow::MainWindow()
    : recovery_(defaultRecoveryFolder(), [this](const UserText& problem) {
          // From the writing thread. A message box would be in the way of a user who types.
          QMetaObject::invokeMethod(
              this, [this, problem] { statusBar()->showMessage(qt::boundedText(qt::translated(problem))); },
              Qt::QueuedConnection);
      })
{
    watchProducts();                           // before there is a list view
    useTheme(themeNamed(keptText(kThemeKey))); // before there are widgets that would have to change
    withSettings([](ui::SettingsStore& settings) {
        seedProductViewPrefs(settings, kFormName.toStdString(), kFirstPreferences);
    });
    status_ = new StatusLine(*statusBar());
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
    setMinimumSize(kLeastSize);
    recoveryTimer_.setSingleShot(true);
    recoveryTimer_.setInterval(kBeforeRecoveryCopy);
    connect(&recoveryTimer_, &QTimer::timeout, this, &MainWindow::updateRecoveryCopy);
    titleTimer_.setSingleShot(true);
    titleTimer_.setInterval(0);
    connect(&titleTimer_, &QTimer::timeout, this, &MainWindow::updateTitle);
    connect(qApp, &QGuiApplication::commitDataRequest, this, &MainWindow::keepUnsavedWork);
    history_ = new QuoteHistory(*products_, this);
    history_->watch(*customer_, tr("Customer"));
    history_->watch(*number_, tr("Quote Number"));
    history_->watch(*date_, tr("Date"));
    makeMenus();
    makeListMenus();
    showNew();
    connect(products_, &ProductViewWidget::changed, this, &MainWindow::listEdited);
    connect(products_, &ProductViewWidget::editorClosed, this, &MainWindow::updateTitle);
    for (QLineEdit* const field : {customer_, number_}) {
        connect(field, &QLineEdit::textChanged, this, &MainWindow::quoteChanged);
    }
    connect(date_, &QDateEdit::dateChanged, this, &MainWindow::quoteChanged);
    connect(history_, &QuoteHistory::applied, this, &MainWindow::quoteChanged);
    connect(history_, &QuoteHistory::failed, this,
            [this](const QString& why) { tell(tr("This could not be undone."), why); });
}

MainWindow::~MainWindow() = default;

void MainWindow::listEdited()
{
    listChanged_ = true;
    keepSoon();
    if (!QApplication::activeModalWidget()) { // in an open editor the user may still take the change back
        titleTimer_.start();
    }
}

void MainWindow::quoteChanged()
{
    keepSoon();
    if (!QApplication::activeModalWidget()) {
        updateTitle();
    }
}

void MainWindow::keepSoon()
{
    if (!recoveryTimer_.isActive()) {
        recoveryTimer_.start();
    }
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
    for (QLineEdit* const field : {customer_, number_}) {
        field->setMaxLength(std::numeric_limits<int>::max()); // by default it cuts what a file holds
    }
    date_ = new DateField;
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

Quote MainWindow::currentQuote() const
{
    return Quote{.customer = customer_->text(),
                 .number = number_->text(),
                 .date = date_->date(),
                 .products = products_->Products(),
                 .currency = currency_,
                 .unknown = file_.saved().unknown};
}

void MainWindow::showQuote(const Quote& quote)
{
    setReadOnly(false);
    currency_ = showCurrency(quote.currency);
    products_->Show(quote.products);
    listChanged_ = false;
    status_->startAnew();
    customer_->setText(quote.customer);
    number_->setText(quote.number);
    date_->setDate(quote.date);
    history_->restart();
    updateTitle();
}

void MainWindow::setReadOnly(bool readOnly)
{
    products_->setReadOnly(readOnly);
    customer_->setReadOnly(readOnly);
    number_->setReadOnly(readOnly);
    date_->setReadOnly(readOnly);
    date_->setCalendarPopup(!readOnly); // no arrow where there is nothing to choose
    date_->setButtonSymbols(readOnly ? QAbstractSpinBox::NoButtons : QAbstractSpinBox::UpDownArrows);
}

bool MainWindow::isUnsaved() const
{
    if (customer_->text() != file_.saved().customer || number_->text() != file_.saved().number ||
        date_->date() != file_.saved().date || currency_ != file_.saved().currency) {
        return true;
    }
    try {
        return listChanged_ && watchedProducts() != file_.saved().products;
    } catch (const RuntimeError&) {
        return true; // the list has exceeded the manager's size limit, so it cannot be read and has not been saved
    }
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(mayDiscard());
    if (event->isAccepted()) {
        recoveryTimer_.stop(); // what has just been discarded is not kept again
        file_.unlock();
    }
}

void MainWindow::updateTitle()
{
    const QString name = !file_.path().isEmpty()      ? shortFileName(file_.path())
                         : !number_->text().isEmpty() ? shortened(number_->text())
                                                      : tr("New quote");
    const QString shown = products_->isReadOnly() ? tr("%1 (read only)").arg(name) : name;
    setWindowTitle(tr("%1[*] – Orvan Desk").arg(qt::titleText(shown)));
    // Only where it differs: Qt would write the window's title and its icon's again, and window managers paint it
    // twice.
    if (const bool unsaved = isUnsaved(); unsaved != isWindowModified()) {
        setWindowModified(unsaved);
    }
    status_->notice(isWindowModified());
}

void MainWindow::tell(const QString& what, const QString& why, const QString& details)
{
    if (onProblem) {
        onProblem(qt::boundedText(what + u' ' + why));
        return;
    }
    PlainBox box(QMessageBox::Warning, what + QStringLiteral("\n\n") + why, QMessageBox::Ok, this);
    box.setDetailedText(details);
    box.exec();
}

void MainWindow::tellSettingsProblems()
{
    if (const QStringList& problems = systemSettings().problems; !problems.isEmpty()) {
        tell(tr("Some settings of this computer cannot be used."), problems.join(u'\n'));
    }
}

} // namespace orvan::desk

// orvan-bench-bare: a window with as many widgets of Qt's own as the desk's window has, and nothing else of the desk.
// It ends at its first paint.
//
// The desk writes amounts with ICU and reads its catalogue with SQLite. So this program has ICU write one amount and
// SQLite read one row, too. It shows how much memory any program takes that uses these libraries and widgets. Its
// argument is the catalogue's file name.

#include "benchmarks/FirstPaint.h"

#include <QDateEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <sqlite3.h>
#include <unicode/numberformatter.h>

namespace {

constexpr int kRows = 14; // as many as the sample quote has
constexpr int kColumns = 9, kShownColumns = 2;
constexpr int kButtons = 7;
constexpr int kCommands = 8; // of a menu

QString amountText()
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString text = icu::number::NumberFormatter::withLocale(icu::Locale::getUS())
                                        .unit(icu::CurrencyUnit(u"USD", status))
                                        .formatDecimal("12471.5", status)
                                        .toString(status);
    return U_SUCCESS(status) ? QString::fromUtf16(text.getBuffer(), text.length()) : QString();
}

/// Whether the catalogue has a table.
bool readCatalogue(const char* file)
{
    sqlite3* catalogue = nullptr;
    sqlite3_stmt* query = nullptr;
    const bool read =
        sqlite3_open_v2(file, &catalogue, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK &&
        sqlite3_prepare_v2(catalogue, "SELECT name FROM sqlite_schema", -1, &query, nullptr) == SQLITE_OK &&
        sqlite3_step(query) == SQLITE_ROW;
    sqlite3_finalize(query);
    sqlite3_close(catalogue);
    return read;
}

QTableWidget* list()
{
    auto* const table = new QTableWidget(kRows, kColumns);
    for (int row = 0; row < kRows; ++row) {
        for (int column = 0; column < kColumns; ++column) {
            table->setItem(row, column, new QTableWidgetItem(QStringLiteral("Task chair, mesh back %1").arg(row)));
        }
    }
    for (int column = kShownColumns; column < kColumns; ++column) {
        table->setColumnHidden(column, true);
    }
    return table;
}

QWidget* middle()
{
    auto* const widget = new QWidget;
    auto* const rows = new QVBoxLayout(widget);
    auto* const form = new QFormLayout;
    form->addRow(QStringLiteral("Customer:"), new QLineEdit(QStringLiteral("Lindqvist & Partners")));
    form->addRow(QStringLiteral("Number:"), new QLineEdit(QStringLiteral("Q-2041")));
    form->addRow(QStringLiteral("Date:"), new QDateEdit(QDate(2026, 3, 4)));
    rows->addLayout(form);
    rows->addWidget(list());
    auto* const bar = new QHBoxLayout;
    for (int i = 0; i < kButtons; ++i) {
        auto* const button = new QToolButton;
        button->setText(QStringLiteral("+"));
        bar->addWidget(button);
    }
    bar->addStretch();
    bar->addWidget(new QLabel(QStringLiteral("Total: ") + amountText()));
    rows->addLayout(bar);
    return widget;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const bool read = argc == 2 && readCatalogue(argv[1]);
    QMainWindow window;
    window.resize(780, 560); // the size of the desk's window
    for (const char* const name : {"&File", "&Edit", "&Product", "&View", "&Catalogue", "&Help"}) {
        QMenu* const menu = window.menuBar()->addMenu(QString::fromLatin1(name));
        for (int i = 0; i < kCommands; ++i) {
            menu->addAction(QStringLiteral("Command %1").arg(i));
        }
    }
    window.setCentralWidget(middle());
    window.statusBar()->showMessage(QStringLiteral("Catalogue: 1,000 entries"));
    window.show();
    orvan::bench::endAtFirstPaint([&] { return read; });
}

#include "PriceListDialog.h"

#include "KeptChoices.h"
#include "ListColumns.h"

#include "apps/orvan-desk/OutsideText.h"
#include "apps/orvan-desk/exchange/FormatChoice.h"
#include "apps/orvan-desk/exchange/ImportParts.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/lists/Encoding.h"
#include "orvan/ui/qt/Translation.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>

namespace orvan::desk {

namespace {

constexpr std::size_t kShownRows = 50;
constexpr qint64 kCountingTime = 1000; // milliseconds: a longer list is counted up to here only
constexpr int kLastLine = 1'000'000;

/// A count in the form that Qt's plurals take.
int clamped(std::uint64_t count)
{
    return static_cast<int>(std::min<std::uint64_t>(count, std::numeric_limits<int>::max()));
}

QString rowCount(std::uint64_t count)
{
    return count == 1 ? PriceListDialog::tr("1 row") : PriceListDialog::tr("%Ln rows", nullptr, clamped(count));
}

QString productCount(std::uint64_t count)
{
    return count == 1 ? PriceListDialog::tr("1 product") : PriceListDialog::tr("%Ln products", nullptr, clamped(count));
}

QComboBox* encodingChoice()
{
    auto* const box = new QComboBox;
    for (const auto& [name, shown] : {std::pair("UTF-8", PriceListDialog::tr("Unicode (UTF-8)")),
                                      {"UTF-16", PriceListDialog::tr("Unicode (UTF-16)")},
                                      {"windows-1252", PriceListDialog::tr("Western Europe (Windows-1252)")},
                                      {"windows-1250", PriceListDialog::tr("Central Europe (Windows-1250)")},
                                      {"windows-1251", PriceListDialog::tr("Cyrillic (Windows-1251)")},
                                      {"windows-1253", PriceListDialog::tr("Greek (Windows-1253)")},
                                      {"windows-1254", PriceListDialog::tr("Turkish (Windows-1254)")},
                                      {"ISO-8859-2", PriceListDialog::tr("Central Europe (ISO 8859-2)")},
                                      {"ISO-8859-5", PriceListDialog::tr("Cyrillic (ISO 8859-5)")},
                                      {"KOI8-R", PriceListDialog::tr("Cyrillic (KOI8-R)")},
                                      {"IBM850", PriceListDialog::tr("Western Europe (DOS)")}}) {
        box->addItem(shown, QLatin1String(name));
    }
    return box;
}

QSpinBox* lineChoice(int least)
{
    auto* const box = new QSpinBox;
    box->setRange(least, kLastLine);
    box->setKeyboardTracking(false); // the list is not read anew for each digit
    return box;
}

} // namespace

PriceListDialog::PriceListDialog(const QString& list, QWidget* parent)
    : QDialog(parent), file_(pathOf(list)), read_(preview({}))
{
    setWindowTitle(tr("Import Price List “%1”").arg(qt::titleText(shortFileName(list))));
    shape_ = shapeOf(read_.form.header);
    chosen_ = keptChoices(shape_);
    makeWidgets();
    connectChoices();
    read();
    const int em = fontMetrics().averageCharWidth();
    resize(QSize(120 * em, 36 * fontMetrics().lineSpacing()).boundedTo(screen()->availableSize() * 9 / 10));
    // The boxes to choose in come first in the order of focus, but the list is usually understood.
    import_->setFocus();
    connect(this, &QDialog::accepted, this, [this] { keepChoices(shape_, chosen_); });
}

void PriceListDialog::makeWidgets()
{
    table_ = new QTableWidget;
    setUpImportTable(*table_);
    table_->setAccessibleName(tr("What was understood of the list"));
    problems_ = new QPlainTextEdit;
    setUpProblems(*problems_);
    problems_->setAccessibleName(tr("Rows that cannot be imported"));
    skip_ = new QCheckBox(tr("&Leave out the rows that have errors"));
    summary_ = new QLabel;
    summary_->setTextFormat(Qt::PlainText);
    summary_->setWordWrap(true);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    import_ = new QPushButton;
    buttons->addButton(import_, QDialogButtonBox::AcceptRole);
    import_->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const contents = new QWidget;
    auto* const inner = new QVBoxLayout(contents);
    inner->setContentsMargins({});
    inner->addLayout(makeChoices());
    inner->addWidget(table_, 1);
    inner->addWidget(problems_);
    inner->addWidget(skip_);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(scrolling(contents), 1);
    column->addWidget(summary_);
    column->addWidget(buttons);
}

void PriceListDialog::addChoice(QGridLayout& grid, const QString& caption, QWidget* box, int at)
{
    auto* const label = new QLabel(caption);
    label->setBuddy(box);
    grid.addWidget(label, at / 2, at % 2 * 2);
    grid.addWidget(box, at / 2, at % 2 * 2 + 1);
}

QLayout* PriceListDialog::makeChoices()
{
    encoding_ = encodingChoice();
    sheet_ = new QComboBox;
    delimiter_ = delimiterChoice();
    decimal_ = decimalChoice();
    headerLine_ = lineChoice(0);
    headerLine_->setSpecialValueText(tr("none"));
    firstLine_ = lineChoice(1);
    auto* const grid = new QGridLayout;
    const bool workbook = read_.form.workbook != nullptr;
    if (workbook) {
        for (const std::string& name : read_.form.sheets) {
            sheet_->addItem(importedText(name));
        }
        addChoice(*grid, tr("&Sheet"), sheet_, 0);
    } else {
        addChoice(*grid, tr("&Encoding"), encoding_, 0);
        addChoice(*grid, tr("&Separator"), delimiter_, 2);
    }
    addChoice(*grid, tr("&Decimals"), decimal_, workbook ? 2 : 4);
    addChoice(*grid, tr("Line with the &names of the columns"), headerLine_, 1);
    addChoice(*grid, tr("First line with a &product"), firstLine_, 3);
    grid->setColumnMinimumWidth(2, 3 * fontMetrics().averageCharWidth());
    grid->setColumnStretch(4, 1);
    for (QWidget* const unused : {static_cast<QWidget*>(workbook ? encoding_ : sheet_),
                                  static_cast<QWidget*>(workbook ? delimiter_ : nullptr)}) {
        if (unused) {
            unused->setParent(this);
            unused->hide();
        }
    }
    return grid;
}

void PriceListDialog::connectChoices()
{
    // Another way to cut the list into cells makes what was said about its columns and lines void.
    const auto cutAnew = [this] {
        chosen_.columns = {};
        chosen_.headerLine.reset();
        chosen_.firstLine = 0;
        read();
    };
    connect(encoding_, &QComboBox::activated, this, [this] {
        chosen_.encoding = encoding_->currentData().toString().toStdString();
        read();
    });
    connect(sheet_, &QComboBox::activated, this, [this, cutAnew](int sheet) {
        chosen_.sheet = read_.form.sheets.at(static_cast<std::size_t>(sheet));
        cutAnew();
    });
    connect(delimiter_, &QComboBox::activated, this, [this, cutAnew] {
        chosen_.delimiter = chosenCharacter(*delimiter_);
        cutAnew();
    });
    connect(decimal_, &QComboBox::activated, this, [this] {
        chosen_.decimalSeparator = chosenCharacter(*decimal_);
        read();
    });
    connect(headerLine_, &QSpinBox::valueChanged, this, [this](int line) {
        chosen_.headerLine = static_cast<std::uint64_t>(line);
        chosen_.columns = line > 0 ? CatalogueImportOptions::ColumnNames() : numbered(read_.columns);
        chosen_.firstLine = 0;
        read();
    });
    connect(firstLine_, &QSpinBox::valueChanged, this, [this](int line) {
        chosen_.firstLine = static_cast<std::uint64_t>(line);
        read();
    });
    connect(skip_, &QCheckBox::toggled, this, &PriceListDialog::judge);
}

ListPreview PriceListDialog::preview(const CatalogueImportOptions& options) const
{
    QElapsedTimer timer;
    timer.start();
    return previewList(file_, options, kShownRows, [&timer] { return timer.elapsed() < kCountingTime; });
}

void PriceListDialog::read()
{
    failure_.clear();
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        read_ = preview(chosen_);
    } catch (const RuntimeError& error) {
        failure_ = qt::translated(error);
        read_.rows.clear();
    }
    QGuiApplication::restoreOverrideCursor();
    showAll();
}

void PriceListDialog::showAll()
{
    showChoices();
    showTable();
    judge();
}

CatalogueImportOptions PriceListDialog::options() const
{
    CatalogueImportOptions options = chosen_;
    options.columns = numbered(read_.columns);
    options.decimalSeparator = read_.decimalSeparator;
    options.headerLine = read_.form.headerLine;
    options.firstLine = read_.form.firstLine;
    options.encoding = read_.form.encoding;
    options.delimiter = read_.form.delimiter;
    options.sheet = read_.form.workbook ? "#" + std::to_string(read_.form.sheet + 1) : std::string();
    options.skipBadRows = skip_->isChecked();
    return options;
}

void PriceListDialog::showChoices()
{
    const QString encoding = QString::fromStdString(read_.form.encoding);
    if (!encoding.isEmpty() && encoding_->findData(encoding) < 0) {
        encoding_->addItem(encoding, encoding);
    }
    encoding_->setCurrentIndex(encoding_->findData(encoding));
    sheet_->setCurrentIndex(static_cast<int>(read_.form.sheet));
    choose(*delimiter_, read_.form.delimiter);
    if (read_.ambiguousPrice.empty()) {
        choose(*decimal_, read_.decimalSeparator);
    } else {
        decimal_->setCurrentIndex(-1); // the user has to say it
    }
    const auto show = [](QSpinBox& box, std::uint64_t line) {
        const QSignalBlocker blocker(box);
        box.setValue(static_cast<int>(std::min<std::uint64_t>(line, kLastLine)));
    };
    show(*headerLine_, read_.form.headerLine);
    show(*firstLine_, read_.form.firstLine);
}

QString PriceListDialog::problem() const
{
    if (!failure_.isEmpty()) {
        return failure_;
    }
    if (!read_.columns.name && !read_.columns.partNum) {
        return tr("Choose above which column has the name or the part number.");
    }
    if (!read_.ambiguousPrice.empty()) {
        return tr("Prices such as “%1” can be read in two ways. Choose the decimals above.")
            .arg(importedText(read_.ambiguousPrice));
    }
    if (read_.entries == 0) {
        return tr("The list has no products to import.");
    }
    return read_.refusedCount > 0 && !skip_->isChecked()
               ? tr("Nothing can be imported, because of errors in %1.").arg(rowCount(read_.refusedCount))
               : QString();
}

QString PriceListDialog::summary() const
{
    QStringList texts{read_.complete ? tr("%1 understood.").arg(productCount(read_.entries))
                                     : tr("More than %1 understood.").arg(productCount(read_.entries))};
    if (!read_.columns.unitPrice) {
        texts << tr("No column has the unit price.");
    } else if (read_.withoutPrice > 0) {
        texts << tr("%1 without a price.").arg(productCount(read_.withoutPrice));
    }
    if (!read_.columns.partNum) {
        texts << tr("No column has the part number.");
    }
    if (!read_.columns.name) {
        texts << tr("No column has the name.");
    }
    if (read_.refusedCount > 0) {
        texts << tr("%1 left out because of errors.").arg(rowCount(read_.refusedCount));
    }
    if (read_.skippedCount > 0) {
        texts << tr("%1 skipped: blank, repeated headers, totals.").arg(rowCount(read_.skippedCount));
    }
    return texts.join(u' ');
}

void PriceListDialog::judge()
{
    QStringList lines;
    for (const RefusedRow& row : read_.refused) {
        lines << tr("Line %L1: %2").arg(row.line).arg(shortened(qt::translated(row.reason)));
    }
    if (read_.refusedCount > read_.refused.size()) {
        lines << tr("and %1 more").arg(rowCount(read_.refusedCount - read_.refused.size()));
    }
    const QString why = problem();
    problems_->setPlainText(lines.join(u'\n'));
    problems_->setVisible(read_.refusedCount > 0);
    skip_->setVisible(read_.refusedCount > 0);
    summary_->setText(why.isEmpty() ? summary() : why);
    import_->setText(read_.complete ? tr("&Import %1").arg(productCount(read_.entries)) : tr("&Import"));
    import_->setEnabled(why.isEmpty());
}

} // namespace orvan::desk

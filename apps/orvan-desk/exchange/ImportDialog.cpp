#include "ImportDialog.h"

#include "FormatChoice.h"
#include "ImportParts.h"

#include "apps/orvan-desk/OutsideText.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/ui/qt/Translation.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace orvan::desk {

namespace {

QString lineCount(std::size_t count)
{
    return count == 1 ? ImportDialog::tr("1 line") : ImportDialog::tr("%Ln lines", nullptr, static_cast<int>(count));
}

/// Each refused line, with its place and the reason.
QString textOf(const std::vector<RefusedRow>& refused, std::uint64_t count)
{
    QStringList lines;
    for (const RefusedRow& row : refused) {
        lines << ImportDialog::tr("Line %L1: %2").arg(row.line).arg(shortened(qt::translated(row.reason)));
    }
    if (count > refused.size()) {
        lines << ImportDialog::tr("and %1 more").arg(lineCount(count - refused.size()));
    }
    return lines.join(u'\n');
}

} // namespace

ImportDialog::ImportDialog(ImportedFile file, const ProductRecord& rules, WhyNot whyNot, QWidget* parent)
    : QDialog(parent), file_(std::move(file)), rules_(rules), whyNot_(std::move(whyNot)), how_(file_.reading),
      read_(readLines(file_.bytes, file_.name.toStdString(), how_, rules_)), table_(new QTableWidget),
      problems_(new QPlainTextEdit), append_(new QRadioButton(tr("&Append to the quote's lines"))),
      replace_(new QRadioButton(tr("&Replace the quote's lines"))), summary_(new QLabel), import_(new QPushButton)
{
    setWindowTitle(tr("Import Lines from “%1”").arg(qt::titleText(file_.name)));
    setUpImportTable(*table_);
    table_->setAccessibleName(tr("What was understood of the file"));
    setUpProblems(*problems_);
    problems_->setAccessibleName(tr("Lines that cannot be imported"));
    append_->setChecked(true);
    summary_->setTextFormat(Qt::PlainText);
    summary_->setWordWrap(true);
    auto* const where = new QHBoxLayout;
    where->addWidget(append_);
    where->addWidget(replace_);
    where->addStretch();
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    buttons->addButton(import_, QDialogButtonBox::AcceptRole);
    import_->setDefault(true);
    auto* const contents = new QWidget;
    auto* const inner = new QVBoxLayout(contents);
    inner->setContentsMargins({});
    inner->addLayout(makeChoices());
    inner->addWidget(table_, 1);
    inner->addWidget(problems_);
    inner->addLayout(where);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(scrolling(contents), 1);
    column->addWidget(summary_);
    column->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(replace_, &QRadioButton::toggled, this, &ImportDialog::judge);
    showChoices();
    showTable();
    judge();
    const int em = fontMetrics().averageCharWidth();
    resize(QSize(110 * em, 34 * fontMetrics().lineSpacing()).boundedTo(screen()->availableSize() * 9 / 10));
}

QLayout* ImportDialog::makeChoices()
{
    delimiter_ = delimiterChoice();
    decimal_ = decimalChoice();
    header_ = new QCheckBox(tr("The &first line has the names of the columns"));
    auto* const grid = new QGridLayout;
    const auto add = [grid](const QString& caption, QWidget* box, int at) {
        auto* const label = new QLabel(caption);
        label->setBuddy(box);
        grid->addWidget(label, 0, at);
        grid->addWidget(box, 0, at + 1);
    };
    add(tr("&Separator"), delimiter_, 0);
    add(tr("&Decimals"), decimal_, 2);
    grid->addWidget(header_, 1, 0, 1, 5);
    grid->setColumnStretch(4, 1);
    connect(delimiter_, &QComboBox::activated, this, [this] {
        how_.delimiter = chosenCharacter(*delimiter_);
        how_.columns.reset();
        how_.hasHeader.reset();
        read();
    });
    connect(decimal_, &QComboBox::activated, this, [this] {
        how_.decimalSeparator = chosenCharacter(*decimal_);
        read();
    });
    connect(header_, &QCheckBox::clicked, this, [this](bool checked) {
        how_.hasHeader = checked;
        how_.columns.reset();
        read();
    });
    return grid;
}

bool ImportDialog::replaces() const
{
    return replace_->isChecked();
}

void ImportDialog::read()
{
    failure_.clear();
    try {
        read_ = readLines(file_.bytes, file_.name.toStdString(), how_, rules_);
    } catch (const RuntimeError& error) {
        failure_ = qt::translated(error);
        read_ = {};
        read_.format = {chosenCharacter(*delimiter_), chosenCharacter(*decimal_)};
    }
    showChoices();
    showTable();
    judge();
}

void ImportDialog::showChoices()
{
    choose(*delimiter_, read_.format.delimiter);
    choose(*decimal_, read_.format.decimalSeparator);
    header_->setChecked(read_.hasHeader);
}

void ImportDialog::showTable()
{
    const auto columns = static_cast<int>(read_.columns.size());
    table_->clear();
    table_->setColumnCount(columns);
    table_->setRowCount(columns > 0 ? static_cast<int>(read_.shown.size()) + kFirstImportRow : 0);
    QStringList captions, lines{tr("Line")};
    for (int column = 0; column < columns; ++column) {
        captions << (read_.hasHeader ? importedText(read_.captions[static_cast<std::size_t>(column)])
                                     : tr("Column %L1").arg(column + 1));
        table_->setCellWidget(0, column, makeFieldChoice(column));
    }
    const QBrush grey = palette().brush(QPalette::PlaceholderText);
    for (std::size_t row = 0; row < read_.shown.size(); ++row) {
        const ShownLine& line = read_.shown[row];
        lines << (line.refused ? tr("%L1 !").arg(line.line) : QLocale().toString(qulonglong(line.line)));
        for (std::size_t at = 0; at < line.cells.size() && at < read_.columns.size(); ++at) {
            auto* const item = new QTableWidgetItem(importedText(line.cells[at]));
            const std::optional<LineField> field = read_.columns[at];
            if (field && rowOf(*field).amount) {
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter | Qt::AlignAbsolute);
            }
            if (!field || line.refused) {
                item->setForeground(grey);
            }
            table_->setItem(static_cast<int>(row) + kFirstImportRow, static_cast<int>(at), item);
        }
    }
    table_->setHorizontalHeaderLabels(captions);
    table_->setVerticalHeaderLabels(lines);
    fitImportTable(*table_);
}

QComboBox* ImportDialog::makeFieldChoice(int column)
{
    auto* const box = new FieldChoice(*table_, column);
    box->addItem(tr("(not imported)"));
    for (const LineFieldRow& row : kLineFields) {
        box->addItem(captionOf(row.field));
    }
    const std::optional<LineField> field = read_.columns[static_cast<std::size_t>(column)];
    box->setCurrentIndex(field ? static_cast<int>(*field) + 1 : 0);
    box->setAccessibleName(tr("What column %L1 has").arg(column + 1));
    // Later, because the table makes its boxes anew, this one included.
    connect(
        box, &QComboBox::activated, this, [this, column](int choice) { chooseField(column, choice); },
        Qt::QueuedConnection);
    return box;
}

void ImportDialog::chooseField(int column, int choice)
{
    LineColumns columns = read_.columns;
    if (column >= static_cast<int>(columns.size())) {
        return; // the file has been read in another way meanwhile
    }
    const std::optional<LineField> field =
        choice > 0 ? std::optional(kLineFields[static_cast<std::size_t>(choice) - 1].field) : std::nullopt;
    if (field) {
        std::replace(columns.begin(), columns.end(), field, std::optional<LineField>());
    }
    columns[static_cast<std::size_t>(column)] = field;
    how_.columns = columns;
    how_.hasHeader = read_.hasHeader;
    read();
    table_->cellWidget(0, column)->setFocus();
}

void ImportDialog::judge()
{
    const bool mapped =
        std::any_of(read_.columns.begin(), read_.columns.end(), [](const auto& field) { return field; });
    QString problem;
    if (!failure_.isEmpty()) {
        problem = failure_;
    } else if (!mapped) {
        problem = tr("Choose above what the columns have.");
    } else if (read_.refusedCount > 0) {
        problem = tr("Nothing can be imported, because %1 cannot be understood.").arg(lineCount(read_.refusedCount));
    } else if (read_.lines.empty()) {
        problem = tr("The file has no lines to import.");
    } else {
        problem = whyNot_(read_.lines, replaces());
    }
    problems_->setPlainText(textOf(read_.refused, read_.refusedCount));
    problems_->setVisible(read_.refusedCount > 0);
    summary_->setText(problem.isEmpty() ? tr("%1 understood.").arg(lineCount(read_.lines.size())) : problem);
    import_->setText(read_.lines.size() == 1 ? tr("&Import 1 Line")
                                             : tr("&Import %Ln Lines", nullptr, static_cast<int>(read_.lines.size())));
    import_->setEnabled(problem.isEmpty());
}

} // namespace orvan::desk

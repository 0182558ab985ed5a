// The table of PriceListDialog: the first rows of the list, below the boxes that say what the columns have.

#include "ListColumns.h"
#include "PriceListDialog.h"

#include "apps/orvan-desk/OutsideText.h"
#include "apps/orvan-desk/exchange/ImportParts.h"

#include "orvan/ui/qt/Translation.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTableWidget>

#include <algorithm>
#include <array>

namespace orvan::desk {

namespace {

constexpr int kMostColumns = 200; // that are shown

/// In the order of columnKinds().
QString captionOf(std::size_t kind)
{
    const std::array captions = {PriceListDialog::tr("Item id"), PriceListDialog::tr("Name"),
                                 PriceListDialog::tr("Key"),     PriceListDialog::tr("Part number"),
                                 PriceListDialog::tr("Barcode"), PriceListDialog::tr("Unit price"),
                                 PriceListDialog::tr("Note")};
    static_assert(captions.size() == kColumnKinds);
    return captions[kind];
}

} // namespace

void PriceListDialog::showTable()
{
    const auto columns = std::min(static_cast<int>(read_.form.width), kMostColumns);
    table_->clear();
    table_->setColumnCount(columns);
    table_->setRowCount(columns > 0 ? static_cast<int>(read_.rows.size()) + kFirstImportRow : 0);
    QStringList captions, lines{tr("Line")};
    for (int column = 0; column < columns; ++column) {
        const auto at = static_cast<std::size_t>(column);
        captions << (at < read_.form.header.size() && !read_.form.header[at].empty()
                         ? importedText(read_.form.header[at])
                         : tr("Column %L1").arg(column + 1));
        table_->setCellWidget(0, column, makeColumnChoice(column));
    }
    for (std::size_t row = 0; row < read_.rows.size(); ++row) {
        const PreviewedRow& shown = read_.rows[row];
        lines << (shown.kind == ListReader::Kind::refused ? tr("%L1 !").arg(shown.line)
                                                          : QLocale().toString(qulonglong(shown.line)));
        showRow(static_cast<int>(row) + kFirstImportRow, shown);
    }
    table_->setHorizontalHeaderLabels(captions);
    table_->setVerticalHeaderLabels(lines);
    fitImportTable(*table_);
}

/// A cell that will be imported is shown as it was understood, any other one in grey, as it stands in the list.
void PriceListDialog::showRow(int row, const PreviewedRow& shown)
{
    const QBrush grey = palette().brush(QPalette::PlaceholderText);
    const auto cells = std::min(static_cast<int>(shown.cells.size()), table_->columnCount());
    for (int column = 0; column < cells; ++column) {
        const auto at = static_cast<std::size_t>(column);
        const bool price = read_.columns.unitPrice == at;
        QString text = importedText(shown.cells[at]);
        if (price && shown.unitPrice) {
            text = QLocale().toString(shown.unitPrice->toDouble(), 'f', QLocale::FloatingPointShortest);
        }
        auto* const item = new QTableWidgetItem(text);
        if (price) {
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter | Qt::AlignAbsolute);
        }
        if (!kindOf(read_.columns, column) || shown.kind != ListReader::Kind::entry || (price && !shown.unitPrice)) {
            item->setForeground(grey);
        }
        item->setToolTip(shown.reason.empty() ? QString() : shortened(qt::translated(shown.reason)));
        table_->setItem(row, column, item);
    }
}

QComboBox* PriceListDialog::makeColumnChoice(int column)
{
    auto* const box = new FieldChoice(*table_, column);
    box->addItem(tr("(not imported)"));
    for (std::size_t kind = 0; kind < kColumnKinds; ++kind) {
        box->addItem(captionOf(kind));
    }
    const std::optional<std::size_t> kind = kindOf(read_.columns, column);
    box->setCurrentIndex(kind ? static_cast<int>(*kind) + 1 : 0);
    box->setAccessibleName(tr("What column %L1 has").arg(column + 1));
    // Later, because the table makes its boxes anew, this one included.
    connect(
        box, &QComboBox::activated, this, [this, column](int choice) { chooseColumn(column, choice); },
        Qt::QueuedConnection);
    return box;
}

void PriceListDialog::chooseColumn(int column, int choice)
{
    if (column >= table_->columnCount()) {
        return; // the list has been read in another way meanwhile
    }
    CatalogueColumns columns = read_.columns;
    if (const std::optional<std::size_t> former = kindOf(columns, column)) {
        columns.*columnKinds()[*former].place = std::nullopt;
    }
    if (choice > 0) {
        columns.*columnKinds()[static_cast<std::size_t>(choice) - 1].place = static_cast<std::size_t>(column);
    }
    chosen_.columns = numbered(columns);
    read();
    if (QWidget* const box = table_->cellWidget(0, column)) {
        box->setFocus();
    }
}

} // namespace orvan::desk

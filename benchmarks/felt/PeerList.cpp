#include "benchmarks/felt/PeerList.h"

#include <QHeaderView>
#include <QLocale>
#include <QMessageBox>
#include <QShortcut>

#include <algorithm>

namespace orvan::felt {

namespace {

constexpr const char* kHeads[] = {"No.", "Name", "Part Number", "Price", "Quantity", "Discount", "Extended Price"};
constexpr int kName = 1, kPartNumber = 2;

} // namespace

PeerModel::PeerModel(int products, QObject* parent) : QAbstractTableModel(parent)
{
    for (int i = 0; i < products; ++i) {
        const double price = 19.5 + i % 700, quantity = 1 + i % 23;
        products_.push_back({.name = QStringLiteral("Task chair, mesh back, model %1").arg(i % 97),
                             .partNumber = QStringLiteral("CHR-MSH-%1").arg(i % 89),
                             .note = {},
                             .price = price,
                             .quantity = quantity,
                             .discount = 5,
                             .extended = price * quantity * 0.95});
    }
}

int PeerModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(products_.size());
}

int PeerModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(std::size(kHeads));
}

QVariant PeerModel::data(const QModelIndex& index, int role) const
{
    const bool isText = index.column() == kName || index.column() == kPartNumber;
    if (role == Qt::TextAlignmentRole) {
        return QVariant::fromValue(Qt::AlignVCenter | (isText ? Qt::AlignLeft : Qt::AlignRight));
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    const Product& product = products_[static_cast<std::size_t>(index.row())];
    switch (index.column()) {
    case kName: return product.name;
    case kPartNumber: return product.partNumber;
    case 3: return QLocale().toString(product.price, 'f', 2);
    case 4: return QLocale().toString(product.quantity, 'f', 0);
    case 5: return QLocale().toString(product.discount, 'f', 0);
    case 6: return QLocale().toString(product.extended, 'f', 2);
    default: return index.row() + 1;
    }
}

QVariant PeerModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return orientation == Qt::Horizontal && role == Qt::DisplayRole ? QVariant(QString::fromLatin1(kHeads[section]))
                                                                    : QVariant();
}

bool PeerModel::removeRows(int row, int count, const QModelIndex& parent)
{
    beginRemoveRows(parent, row, row + count - 1);
    products_.erase(products_.begin() + row, products_.begin() + row + count);
    endRemoveRows();
    return true;
}

void PeerModel::moveDown(int row)
{
    beginMoveRows({}, row, row, {}, row + 2);
    std::swap(products_[static_cast<std::size_t>(row)], products_[static_cast<std::size_t>(row) + 1]);
    endMoveRows();
}

PeerList::PeerList(int products, QWidget* parent) : QTableView(parent), model_(new PeerModel(products, this))
{
    setObjectName(QStringLiteral("flexGrid"));
    setModel(model_);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionResizeMode(kName, QHeaderView::Stretch);
    const auto onKey = [this](Qt::Key key, Qt::KeyboardModifiers modifiers, auto action) {
        connect(new QShortcut(QKeySequence(key | modifiers), this), &QShortcut::activated, this, action);
    };
    onKey(Qt::Key_Down, Qt::AltModifier, [this] { moveCurrent(1); });
    onKey(Qt::Key_Up, Qt::AltModifier, [this] { moveCurrent(-1); });
    onKey(Qt::Key_Delete, Qt::NoModifier, [this] { removeCurrent(); });
}

void PeerList::moveCurrent(int by)
{
    const int upper = currentIndex().row() + std::min(by, 0);
    if (upper >= 0 && upper + 1 < model_->rowCount()) {
        model_->moveDown(upper);
        scrollTo(currentIndex());
    }
}

void PeerList::removeCurrent()
{
    if (currentIndex().isValid() && QMessageBox::question(this, QStringLiteral("Delete"),
                                                          QStringLiteral("Delete this product?")) == QMessageBox::Yes) {
        model_->removeRow(currentIndex().row());
    }
}

} // namespace orvan::felt

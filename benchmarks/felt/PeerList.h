// PeerList: a list of products as a host's developer writes it with Qt's own classes: a model, and a table view.
//
// Alt+Down and Alt+Up move the current row, Delete removes it after a question. Ownership: the parent widget. Thread:
// the user-interface thread.
#pragma once

#include <QAbstractTableModel>
#include <QTableView>

#include <vector>

namespace orvan::felt {

class PeerModel final : public QAbstractTableModel {
public:
    PeerModel(int products, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool removeRows(int row, int count, const QModelIndex& parent) override;

    /// Exchanges a row with the one after it.
    void moveDown(int row);

private:
    struct Product {
        QString name, partNumber, note;
        double price, quantity, discount, extended;
    };

    std::vector<Product> products_;
};

class PeerList final : public QTableView {
public:
    PeerList(int products, QWidget* parent);

private:
    void moveCurrent(int by);
    void removeCurrent();

    PeerModel* model_;
};

} // namespace orvan::felt

// DropDownColumns: shows the rows of a list that drops down as columns: texts, and an amount at the end.
//
// There are three columns. The first one is as wide as its texts need, but at most a third of the list. The last one is
// always wide enough for its amounts. The middle one gets the width that is left. Ownership: the view. Thread: the
// user-interface thread.
#pragma once

#include <QStyledItemDelegate>

#include <array>

namespace orvan::qt {

/// The model's role for a row's columns, a QStringList; empty for a row that consists of its text alone.
inline constexpr int kColumnsRole = Qt::UserRole;

class DropDownColumns final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Measures the first `rows` rows and returns the width that they need, without the frame of the list.
    int measure(const QAbstractItemModel& rows, int count, const QStyleOptionViewItem& option);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    std::array<int, 3> widths_{};
};

} // namespace orvan::qt

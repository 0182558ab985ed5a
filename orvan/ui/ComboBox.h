// ComboBox: a line of text with a list that drops down, each row with a number of its own.
//
// Rows count from 0. The box neither completes what is typed nor puts it into the list, and filling
// or clearing the list changes neither the text nor the selection. A platform reads the rows when it
// shows them, so that filling a long list costs nothing. Raises 9 for a row that is not there.
// Ownership: the surface. Thread: the user-interface thread.
#pragma once

#include "orvan/base/UserText.h"
#include "orvan/core_export.h"
#include "orvan/ui/TextEntry.h"

#include <vector>

namespace orvan::ui {

class ORVAN_CORE_INTERNAL ComboBox : public TextEntry {
public:
    using TextEntry::TextEntry;

    std::int32_t count() const { return static_cast<std::int32_t>(rows_.size()); }
    const std::string& itemText(std::int32_t row) const { return rows_[indexOf(row)].text; }
    std::int32_t itemData(std::int32_t row) const { return rows_[indexOf(row)].data; }
    void setItemData(std::int32_t row, std::int32_t data);
    /// Adds a row with data 0 at the end of the list.
    void addItem(std::string text);
    /// The row that addItem made last; -1 for an empty list.
    std::int32_t newIndex() const { return count() - 1; }
    /// Empties the list.
    void clear();

    /// The row that the user chose; -1 when text has been typed or set since, and after clear.
    std::int32_t listIndex() const { return listIndex_; }
    /// If the list is open, shows the rows as they are now.
    void refresh() { doListChanged(); }

    /// A quiet word about the text, such as how many rows match it; shown at the end of the box. Empty: none.
    const UserText& remark() const { return remark_; }
    void setRemark(UserText remark);

    /// What the list that drops down shows of a row. Where there is no handler, or it adds no text, that is the row's
    /// text. The handler is called for each row that comes into view; it must not fail.
    std::function<void(std::int32_t row, std::vector<std::string>& columns)> onShowColumns;
    std::vector<std::string> columns(std::int32_t row) const;

    /// The user chose a row of the list. The text is that of the row by then, and onChange is not raised.
    std::function<void()> onClick;

    void play(const Event& event) override;

protected:
    /// The rows have changed: the platform shows them now if the list is open, else when it is opened next.
    virtual void doListChanged() = 0;
    /// The platform shows remark().
    virtual void doShowRemark() = 0;
    /// The platform reports that the user chose a row. Raises onClick.
    void userChoseRow(std::int32_t row);
    void textChanged() override { listIndex_ = -1; }

private:
    struct Row {
        std::string text;
        std::int32_t data = 0;
    };

    /// `row` as an index. Raises 9 if there is no such row.
    std::size_t indexOf(std::int32_t row) const;

    std::vector<Row> rows_;
    std::int32_t listIndex_ = -1;
    UserText remark_;
};

} // namespace orvan::ui

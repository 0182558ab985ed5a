#include "orvan/ui/ComboBox.h"

#include "orvan/base/RuntimeError.h"

#include <utility>

namespace orvan::ui {

std::size_t ComboBox::indexOf(std::int32_t row) const
{
    if (row < 0 || row >= count()) {
        throw RuntimeError(ErrorNumber::subscriptOutOfRange, {}, name() + ": no row " + std::to_string(row));
    }
    return static_cast<std::size_t>(row);
}

void ComboBox::setItemData(std::int32_t row, std::int32_t data)
{
    rows_[indexOf(row)].data = data;
}

void ComboBox::addItem(std::string text)
{
    rows_.push_back({std::move(text)});
    doListChanged();
}

void ComboBox::clear()
{
    rows_.clear();
    listIndex_ = -1;
    doListChanged();
}

void ComboBox::setRemark(UserText remark)
{
    const bool same = remark == remark_.english();
    remark_ = std::move(remark);
    if (!same) {
        doShowRemark();
    }
}

std::vector<std::string> ComboBox::columns(std::int32_t row) const
{
    std::vector<std::string> shown;
    if (row >= 0 && row < count()) {
        raise(onShowColumns, row, shown);
    }
    return shown;
}

void ComboBox::userChoseRow(std::int32_t row)
{
    const Tapped tapped(surface(), [&] { return told(EventKind::chose, row); });
    replaceText(itemText(row));
    listIndex_ = row;
    raise(onClick);
}

void ComboBox::play(const Event& event)
{
    if (event.kind == EventKind::chose) {
        userChoseRow(event.first);
    } else {
        TextEntry::play(event);
    }
}

} // namespace orvan::ui

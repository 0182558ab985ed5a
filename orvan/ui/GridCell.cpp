#include "orvan/ui/GridCell.h"

#include <limits>
#include <stdexcept>

namespace orvan::ui {

GridValue GridCell::value() const
{
    if (const auto text = this->text()) {
        return std::string(*text);
    }
    if (const auto amount = this->amount()) {
        return *amount;
    }
    return kind() == kWhole ? GridValue(static_cast<std::int32_t>(at<std::int64_t>(0))) : GridValue();
}

void GridCell::setLongText(std::string_view text)
{
    if (kind() == kLongText && longText().size() == text.size()) {
        std::memmove(at<char*>(0), text.data(), text.size()); // the text may be the cell's own
        return;
    }
    if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
        throw std::length_error("a grid cell's text");
    }
    char* const bytes = new char[text.size()];
    text.copy(bytes, text.size());
    release();
    const auto size = static_cast<std::uint32_t>(text.size());
    std::memcpy(bytes_, &bytes, sizeof bytes);
    std::memcpy(bytes_ + kSizeAt, &size, sizeof size);
    setKind(kLongText);
}

} // namespace orvan::ui

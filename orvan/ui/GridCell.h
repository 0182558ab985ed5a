// GridCell: a cell as a grid keeps it: the same values as a GridValue, in sixteen bytes instead of forty.
//
// A list of a million rows has nine million cells, so their size decides how much memory it takes, and for a good part
// how long it takes to show it. A text of up to kMostInside bytes is kept in the cell itself. A longer one has memory
// of its own, which holds nothing but its bytes; GridValue's std::string would keep spare room. Setting the value that
// a cell has already allocates nothing. Ownership: a cell owns its text, so it can be moved, but not copied. Thread: a
// plain value. Raises std::length_error for a text of 4 GiB or more.
#pragma once

#include "orvan/core_export.h"
#include "orvan/ui/GridFormat.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>
#include <utility>

namespace orvan::ui {

class ORVAN_CORE_INTERNAL GridCell {
public:
    GridCell() noexcept = default;
    GridCell(GridCell&& other) noexcept { swap(other); }
    GridCell& operator=(GridCell&& other) noexcept
    {
        if (this != &other) {
            release();
            std::memcpy(bytes_, other.bytes_, sizeof bytes_);
            other.setKind(kEmpty);
        }
        return *this;
    }
    GridCell(const GridCell&) = delete;
    GridCell& operator=(const GridCell&) = delete;
    ~GridCell() { release(); }

    void set(const GridValueView& value)
    {
        if (const auto* const text = std::get_if<std::string_view>(&value)) {
            setText(*text);
        } else if (const auto* const amount = std::get_if<Currency>(&value)) {
            setNumber(kAmount, amount->scaled());
        } else if (const auto* const whole = std::get_if<std::int32_t>(&value)) {
            setNumber(kWhole, *whole);
        } else {
            setNumber(kEmpty, 0);
        }
    }
    [[nodiscard]] GridValue value() const;
    [[nodiscard]] bool holds(const GridValueView& value) const noexcept
    {
        if (const auto* const text = std::get_if<std::string_view>(&value)) {
            return this->text() == *text;
        }
        if (const auto* const amount = std::get_if<Currency>(&value)) {
            return this->amount() == *amount;
        }
        if (const auto* const whole = std::get_if<std::int32_t>(&value)) {
            return kind() == kWhole && at<std::int64_t>(0) == *whole;
        }
        return kind() == kEmpty;
    }

    /// The text, which is valid until the cell changes; nothing in a cell without one.
    [[nodiscard]] std::optional<std::string_view> text() const noexcept
    {
        if (kind() <= kMostInside) {
            return std::string_view(bytes_, kind());
        }
        return kind() == kLongText ? std::optional(longText()) : std::nullopt;
    }
    [[nodiscard]] std::optional<Currency> amount() const noexcept
    {
        return kind() == kAmount ? std::optional(Currency::fromScaled(at<std::int64_t>(0))) : std::nullopt;
    }
    /// A whole number or an amount, as an amount; nothing in other cells.
    [[nodiscard]] std::optional<Currency> number() const noexcept
    {
        return kind() == kWhole ? std::optional(Currency::fromScaled(at<std::int64_t>(0) * Currency::kScale))
                                : amount();
    }

private:
    // The last byte is the kind: of a text that is kept inside its size, else one of these.
    static constexpr std::size_t kMostInside = 15;
    static constexpr std::uint8_t kLongText = 16, kWhole = 17, kAmount = 18, kEmpty = 19;
    /// Where a long text keeps its size; its address, and a number, are kept at 0.
    static constexpr std::size_t kSizeAt = 8;

    std::uint8_t kind() const noexcept { return static_cast<std::uint8_t>(bytes_[kMostInside]); }
    void setKind(std::uint8_t kind) noexcept { bytes_[kMostInside] = static_cast<char>(kind); }
    template <class Value>
    Value at(std::size_t place) const noexcept
    {
        Value value;
        std::memcpy(&value, bytes_ + place, sizeof value);
        return value;
    }
    std::string_view longText() const noexcept { return {at<const char*>(0), at<std::uint32_t>(kSizeAt)}; }

    void release() noexcept
    {
        if (kind() == kLongText) {
            delete[] at<char*>(0);
        }
    }
    void setNumber(std::uint8_t kind, std::int64_t number) noexcept
    {
        release();
        std::memcpy(bytes_, &number, sizeof number);
        setKind(kind);
    }
    void setText(std::string_view text)
    {
        if (text.size() > kMostInside) {
            setLongText(text);
        } else {
            release();
            text.copy(bytes_, text.size());
            setKind(static_cast<std::uint8_t>(text.size()));
        }
    }
    void setLongText(std::string_view text);
    void swap(GridCell& other) noexcept { std::swap(bytes_, other.bytes_); }

    alignas(std::int64_t) char bytes_[kMostInside + 1] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, kEmpty};
};
static_assert(sizeof(GridCell) == 16);

} // namespace orvan::ui

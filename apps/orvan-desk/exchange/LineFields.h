// LineFields: what a line of a quote has, as columns of a file that other programs read and write.
//
// Thread: any.
#pragma once

#include "orvan/core/ProductValues.h"

#include <QString>

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace orvan::ui {
class LocaleService;
}

namespace orvan::desk {

/// In the order in which the columns are written.
enum class LineField : std::uint8_t { partNum, name, qty, unitPrice, discPrcnt, extPrice, note, key };

struct LineFieldRow {
    LineField field;
    std::string ProductValues::*text = nullptr;
    Currency ProductValues::*amount = nullptr;
};

inline constexpr std::array kLineFields = {
    LineFieldRow{.field = LineField::partNum, .text = &ProductValues::partNum},
    LineFieldRow{.field = LineField::name, .text = &ProductValues::name},
    LineFieldRow{.field = LineField::qty, .amount = &ProductValues::qty},
    LineFieldRow{.field = LineField::unitPrice, .amount = &ProductValues::unitPrice},
    LineFieldRow{.field = LineField::discPrcnt, .amount = &ProductValues::discPrcnt},
    LineFieldRow{.field = LineField::extPrice, .amount = &ProductValues::extPrice},
    LineFieldRow{.field = LineField::note, .text = &ProductValues::note},
    LineFieldRow{.field = LineField::key, .text = &ProductValues::key},
};
static_assert([] {
    for (std::size_t i = 0; i < kLineFields.size(); ++i) {
        if (kLineFields[i].field != static_cast<LineField>(i)) {
            return false;
        }
    }
    return true;
}());

[[nodiscard]] constexpr const LineFieldRow& rowOf(LineField field)
{
    return kLineFields[static_cast<std::size_t>(field)];
}

/// In the user's language.
[[nodiscard]] QString captionOf(LineField field);

/// The field that a column of that name has: the caption in the user's language or in English, or a name that is usual
/// in price lists.
[[nodiscard]] std::optional<LineField> fieldNamed(std::string_view column);

/// How a file of lines is written.
struct LineFormat {
    char delimiter = ',';
    char decimalSeparator = '.';
};

/// What spreadsheets expect where the locale's separators are used: a decimal comma goes with semicolons.
[[nodiscard]] LineFormat usualFormat(ui::LocaleService& locale);

} // namespace orvan::desk

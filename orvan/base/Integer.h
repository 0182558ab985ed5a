// textToInteger32: converts a text to a 32-bit integer, by the rules that existing hosts rely on.
//
// Thread: any.
#pragma once

#include <cstdint>
#include <string_view>

namespace orvan {

/// Blanks around the number are ignored; '.' is the decimal point in every locale, and "7e2" is 700. The text is read
/// as the nearest double, which is rounded to the nearest integer, ties to even: "2.5" is 2, "700.51" is 701. Raises 13
/// when the text is not a number, and 6 when the number does not fit a double or does not fit 32 bits.
[[nodiscard]] std::int32_t textToInteger32(std::string_view text);

} // namespace orvan

// textToInteger32: text to a 32-bit integer the way hosts' runtimes convert one.
#pragma once

#include <cstdint>
#include <string_view>

namespace orvan {

/// Blanks around the number are ignored; a fraction is rounded to the nearest integer, ties to even
/// ("2.5" is 2, "700.51" is 701); '.' is the decimal point in every locale. Raises 13 when the text
/// is not a number and 6 when it does not fit. Thread: any.
std::int32_t textToInteger32(std::string_view text);

} // namespace orvan

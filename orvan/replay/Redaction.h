// Redaction: a recording without the texts of products and customers.
//
// Each text that went into the library becomes another one of the same length with the same kinds of characters: small
// and capital letters, digits, letters of the same script where that is Latin, Greek or Cyrillic. Equal texts become
// equal ones, and texts that begin alike begin alike, without regard to case, so that look-ups and searches find the
// same rows. Amounts, and what is typed into their boxes, stay. What came out is made anew by a replay.
//
// Thread: as Replay. Errors: 321 for a recording that cannot be redacted; the description says where, and why.
#pragma once

#include "orvan/catalogue_export.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace orvan::replay {

/// Texts become others in a way that only `key` determines.
class ORVAN_CATALOGUE_INTERNAL TextMask {
public:
    explicit TextMask(std::uint64_t key) : key_(key) {}

    [[nodiscard]] std::string masked(std::string_view text) const;

private:
    std::uint64_t key_;
};

/// The recording without its texts. The key is to be a random number that nobody keeps. Raises 321 where the recording
/// itself does not replay alike, where what came out has other labels after the redaction, and where a word of four
/// letters of the products or the catalogue is left.
[[nodiscard]] ORVAN_CATALOGUE_INTERNAL std::string redacted(std::string_view recording, std::uint64_t key);

} // namespace orvan::replay

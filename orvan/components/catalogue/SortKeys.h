// SortKeys: the bytes by which a catalogue's texts compare, in the order of a language (ICU's collation).
//
// Thread: one at a time. Errors: 51 where ICU's data is missing.
#pragma once

#include <unicode/coll.h>

#include <memory>
#include <string>
#include <string_view>

namespace orvan {

class SortKeys {
public:
    /// A language such as "sv" or "de_AT"; the order of most languages if empty or unknown.
    explicit SortKeys(const std::string& language);

    /// Writes the key of the text; the former content of `key` is lost, and its capacity is reused.
    void write(std::string_view text, std::string& key) const;

private:
    std::unique_ptr<::icu::Collator> collator_;
};

} // namespace orvan

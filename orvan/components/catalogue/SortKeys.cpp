#include "orvan/components/catalogue/SortKeys.h"

#include "orvan/base/RuntimeError.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>

namespace orvan {

SortKeys::SortKeys(const std::string& language)
{
    UErrorCode status = U_ZERO_ERROR;
    collator_.reset(::icu::Collator::createInstance(
        language.empty() ? ::icu::Locale::getRoot() : ::icu::Locale(language.c_str()), status));
    if (U_FAILURE(status)) {
        throw RuntimeError(ErrorNumber::internalError, {}, u_errorName(status));
    }
}

void SortKeys::write(std::string_view text, std::string& key) const
{
    const auto unicode = ::icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
    key.resize(std::max<std::size_t>(key.capacity(), 2 * text.size() + 16));
    const auto writeKey = [&] {
        return collator_->getSortKey(unicode, reinterpret_cast<std::uint8_t*>(key.data()),
                                     static_cast<std::int32_t>(key.size()));
    };
    const auto size = static_cast<std::size_t>(writeKey());
    if (size > key.size()) {
        key.resize(size);
        static_cast<void>(writeKey());
    }
    key.resize(size);
}

} // namespace orvan

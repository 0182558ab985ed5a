#include "orvan/components/catalogue/CaseFolding.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/utf8.h>

#include <algorithm>

namespace orvan {

void foldCase(std::string_view text, std::string& folded)
{
    folded.clear();
    if (isAscii(text)) { // most part numbers are, and ICU would take ten times as long
        folded.assign(text);
        for (char& c : folded) {
            c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
        }
        return;
    }
    UErrorCode status = U_ZERO_ERROR;
    ::icu::StringByteSink<std::string> sink(&folded);
    ::icu::CaseMap::utf8Fold(0, {text.data(), static_cast<std::int32_t>(text.size())}, sink, nullptr, status);
    if (U_FAILURE(status)) {
        throw RuntimeError(ErrorNumber::internalError, {}, u_errorName(status));
    }
}

std::string foldCase(std::string_view text)
{
    std::string folded;
    foldCase(text, folded);
    return folded;
}

bool isUtf8(std::string_view text)
{
    if (isAscii(text)) {
        return true;
    }
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto size = static_cast<std::int32_t>(text.size());
    for (std::int32_t at = 0; at < size;) {
        UChar32 character = 0;
        U8_NEXT(bytes, at, size, character);
        if (character < 0) {
            return false;
        }
    }
    return true;
}

std::string withTypedBeginning(std::string_view text, std::string_view typed)
{
    std::size_t missing = foldCase(typed).size();
    std::string result(typed);
    while (missing > 0 && !text.empty()) {
        const std::size_t size = characterSize(text, 0);
        const std::string folded = foldCase(text.substr(0, size));
        text.remove_prefix(size);
        if (folded.size() > missing) {
            result.append(folded, missing);
        }
        missing -= std::min(missing, folded.size());
    }
    return result.append(text);
}

} // namespace orvan

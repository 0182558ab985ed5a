#include "orvan/components/catalogue/SearchText.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>

namespace orvan {

namespace {

constexpr std::size_t kPiece = 3;
constexpr char kWordBegins = '_'; ///< No compared text has one.

enum class Sign { letter, blank, other };

/// Calls `take` with each character of the text in the compared form, and with each blank and sign between.
template <class Take>
void readAscii(std::string_view text, Take&& take)
{
    for (char c : text) {
        c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
        const bool letter = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
        const bool blank = c == ' ' || (c >= '\t' && c <= '\r');
        take(letter ? Sign::letter : blank ? Sign::blank : Sign::other, std::string_view(&c, 1));
    }
}

void require(UErrorCode status)
{
    if (U_FAILURE(status)) {
        throw RuntimeError(ErrorNumber::internalError, {}, u_errorName(status));
    }
}

/// Letters whose stroke Unicode does not take for a diacritic, but people who have no such key do.
UChar32 withoutStroke(UChar32 character)
{
    switch (character) {
    case U'ø': return U'o';
    case U'ł': return U'l';
    case U'đ': return U'd';
    case U'ħ': return U'h';
    case U'ŧ': return U't';
    case U'ı': return U'i';
    default: return character;
    }
}

template <class Take>
void read(std::string_view text, Take&& take)
{
    if (isAscii(text)) { // most texts are, and ICU would take many times as long
        readAscii(text, take);
        return;
    }
    UErrorCode status = U_ZERO_ERROR;
    const ::icu::Normalizer2* const fold = ::icu::Normalizer2::getNFKCCasefoldInstance(status);
    const ::icu::Normalizer2* const divide = ::icu::Normalizer2::getNFDInstance(status);
    require(status);
    const ::icu::UnicodeString folded = divide->normalize(
        fold->normalize(::icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())}), status),
        status);
    require(status);
    for (std::int32_t at = 0; at < folded.length(); at = folded.moveIndex32(at, 1)) {
        const UChar32 character = withoutStroke(folded.char32At(at));
        const std::uint32_t kind = U_GET_GC_MASK(character);
        if ((kind & (U_GC_MN_MASK | U_GC_ME_MASK)) != 0) {
            continue;
        }
        char bytes[U8_MAX_LENGTH];
        std::int32_t size = 0;
        U8_APPEND_UNSAFE(bytes, size, character);
        const bool letter = (kind & (U_GC_L_MASK | U_GC_N_MASK | U_GC_MC_MASK)) != 0;
        take(letter                            ? Sign::letter
             : u_isUWhiteSpace(character) != 0 ? Sign::blank
                                               : Sign::other,
             std::string_view(bytes, static_cast<std::size_t>(size)));
    }
}

/// Where each character of a text begins, and the text's end.
std::vector<std::size_t> beginnings(std::string_view text)
{
    std::vector<std::size_t> all;
    for (std::size_t at = 0; at < text.size(); at += characterSize(text, at)) {
        all.push_back(at);
    }
    all.push_back(text.size());
    return all;
}

} // namespace

std::vector<std::string> searchWords(std::string_view text)
{
    std::vector<std::string> words(1);
    read(text, [&](Sign sign, std::string_view character) {
        if (sign == Sign::letter) {
            words.back().append(character);
        } else if (sign == Sign::blank && !words.back().empty()) {
            words.emplace_back();
        }
    });
    if (words.back().empty()) {
        words.pop_back();
    }
    return words;
}

std::string searchForm(std::string_view text)
{
    std::string form;
    read(text, [&](Sign sign, std::string_view character) {
        if (sign == Sign::letter) {
            form.append(character);
        }
    });
    return form;
}

void appendPieces(std::string_view text, std::string& pieces)
{
    std::string form, word;
    std::size_t inWord = 0; // characters
    read(text, [&](Sign sign, std::string_view character) {
        if (sign != Sign::letter) {
            inWord = 0;
            word.clear();
            return;
        }
        form.append(character);
        if (++inWord <= kPiece - 1) {
            word.append(character);
            if (inWord == kPiece - 1) {
                pieces.append(1, kWordBegins).append(word).append(1, ' ');
            }
        }
    });
    const std::vector<std::size_t> at = beginnings(form);
    for (std::size_t i = 0; i + kPiece < at.size(); ++i) {
        pieces.append(form, at[i], at[i + kPiece] - at[i]).append(1, ' ');
    }
}

std::vector<std::string> piecesOf(std::string_view word)
{
    const std::vector<std::size_t> at = beginnings(word);
    const std::size_t characters = at.size() - 1;
    std::vector<std::string> pieces;
    if (characters == kPiece - 1) {
        pieces.push_back(std::string(1, kWordBegins).append(word));
    } else if (characters >= kPiece) {
        // Pieces that do not overlap, but for the last one, are as good as all, and fewer of the index's lists are
        // read.
        for (std::size_t i = 0; i < characters; i += kPiece) {
            const std::size_t first = std::min(i, characters - kPiece);
            pieces.emplace_back(word.substr(at[first], at[first + kPiece] - at[first]));
        }
    }
    return pieces;
}

void appendVocabulary(std::string_view text, std::string& words)
{
    std::string divided, whole;
    bool isDivided = false;
    const auto endWhole = [&] {
        if (isDivided && !whole.empty()) {
            words.append(whole).append(1, ' ');
        }
        whole.clear();
        isDivided = false;
    };
    const auto endDivided = [&] {
        if (!divided.empty()) {
            words.append(divided).append(1, ' ');
        }
        divided.clear();
    };
    read(text, [&](Sign sign, std::string_view character) {
        if (sign == Sign::letter) {
            divided.append(character);
            whole.append(character);
            return;
        }
        isDivided = isDivided || (sign == Sign::other && !divided.empty());
        endDivided();
        if (sign == Sign::blank) {
            endWhole();
        }
    });
    endDivided();
    endWhole();
}

} // namespace orvan

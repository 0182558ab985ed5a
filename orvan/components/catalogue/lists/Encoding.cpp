#include "orvan/components/catalogue/lists/Encoding.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"

#include <unicode/ucnv.h>
#include <unicode/ucsdet.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <streambuf>
#include <utility>

namespace orvan {

namespace {

constexpr std::size_t kChunk = std::size_t{64} * 1024;
constexpr std::size_t kPivot = kChunk / 4;                 // characters of UTF-16, between two encodings
constexpr std::size_t kSample = std::size_t{32} * 1024;    // bytes of lines that are not ASCII, for ICU's detector
constexpr std::size_t kBeginning = std::size_t{16} * 1024; // in which a byte 0 tells UTF-16
constexpr std::int32_t kLongestCharacter = 4;              // bytes of UTF-8

/// An encoding of a UTF-16 text; empty if the text is in another one.
std::string_view utf16Encoding(std::string_view start)
{
    if (start.starts_with("\xFF\xFE") || start.starts_with("\xFE\xFF")) {
        return "UTF-16";
    }
    std::array<std::size_t, 2> zeros = {}; // at even and at odd places
    for (std::size_t at = 0; at < std::min(start.size(), kBeginning); ++at) {
        zeros[at % 2] += start[at] == '\0' ? 1 : 0;
    }
    // Of a list in any language at least the separators, line breaks and digits have a zero byte: one byte in 20.
    const std::size_t least = std::max<std::size_t>(1, std::min(start.size(), kBeginning) / 20);
    if (std::max(zeros[0], zeros[1]) < least || std::min(zeros[0], zeros[1]) * 10 > std::max(zeros[0], zeros[1])) {
        return {};
    }
    return zeros[1] > zeros[0] ? "UTF-16LE" : "UTF-16BE";
}

/// Counts the characters beyond ASCII, and keeps lines that have some.
class Survey {
public:
    /// Looks at a chunk, and returns how many bytes of it: the rest may be the beginning of a character.
    std::size_t look(std::string_view chunk, bool last)
    {
        const auto* const bytes = reinterpret_cast<const std::uint8_t*>(chunk.data());
        const auto size = static_cast<std::int32_t>(chunk.size());
        std::int32_t at = 0;
        for (std::size_t sampled = 0; at < size;) {
            if (isAscii(chunk[static_cast<std::size_t>(at)])) {
                ++at;
                continue;
            }
            if (!last && size - at < kLongestCharacter) {
                break;
            }
            sampled = std::max(sampled, sample(chunk, sampled, static_cast<std::size_t>(at)));
            UChar32 character = 0;
            U8_NEXT(bytes, at, size, character);
            ++(character < 0 ? faults_ : characters_);
        }
        return static_cast<std::size_t>(at);
    }

    bool isUtf8() const { return faults_ == 0 || characters_ > faults_; }
    const std::string& lines() const { return lines_; }

private:
    /// Keeps the line around a place, unless it begins before `from`. Returns where the line ends.
    std::size_t sample(std::string_view chunk, std::size_t from, std::size_t at)
    {
        if (lines_.size() >= kSample || at < from) {
            return from;
        }
        const std::size_t before = chunk.find_last_of("\r\n", at), after = chunk.find_first_of("\r\n", at);
        const std::size_t begin = before == chunk.npos ? 0 : before + 1, end = std::min(after, chunk.size());
        lines_.append(chunk.substr(begin, std::min(end - begin, kSample))).append("\n");
        return end;
    }

    std::uint64_t characters_ = 0, faults_ = 0;
    std::string lines_;
};

constexpr std::int32_t kLeastSure = 15;        // of 100, as ICU says how sure it is
constexpr std::int32_t kLeastSureOfPairs = 60; // two letters of Europe are a character of East Asia too easily
constexpr std::int32_t kAheadOfWestern = 8;    // another encoding is taken if ICU is surer of it by this
constexpr std::string_view kWestern = "windows-1252";

struct Detected {
    std::string_view icu, taken;
    std::int32_t least;
};
// Where Windows' encoding has all characters of the standard one, it is taken: programs write that one.
constexpr Detected kDetected[] = {
    {"ISO-8859-1", kWestern, 0},
    {"windows-1252", kWestern, 0},
    {"ISO-8859-2", "ISO-8859-2", kLeastSure},
    {"windows-1250", "windows-1250", kLeastSure},
    {"windows-1251", "windows-1251", kLeastSure},
    {"ISO-8859-5", "ISO-8859-5", kLeastSure},
    {"KOI8-R", "KOI8-R", kLeastSure},
    {"ISO-8859-9", "windows-1254", kLeastSure},
    {"windows-1254", "windows-1254", kLeastSure},
    {"ISO-8859-7", "ISO-8859-7", kLeastSure},
    {"windows-1253", "windows-1253", kLeastSure},
    {"Shift_JIS", "Shift_JIS", kLeastSureOfPairs},
    {"EUC-JP", "EUC-JP", kLeastSureOfPairs},
    {"EUC-KR", "EUC-KR", kLeastSureOfPairs},
    {"GB18030", "GB18030", kLeastSureOfPairs},
    {"Big5", "Big5", kLeastSureOfPairs},
};

/// Whether a Western text rather is a Turkish one. ICU knows few Turkish words; but the six letters by which the
/// Turkish encoding differs from the Western one are those of Icelandic there.
bool isTurkish(const std::string& lines)
{
    constexpr std::string_view kTurkish = "\xD0\xDD\xDE\xF0\xFD\xFE", kIcelandic = "\xE1\xE6\xED\xF3\xFA";
    const auto count = [&lines](std::string_view letters) {
        return std::count_if(lines.begin(), lines.end(), [&](char c) { return letters.find(c) != letters.npos; });
    };
    return count(kTurkish) > count(kIcelandic) && count(kTurkish) > 1;
}

std::string detected(const std::string& lines)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UCharsetDetector, void (*)(UCharsetDetector*)> detector(ucsdet_open(&status), ucsdet_close);
    ucsdet_setText(detector.get(), lines.data(), static_cast<std::int32_t>(lines.size()), &status);
    std::int32_t count = 0;
    const UCharsetMatch** const matches = ucsdet_detectAll(detector.get(), &count, &status);
    std::string_view best = kWestern;
    std::int32_t sureness = 0, western = 0;
    for (std::int32_t i = 0; U_SUCCESS(status) && i < count; ++i) {
        const std::string_view name = ucsdet_getName(matches[i], &status);
        const std::int32_t sure = ucsdet_getConfidence(matches[i], &status);
        const auto* const found = std::find_if(std::begin(kDetected), std::end(kDetected),
                                               [name](const Detected& each) { return each.icu == name; });
        if (found == std::end(kDetected) || sure < found->least) {
            continue;
        }
        if (found->taken == kWestern) {
            western = std::max(western, sure);
        } else if (sure > sureness) {
            sureness = sure;
            best = found->taken;
        }
    }
    if (sureness > western + kAheadOfWestern) {
        return std::string(best);
    }
    return isTurkish(lines) ? "windows-1254" : std::string(kWestern);
}

/// Converts what it reads from a stream.
class DecodingBuffer : public std::streambuf {
public:
    DecodingBuffer(std::unique_ptr<std::istream> input, const std::string& encoding, ReadCount count)
        : input_(std::move(input)), count_(std::move(count)), from_(open(encoding)), to_(open(std::string(kUtf8)))
    {
    }

protected:
    int_type underflow() override
    {
        char* to = out_.get();
        while (to == out_.get() && !(done_ && next_ == end_)) {
            if (next_ == end_ && !done_) {
                input_->read(in_.get(), kChunk);
                if (input_->bad()) {
                    throw RuntimeError(ErrorNumber::pathFileAccess, {}, userText("it cannot be read"));
                }
                next_ = in_.get();
                end_ = next_ + input_->gcount();
                done_ = input_->gcount() == 0;
                if (count_) {
                    *count_ += static_cast<std::uint64_t>(input_->gcount());
                }
            }
            UErrorCode status = U_ZERO_ERROR;
            ucnv_convertEx(to_.get(), from_.get(), &to, out_.get() + kChunk, &next_, end_, pivot_.get(), &pivotFrom_,
                           &pivotTo_, pivot_.get() + kPivot, false, static_cast<UBool>(done_), &status);
            if (done_ && status != U_BUFFER_OVERFLOW_ERROR) {
                break;
            }
        }
        setg(out_.get(), out_.get(), to);
        return to == out_.get() ? traits_type::eof() : traits_type::to_int_type(out_[0]);
    }

private:
    using Converter = std::unique_ptr<UConverter, void (*)(UConverter*)>;

    static Converter open(const std::string& encoding)
    {
        UErrorCode status = U_ZERO_ERROR;
        Converter converter(ucnv_open(encoding.c_str(), &status), ucnv_close);
        if (U_FAILURE(status)) {
            throw RuntimeError(ErrorNumber::invalidProcedureCall, {},
                               userText("there is no encoding \"%1\"", encoding));
        }
        return converter;
    }

    const std::unique_ptr<std::istream> input_;
    const ReadCount count_;
    const Converter from_, to_;
    // The buffers are not cleared, because that takes longer than reading a short list.
    const std::unique_ptr<char[]> in_ = std::make_unique_for_overwrite<char[]>(kChunk),
                                  out_ = std::make_unique_for_overwrite<char[]>(kChunk);
    const std::unique_ptr<UChar[]> pivot_ = std::make_unique_for_overwrite<UChar[]>(kPivot);
    const char *next_ = nullptr, *end_ = nullptr;
    UChar *pivotFrom_ = pivot_.get(), *pivotTo_ = pivot_.get();
    bool done_ = false;
};

class DecodingStream : private DecodingBuffer, public std::istream {
public:
    DecodingStream(std::unique_ptr<std::istream> input, const std::string& encoding, const ReadCount& count)
        : DecodingBuffer(std::move(input), encoding, count), std::istream(static_cast<std::streambuf*>(this))
    {
        exceptions(std::ios::badbit); // so that an error within the buffer is passed on
    }
};

} // namespace

std::string foundEncoding(std::istream& input)
{
    Survey survey;
    const auto read = std::make_unique_for_overwrite<char[]>(kChunk); // clearing it would take long
    std::string chunk;
    for (bool first = true, last = false; !last; first = false) {
        input.read(read.get(), kChunk);
        last = input.gcount() == 0;
        chunk.append(read.get(), static_cast<std::size_t>(input.gcount()));
        if (first) {
            if (const std::string_view utf16 = utf16Encoding(chunk); !utf16.empty()) {
                return std::string(utf16);
            }
        }
        chunk.erase(0, survey.look(chunk, last));
    }
    return survey.isUtf8() ? std::string(kUtf8) : detected(survey.lines());
}

std::string knownEncoding(const std::string& name)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UConverter, void (*)(UConverter*)> converter(ucnv_open(name.c_str(), &status), ucnv_close);
    if (name.empty() || U_FAILURE(status)) {
        return {};
    }
    const char* const known = ucnv_getName(converter.get(), &status);
    return U_FAILURE(status) ? std::string() : std::string(known);
}

std::unique_ptr<std::istream> utf8Stream(std::unique_ptr<std::istream> input, const std::string& encoding,
                                         const ReadCount& count)
{
    if (knownEncoding(encoding) == kUtf8) {
        return input;
    }
    return std::make_unique<DecodingStream>(std::move(input), encoding, count);
}

} // namespace orvan

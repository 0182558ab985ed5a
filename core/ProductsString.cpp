#include "core/ProductsString.h"

#include "base/RuntimeError.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstring>
#include <iterator>
#include <optional>

namespace orvan {

namespace {

constexpr char kEscape = '\\';
/// Four amounts of one digit, seven field separators, one record separator.
constexpr std::size_t kSmallestRecord = 12;

/// A field of a record: either a text or an amount.
struct Field {
    std::string_view name;
    std::string ProductFields::*text;
    Currency ProductFields::*amount;
};

// clang-format off
constexpr Field kFields[] = {
    {"Name",      &ProductFields::name,    nullptr},
    {"Key",       &ProductFields::key,     nullptr},
    {"PartNum",   &ProductFields::partNum, nullptr},
    {"UnitPrice", nullptr,                 &ProductFields::unitPrice},
    {"Qty",       nullptr,                 &ProductFields::qty},
    {"DiscPrcnt", nullptr,                 &ProductFields::discPrcnt},
    {"ExtPrice",  nullptr,                 &ProductFields::extPrice},
    {"Note",      &ProductFields::note,    nullptr},
};
// clang-format on
constexpr std::size_t kFieldCount = std::size(kFields);

bool isSeparator(std::string_view text)
{
    if (text.size() != 1) {
        return false;
    }
    const char c = text[0];
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    const bool digit = c >= '0' && c <= '9';
    const bool ascii = static_cast<unsigned char>(c) < 0x80;
    return ascii && !letter && !digit && c != '-' && c != '.' && c != kEscape;
}

void appendEscaped(std::string& out, std::string_view text, ProductsSeparators separators)
{
    std::size_t begin = 0; // of the run that is not yet written
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (c == separators.record || c == separators.field || c == kEscape) {
            out.append(text, begin, at - begin);
            out += kEscape;
            begin = at; // the character itself begins the next run
        }
    }
    out.append(text, begin);
}

/// A decimal number that is too large for an amount, rather than no number at all.
bool isBeyondRange(std::string_view text)
try {
    static_cast<void>(Currency::fromText(text));
    return false;
} catch (const RuntimeError& error) {
    const std::size_t begin = text.starts_with('-') ? 1 : 0;
    return error.number() == ErrorNumber::overflow && text[begin] >= '0' && text[begin] <= '9';
}

/// Eight bytes in a word, the first one lowest.
std::uint64_t wordAt(const char* bytes)
{
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    if constexpr (std::endian::native == std::endian::big) {
        word = __builtin_bswap64(word);
    }
    return word;
}

constexpr std::uint64_t kOnes = 0x0101010101010101;
constexpr std::uint64_t kHighBits = 0x8080808080808080;

constexpr std::uint64_t eightTimes(char c)
{
    return kOnes * static_cast<unsigned char>(c);
}

/// The high bit of each byte that equals that of `eight`; bytes above the first such one may have it, too.
std::uint64_t bytesEqual(std::uint64_t word, std::uint64_t eight)
{
    const std::uint64_t difference = word ^ eight;
    return (difference - kOnes) & ~difference & kHighBits;
}

} // namespace

ProductsSeparators productsSeparators(std::string_view recordSep, std::string_view fieldSep)
{
    if (!isSeparator(recordSep) || !isSeparator(fieldSep)) {
        throw RuntimeError(ErrorNumber::invalidProcedureCall, {},
                           std::string(isSeparator(recordSep) ? "The field" : "The record") +
                               " separator of a products string must be one ASCII character, and no letter, digit, "
                               "'-', '.' or backslash");
    }
    if (recordSep == fieldSep) {
        throw RuntimeError(ErrorNumber::invalidProcedureCall, {},
                           "The record separator and the field separator of a products string must differ");
    }
    return {.record = recordSep[0], .field = fieldSep[0]};
}

void appendProduct(std::string& out, const ProductFields& fields, ProductsSeparators separators)
{
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        if (kFields[i].text != nullptr) {
            appendEscaped(out, fields.*kFields[i].text, separators);
        } else {
            Currency::TextBuffer buffer;
            out += (fields.*kFields[i].amount).toText(buffer);
        }
        out += i + 1 < kFieldCount ? separators.field : separators.record;
    }
}

std::string productsStringHead(std::size_t count, ProductsSeparators separators)
{
    return count == 0 ? std::string() : std::to_string(count) + separators.record;
}

ProductsReader::ProductsReader(std::string_view text, ProductsSeparators separators)
    : text_(text), separators_(separators), count_(text.empty() ? 0 : readCount()),
      unescaped_(std::make_unique_for_overwrite<char[]>(text.size() + 8))
{
}

std::size_t ProductsReader::expected() const noexcept
{
    const auto announced = static_cast<std::size_t>(count_ - position_ + 1);
    return std::min(announced, (text_.size() - at_) / kSmallestRecord);
}

bool ProductsReader::more() const
{
    if (position_ <= count_) {
        return true;
    }
    if (at_ != text_.size()) {
        refuse(ErrorNumber::invalidFileFormat, {}, "there is more than the count of products announces");
    }
    return false;
}

std::int32_t ProductsReader::readCount()
{
    const std::size_t end = text_.find(separators_.record);
    if (end == text_.npos) {
        refuse(ErrorNumber::invalidFileFormat, {}, "the string ends within the count of products");
    }
    std::int32_t count = 0;
    const auto [stop, error] = std::from_chars(text_.data(), text_.data() + end, count);
    // The first character tells "007", "0" and "-1", which from_chars reads as well.
    if (error == std::errc::invalid_argument || stop != text_.data() + end || text_[0] < '1' || text_[0] > '9') {
        refuse(ErrorNumber::invalidFileFormat, {}, "the string does not begin with the count of products");
    }
    if (error == std::errc::result_out_of_range) {
        refuse(ErrorNumber::overflow, {}, "the count of products is beyond the range");
    }
    at_ = end + 1;
    return count;
}

/// A separator or the escape: what stands behind a backslash in a text.
inline bool ProductsReader::isSpecial(char c) const noexcept
{
    return c == separators_.record || c == separators_.field || c == kEscape;
}

/// The next separator or escape character from there on, or the text's end. What comes before is copied, where a
/// place for it is given.
inline std::size_t ProductsReader::endOfRun(std::size_t from, char* to) const noexcept
{
    // Eight bytes at a time: most of the time that it takes to read a list goes by in here. What is
    // copied beyond the run is overwritten by what follows it.
    const std::string_view text = text_; // copies, which no byte written to `to` can be part of
    const std::uint64_t record = eightTimes(separators_.record), field = eightTimes(separators_.field);
    for (; from + 8 <= text.size(); from += 8) {
        if (to) {
            std::memcpy(to, text.data() + from, 8);
            to += 8;
        }
        const std::uint64_t word = wordAt(text.data() + from);
        const std::uint64_t found =
            bytesEqual(word, record) | bytesEqual(word, field) | bytesEqual(word, eightTimes(kEscape));
        if (found != 0) {
            return from + static_cast<std::size_t>(std::countr_zero(found)) / 8;
        }
    }
    for (; from < text.size() && !isSpecial(text[from]); ++from) {
        if (to) {
            *to++ = text[from];
        }
    }
    return from;
}

void ProductsReader::readText(std::size_t field, std::string& value)
{
    const std::size_t begin = at_;
    at_ = endOfRun(begin, nullptr);
    if (at_ < text_.size() && text_[at_] == kEscape) {
        readEscapes(field, begin, value);
    } else {
        value.assign(text_, begin, at_ - begin);
    }
}

/// The rest of a text that began at `begin` and has come to its first escape.
void ProductsReader::readEscapes(std::size_t field, std::size_t begin, std::string& value)
{
    char* to = std::copy(text_.data() + begin, text_.data() + at_, unescaped_.get());
    while (at_ < text_.size() && text_[at_] == kEscape) {
        const std::size_t escaped = at_ + 1;
        if (escaped == text_.size()) {
            at_ = escaped; // cut within the escape: closeField says so
            break;
        }
        if (!isSpecial(text_[escaped])) {
            refuse(ErrorNumber::invalidFileFormat, kFields[field].name,
                   "a backslash stands before a character that needs none");
        }
        *to++ = text_[escaped];
        at_ = endOfRun(escaped + 1, to);
        to += at_ - (escaped + 1);
    }
    value.assign(unescaped_.get(), static_cast<std::size_t>(to - unescaped_.get()));
}

Currency ProductsReader::readAmount(std::size_t field)
{
    std::string_view rest = text_.substr(at_);
    const std::optional<Currency> amount = Currency::takeShortestText(rest);
    if (amount && !rest.empty() && (rest[0] == separators_.record || rest[0] == separators_.field)) {
        at_ = text_.size() - rest.size();
        return *amount;
    }
    std::size_t end = at_;
    while (end < text_.size() && !isSpecial(text_[end])) {
        ++end;
    }
    const std::string_view digits = text_.substr(at_, end - at_);
    at_ = end;
    if (end == text_.size()) {
        return {}; // cut within the amount: closeField says so, rather than that half a number is none
    }
    if (isBeyondRange(digits)) {
        refuse(ErrorNumber::overflow, kFields[field].name, "the amount is beyond the range");
    }
    refuse(ErrorNumber::invalidFileFormat, kFields[field].name, "this is not an amount in its shortest form");
}

/// Checks and passes the separator behind a field.
inline void ProductsReader::closeField(std::size_t field)
{
    const bool last = field + 1 == kFieldCount;
    if (at_ >= text_.size() || text_[at_] != (last ? separators_.record : separators_.field)) {
        refuseEnd(field);
    }
    ++at_;
}

void ProductsReader::next(ProductFields& fields)
{
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        if (kFields[i].text != nullptr) {
            readText(i, fields.*kFields[i].text);
        } else {
            fields.*kFields[i].amount = readAmount(i);
        }
        closeField(i);
    }
    ++position_;
}

void ProductsReader::refuseEnd(std::size_t field) const
{
    if (at_ >= text_.size()) {
        refuse(ErrorNumber::invalidFileFormat, kFields[field].name, "the string is cut short");
    }
    refuse(ErrorNumber::invalidFileFormat, {},
           field + 1 == kFieldCount ? "the record has more than 8 fields"
                                    : "the record has only " + std::to_string(field + 1) + " of 8 fields");
}

void ProductsReader::refuse(std::int32_t error, std::string_view fieldName, std::string_view reason) const
{
    std::string description = "Products string, product " + std::to_string(position_);
    if (!fieldName.empty()) {
        description += ", field ";
        description += fieldName;
    }
    description += ": ";
    description += reason;
    throw RuntimeError(error, {}, std::move(description));
}

} // namespace orvan

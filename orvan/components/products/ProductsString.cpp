#include "orvan/components/products/ProductsString.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/base/ShortestText.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstring>
#include <iterator>

namespace orvan {

namespace {

constexpr char kEscape = '\\';
/// The number of bytes that are copied at once while escapes are removed.
constexpr std::size_t kRunStep = 16;
/// The shortest record: four amounts of one digit, seven field separators and one record separator.
constexpr std::size_t kSmallestRecord = 12;

// The fields of a record, in their order: their names, and a call with the value of each.
constexpr std::string_view kFieldNames[] = {"Name", "Key",       "PartNum",  "UnitPrice",
                                            "Qty",  "DiscPrcnt", "ExtPrice", "Note"};
template <class Fields, class Visit>
void forEachField(Fields& fields, const Visit& visit)
{
    visit(fields.name);
    visit(fields.key);
    visit(fields.partNum);
    visit(fields.unitPrice);
    visit(fields.qty);
    visit(fields.discPrcnt);
    visit(fields.extPrice);
    visit(fields.note);
}
constexpr std::size_t kFieldCount = std::size(kFieldNames);
static_assert(kFieldCount == 8, "refuseEnd names the number of fields");

bool isSeparator(std::string_view text)
{
    if (text.size() != 1) {
        return false;
    }
    const char c = text[0];
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return isAscii(c) && !letter && !isDigit(c) && c != '-' && c != '.' && c != kEscape;
}

bool needsEscape(char c, ProductsSeparators separators)
{
    return c == separators.record || c == separators.field || c == kEscape;
}

// Functions that are called for each of several fields are not inlined: it would bring no time, but several kilobytes.
[[gnu::noinline]] void append(std::string& out, std::string_view text, ProductsSeparators separators)
{
    std::size_t begin = 0; // where the part of the text that is not written yet begins
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (needsEscape(text[at], separators)) {
            out.append(text, begin, at - begin);
            out += kEscape;
            begin = at; // the next part begins with the escaped character itself
        }
    }
    out.append(text, begin);
}

[[gnu::noinline]] void assign(std::string& text, const char* bytes, std::size_t size)
{
    text.assign(bytes, size);
}

[[gnu::noinline]] void append(std::string& out, Currency amount, ProductsSeparators /*separators*/)
{
    Currency::TextBuffer buffer;
    out += amount.toText(buffer);
}

/// Whether the text has the form in which amounts are written, however large the number is. Only a number in this form
/// is refused as too large; every other text is refused as no amount. "-0" passes here, too: it is never too large.
bool isAmountForm(std::string_view text)
{
    text.remove_prefix(text.starts_with('-') ? 1 : 0);
    const std::size_t point = text.find('.');
    const std::string_view whole = text.substr(0, point);
    const std::string_view decimals = point == text.npos ? std::string_view() : text.substr(point + 1);
    const auto areDigits = [](std::string_view part) { return std::all_of(part.begin(), part.end(), isDigit); };
    const bool wholeFits = !whole.empty() && areDigits(whole) && (whole.size() == 1 || whole.front() != '0');
    const bool decimalsFit =
        point == text.npos || (!decimals.empty() && decimals.size() <= std::size_t{Currency::kDecimals} &&
                               areDigits(decimals) && decimals.back() != '0');
    return wholeFits && decimalsFit;
}

/// Whether the text is written as an amount, but is too large for one.
bool isBeyondRange(std::string_view text)
try {
    static_cast<void>(Currency::fromText(text));
    return false;
} catch (const RuntimeError& error) {
    return error.number() == ErrorNumber::overflow && isAmountForm(text);
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
    forEachField(fields, [&](const auto& field) {
        append(out, field, separators);
        out += separators.field;
    });
    out.back() = separators.record;
}

[[gnu::noinline]] std::size_t fieldSize(std::string_view text, ProductsSeparators separators) noexcept
{
    const auto escapes =
        std::count_if(text.begin(), text.end(), [separators](char c) { return needsEscape(c, separators); });
    return text.size() + static_cast<std::size_t>(escapes);
}

std::size_t fieldSize(Currency amount, ProductsSeparators /*separators*/) noexcept
{
    return amount.textSize();
}

std::size_t productSize(const ProductFields& fields, ProductsSeparators separators) noexcept
{
    std::size_t size = kFieldCount; // a separator behind each field
    forEachField(fields, [&](const auto& field) { size += fieldSize(field, separators); });
    return size;
}

std::string productsStringHead(std::size_t count, ProductsSeparators separators)
{
    return count == 0 ? std::string() : std::to_string(count) + separators.record;
}

ProductsReader::ProductsReader(std::string_view text, ProductsSeparators separators)
    : text_(text), separators_(separators), count_(text.empty() ? 0 : readCount()),
      marks_(text, separators.record, separators.field, kEscape), ends_(marks_.startAt(at_))
{
}

std::size_t ProductsReader::expected() const noexcept
{
    const auto announced = static_cast<std::size_t>(std::int64_t{count_} - position_ + 1);
    return std::min(announced, (text_.size() - at_) / kSmallestRecord);
}

bool ProductsReader::more() const
{
    if (position_ <= count_) {
        return true;
    }
    if (at_ != text_.size()) {
        refuse(ErrorNumber::invalidFileFormat, {}, userText("there is more than the count of products announces"));
    }
    return false;
}

std::int32_t ProductsReader::readCount()
{
    const std::size_t end = text_.find(separators_.record);
    if (end == text_.npos) {
        refuse(ErrorNumber::invalidFileFormat, {}, userText("the string ends within the count of products"));
    }
    std::int32_t count = 0;
    const auto [stop, error] = std::from_chars(text_.data(), text_.data() + end, count);
    // from_chars would also read "007", "0" and "-1"; the check of the first character refuses them.
    if (error == std::errc::invalid_argument || stop != text_.data() + end || text_[0] < '1' || text_[0] > '9') {
        refuse(ErrorNumber::invalidFileFormat, {}, userText("the string does not begin with the count of products"));
    }
    if (error == std::errc::result_out_of_range) {
        refuse(ErrorNumber::overflow, {}, userText("the count of products is beyond the range"));
    }
    at_ = end + 1;
    return count;
}

/// Copies up to 64 bytes without their escapes: the runs of bytes between the escapes, one after the other. Returns the
/// end of what was written; kRunStep bytes beyond it may have been written, too.
inline char* ProductsReader::copyRuns(char* to, std::size_t begin, std::size_t end, std::uint64_t escapes) const
{
    const char* from = text_.data() + begin;
    const char* const block = from;
    // Most runs are short, and copying sixteen bytes is faster than copying an exact number: the bytes beyond the run
    // are overwritten by the next run.
    const bool room = text_.size() - end >= kRunStep;
    const auto takeRun = [&](const char* runEnd) {
        const auto size = static_cast<std::size_t>(runEnd - from);
        if (size <= kRunStep && room) {
            std::memcpy(to, from, kRunStep);
        } else {
            std::memcpy(to, from, size);
        }
        to += size;
    };
    for (; escapes != 0; escapes &= escapes - 1) {
        const char* const escape = block + std::countr_zero(escapes);
        takeRun(escape);
        from = escape + 1;
    }
    takeRun(text_.data() + end);
    return to;
}

inline void ProductsReader::read(std::size_t /*field*/, std::size_t begin, std::size_t end, std::string& text)
{
    const std::size_t size = end - begin;
    const std::uint64_t escapes = marks_.escapes(begin, size);
    if (size > kByteBlock) {
        readLongText(begin, end, text);
    } else if (escapes == 0) {
        assign(text, text_.data() + begin, size);
    } else {
        char unescaped[kByteBlock + kRunStep];
        const char* const to = copyRuns(unescaped, begin, end, escapes);
        assign(text, unescaped, static_cast<std::size_t>(to - unescaped));
    }
}

[[gnu::noinline]] void ProductsReader::readLongText(std::size_t begin, std::size_t end, std::string& text)
{
    if (unescaped_.size() < end - begin + kRunStep) {
        unescaped_.resize(end - begin + kRunStep);
    }
    char* to = unescaped_.data();
    for (std::size_t at = begin; at < end; at += kByteBlock) {
        const std::size_t size = std::min(end - at, kByteBlock);
        to = copyRuns(to, at, at + size, marks_.escapes(at, size));
    }
    assign(text, unescaped_.data(), static_cast<std::size_t>(to - unescaped_.data()));
}

inline void ProductsReader::read(std::size_t field, std::size_t begin, std::size_t end, Currency& amount)
{
    const std::string_view digits(text_.data() + begin, end - begin);
    if (!readShortestText(digits, amount)) {
        refuseAmount(field, begin, digits);
    }
}

/// Raises an error where the field does not end with the separator that has to follow it.
inline void ProductsReader::checkEnd(std::size_t field, std::size_t end) const
{
    const bool last = field + 1 == kFieldCount;
    if (end == text_.size() || text_[end] != (last ? separators_.record : separators_.field)) {
        refuseEnd(field, end);
    }
}

void ProductsReader::next(ProductValues& values)
{
    // In variables of this function, because the compiler has to expect that each byte of a text that is stored changes
    // the members.
    FieldMarks::Cursor ends = ends_;
    std::size_t at = at_;
    std::size_t field = 0;
    forEachField(values, [&](auto& value) {
        const std::size_t end = ends.nextEnd();
        read(field, at, end, value);
        checkEnd(field++, end);
        at = end + 1;
    });
    ends_ = ends;
    at_ = at;
    ++position_;
}

void ProductsReader::refuseAmount(std::size_t field, std::size_t begin, std::string_view digits) const
{
    digits = digits.substr(0, digits.find(kEscape)); // an amount never has an escape
    const std::size_t end = begin + digits.size();
    if (end == text_.size()) { // the string is cut short within the amount, which is the better message
        refuseEnd(field, end);
    }
    if (isBeyondRange(digits)) {
        refuse(ErrorNumber::overflow, kFieldNames[field], userText("the amount is beyond the range"));
    }
    refuse(ErrorNumber::invalidFileFormat, kFieldNames[field], userText("this is not an amount in its shortest form"));
}

void ProductsReader::refuseEnd(std::size_t field, std::size_t end) const
{
    if (end == text_.size()) {
        refuse(ErrorNumber::invalidFileFormat, kFieldNames[field], userText("the string is cut short"));
    }
    if (text_[end] != separators_.record && text_[end] != separators_.field) {
        refuse(ErrorNumber::invalidFileFormat, kFieldNames[field],
               userText("a backslash stands before a character that needs none"));
    }
    refuse(ErrorNumber::invalidFileFormat, {},
           field + 1 == kFieldCount ? userText("the record has more than 8 fields")
                                    : userText("the record has only %1 of 8 fields", field + 1));
}

void ProductsReader::refuse(std::int32_t error, std::string_view fieldName, const UserText& reason) const
{
    const UserText where = fieldName.empty() ? userText("Products string, product %1", position_)
                                             : userText("Products string, product %1, field %2", position_, fieldName);
    throw RuntimeError(error, {}, where + ": " + reason);
}

} // namespace orvan

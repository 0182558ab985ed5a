#include "orvan/components/products/ProductsString.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstring>
#include <iterator>
#include <optional>

namespace orvan {

namespace {

constexpr char kEscape = '\\';
/// The number of bytes that are copied at once while escapes are removed.
constexpr std::size_t kRunStep = 16;
/// The shortest record: four amounts of one digit, seven field separators and one record separator.
constexpr std::size_t kSmallestRecord = 12;

/// A field of a record: either a text or an amount.
struct Field {
    std::string_view name;
    std::string ProductValues::*text;
    Currency ProductValues::*amount;
};

// clang-format off
constexpr Field kFields[] = {
    {"Name",      &ProductValues::name,    nullptr},
    {"Key",       &ProductValues::key,     nullptr},
    {"PartNum",   &ProductValues::partNum, nullptr},
    {"UnitPrice", nullptr,                 &ProductValues::unitPrice},
    {"Qty",       nullptr,                 &ProductValues::qty},
    {"DiscPrcnt", nullptr,                 &ProductValues::discPrcnt},
    {"ExtPrice",  nullptr,                 &ProductValues::extPrice},
    {"Note",      &ProductValues::note,    nullptr},
};
// clang-format on
constexpr std::size_t kFieldCount = std::size(kFields);
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

void appendEscaped(std::string& out, std::string_view text, ProductsSeparators separators)
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

void appendProduct(std::string& out, const ProductValues& fields, ProductsSeparators separators)
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

std::size_t fieldSize(std::string_view text, ProductsSeparators separators) noexcept
{
    const auto escapes =
        std::count_if(text.begin(), text.end(), [separators](char c) { return needsEscape(c, separators); });
    return text.size() + static_cast<std::size_t>(escapes);
}

std::size_t fieldSize(Currency amount, ProductsSeparators /*separators*/) noexcept
{
    Currency::TextBuffer buffer;
    return amount.toText(buffer).size();
}

std::size_t productSize(const ProductValues& fields, ProductsSeparators separators) noexcept
{
    std::size_t size = kFieldCount; // a separator behind each field
    for (const Field& field : kFields) {
        size += field.text != nullptr ? fieldSize(fields.*field.text, separators)
                                      : fieldSize(fields.*field.amount, separators);
    }
    return size;
}

std::string productsStringHead(std::size_t count, ProductsSeparators separators)
{
    return count == 0 ? std::string() : std::to_string(count) + separators.record;
}

ProductsReader::ProductsReader(std::string_view text, ProductsSeparators separators)
    : text_(text), separators_(separators), count_(text.empty() ? 0 : readCount()),
      marks_(text, separators.record, separators.field, kEscape)
{
    marks_.startAt(at_);
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

inline void ProductsReader::readText(std::size_t begin, std::size_t end, std::string& value)
{
    const std::size_t size = end - begin;
    if (size <= kByteBlock && marks_.escapes(begin, size) == 0) {
        value.assign(text_, begin, size);
    } else {
        readEscapes(begin, end, value);
    }
}

/// Reads a text that has escapes: the runs of bytes between the escapes are copied one after the other.
void ProductsReader::readEscapes(std::size_t begin, std::size_t end, std::string& value)
{
    if (unescaped_.size() < end - begin + kRunStep) {
        unescaped_.resize(end - begin + kRunStep);
    }
    const char* from = text_.data() + begin;
    char* to = unescaped_.data();
    const auto takeRun = [&](const char* runEnd) {
        const auto size = static_cast<std::size_t>(runEnd - from);
        // Most runs are short, and copying sixteen bytes is faster than copying an exact number: the bytes beyond the
        // run are overwritten by the next run.
        if (size <= kRunStep && text_.data() + text_.size() - from >= std::ptrdiff_t{kRunStep}) {
            std::memcpy(to, from, kRunStep);
        } else {
            std::memcpy(to, from, size);
        }
        from += size;
        to += size;
    };
    for (std::size_t at = begin; at < end; at += kByteBlock) {
        for (std::uint64_t escapes = marks_.escapes(at, end - at); escapes != 0; escapes &= escapes - 1) {
            takeRun(text_.data() + at + std::countr_zero(escapes));
            ++from; // skips the escape itself
        }
    }
    takeRun(text_.data() + end);
    value.assign(unescaped_, 0, static_cast<std::size_t>(to - unescaped_.data()));
}

inline Currency ProductsReader::readAmount(std::size_t field, std::size_t begin, std::size_t end)
{
    std::string_view digits = text_.substr(begin, end - begin);
    if (const std::optional<Currency> amount = Currency::fromShortestText(digits)) {
        return *amount;
    }
    digits = digits.substr(0, digits.find(kEscape)); // an amount never has an escape
    if (begin + digits.size() == text_.size()) {
        return {}; // the string is cut short within the amount: checkEnd reports that, which is the better message
    }
    if (isBeyondRange(digits)) {
        refuse(ErrorNumber::overflow, kFields[field].name, userText("the amount is beyond the range"));
    }
    refuse(ErrorNumber::invalidFileFormat, kFields[field].name, userText("this is not an amount in its shortest form"));
}

/// Raises an error where the field does not end with the separator that has to follow it.
inline void ProductsReader::checkEnd(std::size_t field, std::size_t end) const
{
    const bool last = field + 1 == kFieldCount;
    if (end == text_.size() || text_[end] != (last ? separators_.record : separators_.field)) {
        refuseEnd(field, end);
    }
}

void ProductsReader::next(ProductValues& fields)
{
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        const std::size_t end = marks_.nextEnd();
        if (kFields[i].text != nullptr) {
            readText(at_, end, fields.*kFields[i].text);
        } else {
            fields.*kFields[i].amount = readAmount(i, at_, end);
        }
        checkEnd(i, end);
        at_ = end + 1;
    }
    ++position_;
}

void ProductsReader::refuseEnd(std::size_t field, std::size_t end) const
{
    if (end == text_.size()) {
        refuse(ErrorNumber::invalidFileFormat, kFields[field].name, userText("the string is cut short"));
    }
    if (text_[end] != separators_.record && text_[end] != separators_.field) {
        refuse(ErrorNumber::invalidFileFormat, kFields[field].name,
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

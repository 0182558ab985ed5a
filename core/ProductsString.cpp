#include "core/ProductsString.h"

#include "base/RuntimeError.h"

#include <algorithm>
#include <charconv>
#include <iterator>

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

/// A decimal number of any length: tells a number that is too large from no number at all.
bool isDecimal(std::string_view text)
{
    if (text.starts_with('-')) {
        text.remove_prefix(1);
    }
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    const auto point = std::find_if_not(text.begin(), text.end(), isDigit);
    return point != text.begin() &&
           (point == text.end() || (*point == '.' && std::all_of(point + 1, text.end(), isDigit)));
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
    : text_(text), separators_(separators), count_(text.empty() ? 0 : readCount())
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

ProductFields ProductsReader::next()
{
    ProductFields fields;
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        if (kFields[i].text != nullptr) {
            readText(i, fields.*kFields[i].text);
        } else {
            fields.*kFields[i].amount = readAmount(i);
        }
        closeField(i);
    }
    ++position_;
    return fields;
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

/// Position of the next separator or escape character; the text's size when there is none.
std::size_t ProductsReader::endOfRun(std::size_t from) const noexcept
{
    while (from < text_.size() && text_[from] != separators_.record && text_[from] != separators_.field &&
           text_[from] != kEscape) {
        ++from;
    }
    return from;
}

void ProductsReader::readText(std::size_t field, std::string& value)
{
    std::size_t end = endOfRun(at_);
    if (end == text_.size() || text_[end] != kEscape) {
        value.assign(text_, at_, end - at_);
        at_ = end;
        return;
    }
    unescaped_.assign(text_, at_, end - at_);
    while (end < text_.size() && text_[end] == kEscape) {
        const std::size_t escaped = end + 1;
        if (escaped == text_.size()) {
            end = escaped; // cut within the escape: closeField says so
            break;
        }
        if (text_[escaped] != separators_.record && text_[escaped] != separators_.field && text_[escaped] != kEscape) {
            refuse(ErrorNumber::invalidFileFormat, kFields[field].name,
                   "a backslash stands before a character that needs none");
        }
        end = endOfRun(escaped + 1);
        unescaped_.append(text_, escaped, end - escaped);
    }
    value = unescaped_;
    at_ = end;
}

Currency ProductsReader::readAmount(std::size_t field)
{
    const std::size_t end = endOfRun(at_);
    const std::string_view digits = text_.substr(at_, end - at_);
    at_ = end;
    if (end == text_.size()) {
        return {}; // cut within the amount: closeField says so, rather than that half a number is none
    }
    try {
        const Currency amount = Currency::fromText(digits);
        Currency::TextBuffer buffer;
        if (text_[end] != kEscape && amount.toText(buffer) == digits) {
            return amount;
        }
    } catch (const RuntimeError& error) {
        if (error.number() == ErrorNumber::overflow && isDecimal(digits)) {
            refuse(ErrorNumber::overflow, kFields[field].name, "the amount is beyond the range");
        }
    }
    refuse(ErrorNumber::invalidFileFormat, kFields[field].name, "this is not an amount in its shortest form");
}

/// Checks and passes the separator behind a field.
void ProductsReader::closeField(std::size_t field)
{
    if (at_ >= text_.size()) {
        refuse(ErrorNumber::invalidFileFormat, kFields[field].name, "the string is cut short");
    }
    const bool last = field + 1 == kFieldCount;
    if (text_[at_] != (last ? separators_.record : separators_.field)) {
        refuse(ErrorNumber::invalidFileFormat, {},
               last ? "the record has more than 8 fields"
                    : "the record has only " + std::to_string(field + 1) + " of 8 fields");
    }
    ++at_;
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

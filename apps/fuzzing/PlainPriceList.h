// PlainPriceList: a CSV file and its prices read in the plainest way, to compare the catalogue's readers with.
#pragma once

#include "apps/fuzzing/PlainNumbers.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace orvan::fuzz {

struct PlainRecord {
    std::uint64_t line = 0;
    std::vector<std::string> fields = {};
    bool malformed = false; ///< A quote is not closed, or text follows the closing quote; the fields mean nothing then.
};

inline std::uint64_t plainLineBreaks(std::string_view text)
{
    std::uint64_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text.substr(at, 2) == "\r\n") {
            ++at;
            ++count;
        } else if (text[at] == '\n' || text[at] == '\r') {
            ++count;
        }
    }
    return count;
}

/// Removes the quotes of a field that begins with one; nothing where the field does not end with its closing quote.
inline std::optional<std::string> withoutQuotes(const std::string& field)
{
    if (!field.starts_with('"')) {
        return field;
    }
    std::string value;
    for (std::size_t at = 1; at < field.size(); ++at) {
        if (field[at] == '"') {
            if (at + 1 == field.size()) {
                return value;
            }
            if (field[++at] != '"') {
                return std::nullopt;
            }
        }
        value += field[at];
    }
    return std::nullopt;
}

/// Where the records begin: behind a byte order mark and a line such as "sep=;". `named` is its delimiter, or 0.
inline std::size_t plainBeginning(std::string_view text, char& named)
{
    const std::size_t mark = text.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    const std::string_view rest = text.substr(mark);
    std::string word;
    for (const char c : rest.substr(0, 4)) {
        word += static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    }
    const auto isBreak = [&](std::size_t at) { return rest[at] == '\n' || rest[at] == '\r'; };
    named = 0;
    if (word != "sep=" || rest.size() < 6 || rest[4] == '"' || rest[4] == '\0' || isBreak(4) || !isBreak(5)) {
        return mark;
    }
    named = rest[4];
    return mark + 6 + (rest.substr(5, 2) == "\r\n" ? 1 : 0);
}

inline std::vector<PlainRecord> readPlainCsv(std::string_view text, char delimiter)
{
    std::vector<PlainRecord> records;
    char named = 0;
    std::size_t at = plainBeginning(text, named);
    for (std::uint64_t line = named != 0 ? 2 : 1; at < text.size();) {
        const std::size_t begin = at;
        std::vector<std::string> raw(1);
        bool open = false;
        for (; at < text.size() && (open || (text[at] != '\n' && text[at] != '\r')); ++at) {
            if (text[at] == delimiter && !open) {
                raw.emplace_back();
                continue;
            }
            const bool quoted = raw.back().empty() || raw.back()[0] == '"';
            open = text[at] == '"' && quoted ? !open : open;
            raw.back() += text[at];
        }
        at += text.substr(at, 2) == "\r\n" ? 2 : at < text.size() ? 1 : 0;
        PlainRecord record{.line = line};
        line += plainLineBreaks(text.substr(begin, at - begin));
        for (const std::string& field : raw) {
            const auto value = withoutQuotes(field);
            record.malformed |= !value;
            record.fields.push_back(value.value_or(std::string()));
        }
        if (raw.size() > 1 || !raw[0].empty()) {
            records.push_back(std::move(record));
        }
    }
    return records;
}

/// The one of the usual delimiters that is most frequent in the first line; those inside quotes do not count.
inline char plainDelimiter(std::string_view text)
{
    char named = 0;
    text.remove_prefix(plainBeginning(text, named));
    if (named != 0) {
        return named;
    }
    std::string unquoted;
    bool open = false;
    for (std::size_t at = 0; at < text.size() && (open || (text[at] != '\n' && text[at] != '\r')); ++at) {
        open = text[at] == '"' ? !open : open;
        unquoted += open ? ' ' : text[at];
    }
    char best = ',';
    for (const char c : {';', '\t', '|'}) {
        if (std::count(unquoted.begin(), unquoted.end(), c) > std::count(unquoted.begin(), unquoted.end(), best)) {
            best = c;
        }
    }
    return best;
}

/// The digits of a number that is written with groups; nothing where a group has a wrong size.
inline std::optional<std::string> withoutGroups(const std::string& text, const std::string& separator)
{
    std::vector<std::string> groups(1);
    for (std::size_t at = 0; at < text.size();) {
        if (text.compare(at, separator.size(), separator) == 0) {
            groups.emplace_back();
            at += separator.size();
        } else {
            groups.back() += text[at++];
        }
    }
    std::string digits;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const std::size_t least = i == 0 ? 1 : i + 1 == groups.size() ? 3 : 2;
        if (!plainDigits(groups[i]) || groups[i].size() < least || groups[i].size() > 3) {
            return std::nullopt;
        }
        digits += groups[i];
    }
    return digits[0] == '0' || groups.size() < 2 ? std::nullopt : std::optional(digits);
}

inline std::optional<std::int64_t> readPlainPrice(std::string_view price, char decimal)
{
    std::string text(withoutBlanks(price));
    std::string plain;
    if (text.starts_with('-') || text.starts_with('+')) {
        plain = text[0];
        text.erase(0, 1);
    }
    const std::size_t point = text.find(decimal);
    std::string integers = text.substr(0, point);
    for (const char* separator : {".", ",", " ", "'", "\u00A0", "\u202F", "\u2009", "\u2019"}) {
        if (separator[0] != decimal && integers.find(separator) != integers.npos) {
            integers = withoutGroups(integers, separator).value_or(integers);
        }
    }
    plain += integers;
    if (point != text.npos) {
        const std::string decimals = text.substr(point + 1);
        if (!plainDigits(decimals)) {
            return std::nullopt;
        }
        plain += '.' + decimals;
    }
    const std::string_view digits = std::string_view(plain).substr(plain.starts_with('-') || plain.starts_with('+'));
    if (digits.starts_with('-') || digits.starts_with('+') || (decimal != '.' && integers.find('.') != integers.npos)) {
        return std::nullopt;
    }
    const PlainAmount amount = readPlainAmount(plain);
    return amount.kind == PlainAmount::amount ? std::optional(amount.scaled) : std::nullopt;
}

} // namespace orvan::fuzz

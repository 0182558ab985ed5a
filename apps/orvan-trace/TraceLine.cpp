#include "TraceLine.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <utility>

namespace orvan::trace_reader {

namespace {

constexpr std::size_t kDayLength = 10;
constexpr std::string_view kTimeLayout = "0000-00-00 00:00:00.000 ";

/// Whether the text has a digit where the layout has one, and the same characters elsewhere.
bool hasLayout(std::string_view text, std::string_view layout)
{
    return text.size() >= layout.size() && std::equal(layout.begin(), layout.end(), text.begin(), [](char as, char c) {
               return as == '0' ? c >= '0' && c <= '9' : c == as;
           });
}

/// The number of `count` digits, which are there.
int digits(std::string_view text, std::size_t at, std::size_t count)
{
    int number = 0;
    for (const char c : text.substr(at, count)) {
        number = number * 10 + (c - '0');
    }
    return number;
}

/// Takes a number from the beginning of the text.
template <class Number>
bool takeNumber(std::string_view& text, Number& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return error == std::errc();
}

bool take(std::string_view& text, std::string_view beginning)
{
    const bool there = text.starts_with(beginning);
    text.remove_prefix(there ? beginning.size() : 0);
    return there;
}

} // namespace

std::optional<TraceLine> LineParser::parse(std::string_view line)
{
    if (!hasLayout(line, kTimeLayout)) {
        return std::nullopt;
    }
    const std::string_view day = line.substr(0, kDayLength);
    if (day != day_) {
        const std::chrono::year_month_day date{std::chrono::year(digits(day, 0, 4)),
                                               std::chrono::month(static_cast<unsigned>(digits(day, 5, 2))),
                                               std::chrono::day(static_cast<unsigned>(digits(day, 8, 2)))};
        if (!date.ok()) {
            return std::nullopt;
        }
        day_ = day;
        dayBegins_ = std::chrono::milliseconds(std::chrono::sys_days(date).time_since_epoch()).count();
    }
    const int hour = digits(line, 11, 2);
    const int minute = digits(line, 14, 2);
    const int second = digits(line, 17, 2);
    if (hour > 23 || minute > 59 || second > 60) { // 60: a leap second
        return std::nullopt;
    }
    TraceLine result;
    result.time = dayBegins_ + ((hour * 60 + minute) * 60 + second) * std::int64_t{1000} + digits(line, 20, 3);
    line.remove_prefix(kTimeLayout.size());
    if (!takeNumber(line, result.thread) || !take(line, " ")) {
        return std::nullopt;
    }
    take(line, " "); // a depth of one digit
    if (!takeNumber(line, result.depth) || line.size() / 2 < result.depth) {
        return std::nullopt;
    }
    const std::size_t indented = 1 + 2 * result.depth;
    if (line.find_first_not_of(' ') != indented) {
        return std::nullopt;
    }
    line.remove_prefix(indented);
    constexpr std::pair<std::string_view, Kind> kKinds[] = {
        {"enter ", Kind::enter}, {"exit  ", Kind::exit}, {"error ", Kind::error}, {"show  ", Kind::show}};
    for (const auto& [word, kind] : kKinds) {
        if (take(line, word)) {
            result.kind = kind;
            result.text = line;
            return result;
        }
    }
    return std::nullopt;
}

std::int32_t errorNumber(std::string_view text)
{
    std::int32_t number = 0;
    return takeNumber(text, number) ? number : 0;
}

} // namespace orvan::trace_reader

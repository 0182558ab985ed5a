#include "orvan/ui/GridFormat.h"

#include "orvan/base/RoundedAmount.h"

#include <algorithm>

namespace orvan::ui {

namespace {

constexpr std::string_view kPictureCharacters = "#0,.";

void groupInThrees(std::string& digits, const std::string& separator)
{
    for (std::size_t at = digits.size(); at > 3;) {
        at -= 3;
        digits.insert(at, separator);
    }
}

} // namespace

GridFormat::GridFormat(std::string_view picture)
{
    const auto first = std::min(picture.find_first_of(kPictureCharacters), picture.size());
    const auto last = picture.find_last_of(kPictureCharacters);
    if (first == picture.size()) {
        prefix_ = picture; // the text holds no picture character: all of it is shown before a plain number
        return;
    }
    prefix_ = picture.substr(0, first);
    suffix_ = picture.substr(last + 1);
    const std::string_view body = picture.substr(first, last + 1 - first);
    const auto point = std::min(body.find('.'), body.size());
    const std::string_view integers = body.substr(0, point);
    const std::string_view decimals = body.substr(std::min(point + 1, body.size()));
    const auto digits = [](std::string_view part, std::string_view which) {
        return std::count_if(part.begin(), part.end(), [&](char c) { return which.find(c) != which.npos; });
    };
    integerDigits_ = static_cast<std::size_t>(digits(integers, "0"));
    grouped_ = integers.find(',') != integers.npos;
    leastDecimals_ = static_cast<int>(std::min<std::ptrdiff_t>(digits(decimals, "0"), Currency::kDecimals));
    mostDecimals_ = static_cast<int>(std::min<std::ptrdiff_t>(digits(decimals, "0#"), Currency::kDecimals));
}

std::string GridFormat::display(const GridValue& value, const NumberSeparators& separators) const
{
    if (const auto* text = std::get_if<std::string>(&value)) {
        return *text;
    }
    if (const auto* amount = std::get_if<Currency>(&value)) {
        return displayAmount(*amount, separators);
    }
    if (const auto* number = std::get_if<std::int32_t>(&value)) {
        return displayAmount(Currency::fromInteger(*number), separators);
    }
    return {};
}

std::string GridFormat::displayAmount(Currency value, const NumberSeparators& separators) const
{
    const std::uint64_t magnitude = roundedMagnitude(value, mostDecimals_);
    std::string digits = std::to_string(magnitude);
    const auto most = static_cast<std::size_t>(mostDecimals_);
    if (digits.size() <= most) {
        digits.insert(0, most + 1 - digits.size(), '0');
    }
    std::string integers = digits.substr(0, digits.size() - most);
    std::string decimals = digits.substr(digits.size() - most);
    while (decimals.size() > static_cast<std::size_t>(leastDecimals_) && decimals.back() == '0') {
        decimals.pop_back();
    }
    if (integers == "0" && integerDigits_ == 0) {
        integers.clear();
    } else if (integers.size() < integerDigits_) {
        integers.insert(0, integerDigits_ - integers.size(), '0');
    }
    if (grouped_) {
        groupInThrees(integers, separators.thousands);
    }
    std::string text = value.scaled() < 0 ? "-" : "";
    text += prefix_ + integers;
    if (!decimals.empty()) {
        text += separators.decimal + decimals;
    }
    return text + suffix_;
}

} // namespace orvan::ui

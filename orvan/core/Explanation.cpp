#include "orvan/core/Explanation.h"

#include "orvan/base/Int128.h"
#include "orvan/base/RoundedAmount.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/core/ProductValues.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <limits>
#include <utility>

namespace orvan {

namespace {

constexpr int kPercentDecimals = 2; ///< A percentage is a number with two more decimals.

/// The product of the factors with its last `decimals` digits behind the point. Three factors of 64 bits do not fit any
/// integer, so it is computed in groups of nine digits.
std::string exactText(bool negative, std::initializer_list<UInt128> factors, int decimals)
{
    constexpr std::uint32_t kGroup = 1'000'000'000;
    constexpr int kGroupDigits = 9;
    std::vector<std::uint32_t> groups{1}; // the last digits stand first
    for (const UInt128 factor : factors) {
        UInt128 carry = 0;
        std::vector<std::uint32_t> product;
        // A factor has at most 97 bits, so that a group times the factor, and a carry, fit 128 bits.
        for (const std::uint32_t group : groups) {
            carry += factor * group;
            product.push_back(static_cast<std::uint32_t>(carry % kGroup));
            carry /= kGroup;
        }
        for (; carry != 0; carry /= kGroup) {
            product.push_back(static_cast<std::uint32_t>(carry % kGroup));
        }
        groups = std::move(product);
    }
    std::string digits; // the last one first
    for (std::uint32_t group : groups) {
        for (int place = 0; place < kGroupDigits; ++place, group /= 10) {
            digits += static_cast<char>('0' + group % 10);
        }
    }
    const auto point = static_cast<std::size_t>(decimals);
    digits.resize(std::max(digits.size(), point + 1), '0');
    while (digits.size() > point + 1 && digits.back() == '0') {
        digits.pop_back();
    }
    const std::size_t zeros = std::min(digits.find_first_not_of('0'), point); // at the end of the decimals
    std::string text(digits.rbegin(), digits.rend() - static_cast<std::ptrdiff_t>(zeros));
    if (zeros < point) {
        text.insert(digits.size() - point, 1, '.');
    }
    return negative && text != "0" ? '-' + text : text;
}

std::string exactText(Int128 value, int decimals)
{
    const auto bits = static_cast<UInt128>(value);
    return exactText(value < 0, {value < 0 ? 0 - bits : bits}, decimals);
}

/// How `amount` came from an exact value, which has `decimals` more decimals than an amount.
PriceRounding roundingOf(Int128 exact, int decimals, Currency amount)
{
    Int128 unit = 1;
    for (int i = 0; i < decimals; ++i) {
        unit *= 10;
    }
    const Int128 added = amount.scaled() * unit - exact;
    if (added == 0) {
        return PriceRounding::none;
    }
    const Int128 doubled = (added < 0 ? -added : added) * 2;
    const bool nearest = doubled < unit || (doubled == unit && amount.scaled() % 2 == 0);
    return nearest ? PriceRounding::halfToEven : PriceRounding::binary;
}

/// The steps of the editor's procedure. Where one is beyond the range, the editor stores 0.
PriceSteps stepsOf(Currency unitPrice, Currency qty, Currency discPrcnt)
{
    PriceSteps steps;
    try {
        computePrice(steps, unitPrice, qty, discPrcnt);
    } catch (const RuntimeError& error) {
        if (error.number() != ErrorNumber::overflow) {
            throw;
        }
    }
    return steps;
}

std::optional<Currency> totalOf(ProductMgr& manager)
{
    try {
        return manager.GetTotalValue();
    } catch (const RuntimeError& error) {
        if (error.number() != ErrorNumber::overflow) {
            throw;
        }
        return std::nullopt;
    }
}

/// The sums of the rows that have been read.
struct Sums {
    Int128 exact = 0; ///< In ten-thousandths.
    Int128 shown = 0; ///< In units of the last decimal shown.
};

void addRow(TotalExplanation& total, Sums& sums, const ProductRecord& record, std::int32_t position)
{
    const Currency discount = record.DiscPrcnt();
    const Currency unitPrice = record.UnitPrice();
    const Currency qty = record.Qty();
    const Currency stored = record.ExtPrice();
    const std::int64_t shown = shownUnits(stored, total.decimals);
    sums.exact += stored.scaled();
    sums.shown += shown;
    const auto unit = static_cast<std::int64_t>(Currency::kPowersOfTen[Currency::kDecimals - total.decimals]);
    if (const Int128 added = Int128{shown} * unit - stored.scaled(); added != 0) {
        total.rounded.push_back({position, stored, shown, static_cast<std::int64_t>(added)});
    }
    const auto price = stepsOf(unitPrice, qty, discount).price;
    if (!price && stored == Currency()) {
        total.overflowed.push_back(position);
    }
    if (const Currency computed = price.value_or(Currency()); computed != stored) {
        total.deviating.push_back({position, stored, computed});
    }
}

} // namespace

PriceExplanation explainExtPrice(const ProductRecord& record)
{
    PriceExplanation price;
    // In the order in which the editor reads them.
    price.discPrcnt = record.DiscPrcnt();
    price.unitPrice = record.UnitPrice();
    price.qty = record.Qty();
    price.stored = record.ExtPrice();
    constexpr Int128 kHundred = Int128{100} * Currency::kScale;
    price.discountIgnored = price.discPrcnt.scaled() > kHundred;
    const Int128 share = price.discountIgnored ? kHundred : kHundred - price.discPrcnt.scaled(); // never negative
    const Int128 gross = Int128{price.qty.scaled()} * price.unitPrice.scaled();

    const PriceSteps steps = stepsOf(price.unitPrice, price.qty, price.discPrcnt);
    price.share = {.exact = exactText(share, Currency::kDecimals), .amount = steps.share};
    if (steps.share) {
        price.gross = {.exact = exactText(gross < 0, {price.qty.magnitude(), price.unitPrice.magnitude()},
                                          2 * Currency::kDecimals),
                       .amount = steps.gross};
    }
    if (steps.gross) {
        price.gross.rounding = roundingOf(gross, Currency::kDecimals, *steps.gross);
        const Int128 exact = share * steps.gross->scaled();
        constexpr int kMoreDecimals = Currency::kDecimals + kPercentDecimals;
        price.price = {.exact = exactText(exact < 0, {static_cast<UInt128>(share), steps.gross->magnitude()},
                                          Currency::kDecimals + kMoreDecimals),
                       .amount = steps.price};
        price.binaryPrice = steps.net;
        if (steps.price) {
            price.price.rounding = roundingOf(exact, kMoreDecimals, *steps.price);
        }
    }
    price.unrounded =
        exactText(gross < 0, {price.qty.magnitude(), price.unitPrice.magnitude(), static_cast<UInt128>(share)},
                  3 * Currency::kDecimals + kPercentDecimals);
    price.overflowed = !steps.price;
    price.computed = steps.price.value_or(Currency());
    return price;
}

TotalExplanation explainTotal(ProductMgr& manager, int decimals)
{
    if (decimals < 0 || decimals > Currency::kDecimals) {
        throw RuntimeError(ErrorNumber::invalidProcedureCall);
    }
    TotalExplanation total;
    total.decimals = decimals;
    Sums sums;
    const std::int32_t count = manager.GetProductCount();
    for (std::int32_t position = 1; position <= count; ++position) {
        const auto record = manager.GetProduct(position);
        if (!record) {
            throw RuntimeError(ErrorNumber::objectNotSet);
        }
        addRow(total, sums, *record, position);
    }
    total.exactSum = exactText(sums.exact, Currency::kDecimals);
    total.sumOfShown = exactText(sums.shown, decimals);
    total.total = totalOf(manager);
    if (total.total) {
        total.totalIsSum = sums.exact == total.total->scaled();
        total.shownTotal = shownUnits(*total.total, decimals);
        const Int128 difference = *total.shownTotal - sums.shown;
        if (difference <= std::numeric_limits<std::int64_t>::max() &&
            difference >= std::numeric_limits<std::int64_t>::min()) {
            total.difference = static_cast<std::int64_t>(difference);
        }
    }
    return total;
}

} // namespace orvan

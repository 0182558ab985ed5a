// explainExtPrice, explainTotal: how an extended price and a total came about, as data that a program can show.
//
// The extended price is computed by the procedure that the editor uses, so an explanation shows the same steps, the
// same rounding and the same overflow. An exact value is a text with all its digits: a minus sign if it is negative,
// digits, and a '.' with decimals if it has any, without zeros at the end ("-3.00015"). It is in whole units, as a
// person writes amounts, and may be beyond the range of Currency, which counts ten-thousandths.
//
// Nothing is changed. Ownership: an explanation owns all that it holds and knows neither the record nor the manager.
// Thread: that of the manager. Errors: both raise what the record or the manager raises, except error 6 of the total,
// which is part of the explanation.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/core_export.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvan {

class ProductMgr;
class ProductRecord;

/// How the exact value of a step became an amount with four decimals.
enum class PriceRounding : std::uint8_t {
    none,       ///< It is the exact value.
    halfToEven, ///< It is the amount nearest to the exact value, and of two equally near ones the even one.
    /// It is another amount, because the share is taken in binary floating point, as existing quotes were priced. This
    /// happens where the exact value lies halfway between two amounts, and with amounts of 15 digits and more.
    binary,
};

/// One step of the computation.
struct PriceStep {
    /// The exact value that the step's own operands give; empty for a step that was not reached.
    std::string exact;
    /// The amount with which the computation went on; none where that is beyond the range.
    std::optional<Currency> amount;
    PriceRounding rounding = PriceRounding::none;
};

struct PriceExplanation {
    Currency qty;
    Currency unitPrice;
    Currency discPrcnt; ///< In percent.
    /// The record's extended price, which whoever wrote the record set.
    Currency stored;

    PriceStep share; ///< 100 less the discount, in percent.
    PriceStep gross; ///< Quantity times unit price; exactly, this has up to eight decimals.
    PriceStep price; ///< The share of the rounded gross price; exactly, this has up to ten decimals.
    /// The share of the gross price as binary floating point gave it, before it was rounded; 0 if it was not reached.
    double binaryPrice = 0;
    /// What the parts give if nothing is rounded in between; up to 14 decimals.
    std::string unrounded;

    bool discountIgnored = false; ///< The discount is above 100 percent and counts as none.
    bool overflowed = false;      ///< A step is beyond the range of Currency, so that the price is 0.
    /// What the editor would store: the last step's amount, or 0 where a step is beyond the range.
    Currency computed;
};

[[nodiscard]] ORVAN_CORE_EXPORT PriceExplanation explainExtPrice(const ProductRecord& record);

/// A product whose extended price is shown with fewer decimals than it has.
struct RoundedRow {
    std::int32_t position = 0; ///< From 1 on.
    Currency extPrice;
    std::int64_t shown = 0; ///< In units of the last decimal shown: in cents, for two decimals.
    std::int64_t added = 0; ///< What is shown less the extended price, in ten-thousandths.
};

/// A product whose extended price is not what its quantity, unit price and discount give.
struct DeviatingRow {
    std::int32_t position = 0; ///< From 1 on.
    Currency stored;
    Currency computed; ///< What the editor would store; 0 where it is beyond the range.
};

struct TotalExplanation {
    int decimals = 0; ///< How many are shown.
    /// The exact sum of the extended prices, even where it is beyond the range.
    std::string exactSum;
    /// The manager's total; none where it raised 6, because the sum is beyond the range.
    std::optional<Currency> total;
    /// Whether the manager's total is the sum of the extended prices. A manager that is not the library's own may add
    /// something to them.
    bool totalIsSum = false;

    // What a reader of the list sees. Amounts are rounded half away from zero to be shown, each for itself; "units" are
    // those of the last decimal shown, which are cents for two decimals.
    std::optional<std::int64_t> shownTotal; ///< In units; none without a total.
    std::string sumOfShown;                 ///< Exact sum of the extended prices as they are shown.
    /// The shown total less the sum of the shown extended prices, in units; 0 if the column adds up. None without a
    /// total, and where it has more than 64 bits.
    std::optional<std::int64_t> difference;
    std::vector<RoundedRow> rounded;      ///< In the order of the list.
    std::vector<std::int32_t> overflowed; ///< Positions whose price is 0 because a step is beyond the range.
    std::vector<DeviatingRow> deviating;  ///< In the order of the list.
};

/// `decimals`: how many decimals the amounts are shown with, 0 to 4; raises 5 for others. The list view and the editor
/// show two. Reads every product of the list.
[[nodiscard]] ORVAN_CORE_EXPORT TotalExplanation explainTotal(ProductMgr& manager, int decimals = 2);

} // namespace orvan

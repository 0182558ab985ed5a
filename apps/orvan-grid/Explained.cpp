#include "Explained.h"

#include <orvan/core/Explanation.h>
#include <orvan/core/ProductMgr.h>

#include <shared/TerminalText.h>

namespace {

/// An amount of hundredths, as exact texts are written.
std::string hundredths(std::int64_t count)
{
    const auto bits = static_cast<std::uint64_t>(count);
    const std::uint64_t magnitude = count < 0 ? 0 - bits : bits;
    const std::uint64_t cents = magnitude % 100;
    return (count < 0 ? "-" : "") + std::to_string(magnitude / 100) + (cents < 10 ? ".0" : ".") + std::to_string(cents);
}

std::string roundingOf(const orvan::PriceStep& step)
{
    if (!step.amount) {
        return "beyond the range, so the price is 0";
    }
    switch (step.rounding) {
    case orvan::PriceRounding::none: return "exact";
    case orvan::PriceRounding::halfToEven: return "rounded to four decimals, halves to the even digit";
    case orvan::PriceRounding::binary: return "rounded in binary arithmetic";
    }
    return {};
}

void addStep(Rows& table, const std::string& name, const orvan::PriceStep& step)
{
    if (!step.exact.empty()) {
        table.push_back({"", "  " + name, step.exact, step.amount ? step.amount->toText() : "-", roundingOf(step)});
    }
}

void addProduct(Rows& table, const orvan::ProductRecord& record, std::int32_t position)
{
    const orvan::PriceExplanation price = orvan::explainExtPrice(record);
    table.push_back({std::to_string(position), orvan::shared::terminalText(record.Name()), "", "", ""});
    addStep(table,
            price.discountIgnored ? "100% (a discount of " + price.discPrcnt.toText() + "% counts as none)"
                                  : "100% - " + price.discPrcnt.toText() + "%",
            price.share);
    addStep(table, price.qty.toText() + " x " + price.unitPrice.toText(), price.gross);
    if (price.gross.amount) {
        addStep(table, price.share.amount->toText() + "% of " + price.gross.amount->toText(), price.price);
    }
    table.push_back({"", "  extended price", price.unrounded, price.stored.toText(),
                     price.stored == price.computed ? "" : "stored; its parts give " + price.computed.toText()});
}

std::string columnSentence(const orvan::TotalExplanation& total)
{
    const std::string rows = "Shown with two decimals, the rows add up to " + total.sumOfShown;
    if (!total.total) {
        return rows + ". There is no total: " + total.exactSum + " is beyond the range.";
    }
    const std::string shown = "the total is shown as " + hundredths(*total.shownTotal);
    if (!total.difference || *total.difference != 0) {
        return rows + ", but " + shown + ", because each is rounded for itself" +
               (total.difference ? ": " + hundredths(*total.difference) + " of difference." : ".");
    }
    return rows + ", and " + shown + ".";
}

} // namespace

Explained explained(orvan::ProductMgr& manager)
{
    Explained result;
    result.table.push_back({"#", "Product and steps", "Exact value", "Amount", "How it came about"});
    const std::int32_t count = manager.GetProductCount();
    for (std::int32_t position = 1; position <= count; ++position) {
        addProduct(result.table, *manager.GetProduct(position), position);
    }
    const orvan::TotalExplanation total = orvan::explainTotal(manager);
    result.table.push_back({"", "Total", total.exactSum, total.total ? total.total->toText() : "-",
                            total.total && !total.totalIsSum ? "not the sum of the extended prices" : ""});
    result.sentences.push_back(columnSentence(total));
    for (const orvan::RoundedRow& row : total.rounded) {
        result.sentences.push_back("  " + std::to_string(row.position) + ": " + row.extPrice.toText() +
                                   " is shown as " + hundredths(row.shown) + " (" + (row.added > 0 ? "+" : "") +
                                   orvan::Currency::fromScaled(row.added).toText() + ")");
    }
    return result;
}

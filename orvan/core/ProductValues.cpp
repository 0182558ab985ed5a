#include "orvan/core/ProductValues.h"

#include "orvan/core/ProductMgr.h"

#include <atomic>

namespace orvan {

std::uint64_t newRecordStamp() noexcept
{
    // Each thread takes many numbers at once, because counting in a variable that threads share takes as long as
    // everything else that a record does for a change.
    constexpr std::uint64_t kTakenAtOnce = 4096;
    static std::atomic<std::uint64_t> taken = 0;
    thread_local constinit std::uint64_t last = 0;
    thread_local constinit std::uint64_t end = 0; // the last number that the thread has taken
    if (last == end) {
        last = taken.fetch_add(kTakenAtOnce, std::memory_order_relaxed);
        end = last + kTakenAtOnce;
    }
    return ++last;
}

ProductValues valuesOf(const ProductRecord& record)
{
    return {.name = record.Name(),
            .key = record.Key(),
            .partNum = record.PartNum(),
            .unitPrice = record.UnitPrice(),
            .qty = record.Qty(),
            .discPrcnt = record.DiscPrcnt(),
            .extPrice = record.ExtPrice(),
            .note = record.Note()};
}

void setValues(ProductRecord& record, const ProductValues& values)
{
    record.SetName(values.name);
    record.SetKey(values.key);
    record.SetPartNum(values.partNum);
    record.SetUnitPrice(values.unitPrice);
    record.SetQty(values.qty);
    record.SetDiscPrcnt(values.discPrcnt);
    record.SetExtPrice(values.extPrice);
    record.SetNote(values.note);
}

void computePrice(PriceSteps& steps, Currency unitPrice, Currency qty, Currency discPrcnt)
{
    const Currency hundred = Currency::fromScaled(100 * Currency::kScale);
    steps = {};
    steps.share = discPrcnt > hundred ? hundred : hundred - discPrcnt;
    steps.gross = qty * unitPrice;
    // The price is computed in double, and the percentage is divided before it is multiplied, because existing quotes
    // were priced this way and must get the same prices again. fromDouble raises for a result that is not a number or
    // is out of range.
    steps.net = steps.share->toDouble() / 100.0 * steps.gross->toDouble();
    steps.price = Currency::fromDouble(steps.net);
}

Currency extendedPrice(Currency unitPrice, Currency qty, Currency discPrcnt)
{
    PriceSteps steps;
    computePrice(steps, unitPrice, qty, discPrcnt);
    return *steps.price;
}

} // namespace orvan

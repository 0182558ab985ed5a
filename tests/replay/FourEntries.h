// FourEntries: a catalogue for recordings that are to stay short.
#pragma once

#include "orvan/lookup/ProductLkpMgr.h"

#include <string_view>
#include <vector>

namespace orvan::replay {

struct Entry {
    const char* name;
    const char* number;
    const char* price;
    const char* note;
};
inline constexpr Entry kEntries[] = {{"Table", "T-9", "55.5", "round"},
                                     {"Table lamp", "T-10", "12.3456", ""},
                                     {"Desk", "D-1", "489", "oak"},
                                     {"Grüner Stuhl", "G-1", "99.99", "zwei\r\nZeilen"}};

class FourEntries final : public ProductLkpMgr {
public:
    LookUpList GetPartNumList(std::string_view sText, bool all) override { return find(sText, all, &Entry::number); }
    LookUpList GetProductNameList(std::string_view sText, bool all) override { return find(sText, all, &Entry::name); }
    void SeekItem(std::int32_t itemId) override
    {
        current_ = itemId >= 1 && itemId <= 4 ? &kEntries[itemId - 1] : nullptr;
    }
    bool IsEOF() override { return !current_; }
    LookUpValue GetFieldValue(std::int32_t column) override
    {
        switch (static_cast<LookUpColumn>(column)) {
        case LookUpColumn::name: return current_->name;
        case LookUpColumn::partNum: return current_->number;
        case LookUpColumn::unitPrice: return 12.5;
        case LookUpColumn::note: return current_->note;
        case LookUpColumn::key: break;
        }
        return {};
    }
    std::optional<LookUpSummary> summary(std::int64_t itemId) override
    {
        const Entry& entry = kEntries[itemId - 1];
        return LookUpSummary{entry.number, entry.name, Currency::fromText(entry.price)};
    }

private:
    static LookUpList find(std::string_view text, bool all, const char* Entry::*what)
    {
        std::vector<LookUpRow> rows;
        for (const Entry& entry : kEntries) {
            if (all || (!text.empty() && std::string_view(entry.*what).starts_with(text))) {
                rows.push_back({&entry - kEntries + 1, entry.*what});
            }
        }
        return rows.empty() ? std::nullopt : LookUpList(rows);
    }

    const Entry* current_ = nullptr;
};

} // namespace orvan::replay

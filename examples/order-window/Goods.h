// Goods: what this host sells, and the look-up by which the product editor finds it.
//
// A real host asks its database here. Each look-up object has a current entry of its own, and all of them share the
// goods, which nobody changes. Thread: the user-interface thread.
#pragma once

#include <orvan/lookup/ProductLkpMgr.h>

#include <QString>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

//! [goods]
struct Article {
    QString partNum;
    QString name;
    orvan::Currency unitPrice;
};

inline const std::vector<Article> kGoods = {
    {"CHR-100", "Chair, four legs", orvan::Currency::fromInteger(89)},
    {"CHR-200", "Chair, swivel", orvan::Currency::fromInteger(179)},
    {"DSK-160", "Desk, 160 cm", orvan::Currency::fromInteger(420)},
    {"LMP-01", "Lamp, dimmable", orvan::Currency::fromText("74.95")},
};
//! [goods]

//! [look-up]
class GoodsLookUp final : public orvan::ProductLkpMgr {
public:
    orvan::LookUpList GetPartNumList(std::string_view sText, bool all) override
    {
        return list(&Article::partNum, sText, all);
    }
    orvan::LookUpList GetProductNameList(std::string_view sText, bool all) override
    {
        return list(&Article::name, sText, all);
    }
    /// The id of an article is its place in the goods.
    void SeekItem(std::int32_t itemId) override { current_ = articleOf(itemId); }
    bool IsEOF() override { return current_ == nullptr; }
    orvan::LookUpValue GetFieldValue(std::int32_t column) override
    {
        switch (static_cast<orvan::LookUpColumn>(column)) {
        case orvan::LookUpColumn::partNum: return current_->partNum.toStdString();
        case orvan::LookUpColumn::name: return current_->name.toStdString();
        case orvan::LookUpColumn::unitPrice: return current_->unitPrice;
        default: return {}; // this host's goods have no keys and no notes
        }
    }
    /// What the list that drops down shows beside the text.
    std::optional<orvan::LookUpSummary> summary(std::int64_t itemId) override
    {
        const Article* article = articleOf(itemId);
        return !article ? std::nullopt
                        : std::optional<orvan::LookUpSummary>(
                              {article->partNum.toStdString(), article->name.toStdString(), article->unitPrice});
    }

private:
    static const Article* articleOf(std::int64_t itemId)
    {
        const auto place = static_cast<std::size_t>(itemId); // a negative id is beyond the end, too
        return place < kGoods.size() ? &kGoods[place] : nullptr;
    }
    static orvan::LookUpList list(QString Article::*text, std::string_view typed, bool all)
    {
        const QString beginning = QString::fromUtf8(typed.data(), static_cast<qsizetype>(typed.size()));
        std::vector<orvan::LookUpRow> rows;
        for (std::size_t place = 0; place < kGoods.size(); ++place) {
            const QString& whole = kGoods[place].*text;
            if (all || (!beginning.isEmpty() && whole.startsWith(beginning, Qt::CaseInsensitive))) {
                rows.push_back({static_cast<std::int64_t>(place), whole.toStdString()});
            }
        }
        return rows;
    }

    const Article* current_ = nullptr;
};
//! [look-up]

// ProductLkpMgrConformance: the requirements on a catalogue look-up (orvan/lookup/ProductLkpMgr.h), as tests. See
// Conformance.h.
//
// The host gives a look-up on a catalogue of at least two entries, in which the first entry of each whole list has a
// text.
#pragma once

#include "orvan/lookup/ProductLkpMgr.h"
#include "orvan/testing/Conformance.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace orvan::conformance {

/// What the host registers under kProductLkpMgrClassName.
using ProductLkpMgrFactory = std::function<std::shared_ptr<ui::Component>()>;

namespace lookups {

inline std::shared_ptr<ProductLkpMgr> made(const ProductLkpMgrFactory& make)
{
    return madeAs<ProductLkpMgr>(make, "The factory made no ProductLkpMgr");
}

using List = LookUpList (ProductLkpMgr::*)(std::string_view, bool);
inline constexpr List kLists[] = {&ProductLkpMgr::GetPartNumList, &ProductLkpMgr::GetProductNameList};

/// The rows, and no rows where there is no list.
inline std::vector<LookUpRow> rowsOf(ProductLkpMgr& lookUp, List list, std::string_view text, bool all)
{
    return (lookUp.*list)(text, all).value_or(std::vector<LookUpRow>());
}

inline LookUpRow firstOf(ProductLkpMgr& lookUp, List list)
{
    const std::vector<LookUpRow> rows = rowsOf(lookUp, list, {}, true);
    if (rows.empty() || rows.front().text.empty()) {
        throw RuntimeError(ErrorNumber::invalidProcedureCall, {}, "The whole list has no first entry with a text");
    }
    return rows.front();
}

inline std::vector<std::int64_t> idsOf(const std::vector<LookUpRow>& rows)
{
    std::vector<std::int64_t> ids;
    ids.reserve(rows.size());
    for (const LookUpRow& row : rows) {
        ids.push_back(row.itemId);
    }
    return ids;
}

inline std::int32_t idOf(const LookUpRow& row)
{
    return static_cast<std::int32_t>(row.itemId);
}

/// The text of a value that is a text or a number; empty for others.
inline std::string textOf(const LookUpValue& value)
{
    struct ToText {
        std::string operator()(const std::string& text) const { return text; }
        std::string operator()(std::int64_t number) const { return std::to_string(number); }
        std::string operator()(Currency amount) const { return amount.toText(); }
        std::string operator()(double /*number*/) const { return {}; }
        std::string operator()(std::monostate) const { return {}; }
    };
    return std::visit(ToText(), value);
}

inline std::string columnOf(ProductLkpMgr& lookUp, LookUpColumn column)
{
    return textOf(lookUp.GetFieldValue(static_cast<std::int32_t>(column)));
}

/// What tells one entry from another.
inline std::string entryOf(ProductLkpMgr& lookUp)
{
    return columnOf(lookUp, LookUpColumn::partNum) + "\n" + columnOf(lookUp, LookUpColumn::name);
}

/// Whether the text begins with `typed`, ASCII letters of either case alike.
inline bool begins(const std::string& text, const std::string& typed)
{
    const auto folded = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return text.size() >= typed.size() &&
           std::equal(typed.begin(), typed.end(), text.begin(), [&](char a, char b) { return folded(a) == folded(b); });
}

/// Row 0 begins with the typed text, for the first entry's text of each length up to the whole. Texts that end within
/// a character of several bytes are left out: nobody types them.
inline void completes(const ProductLkpMgrFactory& make, List list)
{
    const auto lookUp = made(make);
    const std::string text = firstOf(*lookUp, list).text;
    for (std::size_t size = 1; size <= text.size(); ++size) {
        if (size < text.size() && (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80) {
            continue;
        }
        const std::string typed = text.substr(0, size);
        const std::vector<LookUpRow> rows = rowsOf(*lookUp, list, typed, false);
        ASSERT_FALSE(rows.empty()) << "nothing begins with \"" << typed << "\", which an entry begins with";
        EXPECT_TRUE(begins(rows.front().text, typed)) << "\"" << rows.front().text << "\" for \"" << typed << "\"";
    }
}

using Make = ProductLkpMgrFactory;

inline constexpr Row<Make> kRows[] = {
    {"EachCallMakesALookUpOfItsOwn",
     [](const Make& make) {
         const auto one = made(make), other = made(make);
         EXPECT_NE(one, other);
         const std::vector<LookUpRow> rows = rowsOf(*one, kLists[0], {}, true);
         one->SeekItem(idOf(rows.front()));
         const std::string entry = entryOf(*one);
         other->SeekItem(idOf(rows.back()));
         EXPECT_EQ(entryOf(*one), entry) << "a look-up has the current entry of another one";
     }},
    {"NothingIsCurrentAtFirst", [](const Make& make) { EXPECT_TRUE(made(make)->IsEOF()); }},
    {"PartNumbersBeginWithTheText", [](const Make& make) { completes(make, kLists[0]); }},
    {"NamesBeginWithTheText", [](const Make& make) { completes(make, kLists[1]); }},
    {"EmptyTextFindsNothing",
     [](const Make& make) {
         const auto lookUp = made(make);
         for (const List list : kLists) {
             EXPECT_TRUE(rowsOf(*lookUp, list, "", false).empty());
         }
     }},
    {"UnknownTextFindsNothing",
     [](const Make& make) {
         const auto lookUp = made(make);
         for (const List list : kLists) {
             EXPECT_TRUE(rowsOf(*lookUp, list, "\x7F\x7F no entry begins so", false).empty());
         }
     }},
    {"WholeListIgnoresTheText",
     [](const Make& make) {
         for (const List list : kLists) {
             const auto lookUp = made(make);
             const std::vector<std::int64_t> ids = idsOf(rowsOf(*lookUp, list, {}, true));
             EXPECT_EQ(idsOf(rowsOf(*lookUp, list, "text", true)), ids);
         }
     }},
    {"SameSearchFindsTheSame",
     [](const Make& make) {
         const auto lookUp = made(make);
         for (const List list : kLists) {
             const std::string text = firstOf(*lookUp, list).text;
             const std::vector<std::int64_t> ids = idsOf(rowsOf(*lookUp, list, text, false));
             EXPECT_EQ(idsOf(rowsOf(*lookUp, list, text, false)), ids);
         }
     }},
    {"ItemIdsHave32Bits",
     [](const Make& make) {
         using Limits = std::numeric_limits<std::int32_t>;
         const auto lookUp = made(make);
         for (const List list : kLists) {
             for (const std::int64_t id : idsOf(rowsOf(*lookUp, list, {}, true))) {
                 EXPECT_TRUE(id >= Limits::min() && id <= Limits::max()) << id;
             }
         }
     }},
    {"ListedEntryBecomesCurrent",
     [](const Make& make) {
         const auto lookUp = made(make);
         for (const List list : kLists) {
             lookUp->SeekItem(idOf(firstOf(*lookUp, list)));
             EXPECT_FALSE(lookUp->IsEOF());
         }
     }},
    {"UnknownIdLeavesNoCurrentEntry",
     [](const Make& make) {
         const auto lookUp = made(make);
         const LookUpRow row = firstOf(*lookUp, kLists[0]);
         const std::vector<std::int64_t> ids = idsOf(rowsOf(*lookUp, kLists[0], {}, true));
         std::int32_t unknown = std::numeric_limits<std::int32_t>::min();
         while (std::find(ids.begin(), ids.end(), unknown) != ids.end()) {
             ++unknown;
         }
         lookUp->SeekItem(idOf(row));
         lookUp->SeekItem(unknown);
         EXPECT_TRUE(lookUp->IsEOF());
     }},
    {"PartNumberIsTheListedOne",
     [](const Make& make) {
         const auto lookUp = made(make);
         const LookUpRow row = firstOf(*lookUp, kLists[0]);
         lookUp->SeekItem(idOf(row));
         EXPECT_EQ(columnOf(*lookUp, LookUpColumn::partNum), row.text);
     }},
    {"NameIsTheListedOne",
     [](const Make& make) {
         const auto lookUp = made(make);
         const LookUpRow row = firstOf(*lookUp, kLists[1]);
         lookUp->SeekItem(idOf(row));
         EXPECT_EQ(columnOf(*lookUp, LookUpColumn::name), row.text);
     }},
    {"KeyPriceAndNoteCanBeRead",
     [](const Make& make) {
         const auto lookUp = made(make);
         lookUp->SeekItem(idOf(firstOf(*lookUp, kLists[0])));
         for (const LookUpColumn column : {LookUpColumn::key, LookUpColumn::unitPrice, LookUpColumn::note}) {
             EXPECT_EQ(errorOf([&] { static_cast<void>(columnOf(*lookUp, column)); }), 0)
                 << "column " << static_cast<std::int32_t>(column);
         }
     }},
    {"SummaryIsOfTheEntryAskedFor",
     [](const Make& make) {
         const auto lookUp = made(make);
         const LookUpRow row = firstOf(*lookUp, kLists[1]);
         if (const auto summary = lookUp->summary(row.itemId)) {
             EXPECT_EQ(textOf(summary->name), row.text);
         }
     }},
    {"SummaryKeepsTheCurrentEntry",
     [](const Make& make) {
         const auto lookUp = made(make);
         const std::vector<LookUpRow> rows = rowsOf(*lookUp, kLists[0], {}, true);
         lookUp->SeekItem(idOf(rows.front()));
         const std::string entry = entryOf(*lookUp);
         static_cast<void>(lookUp->summary(rows.back().itemId));
         EXPECT_EQ(entryOf(*lookUp), entry);
     }},
    {"MostMatchesIsKept",
     [](const Make& make) {
         const auto lookUp = made(make);
         const std::size_t most = lookUp->mostMatches();
         for (const List list : kLists) {
             for (const LookUpRow& row : rowsOf(*lookUp, list, {}, true)) {
                 const std::size_t found = rowsOf(*lookUp, list, row.text.substr(0, 1), false).size();
                 EXPECT_TRUE(most == 0 || found <= most) << found << " rows for " << row.text.substr(0, 1);
             }
         }
     }},
};

} // namespace lookups

/// Makes the tests "<name>ProductLkpMgr.<row>".
inline std::size_t addProductLkpMgrTests(const std::string& name, const ProductLkpMgrFactory& make)
{
    return addTests<ProductLkpMgrFactory>(name + "ProductLkpMgr", lookups::kRows, make);
}

} // namespace orvan::conformance

#include "orvan/testing/Patched.h"
#include "tests/conformance/Subjects.h"
#include "tests/conformance/Wrong.h"

#include <algorithm>

namespace orvan::test {
namespace {

using conformance::ProductLkpMgrFactory;
using P = testkit::LookUpPatches;
using Own = ProductLkpMgr;

std::shared_ptr<ProductLkpMgr> ours()
{
    return std::dynamic_pointer_cast<ProductLkpMgr>(catalogue()());
}

/// Makes look-ups with the patches, which each gets anew.
struct Patched {
    P (*patches)();
    operator ProductLkpMgrFactory() const
    {
        return [make = patches] { return std::make_shared<testkit::PatchedLookUp>(ours(), make()); };
    }
};

LookUpList listOf(Own& own, bool names, std::string_view text, bool all)
{
    return names ? own.GetProductNameList(text, all) : own.GetPartNumList(text, all);
}

/// A look-up that does `change` to its lists.
template <class Change>
P listing(Change change)
{
    return {.list = [change](Own& own, bool names, std::string_view text, bool all) {
        LookUpList rows = listOf(own, names, text, all);
        change(own, names, text, all, rows);
        return rows;
    }};
}

/// A look-up whose lists of matches begin with a row that does not match.
template <bool ofNames>
P badCompletion()
{
    return listing([](Own&, bool names, std::string_view, bool all, LookUpList& rows) {
        if (!all && rows && names == ofNames) {
            rows->insert(rows->begin(), {rows->back().itemId, "zz"});
        }
    });
}

template <LookUpColumn wrong>
P emptyColumn()
{
    return {.field = [](Own& own, std::int32_t column) {
        return static_cast<LookUpColumn>(column) == wrong ? LookUpValue() : own.GetFieldValue(column);
    }};
}

/// Look-ups that share their current entry, as long as one of them lives.
std::shared_ptr<ui::Component> shared()
{
    static std::weak_ptr<ProductLkpMgr> last;
    const auto own = last.lock() ? last.lock() : ours();
    last = own;
    return std::make_shared<testkit::PatchedLookUp>(own, P());
}

const Wrong<ProductLkpMgrFactory> kWrong[] = {
    {"EachCallMakesALookUpOfItsOwn", shared},
    {"NothingIsCurrentAtFirst", Patched{[] {
         const auto fresh = std::make_shared<bool>(true);
         return P{.seek = [fresh](Own& own, std::int32_t id) { *fresh = false, own.SeekItem(id); },
                  .isEof = [fresh](Own& own) { return !*fresh && own.IsEOF(); }};
     }}},
    {"PartNumbersBeginWithTheText", Patched{badCompletion<false>}},
    {"NamesBeginWithTheText", Patched{badCompletion<true>}},
    {"EmptyTextFindsNothing", Patched{[] {
         return listing([](Own& own, bool names, std::string_view text, bool all, LookUpList& rows) {
             rows = text.empty() && !all ? listOf(own, names, "", true) : rows;
         });
     }}},
    {"UnknownTextFindsNothing", Patched{[] {
         return listing([](Own& own, bool names, std::string_view text, bool, LookUpList& rows) {
             rows = !rows && !text.empty() ? listOf(own, names, "", true) : rows;
         });
     }}},
    {"WholeListIgnoresTheText", Patched{[] {
         return listing([](Own& own, bool names, std::string_view text, bool all, LookUpList& rows) {
             rows = all && !text.empty() ? listOf(own, names, text, false) : rows;
         });
     }}},
    {"SameSearchFindsTheSame", Patched{[] {
         return listing(
             [last = std::make_shared<std::string>()](Own&, bool, std::string_view text, bool all, LookUpList& rows) {
                 if (!all && *last == text) {
                     rows.reset();
                 }
                 *last = text;
             });
     }}},
    {"ItemIdsHave32Bits", Patched{[] {
         return listing([](Own&, bool, std::string_view, bool all, LookUpList& rows) {
             if (all && rows) {
                 rows->back().itemId += std::int64_t{1} << 32;
             }
         });
     }}},
    {"ListedEntryBecomesCurrent", Patched{[] { return P{.isEof = [](Own&) { return true; }}; }}},
    {"UnknownIdLeavesNoCurrentEntry", Patched{[] {
         return P{.seek = [last = std::make_shared<std::int32_t>()](Own& own, std::int32_t id) {
             own.SeekItem(id);
             if (own.IsEOF()) {
                 own.SeekItem(*last);
             } else {
                 *last = id;
             }
         }};
     }}},
    {"PartNumberIsTheListedOne", Patched{emptyColumn<LookUpColumn::partNum>}},
    {"NameIsTheListedOne", Patched{emptyColumn<LookUpColumn::name>}},
    {"KeyPriceAndNoteCanBeRead", Patched{[] {
         return P{.field = [](Own& own, std::int32_t column) {
             return column == 7 ? throw RuntimeError(ErrorNumber::subscriptOutOfRange) : own.GetFieldValue(column);
         }};
     }}},
    {"SummaryIsOfTheEntryAskedFor", Patched{[] {
         return P{.summary = [](Own&, std::int64_t) { return LookUpSummary{{}, std::string("another"), {}}; }};
     }}},
    {"SummaryKeepsTheCurrentEntry", Patched{[] {
         return P{.summary = [](Own& own, std::int64_t id) {
             own.SeekItem(static_cast<std::int32_t>(id));
             return own.summary(id);
         }};
     }}},
    {"MostMatchesIsKept", Patched{[] { return P{.mostMatches = 1}; }}},
};

TEST(ProductLkpMgrConformance, EachRowCatchesItsOwnFault)
{
    expectEachRowToCatchItsOwn(conformance::lookups::kRows, ProductLkpMgrFactory([] { return catalogue()(); }), kWrong);
}

} // namespace
} // namespace orvan::test

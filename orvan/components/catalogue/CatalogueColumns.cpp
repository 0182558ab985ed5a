#include "orvan/components/catalogue/CatalogueColumns.h"

#include "orvan/base/Ascii.h"
#include "orvan/components/catalogue/lists/ColumnNames.h"
#include "orvan/components/catalogue/lists/ListWords.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace orvan {

namespace {

using Names = CatalogueImportOptions::ColumnNames;

constexpr std::size_t kShownNames = 3;  // of the usual ones, in a message
constexpr std::size_t kShownCells = 30; // of the header

/// A name without what lists add to it: "Unit Price (EUR)", "Preis in EUR netto" and "Price, USD" are names of prices.
/// `simple` is the whole name in simplified form.
std::string withoutAdditions(std::string_view name, const std::string& simple)
{
    constexpr std::string_view kBreaks = " ,/_-\n";
    if (name.find_first_of(" ,/_-\n([") == name.npos) { // one word, as most cells
        return isColumnAddition(simple) ? std::string() : simple;
    }
    std::string result, word;
    int brackets = 0;
    const auto endWord = [&] {
        if (!isColumnAddition(simplifiedWord(word))) {
            result += word + ' ';
        }
        word.clear();
    };
    for (const char c : name) {
        brackets += c == '(' || c == '[' ? 1 : 0;
        if (brackets == 0) {
            kBreaks.find(c) != kBreaks.npos ? endWord() : word.push_back(c);
        }
        brackets -= (c == ')' || c == ']') && brackets > 0 ? 1 : 0;
    }
    endWord();
    return simplifiedWord(result);
}

/// The place in a header of the column that the caller has named: by its name, or as "#3" by its number.
std::optional<std::size_t> placeOf(const std::string& given, const std::vector<std::string>& present)
{
    if (given.starts_with('#')) {
        std::size_t number = 0;
        const auto [end, error] = std::from_chars(given.data() + 1, given.data() + given.size(), number);
        if (error == std::errc() && end == given.data() + given.size() && number > 0) {
            return number <= present.size() ? std::optional(number - 1) : std::nullopt;
        }
    }
    const std::string simple = simplifiedColumnName(given);
    const auto found = std::find(present.begin(), present.end(), simple);
    return found != present.end() && !simple.empty() ? std::optional(static_cast<std::size_t>(found - present.begin()))
                                                     : std::nullopt;
}

class Finder {
public:
    Finder(const std::vector<std::string_view>& header, const Names& names) : names_(names)
    {
        std::transform(header.begin(), header.end(), std::back_inserter(present_), simplifiedColumnName);
        std::transform(header.begin(), header.end(), present_.begin(), std::back_inserter(short_), withoutAdditions);
        taken_.resize(header.size());
        for (std::size_t at = 0; at < header.size(); ++at) {
            if (isUsualColumnName(present_[at]) || isUsualColumnName(short_[at])) {
                usual_.push_back(at);
            }
        }
    }

    ColumnsFound find()
    {
        for (const ColumnKind& kind : columnKinds()) {
            if (const std::string& given = names_.*kind.given; !given.empty() && given != kNoColumn) {
                take(kind, placeOf(given, present_), false);
            }
        }
        // First by the names that mean one thing only. "Description" is the name if there is no other one, and
        // otherwise the note, so the note comes last.
        const auto isNote = [](const ColumnKind& kind) { return kind.place == &CatalogueColumns::note; };
        const auto takeEach = [&](bool vague, bool notes) {
            for (const ColumnKind& kind : columnKinds()) {
                if (isNote(kind) == notes && (names_.*kind.given).empty() && !(result_.columns.*kind.place)) {
                    takeUsual(kind, vague);
                }
            }
        };
        if (!usual_.empty()) {
            takeEach(false, false);
            takeEach(true, false);
            takeEach(false, true);
        }
        for (const ColumnKind& kind : columnKinds()) {
            const std::string& given = names_.*kind.given;
            if (!(result_.columns.*kind.place) && given != kNoColumn && (kind.required || !given.empty())) {
                result_.missing.push_back(&kind);
            }
        }
        return std::move(result_);
    }

private:
    void take(const ColumnKind& kind, std::optional<std::size_t> place, bool usual)
    {
        result_.columns.*kind.place = place;
        if (place) {
            taken_[*place] = true;
            result_.named += usual || !(names_.*kind.given).starts_with('#') ? 1 : 0;
        }
    }

    void takeUsual(const ColumnKind& kind, bool vague)
    {
        const std::vector<std::string_view>& usual =
            vague ? vagueColumnNames(kind.place) : usualColumnNames(kind.place);
        for (const std::string_view name : usual) {
            for (const std::vector<std::string>* const header : {&present_, &short_}) {
                for (const std::size_t at : usual_) {
                    if ((*header)[at] != name || taken_[at]) {
                        continue;
                    }
                    if (!(result_.columns.*kind.place)) {
                        take(kind, at, true);
                        if (kind.place != &CatalogueColumns::unitPrice) {
                            return;
                        }
                    } else {
                        result_.columns.otherPrices.push_back(at);
                        taken_[at] = true;
                    }
                }
            }
        }
    }

    const Names& names_;
    std::vector<std::string> present_, short_;
    std::vector<bool> taken_;
    // The places that have some usual name. Many rows are looked at for a header, and most of them have no such place.
    std::vector<std::size_t> usual_;
    ColumnsFound result_;
};

} // namespace

const std::array<ColumnKind, kColumnKinds>& columnKinds()
{
    static const std::array<ColumnKind, kColumnKinds> kinds = {{
        {&CatalogueColumns::itemId, &Names::itemId, userText("item id"), false},
        {&CatalogueColumns::name, &Names::name, userText("name"), true},
        {&CatalogueColumns::key, &Names::key, userText("key"), false},
        {&CatalogueColumns::partNum, &Names::partNum, userText("part number"), true},
        {&CatalogueColumns::barcode, &Names::barcode, userText("barcode"), false},
        {&CatalogueColumns::unitPrice, &Names::unitPrice, userText("unit price"), true},
        {&CatalogueColumns::note, &Names::note, userText("note"), false},
    }};
    return kinds;
}

std::string listed(const std::vector<std::string_view>& names)
{
    std::string list;
    for (std::size_t i = 0; i < std::min(names.size(), kShownCells); ++i) {
        list.append(list.empty() ? "\"" : ", \"").append(names[i]).append("\"");
    }
    return names.size() > kShownCells ? list + ", ..." : list;
}

std::string simplifiedColumnName(std::string_view name)
{
    return simplifiedWord(name);
}

ColumnsFound findColumns(const std::vector<std::string_view>& header, const Names& names)
{
    return Finder(header, names).find();
}

UserText whyMissing(const ColumnKind& kind, const Names& names)
{
    if (const std::string& given = names.*kind.given; !given.empty()) {
        return userText("no column for the %1 (named: %2)", kind.shown, listed({given}));
    }
    const std::vector<std::string_view>& usual = usualColumnNames(kind.place);
    return userText("no column for the %1 (usual names: %2)", kind.shown,
                    listed({usual.begin(), usual.begin() + kShownNames}));
}

} // namespace orvan

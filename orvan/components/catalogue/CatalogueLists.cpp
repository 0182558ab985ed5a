#include "orvan/components/catalogue/CatalogueLists.h"

#include "orvan/base/Text.h"
#include "orvan/components/catalogue/CaseFolding.h"

#include <algorithm>
#include <string>

namespace orvan {

namespace {

/// The box shows this text and selects what the user has not typed. So it has to begin with as many characters as were
/// typed, and with the same ones but for the case.
void complete(std::string& text, std::string_view typed, bool asTyped)
{
    const std::string_view beginning = firstCharacters(text, characterCount(typed));
    if (asTyped || foldCase(beginning) != foldCase(typed)) {
        text = withTypedBeginning(text, typed);
    }
}

/// A list of the first form: an index holds the folded texts, in whose order the list is.
class FirstFormLists final : public CatalogueLists {
public:
    FirstFormLists(SqliteFile& file, const std::string& name)
        : from_(file, "SELECT item_id, " + name + ", " + name + "_folded FROM product INDEXED BY product_" + name +
                          "_folded WHERE " + name + "_folded >= ?1 ORDER BY " + name + "_folded, " + name + ", item_id")
    {
    }

    std::vector<ListedRow> all(std::size_t most) override
    {
        // The smallest text that is not empty. The query thereby also leaves out Null, which is smaller than any text.
        constexpr std::string_view kFirst("\0", 1);
        return beginning(kFirst, {}, most);
    }

    std::vector<ListedRow> found(std::string_view folded, std::size_t most) override
    {
        return beginning(folded, folded, most); // the shortest texts come first, and so the full matches
    }

private:
    std::vector<ListedRow> beginning(std::string_view first, std::string_view with, std::size_t most)
    {
        std::vector<ListedRow> rows;
        for (SqliteRows found = from_.query(first); rows.size() < most && found.next();) {
            if (!found.text(2).starts_with(with)) {
                break;
            }
            rows.push_back({{found.integer(0), std::string(found.text(1))}});
        }
        return rows;
    }

    SqliteStatement from_;
};

/// A list whose order is fixed in the file: its rows have ranks, and another table leads from folded texts to the
/// ranks.
class RankedLists final : public CatalogueLists {
public:
    RankedLists(const CatalogueLayers& layers, std::size_t layer, LookUpText text)
        : RankedLists(layers, layer, layers.file(layer), text == LookUpText::name ? "name" : "part_num",
                      text == LookUpText::name ? "rank FROM product" : "product_rank FROM part_num_order")
    {
    }

    std::vector<ListedRow> all(std::size_t most) override
    {
        std::vector<ListedRow> rows;
        for (SqliteRows found = from_.query(std::int64_t{0}); rows.size() < most && found.next();) {
            if (found.text(1).empty()) { // these are the last ones
                break;
            }
            addUnlessHidden(found, rows);
        }
        return rows;
    }

    std::vector<ListedRow> found(std::string_view folded, std::size_t most) override
    {
        std::vector<ListedRow> rows;
        std::int64_t first = 0, entries = 0;
        for (SqliteRows found = full_.query(folded); rows.size() < most && found.next();) {
            if (found.type(1) == SqliteType::null) {
                addAt(found.integer(0), rows);
            } else { // its rank is negative, and so it is the first row
                first = -found.integer(0);
                entries = found.integer(1);
            }
        }
        if (entries > 0) {
            addFrom(first, entries, folded, most, rows);
        } else {
            addLonger(folded, most, rows);
        }
        return rows;
    }

private:
    RankedLists(const CatalogueLayers& layers, std::size_t layer, SqliteFile& file, const std::string& name,
                const std::string& rankFromTable)
        : layers_(layers), layer_(layer),
          full_(file, "SELECT rank, entries FROM " + name + "_start WHERE folded = ?1 ORDER BY rank"),
          longer_(file, "SELECT rank, folded FROM " + name + "_start WHERE folded > ?1 ORDER BY folded"),
          at_(file, "SELECT item_id, " + name + ", " + rankFromTable + " WHERE rank = ?1"),
          from_(file, "SELECT item_id, " + name + ", " + rankFromTable + " WHERE rank >= ?1 ORDER BY rank")
    {
    }

    void addUnlessHidden(const SqliteRows& found, std::vector<ListedRow>& rows)
    {
        if (!layers_.isHidden(layer_, found.integer(0))) {
            rows.push_back({{found.integer(0), std::string(found.text(1))}, layer_, found.integer(2)});
        }
    }

    void addAt(std::int64_t rank, std::vector<ListedRow>& rows)
    {
        SqliteRows found = at_.query(rank);
        if (found.next()) {
            addUnlessHidden(found, rows);
        }
    }

    /// Few entries begin so: their ranks are sorted.
    void addLonger(std::string_view folded, std::size_t most, std::vector<ListedRow>& rows)
    {
        std::vector<std::int64_t> ranks;
        for (SqliteRows found = longer_.query(folded); found.next() && found.text(1).starts_with(folded);) {
            ranks.push_back(found.integer(0));
        }
        // Of a lower layer any number may be hidden.
        const std::size_t count =
            layer_ == 0 ? std::min(ranks.size(), most - std::min(most, rows.size())) : ranks.size();
        std::partial_sort(ranks.begin(), ranks.begin() + static_cast<std::ptrdiff_t>(count), ranks.end());
        for (std::size_t i = 0; i < count && rows.size() < most; ++i) {
            addAt(ranks[i], rows);
        }
    }

    /// Very many entries begin so. They stand close together in the order of ranks, where only few others are between
    /// them, such as those that have another diacritic.
    void addFrom(std::int64_t first, std::int64_t entries, std::string_view folded, std::size_t most,
                 std::vector<ListedRow>& rows)
    {
        std::string text;
        for (SqliteRows found = from_.query(first); entries > 0 && rows.size() < most && found.next();) {
            foldCase(found.text(1), text);
            if (text.starts_with(folded)) {
                --entries;
                if (text.size() > folded.size()) { // the full matches are in the list
                    addUnlessHidden(found, rows);
                }
            }
        }
    }

    const CatalogueLayers& layers_;
    const std::size_t layer_;
    SqliteStatement full_, longer_, at_, from_;
};

/// The list of a version of several files, from the lists of its layers.
class MergedLists final : public CatalogueLists {
public:
    MergedLists(const CatalogueLayers& layers, LookUpText text) : layers_(layers)
    {
        for (std::size_t layer = 0; layer < layers.count(); ++layer) {
            lists_.push_back(std::make_unique<RankedLists>(layers, layer, text));
        }
    }

    std::vector<ListedRow> all(std::size_t most) override
    {
        return merged(
            most, [&](CatalogueLists& list) { return list.all(most); }, [](const LookUpRow&) { return 0; });
    }

    std::vector<ListedRow> found(std::string_view folded, std::size_t most) override
    {
        return merged(
            most, [&](CatalogueLists& list) { return list.found(folded, most); },
            [&](const ListedRow& row) { return foldCase(row.text) == folded ? 0 : 1; });
    }

private:
    template <class Read, class Kind>
    std::vector<ListedRow> merged(std::size_t most, const Read& read, const Kind& kind)
    {
        std::vector<CatalogueLayers::Row> found;
        for (const auto& list : lists_) {
            for (ListedRow& row : read(*list)) {
                const int itsKind = kind(row);
                std::string by = row.text;
                found.push_back({itsKind, std::move(by), std::move(row)});
            }
        }
        layers_.sort(found);
        found.resize(std::min(found.size(), most));
        std::vector<ListedRow> rows;
        rows.reserve(found.size());
        for (CatalogueLayers::Row& each : found) {
            rows.push_back(std::move(each.row));
        }
        return rows;
    }

    const CatalogueLayers& layers_;
    std::vector<std::unique_ptr<CatalogueLists>> lists_;
};

} // namespace

std::vector<ListedRow> CatalogueLists::matches(std::string_view typed, std::size_t most, bool asTyped)
{
    const std::string folded = foldCase(typed);
    std::vector<ListedRow> rows = found(folded, most);
    std::stable_partition(rows.begin(), rows.end(), [&](const ListedRow& row) { return row.text == typed; });
    if (!rows.empty()) {
        complete(rows.front().text, typed, asTyped);
    }
    return rows;
}

std::unique_ptr<CatalogueLists> CatalogueLists::of(const CatalogueLayers& layers, LookUpText text)
{
    if (catalogueVersion(layers.file(0)) == kFirstCatalogueVersion) {
        return std::make_unique<FirstFormLists>(layers.file(0), text == LookUpText::name ? "name" : "part_num");
    }
    return layers.count() > 1 ? std::unique_ptr<CatalogueLists>(std::make_unique<MergedLists>(layers, text))
                              : std::make_unique<RankedLists>(layers, 0, text);
}

} // namespace orvan

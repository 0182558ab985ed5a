#include "orvan/components/catalogue/CatalogueVersion.h"

#include "orvan/components/catalogue/CaseFolding.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace orvan {

namespace {

constexpr std::size_t kFew = 20; ///< Near misses are looked for only where fewer rows were found.
constexpr int kFoldedNameColumn = 1;
constexpr int kFoldedPartNumColumn = 2;
constexpr int kColumns = 8;

struct stat statusOf(const std::filesystem::path& file)
{
    struct stat status = {};
    if (::stat(file.c_str(), &status) != 0) {
        status = {};
    }
    return status;
}

bool exists(const struct stat& status)
{
    return status.st_nlink > 0;
}

/// While a file is open, no other file can get its number.
bool isSameFile(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool isSameContent(const struct stat& a, const struct stat& b)
{
    return a.st_size == b.st_size && a.st_mtim.tv_sec == b.st_mtim.tv_sec && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

LookUpValue valueOf(const SqliteRows& rows, int column)
{
    switch (rows.type(column)) {
    case SqliteType::null: return {};
    case SqliteType::integer: return rows.integer(column);
    case SqliteType::real: return rows.real(column);
    case SqliteType::text: break;
    }
    return std::string(rows.text(column));
}

std::vector<LookUpRow> shown(std::vector<ListedRow>&& rows)
{
    return {std::make_move_iterator(rows.begin()), std::make_move_iterator(rows.end())};
}

std::vector<LookUpValue> columnsOf(const SqliteRows& found)
{
    std::vector<LookUpValue> values;
    values.reserve(kColumns);
    for (int column = 0; column < kColumns; ++column) {
        values.push_back(valueOf(found, column));
        if (column == kFoldedNameColumn || column == kFoldedPartNumColumn) {
            values.back() = foldCase(found.text(column));
        }
    }
    LookUpValue& unitPrice = values[static_cast<std::size_t>(LookUpColumn::unitPrice)];
    if (const auto* const tenThousandths = std::get_if<std::int64_t>(&unitPrice)) {
        unitPrice = Currency::fromScaled(*tenThousandths);
    }
    return values;
}

} // namespace

CatalogueVersion::CatalogueVersion(const std::filesystem::path& file)
    : path_(file), opened_(statusOf(file)), layers_(file), lineage_(catalogueOrigin(layers_.file(0)).lineage),
      names_(CatalogueLists::of(layers_, LookUpText::name)), partNums_(CatalogueLists::of(layers_, LookUpText::partNum))
{
    for (std::size_t layer = 0; layer < layers_.count(); ++layer) {
        entry_.push_back(std::make_unique<SqliteStatement>(
            layers_.file(layer), "SELECT item_id, name, part_num, name, key, part_num, unit_price, note FROM product"
                                 " WHERE item_id = ?1"));
    }
    if (catalogueVersion(layers_.file(0)) != kFirstCatalogueVersion) {
        words_.emplace(layers_);
    }
}

bool CatalogueVersion::isPresent() const
{
    const struct stat now = statusOf(path_);
    return !exists(now) || (isSameFile(now, opened_) && isSameContent(now, opened_));
}

bool CatalogueVersion::isOverwritten() const
{
    const struct stat now = statusOf(path_);
    return exists(now) && isSameFile(now, opened_) && !isSameContent(now, opened_);
}

bool CatalogueVersion::isOfSameLineage(const CatalogueVersion& other) const
{
    return !lineage_.empty() && lineage_ == other.lineage_;
}

std::vector<LookUpRow> CatalogueVersion::matches(LookUpText text, std::string_view typed, std::size_t most,
                                                 bool asTyped)
{
    const CatalogueLayers::Reading reading(layers_);
    std::vector<ListedRow> rows = lists(text).matches(typed, most, asTyped);
    if (words_ && rows.empty() && text == LookUpText::partNum && most > 0) {
        // Scanned or typed without its dashes. The name box would take what is typed for the product's name.
        if (const std::vector<std::int64_t> found = words_->withCode(typed); found.size() == 1) {
            rows.push_back({{found.front(), std::string(typed)}});
        }
    }
    if (!rows.empty()) {
        addFound(text, typed, most, rows);
    }
    return shown(std::move(rows));
}

std::vector<LookUpRow> CatalogueVersion::all(LookUpText text, std::size_t most,
                                             const std::optional<std::string>& missed)
{
    const CatalogueLayers::Reading reading(layers_);
    std::vector<ListedRow> rows;
    if (missed) {
        addFound(text, *missed, most, rows);
    }
    std::unordered_set<std::int64_t> listed;
    for (const ListedRow& row : rows) {
        listed.insert(row.itemId);
    }
    for (ListedRow& row : lists(text).all(most)) {
        if (rows.size() < most && !listed.contains(row.itemId)) {
            rows.push_back(std::move(row));
        }
    }
    return shown(std::move(rows));
}

void CatalogueVersion::addFound(LookUpText text, std::string_view typed, std::size_t most, std::vector<ListedRow>& rows)
{
    if (words_ && rows.size() < most) {
        // Who has typed a text of the catalogue whole has made no error.
        const bool isFull = !rows.empty() && rows.front().text.size() == typed.size();
        words_->addWords(text, typed, most, rows);
        if (!isFull && rows.size() < std::min(kFew, most)) {
            words_->addNearMisses(text, typed, std::min(kFew, most), rows);
        }
    }
}

std::vector<LookUpValue> CatalogueVersion::entry(std::int64_t itemId)
{
    for (std::size_t layer = 0; layer < layers_.count(); ++layer) {
        SqliteRows found = entry_[layer]->query(itemId);
        if (found.next()) {
            return columnsOf(found);
        }
        if (layers_.changes(layer, itemId)) {
            break; // it is gone
        }
    }
    return {};
}

} // namespace orvan

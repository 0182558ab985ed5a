#include "orvan/components/catalogue/CatalogueIds.h"

#include "orvan/base/Ascii.h"
#include "orvan/base/RuntimeError.h"

#include <charconv>
#include <limits>
#include <map>
#include <random>

namespace orvan {

namespace {

std::optional<std::int32_t> numberOf(std::string_view id)
{
    std::int32_t number = 0;
    const char* const end = id.data() + id.size();
    const auto [rest, error] = std::from_chars(id.data(), end, number);
    return error == std::errc() && rest == end ? std::optional(number) : std::nullopt;
}

std::string newLineage()
{
    std::random_device device;
    std::string lineage;
    for (int i = 0; i < 4; ++i) {
        lineage.append(std::to_string(device())).append(i < 3 ? "-" : "");
    }
    return lineage;
}

/// The key as the file has it: the first letter says what kind of key it is.
std::string keyOf(std::string_view ownId, const CatalogueEntry& entry)
{
    const auto key = [](char kind, std::string_view text) { return std::string(1, kind).append(text); };
    return !ownId.empty() ? key('i', ownId) : !entry.partNum.empty() ? key('p', entry.partNum) : key('n', entry.name);
}

} // namespace

std::string comparedId(std::string_view ownId)
{
    const std::string_view id = trimmed(ownId);
    const std::optional<std::int32_t> number = numberOf(id);
    return number ? std::to_string(*number) : std::string(id);
}

/// A catalogue of the present form has a table of the keys that are no longer in it, and an index of those that are.
/// One of the first form has neither: its numbers are either the list's ids or those of the rows, so an own id counts
/// as known where the entry with this number has the same part number or name.
struct CatalogueIds::Former {
    explicit Former(const std::filesystem::path& path)
        : file(openCatalogue(path)), isFirst(catalogueVersion(file) == kFirstCatalogueVersion),
          known(file, isFirst ? "SELECT item_id FROM product INDEXED BY product_part_num WHERE part_num = ?1"
                                " AND (part_num <> '' OR name = ?2) LIMIT 2"
                              : "SELECT item_id FROM product INDEXED BY product_id_key WHERE id_key = ?1"
                                " UNION ALL SELECT item_id FROM retired WHERE id_key = ?1"),
          shared(file, isFirst ? "SELECT item_id FROM product INDEXED BY product_part_num WHERE part_num = ?1"
                                 " AND name = ?2 LIMIT 2"
                               : "SELECT 1 FROM product INDEXED BY product_id_key WHERE id_key > ?1 AND id_key < ?2"
                                 " UNION ALL SELECT 1 FROM retired WHERE id_key > ?1 AND id_key < ?2 LIMIT 1"),
          used(file, isFirst ? "SELECT part_num, name FROM product WHERE item_id = ?1"
                             : "SELECT NULL, NULL FROM product WHERE item_id = ?1"
                               " UNION ALL SELECT NULL, NULL FROM retired WHERE item_id = ?1")
    {
        // Without a transaction, each question would lock the file and read its header anew.
        file.run("BEGIN");
    }

    std::optional<std::int32_t> number(std::string_view ownId, const CatalogueEntry& entry)
    {
        if (!isFirst) {
            const std::string key = keyOf(ownId, entry);
            const std::optional<std::int32_t> found = only(known.query(std::string_view(key)));
            return found || !ownId.empty() ? found : numberOfShared(key, entry.name);
        }
        if (ownId.empty()) {
            const std::optional<std::int32_t> found = only(known.query(entry.partNum, entry.name));
            return found ? found : only(shared.query(entry.partNum, entry.name));
        }
        const std::optional<std::int32_t> own = numberOf(ownId);
        SqliteRows rows = used.query(std::int64_t{own.value_or(0)});
        const bool same = own && rows.next() && (rows.text(0) == entry.partNum || rows.text(1) == entry.name);
        return same ? own : std::nullopt;
    }

    bool isUsed(std::int64_t number)
    {
        SqliteRows rows = used.query(number);
        return rows.next();
    }

    static std::optional<std::int32_t> only(SqliteRows&& rows)
    {
        const std::optional<std::int32_t> number =
            rows.next() ? std::optional(static_cast<std::int32_t>(rows.integer(0))) : std::nullopt;
        return number && !rows.next() ? number : std::nullopt;
    }

    /// The number where several former entries have the key: that of the entry with the same name, or of the first,
    /// second ... where several have the same name, too. CatalogueWriter makes such keys.
    std::optional<std::int32_t> numberOfShared(const std::string& key, std::string_view name)
    {
        const std::string first = "d" + key + '\x1F', behind = "d" + key + '\x20';
        {
            SqliteRows rows = shared.query(std::string_view(first), std::string_view(behind));
            if (!rows.next()) {
                return std::nullopt;
            }
        }
        const std::string named = std::string(first).append(name).append(1, '\x1F');
        const std::string full = named + std::to_string(met[named]++);
        return only(known.query(std::string_view(full)));
    }

    SqliteFile file;
    const bool isFirst;
    SqliteStatement known, shared, used;
    std::map<std::string, int> met; ///< How often this import has met a shared key with a name.
};

CatalogueIds::CatalogueIds(const std::optional<std::filesystem::path>& former) : lineage_(newLineage())
{
    if (!former) {
        return;
    }
    refuseNewerCatalogue(*former);
    withFormer([&] {
        former_ = std::make_unique<Former>(*former);
        if (!former_->isFirst) {
            const CatalogueOrigin origin = catalogueOrigin(former_->file);
            next_ = origin.nextNumber;
            lineage_ = origin.lineage;
        }
    });
}

CatalogueIds::~CatalogueIds() = default;

void CatalogueIds::beginAnew()
{
    former_.reset();
    lineage_ = newLineage();
}

template <class Action>
auto CatalogueIds::withFormer(Action&& action) -> decltype(action())
{
    try {
        return action();
    } catch (const RuntimeError& error) {
        if (error.number() != ErrorNumber::invalidFileFormat) {
            throw;
        }
        beginAnew();
        return decltype(action())();
    }
}

void CatalogueIds::number(std::string_view ownId, const CatalogueEntry& entry,
                          const std::function<bool(std::int32_t)>& take)
{
    const auto isFree = [&](std::int64_t number) {
        return !former_ || !withFormer([&] { return former_->isUsed(number); });
    };
    if (former_) {
        if (const auto known = withFormer([&] { return former_->number(ownId, entry); }); known && take(*known)) {
            return;
        }
    }
    if (const auto own = numberOf(ownId); own && isFree(*own) && take(*own)) {
        return;
    }
    for (;; ++next_) {
        if (next_ > std::numeric_limits<std::int32_t>::max()) {
            throw RuntimeError(ErrorNumber::overflow);
        }
        if (isFree(next_) && take(static_cast<std::int32_t>(next_))) {
            ++next_;
            return;
        }
    }
}

void CatalogueIds::forEachFormer(const std::function<void(std::int64_t number, std::string_view key)>& retire)
{
    if (!former_) {
        return;
    }
    withFormer([&] {
        SqliteStatement all(former_->file,
                            former_->isFirst
                                ? "SELECT item_id, CASE WHEN part_num <> '' THEN 'p' || part_num ELSE 'n' || name END"
                                  " FROM product ORDER BY item_id"
                                : "SELECT item_id, id_key FROM product INDEXED BY product_item_id"
                                  " UNION ALL SELECT item_id, id_key FROM retired");
        for (SqliteRows rows = all.query(); rows.next();) {
            retire(rows.integer(0), rows.text(1));
        }
    });
}

} // namespace orvan

#include "orvan/components/catalogue/Catalogue.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/components/catalogue/CatalogueFile.h"

#include <string>
#include <utility>

#include <sys/stat.h>

namespace orvan {

namespace {

constexpr int kColumns = 8;
constexpr int kUnitPriceColumn = static_cast<int>(LookUpColumn::unitPrice);

/// Tells whether another file has taken a file's name, or the file has been written to. While a file is open, no other
/// file can get its inode number.
struct FileIdentity {
    explicit FileIdentity(const std::filesystem::path& file) : exists(::stat(file.c_str(), &status) == 0) {}

    bool operator==(const FileIdentity& other) const
    {
        return status.st_dev == other.status.st_dev && status.st_ino == other.status.st_ino &&
               status.st_size == other.status.st_size && status.st_mtim.tv_sec == other.status.st_mtim.tv_sec &&
               status.st_mtim.tv_nsec == other.status.st_mtim.tv_nsec;
    }

    struct stat status = {};
    bool exists;
};

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

} // namespace

/// The lists of one column. Because of INDEXED BY, a file that lacks the index is refused; without it, such a file
/// would be read from end to end for each list.
struct SqliteCatalogue::Column {
    Column(SqliteFile& catalogue, const std::string& name)
        : exact(catalogue, "SELECT item_id, " + name + " FROM product INDEXED BY product_" + name + " WHERE " + name +
                               " >= ?1 ORDER BY " + name + ", item_id"),
          folded(catalogue, "SELECT item_id, " + name + ", " + name + "_folded FROM product INDEXED BY product_" +
                                name + "_folded WHERE " + name + "_folded >= ?1 ORDER BY " + name + "_folded, " + name +
                                ", item_id")
    {
    }

    std::vector<LookUpRow> matches(std::string_view typed, std::size_t most)
    {
        std::vector<LookUpRow> rows;
        for (SqliteRows found = exact.query(typed); rows.size() < most && found.next();) {
            if (!found.text(1).starts_with(typed)) {
                break;
            }
            rows.push_back({found.integer(0), std::string(found.text(1))});
        }
        const bool anyExact = !rows.empty();
        // Here either all exact matches are in the list or the list is full. So the query below skips fewer than
        // `most` exact matches that it finds again.
        const std::string typedFolded = foldCase(typed);
        const std::string_view from = typedFolded;
        for (SqliteRows found = folded.query(from); rows.size() < most && found.next();) {
            if (!found.text(2).starts_with(typedFolded)) {
                break;
            }
            if (!found.text(1).starts_with(typed)) {
                rows.push_back({found.integer(0), std::string(found.text(1))});
            }
        }
        if (!rows.empty() && !anyExact) {
            rows.front().text = withTypedBeginning(rows.front().text, typed);
        }
        return rows;
    }

    std::vector<LookUpRow> all(std::size_t most)
    {
        // The smallest text that is not empty. The query thereby also leaves out Null, which is smaller than any text.
        constexpr std::string_view kFirst("\0", 1);
        std::vector<LookUpRow> rows;
        for (SqliteRows found = folded.query(kFirst); rows.size() < most && found.next();) {
            rows.push_back({found.integer(0), std::string(found.text(1))});
        }
        return rows;
    }

    SqliteStatement exact;
    SqliteStatement folded;
};

struct SqliteCatalogue::File {
    explicit File(const std::filesystem::path& path)
        : identity(path), catalogue(openCatalogue(path)), name(catalogue, "name"), partNum(catalogue, "part_num"),
          entry(catalogue, "SELECT item_id, name_folded, part_num_folded, name, key, part_num, unit_price, note"
                           " FROM product WHERE item_id = ?1")
    {
    }

    FileIdentity identity; // the first member: if the file is replaced while it is opened, this is noticed later
    SqliteFile catalogue;
    Column name;
    Column partNum;
    SqliteStatement entry;
};

SqliteCatalogue::SqliteCatalogue(CatalogueOptions options)
    : options_(std::move(options)), file_(std::make_unique<File>(options_.file))
{
}

SqliteCatalogue::~SqliteCatalogue() = default;

SqliteCatalogue::File& SqliteCatalogue::file()
{
    const FileIdentity now(options_.file);
    if (now.exists && !(now == file_->identity)) {
        file_ = std::make_unique<File>(options_.file);
    }
    return *file_;
}

LookUpList SqliteCatalogue::list(Column File::*column, std::string_view sText, bool all)
{
    if (!all && sText.empty()) {
        return {};
    }
    Column& texts = file().*column;
    std::vector<LookUpRow> rows = all ? texts.all(options_.mostListed) : texts.matches(sText, options_.mostMatches);
    return rows.empty() ? LookUpList() : std::move(rows);
}

LookUpList SqliteCatalogue::GetPartNumList(std::string_view sText, bool all)
{
    return list(&File::partNum, sText, all);
}

LookUpList SqliteCatalogue::GetProductNameList(std::string_view sText, bool all)
{
    return list(&File::name, sText, all);
}

void SqliteCatalogue::SeekItem(std::int32_t itemId)
{
    entry_.clear();
    entry_ = read(itemId);
}

std::optional<LookUpSummary> SqliteCatalogue::summary(std::int64_t itemId)
{
    const std::vector<LookUpValue> values = read(itemId);
    if (values.empty()) {
        return std::nullopt;
    }
    const auto value = [&](LookUpColumn column) { return values[static_cast<std::size_t>(column)]; };
    return LookUpSummary{value(LookUpColumn::partNum), value(LookUpColumn::name), value(LookUpColumn::unitPrice)};
}

std::vector<LookUpValue> SqliteCatalogue::read(std::int64_t itemId)
{
    std::vector<LookUpValue> values;
    SqliteRows found = file().entry.query(itemId);
    if (!found.next()) {
        return values;
    }
    values.reserve(kColumns);
    for (int column = 0; column < kColumns; ++column) {
        values.push_back(valueOf(found, column));
    }
    LookUpValue& unitPrice = values[kUnitPriceColumn];
    if (const auto* const tenThousandths = std::get_if<std::int64_t>(&unitPrice)) {
        unitPrice = Currency::fromScaled(*tenThousandths);
    }
    return values;
}

LookUpValue SqliteCatalogue::GetFieldValue(std::int32_t column)
{
    if (entry_.empty()) {
        throw RuntimeError(ErrorNumber::objectNotSet, {}, "The catalogue has no current entry");
    }
    if (column < 0 || column >= kColumns) {
        throw RuntimeError(ErrorNumber::subscriptOutOfRange);
    }
    return entry_[static_cast<std::size_t>(column)];
}

} // namespace orvan

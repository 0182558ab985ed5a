#include "orvan/components/catalogue/server/LocalCopy.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CatalogueLayers.h"
#include "orvan/components/catalogue/CatalogueWriter.h"
#include "orvan/files/NewFile.h"

#include <algorithm>
#include <random>
#include <system_error>
#include <utility>

namespace orvan {

namespace fs = std::filesystem;

namespace {

constexpr const char* kLayerPrefix = "layer-";

constexpr const char* kTables = "CREATE TABLE copy (revision INTEGER, changes INTEGER, stamp TEXT);"
                                "CREATE TEMP TABLE touched (item_id INTEGER PRIMARY KEY);";
constexpr const char* kLayerTables = "CREATE TABLE below (place INTEGER PRIMARY KEY, file TEXT);"
                                     "CREATE TABLE changed (item_id INTEGER PRIMARY KEY);"
                                     "INSERT INTO changed SELECT item_id FROM temp.touched;";

std::string newLayerName()
{
    std::random_device random;
    return kLayerPrefix + std::to_string(random()) + "-" + std::to_string(random()) + ".catalogue";
}

std::int64_t changesIn(SqliteFile& layer)
{
    return layer.number("SELECT changes FROM copy");
}

CopyState stateOf(SqliteFile& catalogue)
{
    CatalogueOrigin origin = catalogueOrigin(catalogue);
    SqliteStatement copy(catalogue, "SELECT revision, stamp FROM copy");
    SqliteRows rows = copy.query();
    if (!rows.next()) {
        raiseCatalogueError(ErrorNumber::invalidFileFormat, catalogue.path(), userText("it is damaged (%1)", "copy"));
    }
    return {.lineage = std::move(origin.lineage),
            .revision = rows.integer(0),
            .source = std::move(origin.source),
            .language = std::move(origin.language),
            .stamp = std::string(rows.text(1))};
}

/// Writes one layer: what it says of an entry first counts.
class LayerWriter {
public:
    LayerWriter(const fs::path& file, const std::string& language)
        : writer_(file, {.language = language}), touch_(prepared(writer_.file()), kTouch)
    {
    }

    /// False if something has been said of the entry.
    bool touch(std::int64_t number)
    {
        const bool isFirst = touch_.execute(number) == 1;
        changes_ += isFirst ? 1 : 0;
        return isFirst;
    }
    bool put(const CatalogueEntry& entry) { return touch(*entry.number) && writer_.add(entry); }

    /// Adds what a file says of entries of which nothing has been said.
    bool addFrom(SqliteFile& file, bool hasChanged, const LocalCopy::GoOn& goOn)
    {
        constexpr std::int64_t kRowsBetweenQuestions = 1'000;
        std::int64_t count = 0;
        SqliteStatement all(file, "SELECT item_id, name, key, part_num, unit_price, note, barcode FROM product");
        for (SqliteRows rows = all.query(); rows.next();) {
            if (++count % kRowsBetweenQuestions == 0 && !goOn()) {
                return false;
            }
            put(storedEntry(rows));
        }
        if (hasChanged) {
            SqliteStatement changed(file, "SELECT item_id FROM changed");
            for (SqliteRows rows = changed.query(); rows.next();) {
                touch(rows.integer(0));
            }
        }
        return true;
    }

    std::int64_t changes() const { return changes_; }

    bool finish(const CopyState& state, std::optional<std::int64_t> entries, const std::vector<std::string>& below,
                bool isLowest, const LocalCopy::Progress& progress)
    {
        SqliteFile& file = writer_.file();
        SqliteStatement(file, "INSERT INTO copy VALUES (?, ?, ?)")
            .execute(state.revision, changes_, std::string_view(state.stamp));
        if (!isLowest) {
            file.run(kLayerTables);
            SqliteStatement add(file, "INSERT INTO below VALUES (NULL, ?)");
            for (const std::string& name : below) {
                add.execute(std::string_view(name));
            }
        }
        writer_.setOrigin({.source = state.source});
        writer_.setNumbering(state.lineage, entries);
        return writer_.finish(progress);
    }

private:
    static constexpr const char* kTouch = "INSERT OR IGNORE INTO temp.touched VALUES (?)";
    static SqliteFile& prepared(SqliteFile& file)
    {
        file.run(kTables);
        return file;
    }

    CatalogueWriter writer_;
    SqliteStatement touch_;
    std::int64_t changes_ = 0;
};

class Update final : public CopyUpdate {
public:
    /// With nothing of the present version.
    Update(const fs::path& folder, const LocalCopy::Limits& limits, std::string language)
        : folder_(folder), target_(LocalCopy::catalogueIn(folder)), limits_(limits), language_(std::move(language))
    {
    }
    /// The present version, above the layers `below`.
    Update(const fs::path& folder, const LocalCopy::Limits& limits, std::vector<std::string> below)
        : folder_(folder), target_(LocalCopy::catalogueIn(folder)), limits_(limits),
          present_(std::make_unique<CatalogueLayers>(target_)), below_(std::move(below))
    {
        const CatalogueOrigin origin = catalogueOrigin(present_->file(0));
        entries_ = origin.entries;
        language_ = origin.language;
        if (changesIn(present_->file(0)) > limits_.onTop) {
            name_ = newLayerName();
            below_.insert(below_.begin(), name_);
        }
        for (std::size_t layer = 0; layer < present_->count(); ++layer) {
            find_.push_back(
                std::make_unique<SqliteStatement>(present_->file(layer), "SELECT 1 FROM product WHERE item_id = ?1"));
        }
    }

    void put(const CatalogueEntry& entry) override
    {
        if (writer().put(entry) && !exists(*entry.number)) {
            ++entries_;
        }
    }

    void remove(std::int32_t number) override
    {
        if (writer().touch(number) && exists(number)) {
            --entries_;
        }
    }

    bool commit(const CopyState& state, const LocalCopy::Progress& progress) override
    {
        const auto goOn = [&] { return progress(0, 1); };
        if (isForAll()) {
            for (std::size_t layer = 0; layer < present_->count(); ++layer) {
                const bool hasChanged = layer + 1 < present_->count();
                if (!writer().addFrom(present_->file(layer), hasChanged, goOn)) {
                    return false;
                }
            }
            below_.clear();
        } else if (!name_.empty()) { // linked first: from now on the new version may name it
            makeLayer(target_, folder_ / name_);
        } else if (present_ && !writer().addFrom(present_->file(0), !below_.empty(), goOn)) {
            return false;
        }
        if (!writer().finish(state, entries_, below_, below_.empty(), progress)) {
            return false;
        }
        writer_.reset();                    // closes the file
        static_cast<void>(file_->commit()); // a power failure may bring the former version back, which is one, too
        return true;
    }

private:
    /// Whether the batch has changed so much that all entries are written again.
    bool isForAll()
    {
        const std::int64_t changes = writer().changes();
        return present_ && present_->count() > 0 && changes > limits_.fewChanges &&
               changes * limits_.atOnceByChanges > changesIn(present_->file(present_->count() - 1));
    }

    LayerWriter& writer()
    {
        if (!writer_) {
            file_ = std::make_unique<files::NewFile>(target_);
            writer_ = std::make_unique<LayerWriter>(file_->path(), language_);
        }
        return *writer_;
    }

    bool exists(std::int64_t number)
    {
        for (std::size_t layer = 0; layer < find_.size(); ++layer) {
            SqliteRows rows = find_[layer]->query(number);
            if (rows.next()) {
                return true;
            }
            if (present_->changes(layer, number)) {
                return false;
            }
        }
        return false;
    }

    static void makeLayer(const fs::path& from, const fs::path& to)
    {
        std::error_code error;
        fs::create_hard_link(from, to, error);
        if (error) { // a file system without them
            fs::copy_file(from, to);
        }
    }

    const fs::path folder_, target_;
    const LocalCopy::Limits limits_;
    std::unique_ptr<CatalogueLayers> present_; ///< Null if nothing of it is kept.
    std::vector<std::unique_ptr<SqliteStatement>> find_;
    std::vector<std::string> below_;
    std::string name_; ///< That the present upper layer gets as one below; empty if its content goes into the new one.
    std::string language_;
    std::int64_t entries_ = 0;
    std::unique_ptr<files::NewFile> file_;
    std::unique_ptr<LayerWriter> writer_;
};

} // namespace

CatalogueEntry storedEntry(const SqliteRows& rows)
{
    const bool priced = rows.type(4) == SqliteType::integer;
    return {.name = rows.text(1),
            .key = rows.text(2),
            .partNum = rows.text(3),
            .unitPrice = priced ? std::optional(Currency::fromScaled(rows.integer(4))) : std::nullopt,
            .note = rows.text(5),
            .barcode = rows.text(6),
            .number = static_cast<std::int32_t>(rows.integer(0))};
}

LocalCopy::LocalCopy(fs::path folder, const Limits& limits) : folder_(std::move(folder)), limits_(limits) {}

fs::path LocalCopy::catalogueIn(const fs::path& folder)
{
    return folder / "present.catalogue";
}

std::optional<CopyState> LocalCopy::state() const
{
    try {
        if (!isCatalogue(catalogueIn(folder_))) {
            return std::nullopt;
        }
        const CatalogueLayers layers(catalogueIn(folder_));
        CopyState state = stateOf(layers.file(0));
        return state.lineage.empty() ? std::nullopt : std::optional(std::move(state));
    } catch (const RuntimeError& error) {
        if (error.number() == ErrorNumber::outOfMemory) {
            throw;
        }
        return std::nullopt;
    }
}

std::unique_ptr<CopyUpdate> LocalCopy::change() const
{
    return std::make_unique<Update>(folder_, limits_, layersBelow());
}

std::unique_ptr<CopyUpdate> LocalCopy::anew(const std::string& language) const
{
    return std::make_unique<Update>(folder_, limits_, language);
}

std::vector<std::string> LocalCopy::layersBelow() const
{
    SqliteFile present = openCatalogue(catalogueIn(folder_));
    return namesOfLayersBelow(present);
}

std::optional<LocalCopy::Merging> LocalCopy::merging() const
{
    std::int64_t onTop = 0, changes = 0, lowest = 0;
    std::vector<std::string> below;
    {
        const CatalogueLayers layers(catalogueIn(folder_));
        below = namesOfLayersBelow(layers.file(0));
        if (below.empty()) {
            return std::nullopt;
        }
        onTop = changesIn(layers.file(0));
        lowest = changesIn(layers.file(layers.count() - 1));
        for (std::size_t layer = 0; layer + 1 < layers.count(); ++layer) {
            changes += changesIn(layers.file(layer));
        }
    }
    if (changes > std::max(limits_.fewChanges, lowest / limits_.lowestByChanges)) {
        if (const std::optional<CopyState> present = state(); onTop > limits_.onTop && present) {
            static_cast<void>(change()->commit(*present, [](int, int) { return true; }));
            below = layersBelow();
        }
        return below.size() > 1 ? std::optional(Merging{std::move(below), true}) : std::nullopt;
    }
    below.pop_back();
    return below.size() >= limits_.layersBetween ? std::optional(Merging{std::move(below), false}) : std::nullopt;
}

std::string LocalCopy::merged(const fs::path& folder, const Merging& merging, const GoOn& goOn)
{
    std::vector<fs::path> paths;
    for (const std::string& name : merging.files) {
        paths.push_back(folder / name);
    }
    const CatalogueLayers layers(paths);
    const CopyState state = stateOf(layers.file(0));
    std::string name = newLayerName();
    files::NewFile file(folder / name);
    {
        LayerWriter writer(file.path(), state.language);
        for (std::size_t layer = 0; layer < layers.count(); ++layer) {
            const bool isLowest = merging.toLowest && layer + 1 == layers.count();
            if (!writer.addFrom(layers.file(layer), !isLowest, goOn)) {
                return {};
            }
        }
        if (!writer.finish(state, std::nullopt, {}, merging.toLowest, [&](int, int) { return goOn(); })) {
            return {};
        }
    }
    static_cast<void>(file.commit());
    return name;
}

void LocalCopy::replace(const Merging& merging, const std::string& file) const
{
    std::vector<std::string> below = layersBelow();
    const auto at = std::search(below.begin(), below.end(), merging.files.begin(), merging.files.end());
    const std::optional<CopyState> present = state();
    if (at != below.end() && present) {
        *at = file;
        below.erase(at + 1, at + static_cast<std::ptrdiff_t>(merging.files.size()));
        Update update(folder_, limits_, std::move(below));
        static_cast<void>(update.commit(*present, [](int, int) { return true; }));
    }
    removeUnnamed();
}

/// Removes the layers that the present version does not name. Programs that have them open keep them.
void LocalCopy::removeUnnamed() const
{
    const std::vector<std::string> named = layersBelow();
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_, ignored)) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with(kLayerPrefix) && std::find(named.begin(), named.end(), name) == named.end()) {
            fs::remove(entry.path(), ignored);
        }
    }
}

} // namespace orvan

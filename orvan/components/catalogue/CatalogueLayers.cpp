#include "orvan/components/catalogue/CatalogueLayers.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/SortKeys.h"

#include <algorithm>
#include <tuple>

namespace orvan {

namespace {

bool hasTable(SqliteFile& file, const char* name)
{
    SqliteStatement find(file, "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ?1");
    SqliteRows rows = find.query(std::string_view(name));
    return rows.next();
}

} // namespace

std::vector<std::string> namesOfLayersBelow(SqliteFile& catalogue)
{
    std::vector<std::string> names;
    if (hasTable(catalogue, "below")) {
        SqliteStatement all(catalogue, "SELECT file FROM below ORDER BY place");
        for (SqliteRows rows = all.query(); rows.next();) {
            names.emplace_back(rows.text(0));
        }
    }
    return names;
}

CatalogueLayers::Layer::Layer(const std::filesystem::path& path)
    : file(openCatalogue(path)), first(file, "SELECT 1 FROM sqlite_master")
{
    if (hasTable(file, "changed")) {
        changed.emplace(file, "SELECT 1 FROM changed WHERE item_id = ?1");
    }
}

CatalogueLayers::Reading::Reading(const CatalogueLayers& layers)
{
    for (const auto& layer : layers.layers_) {
        open_.emplace_back(layer->first).next();
    }
}

CatalogueLayers::~CatalogueLayers() = default;

/// A new version may come between the opening of the upper file and that of the others, which then have lost their
/// names. The upper file is opened again then.
CatalogueLayers::CatalogueLayers(const std::filesystem::path& file)
{
    constexpr int kTries = 5;
    for (int left = kTries - 1; layers_.empty(); --left) {
        try {
            open(file);
        } catch (const RuntimeError&) {
            const bool wereLayersMissing = layers_.size() == 1;
            layers_.clear();
            if (left == 0 || !wereLayersMissing) {
                throw;
            }
        }
    }
    if (count() > 1) {
        keys_ = std::make_unique<SortKeys>(catalogueOrigin(layers_.front()->file).language);
    }
}

CatalogueLayers::CatalogueLayers(const std::vector<std::filesystem::path>& files)
{
    for (const std::filesystem::path& file : files) {
        layers_.push_back(std::make_unique<Layer>(file));
    }
}

void CatalogueLayers::open(const std::filesystem::path& file)
{
    layers_.push_back(std::make_unique<Layer>(file));
    std::vector<std::unique_ptr<Layer>> below;
    for (const std::string& name : namesOfLayersBelow(layers_.front()->file)) {
        if (std::filesystem::path(name).filename() != name) { // a file of another folder is none of ours
            raiseCatalogueError(ErrorNumber::invalidFileFormat, file, userText("it is damaged (%1)", name));
        }
        below.push_back(std::make_unique<Layer>(layers_.front()->file.path().parent_path() / name));
    }
    std::move(below.begin(), below.end(), std::back_inserter(layers_));
}

bool CatalogueLayers::changes(std::size_t layer, std::int64_t itemId) const
{
    std::optional<SqliteStatement>& changed = layers_[layer]->changed;
    if (!changed) {
        return false;
    }
    SqliteRows rows = changed->query(itemId);
    return rows.next();
}

bool CatalogueLayers::isHidden(std::size_t layer, std::int64_t itemId) const
{
    for (std::size_t above = 0; above < layer; ++above) {
        if (changes(above, itemId)) {
            return true;
        }
    }
    return false;
}

void CatalogueLayers::sort(std::vector<Row>& rows) const
{
    for (Row& row : rows) {
        if (keys_) {
            keys_->write(row.by, row.key);
        }
    }
    std::sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) {
        return std::tie(a.kind, a.key, a.by, a.row.itemId) < std::tie(b.kind, b.key, b.by, b.row.itemId);
    });
}

} // namespace orvan

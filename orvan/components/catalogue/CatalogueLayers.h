// CatalogueLayers: the files that make up one version of a catalogue.
//
// Usually that is one file. The local copy of a server's catalogue (orvan/components/catalogue/server/LocalCopy.h) has
// several, so that a change of some entries need not write all others again. The file with the catalogue's name is the
// upper one; its table `below` names the others, the nearest one first, in the same folder. A layer has the entries
// that differ from those below, and in its table `changed` the numbers of all entries below that are no longer valid,
// because they have changed or are gone. The lowest layer has no such table. Each layer is a catalogue file of the
// present form that is never written to again, so an open version stays what it is when its files have lost their
// names.
//
// Thread: one at a time. Errors: those of SqliteFile.h, for the file that cannot be used.
#pragma once

#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/lookup/ProductLkpMgr.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvan {

class SortKeys;

/// A row of a list, and where its entry is: in which layer, and at which rank of that layer's table `product`.
struct ListedRow : LookUpRow {
    std::size_t layer = 0;
    std::int64_t rank = 0;
};

class CatalogueLayers {
public:
    explicit CatalogueLayers(const std::filesystem::path& file);
    /// Files that need not be a whole version; the upper one first.
    explicit CatalogueLayers(const std::vector<std::filesystem::path>& files);
    ~CatalogueLayers();
    CatalogueLayers(const CatalogueLayers&) = delete;
    CatalogueLayers& operator=(const CatalogueLayers&) = delete;

    [[nodiscard]] std::size_t count() const { return layers_.size(); }
    /// Layer 0 is the upper one.
    [[nodiscard]] SqliteFile& file(std::size_t layer) const { return layers_[layer]->file; }
    /// Whether a layer above says what has become of the entry.
    [[nodiscard]] bool isHidden(std::size_t layer, std::int64_t itemId) const;
    /// Whether the layer says that the entry below is no longer valid.
    [[nodiscard]] bool changes(std::size_t layer, std::int64_t itemId) const;

    /// Keeps the files as they are read: each statement would otherwise ask for itself whether the file has changed.
    class Reading {
    public:
        explicit Reading(const CatalogueLayers& layers);

    private:
        std::deque<SqliteRows> open_;
    };

    struct Row {
        int kind; ///< Those of a smaller one come first.
        std::string by;
        ListedRow row;
        std::string key = {}; ///< What sort() compares; made by it.
    };
    /// Orders rows of several layers as an import would have ordered them: by the text `by`, or, if it is the same, by
    /// number.
    void sort(std::vector<Row>& rows) const;

private:
    struct Layer {
        explicit Layer(const std::filesystem::path& path);
        SqliteFile file;
        std::optional<SqliteStatement> changed;
        SqliteStatement first; ///< Yields a row, so that an unfinished query of it keeps the file as it is.
    };

    void open(const std::filesystem::path& file);

    std::vector<std::unique_ptr<Layer>> layers_;
    std::unique_ptr<SortKeys> keys_; ///< Null where there is one layer.
};

/// The names of the files below, the nearest one first; none if the catalogue consists of one file.
[[nodiscard]] std::vector<std::string> namesOfLayersBelow(SqliteFile& catalogue);

} // namespace orvan

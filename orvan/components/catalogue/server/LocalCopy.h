// LocalCopy: the copy of a server's catalogue in which a desk looks up, as the one who writes it sees it.
//
// The copy is a catalogue of layers (CatalogueLayers.h) in a folder of its own. Each batch of changes makes a new upper
// layer, from the former one and the batch, and gives it the former one's name: what is looked up is always one whole
// version. When the upper layer has become large, it becomes the next one below, and a small one begins. When there are
// several of those, they become one; and when they are more than a twentieth of the lowest one, a new lowest one is
// made of all. That takes long in a large catalogue, so it can be done in another thread while batches go on coming.
//
// Thread: one at a time, except for merged(). One object writes at a time, which the caller sees to. Errors: those of
// SqliteFile.h and NewFile.h.
#pragma once

#include "orvan/catalogue_export.h"
#include "orvan/components/catalogue/CatalogueFile.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace orvan {

/// Of what a copy is one.
struct CopyState {
    std::string lineage; ///< Of the server's numbers; never empty. A copy of another lineage is useless.
    std::int64_t revision = 0;
    std::string source;   ///< The name of the price list.
    std::string language; ///< In whose order the lists are.
    std::string stamp;    ///< That of the revision, by which the server knows it as one of its own.

    friend bool operator==(const CopyState&, const CopyState&) = default;
};

/// The entry of a row that a statement yields with item_id, name, key, part_num, unit_price, note and barcode. Valid
/// until the next row.
[[nodiscard]] CatalogueEntry storedEntry(const SqliteRows& rows);

class CopyUpdate;

class ORVAN_CATALOGUE_INTERNAL LocalCopy {
public:
    using GoOn = std::function<bool()>;
    /// Called now and then while a version is written; false ends it.
    using Progress = std::function<bool(int step, int steps)>;

    struct Limits {
        /// Changes in the upper layer, which is written with each batch: a tenth of a second's work.
        std::int64_t onTop = 2'000;
        std::size_t layersBetween = 3;     ///< From so many on, the layers above the lowest one become one.
        std::int64_t fewChanges = 5'000;   ///< No new lowest layer is made for so few,
        std::int64_t lowestByChanges = 20; ///< nor before the changes are this part of it.
        /// A batch with which the upper layer has more changes than this part of the lowest one makes a new lowest one
        /// at once: a search would meet too many hidden entries. If 0, none does.
        std::int64_t atOnceByChanges = 4;
    };

    /// The folder exists.
    explicit LocalCopy(std::filesystem::path folder) : LocalCopy(std::move(folder), Limits()) {}
    LocalCopy(std::filesystem::path folder, const Limits& limits);

    /// The file that a look-up opens.
    [[nodiscard]] static std::filesystem::path catalogueIn(const std::filesystem::path& folder);
    /// Empty if there is no copy, or one that cannot be used.
    [[nodiscard]] std::optional<CopyState> state() const;
    /// A new version: the present one with some changes, in the same language; or one that has nothing of the present
    /// one.
    [[nodiscard]] std::unique_ptr<CopyUpdate> change() const;
    [[nodiscard]] std::unique_ptr<CopyUpdate> anew(const std::string& language) const;

    /// Layers that are to become one, the upper one first.
    struct Merging {
        std::vector<std::string> files;
        bool toLowest = false;
    };
    /// Empty if there is nothing to do. A large upper layer gets a small one above it, so that it can be merged.
    [[nodiscard]] std::optional<Merging> merging() const;
    /// Makes one file of the layers and returns its name; an empty one when `goOn` has returned false. In any thread,
    /// while the copy is changed in another.
    [[nodiscard]] static std::string merged(const std::filesystem::path& folder, const Merging& merging,
                                            const GoOn& goOn);
    /// Makes a new version in which this file has the place of the layers, unless the copy has been made anew.
    void replace(const Merging& merging, const std::string& file) const;
    /// Removes files that no version needs. Not while layers are merged.
    void removeUnnamed() const;

private:
    [[nodiscard]] std::vector<std::string> layersBelow() const;

    const std::filesystem::path folder_;
    const Limits limits_;
};

/// Entries in the order of their numbers are the quickest. What is not committed has no effect.
class CopyUpdate {
public:
    virtual ~CopyUpdate() = default;
    /// The entry has its number. Only the first call counts for an entry.
    virtual void put(const CatalogueEntry& entry) = 0;
    virtual void remove(std::int32_t number) = 0;
    /// False, and no new version, when `progress` has returned false.
    [[nodiscard]] virtual bool commit(const CopyState& state, const LocalCopy::Progress& progress) = 0;
};

} // namespace orvan

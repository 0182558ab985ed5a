// FirstCopy: brings all entries of a server's catalogue, and makes a copy of them.
//
// The entries come in blocks, each by a statement of its own, and are kept in a file beside the copy until they are all
// there. So a copy that was interrupted goes on where it stopped, also after the program has ended. Entries that change
// meanwhile have later revisions than that at which the copy was begun; they are brought at the end, so that what has
// come is one whole version. The file is removed once the copy is made.
//
// Thread: one at a time. Errors: ServerError; those of SqliteFile.h.
#pragma once

#include "orvan/components/catalogue/SqliteFile.h"
#include "orvan/components/catalogue/server/CopiedRows.h"

#include <memory>

namespace orvan {

class FirstCopy {
public:
    /// Goes on with what has been brought already. `block` is how many entries come at a time.
    FirstCopy(const std::filesystem::path& folder, std::int64_t block);
    ~FirstCopy();
    FirstCopy(const FirstCopy&) = delete;
    FirstCopy& operator=(const FirstCopy&) = delete;

    /// Called with the part that is done.
    using Progress = std::function<void(double part)>;
    /// Returns when all entries have come.
    void bring(ServerConnection& server, const Progress& progress);
    /// Makes the copy. False when `progress` has returned false.
    [[nodiscard]] bool make(const LocalCopy& copy, const LocalCopy::Progress& progress);
    /// What the copy will be one of.
    [[nodiscard]] const CopyState& state() const { return state_; }

private:
    void open();
    void beginAnew();
    void bringBlocks(ServerConnection& server, const Progress& progress);
    void bringChanges(ServerConnection& server);
    void put(const CatalogueEntry& entry);
    void keepState(std::int64_t last);

    const std::filesystem::path path_;
    const std::int64_t block_;
    std::unique_ptr<SqliteFile> file_;
    std::unique_ptr<SqliteStatement> put_;
    CopyState state_;
    std::int64_t last_ = 0; ///< The last number that has come.
};

} // namespace orvan

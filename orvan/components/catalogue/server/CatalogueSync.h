// CatalogueSync: keeps the local copy of a server's catalogue as the server has it, in a thread of its own.
//
// The first time all entries come (FirstCopy.h); after that, what has changed since the copy's revision. The server
// notifies of changes; besides, it is asked for its revision once a minute, because notifications do not come through
// poolers in transaction mode, from standby servers and from all engines that speak PostgreSQL's protocol. Where
// the server cannot be reached, it is tried again after pauses that grow up to a minute. A look-up opens the copy's
// file and never waits for any of this.
//
// Of several programs of one user, one brings the changes: the one that has locked the file `lock` in the copy's
// folder. The others try to get the lock now and then. The time of that file is when the copy was last found to be
// what the server has.
//
// Thread: any; `changed` is called in the object's own thread. Errors: none is raised, see CatalogueCopyState::problem.
#pragma once

#include "orvan/components/catalogue/CatalogueFactory.h"
#include "orvan/components/catalogue/server/LocalCopy.h"
#include "orvan/components/catalogue/server/ServerConnection.h"
#include "orvan/files/Descriptor.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace orvan {

struct CatalogueSyncOptions {
    ServerUri uri;
    std::filesystem::path folder; ///< The copy's own; it is made where it is missing.
    std::function<void(const CatalogueCopyState&)> changed = {};
    bool listens = true; ///< Whether to ask for notifications.
    std::chrono::milliseconds pollEvery{60'000};
    std::chrono::milliseconds silence{30'000}; ///< A server that says nothing for so long within a statement is lost.
    std::chrono::milliseconds connecting{10'000};
    std::chrono::milliseconds firstPause{1'000}, longestPause{60'000};
    std::chrono::milliseconds lockEvery{2'000}; ///< How often to try the lock that another program has.
    std::int64_t block = 20'000;                ///< Entries of a first copy that come at a time.
    LocalCopy::Limits limits = {};
};

class CatalogueSync {
public:
    explicit CatalogueSync(CatalogueSyncOptions options);
    /// Ends the thread; what has not been completed is gone on with the next time.
    ~CatalogueSync();
    CatalogueSync(const CatalogueSync&) = delete;
    CatalogueSync& operator=(const CatalogueSync&) = delete;

    [[nodiscard]] CatalogueCopyState state() const;
    /// Asks the server now, also where a pause was to pass before.
    void bringNow();
    /// To be called when a look-up has found the copy damaged: whichever program brings the changes brings all entries
    /// anew.
    void replaceDamaged() noexcept;

private:
    void run();
    [[nodiscard]] bool holdsLock();
    void session();
    void bring(ServerConnection& server);
    void bringAll(ServerConnection& server);
    void bringChanges(ServerConnection& server);
    void mergeLayers();
    void joinMerging();
    void noteChecked();
    void pause(std::chrono::milliseconds time);
    template <class Change>
    void tell(Change&& change);
    /// Runs a step that reads and writes the copy.
    template <class Step>
    void withCopy(Step&& step);
    [[nodiscard]] std::filesystem::path damageMark() const { return options_.folder / "damaged"; }
    [[nodiscard]] bool goesOn() const { return !stopped_.load(); }

    const CatalogueSyncOptions options_;
    const LocalCopy copy_;
    ServerSignal signal_;
    std::atomic<bool> stopped_ = false;
    files::Descriptor lock_;
    std::optional<CopyState> known_; ///< What the copy is; empty if it is not known.
    std::chrono::milliseconds pause_;

    mutable std::mutex mutex_; ///< For the state, and for woken_.
    CatalogueCopyState state_;
    std::condition_variable wake_;
    bool woken_ = false;

    std::optional<LocalCopy::Merging> merging_; ///< While layers become one, in merger_.
    std::string merged_;                        ///< The new layer's file, once isMerged_.
    std::atomic<bool> isMerged_ = false;
    std::chrono::steady_clock::time_point nextMerging_ = {};
    std::thread merger_;
    std::thread thread_; ///< The last member, because it uses the others.
};

} // namespace orvan

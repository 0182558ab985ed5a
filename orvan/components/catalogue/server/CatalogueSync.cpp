#include "orvan/components/catalogue/server/CatalogueSync.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/server/FirstCopy.h"

#include <algorithm>
#include <exception>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace orvan {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr auto kBetweenMergings = 10min; ///< Where one has failed.
/// The part of a first copy's time in which the entries come; the rest goes into the indexes.
constexpr double kBringing = 0.2;

std::string lockFile(const fs::path& folder)
{
    return folder / "lock";
}

std::optional<std::chrono::system_clock::time_point> checkedIn(const fs::path& folder)
{
    struct stat status = {};
    if (::stat(lockFile(folder).c_str(), &status) != 0 || status.st_mtim.tv_sec == 0) {
        return std::nullopt;
    }
    return std::chrono::system_clock::from_time_t(status.st_mtim.tv_sec);
}

/// Lets the thread's work wait for that of other threads, above all for look-ups.
void yieldToOthers()
{
    constexpr int kNice = 10;
    static_cast<void>(::setpriority(PRIO_PROCESS, 0, kNice)); // on Linux 0 is the thread
}

/// Runs the work in a thread that yields to others, and waits for it.
template <class Work>
void inQuietThread(Work&& work)
{
    std::exception_ptr failure;
    std::thread thread([&] {
        yieldToOthers();
        try {
            work();
        } catch (...) {
            failure = std::current_exception();
        }
    });
    thread.join();
    if (failure) {
        std::rethrow_exception(failure);
    }
}

} // namespace

CatalogueSync::CatalogueSync(CatalogueSyncOptions options)
    : options_(std::move(options)), copy_(options_.folder, options_.limits), pause_(options_.firstPause)
{
    state_.server = options_.uri.shown();
    state_.copy = LocalCopy::catalogueIn(options_.folder);
    state_.checked = checkedIn(options_.folder);
    thread_ = std::thread([this] { run(); });
}

CatalogueSync::~CatalogueSync()
{
    stopped_ = true;
    signal_.cancel();
    bringNow();
    thread_.join();
}

CatalogueCopyState CatalogueSync::state() const
{
    const std::lock_guard lock(mutex_);
    return state_;
}

void CatalogueSync::bringNow()
{
    {
        const std::lock_guard lock(mutex_);
        woken_ = true;
    }
    wake_.notify_all();
    signal_.wake();
}

void CatalogueSync::replaceDamaged() noexcept
{
    // A file, because the changes may be brought by another program, or not before this one's next run.
    static_cast<void>(files::Descriptor::tryOpen(damageMark(), O_WRONLY | O_CREAT, 0600));
    bringNow();
}

template <class Step>
void CatalogueSync::withCopy(Step&& step)
{
    try {
        step();
    } catch (const ServerError&) {
        throw;
    } catch (const RuntimeError& error) {
        known_.reset();
        if (error.number() == ErrorNumber::invalidFileFormat) {
            replaceDamaged();
        }
        throw;
    }
}

template <class Change>
void CatalogueSync::tell(Change&& change)
{
    CatalogueCopyState told;
    {
        const std::lock_guard lock(mutex_);
        change(state_);
        told = state_;
    }
    if (options_.changed) {
        try {
            options_.changed(told);
        } catch (...) { // a host's function that fails does not end the thread
        }
    }
}

void CatalogueSync::pause(std::chrono::milliseconds time)
{
    std::unique_lock lock(mutex_);
    wake_.wait_for(lock, time, [this] { return woken_ || stopped_; });
    woken_ = false;
}

void CatalogueSync::run()
{
    while (goesOn()) {
        std::chrono::milliseconds wait = options_.lockEvery;
        try {
            if (holdsLock()) {
                session();
            }
        } catch (...) {
            const RuntimeError error = currentError();
            if (goesOn()) {
                tell([&](CatalogueCopyState& state) {
                    state.problem = error.userText();
                    state.percent.reset();
                });
            }
            wait = pause_;
            pause_ = std::min(2 * pause_, options_.longestPause);
        }
        pause(wait);
    }
    joinMerging();
}

/// Tells how the copy of another program stands if that one has the lock.
bool CatalogueSync::holdsLock()
{
    if (!lock_) {
        fs::create_directories(options_.folder);
        const bool isNew = !fs::exists(lockFile(options_.folder));
        files::Descriptor file = files::Descriptor::open(lockFile(options_.folder), O_RDWR | O_CREAT, 0600);
        if (isNew) { // its time says that nothing has been checked yet
            const timespec never[] = {{0, 0}, {0, 0}};
            static_cast<void>(::futimens(file.get(), never));
        }
        if (::flock(file.get(), LOCK_EX | LOCK_NB) == 0) {
            lock_ = std::move(file);
        }
    }
    tell([&](CatalogueCopyState& state) {
        state.brought = static_cast<bool>(lock_);
        if (!lock_) {
            state.problem = {}; // what the other program meets is not known
        }
        state.checked = checkedIn(options_.folder);
    });
    return static_cast<bool>(lock_);
}

void CatalogueSync::session()
{
    ServerConnection server(options_.uri, {.connecting = options_.connecting,
                                           .silence = options_.silence,
                                           .signal = &signal_,
                                           .application = "orvan catalogue copy"});
    if (options_.listens) {
        try {
            server.run((std::string("LISTEN ") + kServerChannel).c_str());
        } catch (const ServerError& error) {
            if (error.kind() != ServerFailure::Kind::refused) {
                throw;
            }
        }
    }
    while (goesOn()) {
        bring(server);
        withCopy([this] { mergeLayers(); });
        static_cast<void>(server.wait(options_.pollEvery));
    }
}

void CatalogueSync::bring(ServerConnection& server)
{
    const CopyState now = copyStateOf(serverState(server));
    if (!known_ || !isCatalogue(LocalCopy::catalogueIn(options_.folder))) {
        known_ = copy_.state();
    }
    std::error_code error;
    const bool isDamaged = fs::exists(damageMark(), error);
    const bool continues =
        !isDamaged && known_ && known_->language == now.language && canContinue(server, *known_, now);
    if (!continues) {
        bringAll(server);
        if (isDamaged && goesOn()) {
            fs::remove(damageMark(), error);
        }
    } else if (known_->revision < now.revision) {
        withCopy([&] { bringChanges(server); });
    }
    if (goesOn()) {
        noteChecked();
    }
}

void CatalogueSync::bringAll(ServerConnection& server)
{
    joinMerging();
    const auto tellPart = [&](double part) {
        const int percent = std::clamp(static_cast<int>(part * 100), 0, 99);
        if (state().percent != percent) {
            tell([&](CatalogueCopyState& state) { state.percent = percent; });
        }
    };
    tellPart(0);
    FirstCopy all(options_.folder, options_.block);
    all.bring(server, [&](double part) { tellPart(part * kBringing); });
    known_.reset();
    bool isMade = false;
    inQuietThread([&] {
        isMade = all.make(copy_, [&](int step, int steps) {
            tellPart(kBringing + (1 - kBringing) * step / steps);
            return goesOn();
        });
    });
    if (isMade) {
        known_ = all.state();
        tell([](CatalogueCopyState& state) { state.percent.reset(); });
    }
}

void CatalogueSync::bringChanges(ServerConnection& server)
{
    const auto update = copy_.change();
    const CopyState now = changesSince(
        server, known_->revision, [&](const CatalogueEntry& entry) { update->put(entry); },
        [&](std::int32_t number) { update->remove(number); });
    // The catalogue may have been exchanged since it was asked for its state; the next question finds that.
    if (now.lineage == known_->lineage && now.language == known_->language && now.revision >= known_->revision &&
        update->commit(now, [this](int, int) { return goesOn(); })) {
        known_ = now;
    }
}

/// Begins to make one layer of several, or ends it: other changes may come meanwhile.
void CatalogueSync::mergeLayers()
{
    if (merging_ && isMerged_) {
        merger_.join();
        if (const LocalCopy::Merging done = *std::exchange(merging_, std::nullopt); !merged_.empty()) {
            copy_.replace(done, merged_);
        } else {
            nextMerging_ = std::chrono::steady_clock::now() + kBetweenMergings;
        }
    }
    if (!merging_ && std::chrono::steady_clock::now() >= nextMerging_ && (merging_ = copy_.merging())) {
        isMerged_ = false;
        merged_.clear();
        merger_ = std::thread([this, merging = *merging_] {
            yieldToOthers();
            try {
                merged_ = LocalCopy::merged(options_.folder, merging, [this] { return goesOn(); });
            } catch (...) { // for instance a full disk: the layers stay as they are
                merged_.clear();
                if (currentError().number() == ErrorNumber::invalidFileFormat) {
                    replaceDamaged();
                }
            }
            isMerged_ = true;
            signal_.wake();
        });
    }
    if (!merging_) {
        copy_.removeUnnamed();
    }
}

/// What has been merged is dropped.
void CatalogueSync::joinMerging()
{
    if (merger_.joinable()) {
        merger_.join();
    }
    merging_.reset();
}

void CatalogueSync::noteChecked()
{
    static_cast<void>(::futimens(lock_.get(), nullptr));
    pause_ = options_.firstPause;
    tell([](CatalogueCopyState& state) {
        state.problem = {};
        state.checked = std::chrono::system_clock::now();
    });
}

} // namespace orvan

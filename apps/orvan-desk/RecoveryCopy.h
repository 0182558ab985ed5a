// RecoveryCopy: the unsaved work of a desk, on disk, for the case that the desk ends without saving.
//
// A desk keeps one copy while anything is unsaved. The copy is written by a thread of its own, so that a slow
// disk never holds up a keystroke. Copies stand in one folder of the user's, one file for each desk that
// runs. If a desk ends without saving or discarding, the next desk offers its copy.
//
// Thread: the user-interface thread. Errors: keep() raises none; what went wrong is reported once.
#pragma once

#include "QuoteFile.h"

#include "orvan/base/UserText.h"

#include <QDateTime>
#include <QString>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace orvan::desk {

/// The user's folder for recovery copies; it need not exist yet.
QString defaultRecoveryFolder();

/// What is kept of a quote.
struct UnsavedWork {
    Quote quote;
    QString path;                ///< The quote's file; empty for one that has none yet.
    QDateTime unsavedSince = {}; ///< Invalid in the copies of earlier desks.

    bool operator==(const UnsavedWork&) const = default;
};

class RecoveryKeeper {
public:
    /// Called by the writing thread with a text that tells the user what went wrong.
    using Report = std::function<void(const UserText& problem)>;

    RecoveryKeeper(const QString& folder, Report report);
    RecoveryKeeper(const RecoveryKeeper&) = delete;
    RecoveryKeeper& operator=(const RecoveryKeeper&) = delete;
    /// Finishes what is being written or removed. The copy stays: only discard() removes it.
    ~RecoveryKeeper();

    /// Has the copy written soon; of several calls the last one counts.
    void keep(const UnsavedWork& work);
    /// Waits until what was handed to keep() is written, or what discard() asked for is removed. False where the copy
    /// could not be written.
    [[nodiscard]] bool finish();
    /// To be called when nothing is unsaved any more. Has the copy removed soon, and does not wait for a disk that is
    /// still writing.
    void discard();

private:
    void run();
    [[nodiscard]] bool write(const UnsavedWork& work);
    [[nodiscard]] bool remove();
    [[nodiscard]] bool isBusy() const { return waiting_ || discards_ || writing_; }
    void report(const UserText& problem);

    const QString folder_;
    const QString file_;
    const Report report_;

    std::mutex mutex_; ///< Guards the members below.
    std::condition_variable changed_;
    std::optional<UnsavedWork> waiting_;
    bool discards_ = false; ///< The copy is to be removed.
    bool writing_ = false;  ///< The thread is writing or removing the copy.
    bool written_ = true;   ///< The last copy reached the disk.
    bool ending_ = false;
    bool reported_ = false;
    std::thread thread_; ///< Last: it uses all the others.
};

/// What a copy's bytes say: the work, and which desk has kept it.
struct RecoveryCopy {
    UnsavedWork work;
    QDateTime time;
    QString host;
    qint64 process = 0;
    QString processIdentity; ///< Tells a process from a later one with the same number.
};

[[nodiscard]] QByteArray copyToBytes(const RecoveryCopy& copy);
/// Raises QuoteFileError for bytes that are no copy.
[[nodiscard]] RecoveryCopy copyFromBytes(const QByteArray& bytes);

/// A copy whose desk has ended.
struct AbandonedWork {
    QString file; ///< The copy.
    QDateTime time;
    UnsavedWork work;
};

/// The copies in that folder whose desks do not run any more, oldest first. Each is claimed for this process:
/// no other desk gets it. A copy that cannot be read is put into `unreadable` and stays where it is.
std::vector<AbandonedWork> claimAbandonedWork(const QString& folder, std::vector<QString>& unreadable);

} // namespace orvan::desk

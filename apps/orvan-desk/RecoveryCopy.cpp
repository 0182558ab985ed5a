#include "RecoveryCopy.h"

#include "OutsideText.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/files/NewFile.h"
#include "orvan/files/ProcessIdentity.h"
#include "orvan/files/WholeFile.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QUuid>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <utility>

#include <unistd.h>

namespace orvan::desk {

namespace {

const QString kFormat = QStringLiteral("orvan-desk-recovery");
const QString kSuffix = QStringLiteral(".recovery.json");
constexpr int kVersion = 1;

QString newFileName()
{
    return QString::number(::getpid()) + u'-' + QUuid::createUuid().toString(QUuid::Id128) + kSuffix;
}

/// The copy that this process keeps.
RecoveryCopy ownCopy(const UnsavedWork& work)
{
    return {.work = work,
            .time = QDateTime::currentDateTimeUtc(),
            .host = QString::fromStdString(files::hostName()),
            .process = ::getpid(),
            .processIdentity = QString::fromStdString(files::processIdentity(::getpid()))};
}

struct Copy {
    AbandonedWork abandoned;
    bool running = false; ///< Its desk still runs, or may run on another host.
};

Copy readCopy(const QString& file)
{
    const std::string bytes = files::readFile(pathOf(file), kMostQuoteBytes).bytes;
    const RecoveryCopy copy = copyFromBytes(QByteArray::fromStdString(bytes));
    const bool thisHost = copy.host.toStdString() == files::hostName();
    const bool runs = files::isRunning(copy.process, copy.processIdentity.toStdString());
    return {.abandoned = {.file = file, .time = copy.time.toLocalTime(), .work = copy.work},
            .running = !thisHost || runs};
}

} // namespace

QByteArray copyToBytes(const RecoveryCopy& copy)
{
    const QJsonObject object{
        {QStringLiteral("format"), kFormat},
        {QStringLiteral("version"), kVersion},
        {QStringLiteral("time"), copy.time.toString(Qt::ISODateWithMs)},
        {QStringLiteral("unsavedSince"), copy.work.unsavedSince.toUTC().toString(Qt::ISODateWithMs)},
        {QStringLiteral("host"), copy.host},
        {QStringLiteral("process"), copy.process},
        {QStringLiteral("processIdentity"), copy.processIdentity},
        {QStringLiteral("path"), copy.work.path},
        {QStringLiteral("quote"), quoteToJson(copy.work.quote)}};
    return QJsonDocument(object).toJson();
}

RecoveryCopy copyFromBytes(const QByteArray& bytes)
{
    const QJsonObject object = parseDeskFile(bytes, kFormat, kVersion);
    return {.work = {.quote = quoteFromJson(object[u"quote"].toObject()),
                     .path = object[u"path"].toString(),
                     .unsavedSince = QDateTime::fromString(object[u"unsavedSince"].toString(), Qt::ISODateWithMs)},
            .time = QDateTime::fromString(object[u"time"].toString(), Qt::ISODateWithMs),
            .host = object[u"host"].toString(),
            .process = object[u"process"].toInteger(),
            .processIdentity = object[u"processIdentity"].toString()};
}

QString defaultRecoveryFolder()
{
    const QString state = qEnvironmentVariable("XDG_STATE_HOME");
    const QString base = QDir::isAbsolutePath(state) ? state : QDir::homePath() + QStringLiteral("/.local/state");
    return base + QStringLiteral("/orvan/recovery");
}

RecoveryKeeper::RecoveryKeeper(const QString& folder, Report report)
    : folder_(folder), file_(QDir(folder).filePath(newFileName())), report_(std::move(report)),
      thread_([this] { run(); })
{
}

RecoveryKeeper::~RecoveryKeeper()
{
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void RecoveryKeeper::keep(const UnsavedWork& work)
{
    {
        const std::lock_guard lock(mutex_);
        waiting_ = work;
        discards_ = false; // the former copy is replaced, so it need not be removed
    }
    changed_.notify_all();
}

bool RecoveryKeeper::finish()
{
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !isBusy(); });
    return written_;
}

void RecoveryKeeper::discard()
{
    {
        const std::lock_guard lock(mutex_);
        waiting_.reset();
        discards_ = true;
    }
    changed_.notify_all();
}

void RecoveryKeeper::run()
{
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return waiting_ || discards_ || ending_; });
        if (!waiting_ && !discards_) {
            return;
        }
        discards_ = false;
        const std::optional<UnsavedWork> work = std::exchange(waiting_, std::nullopt);
        writing_ = true;
        lock.unlock();
        const bool written = work ? write(*work) : remove();
        lock.lock();
        written_ = written;
        writing_ = false;
        changed_.notify_all();
    }
}

bool RecoveryKeeper::write(const UnsavedWork& work)
{
    try {
        std::filesystem::create_directories(pathOf(folder_));
        const UserText warning = files::replaceFile(pathOf(file_), copyToBytes(ownCopy(work)).toStdString()).warning;
        if (warning.empty()) {
            const std::lock_guard lock(mutex_);
            reported_ = false; // a disk that fills up again is told again
            return true;
        }
        report(warning);
        return true;
    } catch (...) {
        report(userText("No recovery copy of the unsaved changes could be written: %1.", currentError().userText()));
        return false;
    }
}

bool RecoveryKeeper::remove()
{
    std::error_code error;
    std::filesystem::remove(pathOf(file_), error);
    if (error) {
        report(userText("The recovery copy “%1” could not be removed: %2.", shortened(file_).toStdString(),
                        error.message()));
    }
    return true; // finish() asks whether unsaved work was written, and there is none now
}

void RecoveryKeeper::report(const UserText& problem)
{
    {
        const std::lock_guard lock(mutex_);
        if (std::exchange(reported_, true)) {
            return;
        }
    }
    report_(problem);
}

std::vector<AbandonedWork> claimAbandonedWork(const QString& folder, std::vector<QString>& unreadable)
{
    std::vector<AbandonedWork> claimed;
    for (const QFileInfo& info : QDir(folder).entryInfoList({u'*' + kSuffix}, QDir::Files | QDir::NoSymLinks)) {
        try {
            Copy copy = readCopy(info.filePath());
            const QString own = info.dir().filePath(newFileName());
            // Renaming claims it: of two desks that start at the same time, one finds the name gone.
            if (!copy.running && std::rename(pathOf(info.filePath()).c_str(), pathOf(own).c_str()) == 0) {
                copy.abandoned.file = own;
                claimed.push_back(std::move(copy.abandoned));
            }
        } catch (const std::exception&) {
            unreadable.push_back(info.filePath());
        }
    }
    // A desk that was killed while it wrote a copy has left an unfinished file. Each desk's copy has a name of its own,
    // so no later writing of the same copy would remove that file; it is removed here.
    files::removeUnfinishedFiles(pathOf(folder));
    std::sort(claimed.begin(), claimed.end(),
              [](const AbandonedWork& a, const AbandonedWork& b) { return a.time < b.time; });
    return claimed;
}

} // namespace orvan::desk

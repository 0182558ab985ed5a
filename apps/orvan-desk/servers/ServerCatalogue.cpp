#include "ServerCatalogue.h"

#include "apps/orvan-desk/CatalogueMenu.h"
#include "apps/orvan-desk/OpenQuote.h"
#include "apps/orvan-desk/OutsideText.h"
#include "apps/orvan-desk/StatusLine.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/components/catalogue/server/ServerUri.h"
#include "orvan/ui/qt/Translation.h"

#include <QDir>
#include <QStandardPaths>

#include <algorithm>
#include <chrono>
#include <limits>
#include <mutex>

namespace orvan::desk {

namespace {

/// A server is asked once a minute; a copy that was found to be right so lately is called up to date.
constexpr qint64 kLately = 150; // seconds

QString ageOf(const CatalogueCopyState& state, const QDateTime& now)
{
    if (!state.checked) {
        return CopyWatch::tr("of an unknown time");
    }
    const QDateTime checked = QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(*state.checked));
    return state.problem.empty() && checked.secsTo(now) <= kLately ? CopyWatch::tr("up to date")
                                                                   : CopyWatch::tr("as of %1").arg(timeText(checked));
}

/// What the copy has: "“prices.csv”: 312 entries"; empty where there is none.
QString contentOf(const CatalogueCopyState& state)
{
    if (!isCatalogue(state.copy)) {
        return {};
    }
    try {
        SqliteFile catalogue = openCatalogue(state.copy);
        const CatalogueOrigin origin = catalogueOrigin(catalogue);
        const int entries = static_cast<int>(std::min<std::int64_t>(origin.entries, std::numeric_limits<int>::max()));
        return CopyWatch::tr("“%1”: %2")
            .arg(origin.source.empty() ? shortened(QString::fromStdString(state.server)) : sourceName(origin.source),
                 entries == 1 ? StatusLine::tr("1 entry") : StatusLine::tr("%Ln entries", nullptr, entries));
    } catch (const RuntimeError&) {
        return {};
    }
}

/// The problem without the server's address, with which errors of servers begin: the status line would show little
/// else.
QString reasonOf(const CatalogueCopyState& state)
{
    const QString problem = qt::translated(state.problem), server = QString::fromStdString(state.server + ": ");
    return problem.startsWith(server) ? problem.mid(server.size()) : problem;
}

} // namespace

bool isServer(const QString& catalogue)
{
    return ServerUri::isUri(catalogue.toStdString());
}

QString whyRefused(const QString& uri)
{
    try {
        return ServerUri(uri.toStdString()).hasPassword()
                   ? CopyWatch::tr("Others could read a password here. Keep it in the file ~/.pgpass or in a service "
                                   "file, and leave it out of the address.")
                   : QString();
    } catch (const RuntimeError& error) {
        return qt::translated(error);
    }
}

QString copyText(const CatalogueCopyState& state, const QDateTime& now)
{
    const QString content = contentOf(state), problem = reasonOf(state);
    const QString server = shortened(QString::fromStdString(state.server));
    if (content.isEmpty()) {
        return !problem.isEmpty() ? CopyWatch::tr("No products of %1 yet: %2").arg(server, problem)
               : state.percent    ? CopyWatch::tr("Copying the products of %1: %L2 %").arg(server).arg(*state.percent)
                                  : CopyWatch::tr("Asking %1 for its products").arg(server);
    }
    const QString text = CopyWatch::tr("%1, %2").arg(content, ageOf(state, now));
    return !problem.isEmpty() ? CopyWatch::tr("%1. No changes come: %2").arg(text, problem)
           : state.percent    ? CopyWatch::tr("%1. Copying anew: %L2 %").arg(text).arg(*state.percent)
                              : text;
}

QString copiesFolder()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))
        .filePath(QStringLiteral("catalogues"));
}

struct CopyWatch::Link {
    std::mutex mutex;
    CopyWatch* watch = nullptr; ///< Null once it is gone.
};

CopyWatch::CopyWatch() : link_(std::make_shared<Link>())
{
    link_->watch = this;
}

CopyWatch::~CopyWatch()
{
    const std::lock_guard lock(link_->mutex);
    link_->watch = nullptr;
}

std::function<void(const CatalogueCopyState&)> CopyWatch::callback() const
{
    return [link = link_](const CatalogueCopyState& state) {
        const std::lock_guard lock(link->mutex);
        if (CopyWatch* const watch = link->watch) {
            QMetaObject::invokeMethod(
                watch, [watch, state] { emit watch->changed(state); }, Qt::QueuedConnection);
        }
    };
}

} // namespace orvan::desk

// The catalogue of a company's server in the desk: which one it is, and what the user should know of its local copy.
//
// Thread: the user-interface thread; CopyWatch::callback() may be called in any, also when the watch is gone.
#pragma once

#include "orvan/components/catalogue/CatalogueFactory.h"

#include <QDateTime>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <string_view>

namespace orvan::desk {

/// The setting that keeps the server's URI; empty where the user has a catalogue of their own.
inline constexpr std::string_view kServerKey = "CatalogueServer";

[[nodiscard]] bool isServer(const QString& catalogue);
/// Why a URI cannot be taken from a command line or be kept in the settings, which others may read; empty if it can.
[[nodiscard]] QString whyRefused(const QString& uri);

/// "“prices.csv”: 312 entries, up to date"; the age of the copy, and what is wrong, if something is.
[[nodiscard]] QString copyText(const CatalogueCopyState& state, const QDateTime& now);

/// The folder of the copies of servers' catalogues.
[[nodiscard]] QString copiesFolder();

/// Brings the state of a copy from the thread that keeps it.
class CopyWatch : public QObject {
    Q_OBJECT

public:
    CopyWatch();
    ~CopyWatch() override;

    [[nodiscard]] std::function<void(const CatalogueCopyState&)> callback() const;

signals:
    void changed(const orvan::CatalogueCopyState& state);

private:
    struct Link;
    const std::shared_ptr<Link> link_;
};

} // namespace orvan::desk

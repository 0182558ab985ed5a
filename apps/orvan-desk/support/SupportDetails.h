// SupportDetails: what support staff ask first, as one plain text: versions, system, locale, screens, catalogue,
// settings, and the last lines of the trace.
//
// The text is English in every language of the desk, because support staff read it. It has no product, no customer and
// no letterhead: see SupportTrace.h for the trace, and of the letterhead it says only which parts are set. An address
// of a server has no password. What cannot be found out is said in its place. Thread: the user-interface thread.
// Errors: none but those of memory.
#pragma once

#include "apps/orvan-desk/settings/LayeredSettings.h"

#include "orvan/components/catalogue/CatalogueFactory.h"
#include "orvan/components/trace/TraceLog.h"

#include <QString>

#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace orvan::desk {

inline const QString kDetailsOption = QStringLiteral("details");

/// What the text needs to know of the desk.
struct DetailsSource {
    QString catalogue; ///< The file, or the URI of the server.
    /// How the copy of a server's catalogue stands, as far as this process has been told.
    std::optional<CatalogueCopyState> copy = {};
    QString editing; ///< "careful" or "classic".
    std::function<std::vector<ListedSetting>()> settings = {};
    std::filesystem::path ownTrace = defaultTraceFile();
};

/// Reads the catalogue's header, the settings and the logs. A QApplication exists.
[[nodiscard]] QString supportDetails(const DetailsSource& source);

} // namespace orvan::desk

// QuotePdf: a quote as a PDF file. Thread: the user-interface thread.
#pragma once

#include "QuotePainter.h"

#include "orvan/base/UserText.h"

#include <QByteArray>
#include <QPageLayout>
#include <QString>

namespace orvan::desk {

/// Raises 7 where the document cannot be made.
[[nodiscard]] QByteArray quoteToPdf(const PrintedQuote& quote, const QPageLayout& page, PageRange range = {});

/// Writes the file as a whole: if that fails, a file of this name stays as it was. Returns a warning, or an empty
/// text. Raises 75 with the reason.
UserText writePdf(const QString& path, const PrintedQuote& quote, const QPageLayout& page, PageRange range = {});

} // namespace orvan::desk

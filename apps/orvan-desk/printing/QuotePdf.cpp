#include "QuotePdf.h"

#include "QuotePages.h"
#include "apps/orvan-desk/OutsideText.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/files/WholeFile.h"

#include <QBuffer>
#include <QPdfWriter>

namespace orvan::desk {

QByteArray quoteToPdf(const PrintedQuote& quote, const QPageLayout& page, PageRange range)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    bool painted = false;
    {
        QPdfWriter writer(&buffer);
        QPageLayout full = page;
        full.setMode(QPageLayout::FullPageMode);
        writer.setPageLayout(full);
        writer.setResolution(kUnitsPerInch);
        writer.setTitle(quote.runningHead);
        writer.setCreator(QStringLiteral("Orvan Desk"));
        painted = paintPages(writer, quote, layOut(quote, page), range);
    }
    if (!painted || buffer.data().isEmpty()) {
        throw RuntimeError(ErrorNumber::outOfMemory, {}, userText("the document could not be made"));
    }
    return buffer.data();
}

UserText writePdf(const QString& path, const PrintedQuote& quote, const QPageLayout& page, PageRange range)
{
    const QByteArray bytes = quoteToPdf(quote, page, range);
    return files::replaceFile(pathOf(path), {bytes.constData(), static_cast<std::size_t>(bytes.size())}).warning;
}

} // namespace orvan::desk

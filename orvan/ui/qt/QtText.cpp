#include "orvan/ui/qt/QtText.h"

#include <QTextDocument>
#include <Qt>

namespace orvan::qt {

namespace {

/// A tool tip of more characters is given to Qt as markup, because Qt wraps only markup.
constexpr qsizetype kUnwrappedTip = 80;

} // namespace

QString plainCaption(std::string_view caption)
{
    return toQt(caption).replace(QStringLiteral("&&"), QStringLiteral("&"));
}

QString markedCaption(std::string_view caption, char mnemonic)
{
    QString marked = toQt(caption);
    const qsizetype at = mnemonic == 0 ? -1 : marked.indexOf(QLatin1Char(mnemonic));
    if (at >= 0) {
        marked.insert(at, u'&');
    }
    return marked;
}

QString toolTipText(const QString& plain)
{
    if (plain.size() <= kUnwrappedTip && !Qt::mightBeRichText(plain)) {
        return plain;
    }
    return QStringLiteral("<p>") + plain.toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")) +
           QStringLiteral("</p>");
}

} // namespace orvan::qt

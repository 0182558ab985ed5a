#include "ui/qt/QtText.h"

#include <QTextDocument>
#include <Qt>

namespace orvan::qt {

namespace {

/// Longer tips are given as markup, because Qt wraps only those.
constexpr qsizetype kUnwrappedTip = 80;

} // namespace

QString withoutMnemonic(std::string_view caption)
{
    const QString marked = toQt(caption);
    QString plain;
    for (qsizetype at = 0; at < marked.size(); ++at) {
        if (marked[at] == u'&' && ++at == marked.size()) {
            break;
        }
        plain += marked[at];
    }
    return plain;
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

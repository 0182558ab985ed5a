#include "orvan/ui/qt/QtText.h"

#include "orvan/ui/qt/Translation.h"

#include <QTextDocument>
#include <Qt>

#include <algorithm>

namespace orvan::qt {

namespace {

/// A tool tip of more characters is given to Qt as markup, because Qt wraps only markup.
constexpr qsizetype kUnwrappedTip = 80;
/// The most characters and line ends of a text in a message box or a tool tip.
constexpr qsizetype kMostCharacters = 1200;
constexpr qsizetype kMostLineEnds = 24;

} // namespace

QString withoutMnemonic(const QString& caption)
{
    // By hand: compiling regular expressions for it took a part of each start.
    constexpr qsizetype kBehind = 4; // the characters of "(&N)", as captions without Latin letters have it
    QString plain = caption;
    for (qsizetype at = plain.indexOf(u"(&"); at >= 0; at = plain.indexOf(u"(&", at)) {
        if (at + kBehind > plain.size() || plain[at + 2] == u'&' || plain[at + 3] != u')') {
            ++at;
            continue;
        }
        const qsizetype blank = at > 0 && plain[at - 1] == u' ' ? 1 : 0;
        plain.remove(at - blank, kBehind + blank);
        at -= blank;
    }
    for (qsizetype at = plain.indexOf(u'&'); at >= 0 && at + 1 < plain.size(); at = plain.indexOf(u'&', at + 1)) {
        plain.remove(at, 1); // what stands behind it stays, also another '&'
    }
    return plain;
}

QString plainCaption(std::string_view caption, char mnemonic)
{
    return withoutMnemonic(markedCaption(caption, mnemonic));
}

QString markedCaption(std::string_view caption, char mnemonic)
{
    std::string marked(caption);
    if (const std::size_t at = mnemonic == 0 ? marked.npos : marked.find(mnemonic); at != marked.npos) {
        marked.insert(at, 1, '&');
    }
    return translatedSentence(marked);
}

QString boundedText(const QString& text)
{
    qsizetype end = std::min(text.size(), kMostCharacters);
    qsizetype lineEnd = -1;
    for (qsizetype line = 0; line <= kMostLineEnds; ++line) {
        lineEnd = text.indexOf(u'\n', lineEnd + 1);
        if (lineEnd < 0) {
            break;
        }
    }
    end = lineEnd < 0 ? end : std::min(end, lineEnd);
    if (end == text.size()) {
        return text;
    }
    if (text[end].isLowSurrogate()) {
        --end; // so that no character is cut in two
    }
    return text.left(end) + QStringLiteral("…");
}

QString titleText(const QString& plain)
{
    // Qt puts its mark for changes in the place of "[*]". It shows two of them in a row as one "[*]".
    return boundedText(plain).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

QString toolTipText(const QString& text)
{
    QString plain = boundedText(text);
    if (plain.size() <= kUnwrappedTip && !Qt::mightBeRichText(plain)) {
        return plain;
    }
    return QStringLiteral("<p>") + plain.toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")) +
           QStringLiteral("</p>");
}

} // namespace orvan::qt

// QtText: the conversions between the library's UTF-8 text and Qt's strings.
//
// Thread: any.
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace orvan::qt {

/// Bytes that are not UTF-8 become replacement characters.
inline QString toQt(std::string_view text)
{
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    const QString read = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    // Qt drops a byte order mark at the start, so it is added again.
    return text.substr(0, kMark.size()) == kMark ? QChar(QChar::ByteOrderMark) + read : read;
}

inline std::string fromQt(const QString& text)
{
    return text.toStdString();
}

/// A design's caption as the user reads it: "&&" becomes one ampersand.
QString plainCaption(std::string_view caption);

/// A design's caption as Qt needs it: with '&' before the first character that equals the mnemonic, case included.
QString markedCaption(std::string_view caption, char mnemonic);

/// Text for a tool tip, changed so that Qt never takes the text itself for markup.
QString toolTipText(const QString& plain);

} // namespace orvan::qt

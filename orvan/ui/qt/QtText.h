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
    return text.substr(0, kMark.size()) == kMark ? QChar(QChar::ByteOrderMark) + read : read; // Qt drops a leading one
}

inline std::string fromQt(const QString& text)
{
    return text.toStdString();
}

/// A design's caption as it reads: "&&" as one ampersand.
QString plainCaption(std::string_view caption);

/// A design's caption as Qt takes it: '&' before the first character that is the mnemonic, in that case.
QString markedCaption(std::string_view caption, char mnemonic);

/// Text for a tool tip. Qt would read a text that looks like markup as such.
QString toolTipText(const QString& plain);

} // namespace orvan::qt

// QtText: the one crossing between the library's UTF-8 text and Qt's strings.
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
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string fromQt(const QString& text)
{
    return text.toStdString();
}

/// A design's caption as it reads: the mnemonic's '&' dropped, "&&" as one ampersand.
QString withoutMnemonic(std::string_view caption);

/// Text for a tool tip, which Qt would else read as markup wherever it looks like some.
QString toolTipText(const QString& plain);

} // namespace orvan::qt

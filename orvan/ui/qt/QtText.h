// QtText: the conversions between the library's UTF-8 text and Qt's strings.
//
// Thread: any.
#pragma once

#include "orvan/qt_export.h"

#include <QString>

#include <filesystem>
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

inline std::filesystem::path pathOf(const QString& name)
{
    return std::filesystem::path(name.toStdU16String());
}

/// A caption of Qt's without its mark of a mnemonic: "Save && &Close" gives "Save & Close". A mark that stands behind
/// the text, as in "حفظ (&ح)", goes with its brackets.
ORVAN_QT_INTERNAL QString withoutMnemonic(const QString& caption);

/// A design's caption as Qt needs it, translated: with '&' before the first character that equals the mnemonic, case
/// included. The marked caption is the key of its translation, which has an '&' of its own.
QString markedCaption(std::string_view caption, char mnemonic);

/// A design's caption as the user reads it, translated and without the mark of a mnemonic: "&&" becomes one ampersand.
ORVAN_QT_INTERNAL QString plainCaption(std::string_view caption, char mnemonic = 0);

/// The beginning of a text, short enough for a message box or a tool tip that fits on a screen. A text that comes from
/// a file may have a megabyte.
ORVAN_QT_INTERNAL QString boundedText(const QString& text);

/// Text for a window's title, changed so that Qt never takes a "[*]" in it for the place of its own mark.
ORVAN_QT_INTERNAL QString titleText(const QString& plain);

/// Text for a tool tip, bounded, and changed so that Qt never takes the text itself for markup.
ORVAN_QT_INTERNAL QString toolTipText(const QString& text);

} // namespace orvan::qt

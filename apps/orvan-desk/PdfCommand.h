// PdfCommand: orvan-desk --pdf and --csv, which write a quote into a file without a window.
//
// Thread: the user-interface thread. Errors: QuoteFileError for the quote, RuntimeError for the rest.
#pragma once

#include <QString>
#include <QStringList>

namespace orvan::desk {

inline const QString kPdfOption = QStringLiteral("pdf"), kCsvOption = QStringLiteral("csv");

/// To be called before there is a QApplication: where the command line asks for such a file, no display is used, even
/// if there is one, so that a script that runs without a user gets the same file. QT_QPA_PLATFORM is left as it is.
void needNoDisplayForFiles(int argc, char** argv);

/// Prints the quote with the user's settings. Returns what the user should know, such as a logo that is missing.
[[nodiscard]] QStringList convertToPdf(const QString& quoteFile, const QString& pdfFile);

/// Writes the lines of the quote for a spreadsheet (exchange/LineFiles.h). Returns what the user should know.
[[nodiscard]] QStringList convertToCsv(const QString& quoteFile, const QString& csvFile);

/// The file of a sample that comes with the desk.
[[nodiscard]] QString sampleFile(const QString& name);

} // namespace orvan::desk

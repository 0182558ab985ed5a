// PdfCommand: orvan-desk --pdf, which prints a quote into a file without a window.
//
// Thread: the user-interface thread. Errors: QuoteFileError for the quote, RuntimeError for the rest.
#pragma once

#include <QString>
#include <QStringList>

namespace orvan::desk {

inline const QString kPdfOption = QStringLiteral("pdf");

/// To be called before there is a QApplication: where the command line asks for a PDF file, no display is used, even if
/// there is one, so that a script that runs without a user gets the same file. QT_QPA_PLATFORM is left as it is.
void needNoDisplayForPdf(int argc, char** argv);

/// Prints the quote with the user's settings. Returns what the user should know, such as a logo that is missing.
[[nodiscard]] QStringList convertToPdf(const QString& quoteFile, const QString& pdfFile);

/// The file of a sample that comes with the desk.
[[nodiscard]] QString sampleFile(const QString& name);

} // namespace orvan::desk

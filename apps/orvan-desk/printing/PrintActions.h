// PrintActions: the entries of the File menu that print the quote.
//
// Thread: the user-interface thread.
#pragma once

#ifndef Q_MOC_RUN // the meta-object compiler cannot read the standard library's concepts
#include "PrintedQuote.h"
#endif

#include <QObject>

#include <functional>

class QMenu;
class QWidget;

namespace orvan::ui {
class Platform;
}

namespace orvan::desk {

struct ChosenPrinter;

class PrintActions : public QObject {
    Q_OBJECT

public:
    using CurrentQuote = std::function<Quote()>;
    using Tell = std::function<void(const QString& what, const QString& why)>;

    /// The platform keeps the settings, and its locale writes money in the quote's currency.
    PrintActions(QMenu* menu, QWidget* window, ui::Platform& platform, CurrentQuote quote, Tell tell);

    /// Writes the quote into a PDF file. A message box tells the user of an error.
    bool exportTo(const QString& path);

private:
    void setUpPage();
    void chooseLetterhead();
    void preview();
    void print();
    void exportAsPdf();

    /// The user's choices. A message box tells what is wrong with them, or missing on the paper.
    PrintOptions options();
    void keep(const PrintOptions& options);
    PrintedQuote printedQuote(const PrintOptions& options);
    /// Paints on a printer, or on the pages of a preview. A PDF file, which the print dialog offers, is written as
    /// exportTo writes it.
    void printOn(const ChosenPrinter& printer, const PrintedQuote& quote);
    /// Runs a command of the user. A message box tells of an error.
    void run(const QString& what, const std::function<void()>& work);

    QWidget* const window_;
    ui::Platform& platform_;
    const CurrentQuote quote_;
    const Tell tell_;
};

} // namespace orvan::desk

// ImportDialog: shows what was understood of a file of lines, before any of it reaches the quote.
//
// The user can say how the file is written and which column has what, and sees the first lines as they would be
// imported, the lines that cannot be, and why. While a single line is refused, or the lines do not fit into the quote,
// nothing can be imported. Thread: the user-interface thread. Errors: the constructor raises what readLines raises.
#pragma once

#ifndef Q_MOC_RUN // the meta-object compiler cannot read the standard library's concepts
#include "LineFiles.h"
#endif

#include <QDialog>

#include <functional>
#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace orvan::desk {

/// A file to import from, and how it is read at first.
struct ImportedFile {
    QString name;
    std::string bytes;
    LineReading reading = {};
};

class ImportDialog : public QDialog {
    Q_OBJECT

public:
    /// Why these lines cannot be imported; empty if they can.
    using WhyNot = std::function<QString(const std::vector<ProductValues>& lines, bool replace)>;

    /// `rules` must outlive the dialog.
    ImportDialog(ImportedFile file, const ProductRecord& rules, WhyNot whyNot, QWidget* parent);

    [[nodiscard]] const std::vector<ProductValues>& lines() const { return read_.lines; }
    /// Whether the lines take the place of those that the quote has.
    [[nodiscard]] bool replaces() const;

private:
    QLayout* makeChoices();
    /// Reads the file anew, as the user has chosen.
    void read();
    void showChoices();
    void showTable();
    QComboBox* makeFieldChoice(int column);
    void chooseField(int column, int choice);
    /// Says what would be imported, or why nothing can be.
    void judge();

    const ImportedFile file_;
    const ProductRecord& rules_;
    const WhyNot whyNot_;
    LineReading how_;
    LinesRead read_;
    QString failure_; ///< Why the file cannot be read at all in the chosen way.
    QComboBox* delimiter_ = nullptr;
    QComboBox* decimal_ = nullptr;
    QCheckBox* header_ = nullptr;
    QTableWidget* table_ = nullptr;
    QPlainTextEdit* problems_ = nullptr;
    QRadioButton* append_ = nullptr;
    QRadioButton* replace_ = nullptr;
    QLabel* summary_ = nullptr;
    QPushButton* import_ = nullptr;
};

} // namespace orvan::desk

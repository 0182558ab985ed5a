// PriceListDialog: shows how a price list is understood, before it replaces the catalogue.
//
// The user can say how the list is written and which column has what, and sees its first rows, how many products would
// come in, and which rows would not and why. What the user has said is kept for lists of the same shape
// (KeptChoices.h). Thread: the user-interface thread. Errors: the constructor raises what previewList raises.
#pragma once

#ifndef Q_MOC_RUN // the meta-object compiler cannot read the standard library's concepts
#include "orvan/components/catalogue/lists/ListPreview.h"
#endif

#include <QDialog>

#include <filesystem>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QGridLayout;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;
class QTableWidget;

namespace orvan::desk {

class PriceListDialog : public QDialog {
    Q_OBJECT

public:
    PriceListDialog(const QString& list, QWidget* parent);

    /// How the list is to be read: exactly as the dialog shows it.
    [[nodiscard]] CatalogueImportOptions options() const;

private:
    void makeWidgets();
    QLayout* makeChoices();
    void addChoice(QGridLayout& grid, const QString& caption, QWidget* box, int at);
    void connectChoices();
    [[nodiscard]] ListPreview preview(const CatalogueImportOptions& options) const;
    /// Reads the list anew, as the user has chosen.
    void read();
    void showAll();
    void showChoices();
    void showTable();
    void showRow(int row, const PreviewedRow& shown);
    QComboBox* makeColumnChoice(int column);
    void chooseColumn(int column, int choice);
    /// Says what would be imported, or why nothing can be.
    void judge();
    [[nodiscard]] QString problem() const;
    [[nodiscard]] QString summary() const;

    const std::filesystem::path file_;
    QString shape_;
    CatalogueImportOptions chosen_; ///< What the user has said, and nothing else.
    ListPreview read_;
    QString failure_; ///< Why the list cannot be read at all in the chosen way.
    QComboBox* encoding_ = nullptr;
    QComboBox* sheet_ = nullptr;
    QComboBox* delimiter_ = nullptr;
    QComboBox* decimal_ = nullptr;
    QSpinBox* headerLine_ = nullptr;
    QSpinBox* firstLine_ = nullptr;
    QTableWidget* table_ = nullptr;
    QPlainTextEdit* problems_ = nullptr;
    QCheckBox* skip_ = nullptr;
    QLabel* summary_ = nullptr;
    QPushButton* import_ = nullptr;
};

} // namespace orvan::desk

// LetterheadDialog: asks for the seller's name, address and logo, the closing text, the columns and the tax of a
// printed quote.
//
// Thread: the user-interface thread.
#pragma once

#ifndef Q_MOC_RUN // the meta-object compiler cannot read the standard library's concepts
#include "PrintOptions.h"

#include "orvan/ui/LocaleService.h"
#endif

#include <QDialog>

#include <map>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace orvan::desk {

class LetterheadDialog : public QDialog {
    Q_OBJECT

public:
    /// The tax rate is written in the user's format.
    LetterheadDialog(const PrintOptions& options, ui::LocaleService& locale, QWidget* window);

    /// The options as the dialog shows them; valid once it was accepted.
    [[nodiscard]] const PrintOptions& options() const { return options_; }

    void accept() override;

private:
    QWidget* makeLogo();
    QWidget* makeColumns();
    QWidget* makeTax();
    void chooseLogo();
    void showLogoState();
    /// Returns false if the text is no rate.
    [[nodiscard]] bool readTaxRate(Currency& rate) const;

    PrintOptions options_;
    ui::LocaleService& locale_;
    QLineEdit* sellerName_;
    QPlainTextEdit* sellerAddress_;
    QLineEdit* logoFile_;
    QLabel* logoState_;
    QPlainTextEdit* closingText_;
    std::map<PrintColumn, QCheckBox*> columns_;
    QCheckBox* showTax_;
    QLineEdit* taxRate_;
    QLabel* taxProblem_;
};

} // namespace orvan::desk

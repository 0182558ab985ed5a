// ExplainDialog: a window that shows how a product's price and the quote's total came about.
//
// The list has the steps with their exact values; below it stand sentences that say what a salesperson is asked: why
// the prices do not add up, and which price is not what it should be. All of it can be copied as a text with tabs,
// which a spreadsheet takes apart. Thread: the user-interface thread.
#pragma once

#ifndef Q_MOC_RUN // the meta-object compiler cannot read the standard library's concepts
#include "orvan/core/Explanation.h"
#include "orvan/ui/LocaleService.h"
#endif

#include <QDialog>
#include <QString>

#include <cstdint>
#include <optional>

class QTreeWidget;
class QTreeWidgetItem;

namespace orvan::desk {

/// What is explained.
struct ExplainedQuote {
    std::int32_t position = 0; ///< Of the product, from 1 on; 0 if none is chosen.
    QString name;              ///< Of that product.
    PriceExplanation price;    ///< Of that product.
    TotalExplanation total;
};

class ExplainDialog : public QDialog {
    Q_OBJECT

public:
    /// `money` writes amounts as the list shows them; it is used only here.
    ExplainDialog(const ExplainedQuote& quote, ui::LocaleService& money, QWidget* parent);

    /// The whole window as a text: a line for each row of the list, its cells apart by tabs, and the sentences.
    [[nodiscard]] QString text() const;

private:
    QTreeWidget* const list_;
    QStringList sentences_;
};

} // namespace orvan::desk

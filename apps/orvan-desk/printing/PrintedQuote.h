// PrintedQuote: all texts of a printed quote, in the user's language and formats. It knows nothing of pages.
//
// Thread: any. Errors: makePrintedQuote raises what ProductsReader raises, and 6 where the sum is beyond the range.
#pragma once

#include "PrintOptions.h"
#include "PrintTexts.h"
#include "apps/orvan-desk/QuoteFile.h"

#include "orvan/ui/LocaleService.h"

#include <QImage>

#include <vector>

namespace orvan::desk {

struct PrintedColumn {
    PrintColumn kind = PrintColumn::name;
    QString caption;
    /// Numbers are aligned right, also where the writing runs from right to left, so that digits of the same value
    /// stand below each other.
    bool isNumber = false;
};

struct PrintedLine {
    std::vector<QString> cells; ///< One for each column.
    QString note;               ///< Printed below the name.
};

struct PrintedPair {
    QString label, text;
};

struct PrintedQuote {
    PrintTexts texts;
    bool rightToLeft = false; ///< The columns run from right to left.
    QString sellerName, sellerAddress, closingText;
    QImage logo;
    std::vector<PrintedPair> facts; ///< Customer, number, date, currency.
    QString runningHead;            ///< The top line of each page but the first one.
    std::vector<PrintedColumn> columns;
    std::vector<PrintedLine> lines;
    std::vector<PrintedPair> totals; ///< The last one is what the customer pays.
    QString note;                    ///< Below the totals; that they do not add up as printed. Usually empty.
    QStringList problems;            ///< What is missing on the paper, such as a logo that cannot be read.
};

/// The locale service writes money in the quote's currency.
[[nodiscard]] PrintedQuote makePrintedQuote(const Quote& quote, const PrintOptions& options, ui::LocaleService& money,
                                            const QLocale& locale);

/// A tax on a net amount. It is rounded once, to amounts of `digits` decimals, half away from zero; gross is the exact
/// sum. Raises 6 beyond the range.
struct TaxedAmount {
    Currency net, tax, gross;
};
[[nodiscard]] TaxedAmount taxed(Currency net, Currency rate, int digits);

} // namespace orvan::desk

// PrintTexts: the words on a printed quote, in the user's language. Thread: any.
#pragma once

#include <QLocale>
#include <QString>

namespace orvan::desk {

struct PrintTexts {
    QString quote, customer, number, date, currency;
    QString position, partNumber, product, quantity, unitPrice, discount, extendedPrice;
    QString total, net, tax; ///< tax: %1 stands for the rate
    QString page;            ///< %1 and %2 stand for the page and the number of pages
    QString rounded;         ///< The note that amounts are rounded for display.
};

/// English for a language that the desk does not have.
[[nodiscard]] PrintTexts printTexts(const QLocale& locale);

} // namespace orvan::desk

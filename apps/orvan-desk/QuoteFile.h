// A quote on disk: JSON with the products string inside.
//
//     {"format": "orvan-desk-quote", "version": 1, "customer": "...", "number": "...",
//      "date": "2026-11-20", "products": "..."}
#pragma once

#include <QDate>
#include <QString>

#include <functional>
#include <stdexcept>
#include <string>

namespace orvan::desk {

struct Quote {
    QString customer;
    QString number;
    QDate date;
    std::string products; ///< The string that ProductViewWidget::Products returns.

    bool operator==(const Quote&) const = default;
};

/// what() returns one message for the user (UTF-8), which says what is wrong and where.
class QuoteFileError : public std::runtime_error {
public:
    explicit QuoteFileError(const QString& message) : std::runtime_error(message.toStdString()) {}
};

/// Raises an error with the reason if the products string cannot be read.
using CheckProducts = std::function<void(const std::string& products)>;

/// Raises QuoteFileError for a file that cannot be read or is damaged, its products included.
Quote readQuote(const QString& path, const CheckProducts& checkProducts);
/// Writes the quote into a file. The earlier file stays until the new one is complete. Raises QuoteFileError.
void writeQuote(const QString& path, const Quote& quote);

} // namespace orvan::desk

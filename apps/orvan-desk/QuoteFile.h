// A quote on disk: JSON with the products string inside.
//
//     {"format": "orvan-desk-quote", "version": 1, "customer": "...", "number": "...",
//      "date": "2026-11-20", "currency": "USD", "products": "..."}
//
// Files of earlier desks have no currency. Members that this desk does not know are kept and written back, so that a
// newer desk or another program finds its own again. Thread: any. Errors: QuoteFileError.
#pragma once

#include "orvan/base/RuntimeError.h"
#include "orvan/files/WholeFile.h"

#include <QDate>
#include <QJsonObject>
#include <QString>

#include <functional>
#include <string>

namespace orvan::desk {

/// A larger file is not read: it cannot be a quote, and would fill the memory.
inline constexpr std::int64_t kMostQuoteBytes = 256LL * 1024 * 1024;

struct Quote {
    QString customer;
    QString number;
    QDate date;
    std::string products;     ///< As ProductViewWidget::Products gives it.
    QString currency = {};    ///< ISO 4217 code; empty where the file has none.
    QJsonObject unknown = {}; ///< Members of the file that this desk does not know.

    bool operator==(const Quote&) const = default;
};

/// Says in one sentence for the user what is wrong with a file, and where.
class QuoteFileError : public RuntimeError {
public:
    explicit QuoteFileError(const UserText& message) : RuntimeError(ErrorNumber::invalidFileFormat, {}, message) {}
};

/// Raises when a products string cannot be read, with the reason.
using CheckProducts = std::function<void(const std::string& products)>;

struct QuoteOnDisk {
    Quote quote;
    files::FileStamp stamp; ///< Tells later whether another program has changed the file.
};

/// Raises for a file that cannot be read or is damaged, its products included.
[[nodiscard]] QuoteOnDisk readQuote(const QString& path, const CheckProducts& checkProducts);

/// All or nothing: the earlier file stays until the new one is on the disk.
[[nodiscard]] files::ReplacedFile writeQuote(const QString& path, const Quote& quote);

/// The object of a file of the desk's, of that format and version.
[[nodiscard]] QJsonObject parseDeskFile(const QByteArray& bytes, const QString& format, int version);
[[nodiscard]] QJsonObject quoteToJson(const Quote& quote);
[[nodiscard]] Quote quoteFromJson(const QJsonObject& object);
/// A quote file's bytes.
[[nodiscard]] QByteArray quoteToBytes(const Quote& quote);
[[nodiscard]] Quote quoteFromBytes(const QByteArray& bytes);

} // namespace orvan::desk

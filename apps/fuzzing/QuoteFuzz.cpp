// Quote files: the input is read as a file, and its lines are taken for the texts of a quote. What was read is written
// and read again.

#include "apps/fuzzing/FuzzTarget.h"
#include "apps/orvan-desk/QuoteFile.h"

#include <QJsonDocument>

namespace orvan::fuzz {
namespace {

using desk::Quote;

void checkFile(const QByteArray& bytes)
{
    try {
        const Quote quote = desk::quoteFromBytes(bytes);
        const QByteArray written = desk::quoteToBytes(quote);
        require(desk::quoteFromBytes(written) == quote, "what was read from a file is written and read again");
        const QJsonObject object = QJsonDocument::fromJson(bytes).object();
        require(object[u"date"].toString() == quote.date.toString(Qt::ISODate),
                "the text of the date holds the date alone");
        require(object[u"products"].toString().toUtf8().toStdString() == quote.products, "the products are kept");
    } catch (const desk::QuoteFileError& error) {
        require(*error.what() != '\0', "the user is told what is wrong");
    }
}

QString textOf(std::string_view line)
{
    return QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size()));
}

void checkTexts(std::string_view input)
{
    const QDate date(2026, 11, 1 + static_cast<int>(input.size() % 30));
    Quote quote{.customer = textOf(takeLine(input)), .number = textOf(takeLine(input)), .date = date, .products = {}};
    quote.products = input;
    QByteArray written;
    try {
        written = desk::quoteToBytes(quote);
    } catch (const desk::QuoteFileError& error) {
        require(QString::fromStdString(quote.products).toStdString() != quote.products, "any valid text is written");
        return;
    }
    require(desk::quoteFromBytes(written) == quote, "what the desk has written is read again");
}

} // namespace

void runTarget(std::string_view input)
{
    checkFile(QByteArray(input.data(), static_cast<qsizetype>(input.size())));
    checkTexts(input);
}

} // namespace orvan::fuzz

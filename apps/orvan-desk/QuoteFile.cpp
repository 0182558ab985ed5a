#include "QuoteFile.h"

#include "OutsideText.h"

#include "orvan/base/RuntimeError.h"

#include <QFile>
#include <QJsonDocument>

#include <algorithm>

namespace orvan::desk {

namespace {

constexpr int kVersion = 1;
const QString kFormat = QStringLiteral("orvan-desk-quote");
const QString kFormatName = QStringLiteral("format");
const QString kVersionName = QStringLiteral("version");
const QString kCustomerName = QStringLiteral("customer");
const QString kNumberName = QStringLiteral("number");
const QString kDateName = QStringLiteral("date");
const QString kCurrencyName = QStringLiteral("currency");
const QString kProductsName = QStringLiteral("products");

/// "line 3, column 14" of a byte offset, both from 1.
UserText placeOf(const QByteArray& text, qsizetype offset)
{
    const QByteArray readSoFar = text.left(offset);
    const auto line = readSoFar.count('\n') + 1;
    const auto column = offset - (readSoFar.lastIndexOf('\n') + 1) + 1;
    return userText("line %1, column %2", line, column);
}

QString textOf(const QJsonObject& object, const QString& name)
{
    const QJsonValue value = object[name];
    if (!value.isString()) {
        throw QuoteFileError(value.isUndefined() ? userText("It is damaged: \"%1\" is missing.", qt::fromQt(name))
                                                 : userText("It is damaged: \"%1\" is not a text.", qt::fromQt(name)));
    }
    // Half of a character that JSON writes as two: it has no UTF-8 form and would come back as a question mark.
    if (!value.toString().isValidUtf16()) {
        throw QuoteFileError(userText("It is damaged: \"%1\" holds half a character.", qt::fromQt(name)));
    }
    return value.toString();
}

QDate dateOf(const QJsonObject& object)
{
    const QString text = textOf(object, kDateName);
    const QDate date = QDate::fromString(text, Qt::ISODate);
    // Qt also reads a date with more text behind it, such as a time; saving the quote would lose that text.
    if (date.toString(Qt::ISODate) != text || !date.isValid()) {
        throw QuoteFileError(userText("It is damaged: \"%1\" is not a date.", qt::fromQt(shortened(text))));
    }
    return date;
}

/// The code of the quote's currency; empty where the file has none.
QString currencyOf(const QJsonObject& object)
{
    if (!object.contains(kCurrencyName)) {
        return {};
    }
    QString code = textOf(object, kCurrencyName);
    const bool capitals = std::all_of(code.cbegin(), code.cend(), [](QChar c) { return c >= u'A' && c <= u'Z'; });
    if (code.size() != 3 || !capitals) {
        throw QuoteFileError(
            userText("It is damaged: \"%1\" is not the code of a currency, which is three capital letters: \"%2\".",
                     qt::fromQt(kCurrencyName), qt::fromQt(shortened(code))));
    }
    return code;
}

/// JSON holds Unicode text only: bytes that are none would come back as other characters.
QString losslessText(const std::string& text)
{
    QString converted = QString::fromStdString(text);
    if (converted.toStdString() != text) {
        throw QuoteFileError(userText("A product holds characters that are not valid text."));
    }
    return converted;
}

/// A sample of the desk's own is part of the program; everything else is a file of the system's.
files::WholeFile bytesOf(const QString& path)
{
    if (path.startsWith(u':')) {
        QFile resource(path);
        if (!resource.open(QIODevice::ReadOnly)) {
            throw QuoteFileError(userText("It cannot be opened: %1.", qt::fromQt(resource.errorString())));
        }
        return {.bytes = resource.readAll().toStdString(), .stamp = {}};
    }
    try {
        return files::readFile(pathOf(path), kMostQuoteBytes);
    } catch (const RuntimeError& error) {
        throw QuoteFileError(userText("It cannot be opened: %1.", error.userText()));
    }
}

} // namespace

QJsonObject parseDeskFile(const QByteArray& bytes, const QString& format, int version)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        throw QuoteFileError(
            userText("It is damaged at %1: %2.", placeOf(bytes, error.offset), qt::fromQt(error.errorString())));
    }
    if (!document.isObject() || document[kFormatName].toString() != format) {
        throw QuoteFileError(userText("It is not a quote file."));
    }
    if (document[kVersionName].toInt() != version) {
        throw QuoteFileError(userText("It was written by another version of the desk (%1).",
                                      qt::fromQt(shortened(document[kVersionName].toVariant().toString()))));
    }
    return document.object();
}

QJsonObject quoteToJson(const Quote& quote)
{
    QJsonObject object = quote.unknown;
    object[kFormatName] = kFormat;
    object[kVersionName] = kVersion;
    object[kCustomerName] = quote.customer;
    object[kNumberName] = quote.number;
    object[kDateName] = quote.date.toString(Qt::ISODate);
    if (!quote.currency.isEmpty()) {
        object[kCurrencyName] = quote.currency;
    }
    object[kProductsName] = losslessText(quote.products);
    return object;
}

Quote quoteFromJson(const QJsonObject& object)
{
    Quote quote{.customer = textOf(object, kCustomerName),
                .number = textOf(object, kNumberName),
                .date = dateOf(object),
                .products = textOf(object, kProductsName).toStdString(),
                .currency = currencyOf(object),
                .unknown = object};
    for (const QString& known :
         {kFormatName, kVersionName, kCustomerName, kNumberName, kDateName, kCurrencyName, kProductsName}) {
        quote.unknown.remove(known);
    }
    return quote;
}

QByteArray quoteToBytes(const Quote& quote)
{
    return QJsonDocument(quoteToJson(quote)).toJson();
}

Quote quoteFromBytes(const QByteArray& bytes)
{
    return quoteFromJson(parseDeskFile(bytes, kFormat, kVersion));
}

QuoteOnDisk readQuote(const QString& path, const CheckProducts& checkProducts)
{
    const files::WholeFile file = bytesOf(path);
    const QByteArray bytes = QByteArray::fromRawData(file.bytes.data(), static_cast<qsizetype>(file.bytes.size()));
    const Quote quote = quoteFromBytes(bytes);
    try {
        checkProducts(quote.products);
    } catch (...) {
        throw QuoteFileError(userText("Its products cannot be read. %1.", currentError().userText()));
    }
    return {.quote = quote, .stamp = file.stamp};
}

files::ReplacedFile writeQuote(const QString& path, const Quote& quote)
{
    const QByteArray bytes = quoteToBytes(quote);
    try {
        return files::replaceFile(pathOf(path), {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    } catch (const RuntimeError& error) {
        throw QuoteFileError(userText("It cannot be written: %1.", error.userText()));
    }
}

} // namespace orvan::desk

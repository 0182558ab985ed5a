#include "QuoteFile.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace orvan::desk {

namespace {

constexpr int kVersion = 1;
const QString kFormat = QStringLiteral("orvan-desk-quote");

/// The place of a byte in the file as a text: "line 3, column 14". Both count from 1.
QString placeOf(const QByteArray& text, qsizetype offset)
{
    const QByteArray before = text.left(offset);
    const auto line = before.count('\n') + 1;
    const auto column = offset - (before.lastIndexOf('\n') + 1) + 1;
    return QStringLiteral("line %1, column %2").arg(line).arg(column);
}

QJsonObject parseObject(const QByteArray& bytes)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        throw QuoteFileError(
            QStringLiteral("It is damaged at %1: %2.").arg(placeOf(bytes, error.offset), error.errorString()));
    }
    if (!document.isObject() || document[u"format"].toString() != kFormat) {
        throw QuoteFileError(QStringLiteral("It is not a quote file."));
    }
    if (document[u"version"].toInt() != kVersion) {
        throw QuoteFileError(QStringLiteral("It was written by another version of the desk (%1).")
                                 .arg(document[u"version"].toVariant().toString()));
    }
    return document.object();
}

QString textOf(const QJsonObject& object, const QString& name)
{
    const QJsonValue value = object[name];
    if (!value.isString()) {
        throw QuoteFileError(
            QStringLiteral("It is damaged: \"%1\" is %2.")
                .arg(name, value.isUndefined() ? QStringLiteral("missing") : QStringLiteral("not a text")));
    }
    return value.toString();
}

QDate dateOf(const QJsonObject& object)
{
    const QString text = textOf(object, QStringLiteral("date"));
    const QDate date = QDate::fromString(text, Qt::ISODate);
    if (!date.isValid()) {
        throw QuoteFileError(QStringLiteral("It is damaged: \"%1\" is not a date.").arg(text));
    }
    return date;
}

QByteArray readAll(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw QuoteFileError(QStringLiteral("It cannot be opened: %1.").arg(file.errorString()));
    }
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        throw QuoteFileError(QStringLiteral("It cannot be read: %1.").arg(file.errorString()));
    }
    return bytes;
}

/// Raises an error for bytes that are not UTF-8: JSON holds Unicode text only, so they would be read back as others.
QString losslessText(const std::string& text)
{
    QString converted = QString::fromStdString(text);
    if (converted.toStdString() != text) {
        throw QuoteFileError(QStringLiteral("A product holds characters that are not valid text."));
    }
    return converted;
}

} // namespace

Quote readQuote(const QString& path, const CheckProducts& checkProducts)
{
    const QJsonObject object = parseObject(readAll(path));
    Quote quote{.customer = textOf(object, QStringLiteral("customer")),
                .number = textOf(object, QStringLiteral("number")),
                .date = dateOf(object),
                .products = textOf(object, QStringLiteral("products")).toStdString()};
    try {
        checkProducts(quote.products);
    } catch (const std::exception& error) {
        throw QuoteFileError(QStringLiteral("Its products cannot be read. %1.").arg(QString::fromUtf8(error.what())));
    }
    return quote;
}

void writeQuote(const QString& path, const Quote& quote)
{
    const QJsonObject object{{QStringLiteral("format"), kFormat},
                             {QStringLiteral("version"), kVersion},
                             {QStringLiteral("customer"), quote.customer},
                             {QStringLiteral("number"), quote.number},
                             {QStringLiteral("date"), quote.date.toString(Qt::ISODate)},
                             {QStringLiteral("products"), losslessText(quote.products)}};
    QSaveFile file(path);
    const QByteArray bytes = QJsonDocument(object).toJson();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        throw QuoteFileError(QStringLiteral("It cannot be written: %1.").arg(file.errorString()));
    }
}

} // namespace orvan::desk

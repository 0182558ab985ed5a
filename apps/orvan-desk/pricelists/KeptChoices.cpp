#include "KeptChoices.h"

#include "apps/orvan-desk/DeskSettings.h"

#include <QCryptographicHash>
#include <QJsonObject>

#include <utility>

namespace orvan::desk {

namespace {

constexpr std::string_view kKey = "PriceLists";
constexpr qsizetype kMostKept = 50; // shapes; the one that was used longest ago is forgotten

using Names = CatalogueImportOptions::ColumnNames;
constexpr std::pair<const char*, std::string Names::*> kColumns[] = {
    {"itemId", &Names::itemId},       {"name", &Names::name}, {"key", &Names::key},        {"partNum", &Names::partNum},
    {"unitPrice", &Names::unitPrice}, {"note", &Names::note}, {"barcode", &Names::barcode}};
constexpr std::pair<const char*, std::string CatalogueImportOptions::*> kTexts[] = {
    {"encoding", &CatalogueImportOptions::encoding}, {"sheet", &CatalogueImportOptions::sheet}};
constexpr std::pair<const char*, char CatalogueImportOptions::*> kCharacters[] = {
    {"delimiter", &CatalogueImportOptions::delimiter}, {"decimal", &CatalogueImportOptions::decimalSeparator}};

/// Only what was chosen.
QJsonObject toJson(const CatalogueImportOptions& choices)
{
    QJsonObject json;
    const auto put = [&json](const char* name, const std::string& value) {
        if (!value.empty()) {
            json[QLatin1String(name)] = QString::fromStdString(value);
        }
    };
    for (const auto& [name, column] : kColumns) {
        put(name, choices.columns.*column);
    }
    for (const auto& [name, text] : kTexts) {
        put(name, choices.*text);
    }
    for (const auto& [name, character] : kCharacters) {
        put(name, choices.*character == 0 ? std::string() : std::string(1, choices.*character));
    }
    if (choices.headerLine) {
        json[QStringLiteral("headerLine")] = static_cast<qint64>(*choices.headerLine);
    }
    if (choices.firstLine != 0) {
        json[QStringLiteral("firstLine")] = static_cast<qint64>(choices.firstLine);
    }
    return json;
}

CatalogueImportOptions fromJson(const QJsonObject& json)
{
    CatalogueImportOptions choices;
    const auto text = [&json](const char* name) { return json[QLatin1String(name)].toString().toStdString(); };
    for (const auto& [name, column] : kColumns) {
        choices.columns.*column = text(name);
    }
    for (const auto& [name, member] : kTexts) {
        choices.*member = text(name);
    }
    for (const auto& [name, character] : kCharacters) {
        choices.*character = text(name).empty() ? '\0' : text(name).front();
    }
    if (const QJsonValue line = json[QStringLiteral("headerLine")]; line.isDouble() && line.toInteger() >= 0) {
        choices.headerLine = static_cast<std::uint64_t>(line.toInteger());
    }
    choices.firstLine = static_cast<std::uint64_t>(std::max<qint64>(json[QStringLiteral("firstLine")].toInteger(), 0));
    return choices;
}

} // namespace

QString shapeOf(const std::vector<std::string>& header)
{
    QByteArray names;
    for (const std::string& name : header) {
        names.append(QString::fromStdString(name).trimmed().toLower().toUtf8()).append('\x1F');
    }
    // A hash, because a header may be long, and the settings are read at each start.
    return header.empty() ? QString()
                          : QString::fromLatin1(QCryptographicHash::hash(names, QCryptographicHash::Sha256).toHex());
}

CatalogueImportOptions keptChoices(const QString& shape)
{
    for (const auto& each : keptList(kKey)) {
        if (!shape.isEmpty() && each[QStringLiteral("shape")].toString() == shape) {
            return fromJson(each[QStringLiteral("choices")].toObject());
        }
    }
    return {};
}

void keepChoices(const QString& shape, const CatalogueImportOptions& choices)
{
    if (shape.isEmpty()) {
        return;
    }
    const QJsonArray former = keptList(kKey);
    QJsonArray list;
    if (const QJsonObject chosen = toJson(choices); !chosen.isEmpty()) {
        list.append(QJsonObject{{QStringLiteral("shape"), shape}, {QStringLiteral("choices"), chosen}});
    }
    for (const auto& each : former) {
        if (each[QStringLiteral("shape")].toString() != shape && list.size() < kMostKept) {
            list.append(each);
        }
    }
    if (list != former) {
        keepList(kKey, list);
    }
}

} // namespace orvan::desk

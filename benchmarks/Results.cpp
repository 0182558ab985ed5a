#include "benchmarks/Results.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <array>
#include <iterator>
#include <stdexcept>

namespace orvan::bench {

namespace {

constexpr std::array kUnits = {"nanoseconds", "bytes", "count"};

template <class Enumeration, std::size_t count>
Enumeration named(const QJsonValue& value, const std::array<const char*, count>& names)
{
    const std::string text = value.toString().toStdString();
    const auto* const found = std::find(std::begin(names), std::end(names), text);
    if (found == std::end(names)) {
        throw std::runtime_error("unknown word in the results of a run: \"" + text + '"');
    }
    return static_cast<Enumeration>(found - std::begin(names));
}

QString toQt(const std::string& text)
{
    return QString::fromStdString(text);
}

QJsonObject toJson(const Spread& spread)
{
    return {{"lower", spread.lower}, {"median", spread.median}, {"upper", spread.upper}};
}

Spread spreadFrom(const QJsonValue& json)
{
    return {json["lower"].toDouble(), json["median"].toDouble(), json["upper"].toDouble()};
}

QJsonObject toJson(const RowResult& row)
{
    QJsonObject json{{"name", toQt(row.name)},
                     {"bound", toQt(row.bound)},
                     {"unit", kUnits[static_cast<std::size_t>(row.unit)]},
                     {"repetitions", row.repetitions},
                     {"ours", toJson(row.ours)},
                     {"ratio", row.ratio},
                     {"shortBy", row.shortBy},
                     {"verdict", kVerdictTexts[static_cast<std::size_t>(row.verdict)]}};
    if (row.peer) {
        json["peerName"] = toQt(row.peerName);
        json["peer"] = toJson(*row.peer);
    }
    if (!row.error.empty()) {
        json["error"] = toQt(row.error);
    }
    return json;
}

RowResult rowFrom(const QJsonValue& json)
{
    RowResult row{.name = json["name"].toString().toStdString(),
                  .bound = json["bound"].toString().toStdString(),
                  .unit = named<Unit>(json["unit"], kUnits),
                  .repetitions = json["repetitions"].toInt(),
                  .ours = spreadFrom(json["ours"]),
                  .peerName = json["peerName"].toString().toStdString(),
                  .ratio = json["ratio"].toDouble(),
                  .shortBy = json["shortBy"].toDouble(),
                  .verdict = named<Verdict>(json["verdict"], kVerdictTexts),
                  .error = json["error"].toString().toStdString()};
    if (json["peer"].isObject()) {
        row.peer = spreadFrom(json["peer"]);
    }
    return row;
}

QJsonObject toJson(const GrowthResult& growth)
{
    QJsonArray figures;
    for (const auto& [size, spread] : growth.figures) {
        QJsonObject figure = toJson(spread);
        figure["size"] = static_cast<qint64>(size);
        figures.append(figure);
    }
    return {{"name", toQt(growth.name)},
            {"unit", kUnits[static_cast<std::size_t>(growth.unit)]},
            {"figures", figures},
            {"error", toQt(growth.error)}};
}

GrowthResult growthFrom(const QJsonValue& json)
{
    GrowthResult growth{.name = json["name"].toString().toStdString(),
                        .unit = named<Unit>(json["unit"], kUnits),
                        .error = json["error"].toString().toStdString()};
    for (const QJsonValue figure : json["figures"].toArray()) {
        growth.figures.emplace_back(static_cast<std::size_t>(figure["size"].toInteger()), spreadFrom(figure));
    }
    return growth;
}

/// Several rows may have one name; their peers differ.
const RowResult* sameRow(const Results& results, const RowResult& row)
{
    const auto found = std::find_if(results.rows.begin(), results.rows.end(), [&](const RowResult& each) {
        return each.name == row.name && each.peerName == row.peerName;
    });
    return found == results.rows.end() || !found->error.empty() ? nullptr : &*found;
}

std::size_t widestName(const Results& results)
{
    std::size_t widest = 0;
    for (const RowResult& row : results.rows) {
        widest = std::max(widest, row.name.size());
    }
    for (const GrowthResult& growth : results.growths) {
        widest = std::max(widest, growth.name.size());
    }
    return widest;
}

/// A change is told apart from the noise of the machine only where the middle halves of the figures do not meet.
std::string changeText(const Spread& before, const Spread& now)
{
    if (now.upper < before.lower) {
        return "less";
    }
    return now.lower > before.upper ? "more" : "within the spread";
}

std::string timesText(double now, double before)
{
    return before == 0 ? "" : plainNumber(now / before);
}

} // namespace

std::vector<std::string> rowHeads(const std::string& path)
{
    return {path, "ours", "peer", "ratio", "bound", "verdict"};
}

void printRow(Table& table, const RowResult& row)
{
    const std::string verdict = kVerdictTexts[static_cast<std::size_t>(row.verdict)];
    table.print({row.name, row.error.empty() ? spreadText(row.ours, row.unit) : "",
                 row.peer ? row.peerName + " " + spreadText(*row.peer, row.unit) : "",
                 row.peer ? plainNumber(row.ratio) : "", row.bound,
                 row.error.empty() ? verdict : verdict + ": " + row.error});
}

void writeResults(const std::string& file, const Results& results)
{
    QJsonArray rows;
    for (const RowResult& row : results.rows) {
        rows.append(toJson(row));
    }
    QJsonArray growths;
    for (const GrowthResult& growth : results.growths) {
        growths.append(toJson(growth));
    }
    const QByteArray text =
        QJsonDocument({{"machine", toQt(results.machine)}, {"rows", rows}, {"growths", growths}}).toJson();
    QFile out(toQt(file));
    if (!out.open(QIODevice::WriteOnly) || out.write(text) != text.size() || !out.flush()) {
        throw std::runtime_error(file + ": " + out.errorString().toStdString());
    }
}

Results readResults(const std::string& file)
{
    QFile in(toQt(file));
    if (!in.open(QIODevice::ReadOnly)) {
        throw std::runtime_error(file + ": " + in.errorString().toStdString());
    }
    QJsonParseError error;
    const QJsonDocument json = QJsonDocument::fromJson(in.readAll(), &error);
    if (!json.isObject()) {
        throw std::runtime_error(file + ": " + error.errorString().toStdString());
    }
    Results results{.machine = json["machine"].toString().toStdString()};
    for (const QJsonValue row : json["rows"].toArray()) {
        results.rows.push_back(rowFrom(row));
    }
    for (const QJsonValue growth : json["growths"].toArray()) {
        results.growths.push_back(growthFrom(growth));
    }
    return results;
}

void printComparison(std::ostream& out, const Results& before, const Results& now)
{
    Table table(out, {"path", "before", "now", "times", "change", "ratio before", "ratio now"}, widestName(now));
    for (const RowResult& row : now.rows) {
        const RowResult* const former = sameRow(before, row);
        if (former == nullptr || !row.error.empty()) {
            continue;
        }
        table.print({row.name, spreadText(former->ours, row.unit), spreadText(row.ours, row.unit),
                     timesText(row.ours.median, former->ours.median), changeText(former->ours, row.ours),
                     row.peer ? plainNumber(former->ratio) : "", row.peer ? plainNumber(row.ratio) : ""});
    }
    for (const GrowthResult& growth : now.growths) {
        const auto former = std::find_if(before.growths.begin(), before.growths.end(),
                                         [&](const GrowthResult& each) { return each.name == growth.name; });
        for (std::size_t i = 0; former != before.growths.end() && i < growth.figures.size(); ++i) {
            const auto& [size, spread] = growth.figures[i];
            if (i < former->figures.size() && former->figures[i].first == size) {
                const Spread& earlier = former->figures[i].second;
                table.print({std::string(growth.name).append(" at ").append(groupedNumber(size)),
                             spreadText(earlier, growth.unit), spreadText(spread, growth.unit),
                             timesText(spread.median, earlier.median), changeText(earlier, spread), "", ""});
            }
        }
    }
}

void printSummary(std::ostream& out, const std::vector<Results>& runs)
{
    const Results& first = runs.front();
    Table table(out, {"path", "peer", "ratios, or figures without a peer", "bound", "holds in"}, widestName(first));
    for (const RowResult& row : first.rows) {
        std::vector<double> values;
        std::size_t holding = 0;
        for (const Results& run : runs) {
            if (const RowResult* const same = sameRow(run, row)) {
                values.push_back(row.peer ? same->ratio : same->ours.median);
                holding += same->verdict == Verdict::holds ? 1 : 0;
            }
        }
        const auto text = [&](double value) { return row.peer ? plainNumber(value) : figureText(value, row.unit); };
        std::sort(values.begin(), values.end());
        table.print({row.name, row.peerName,
                     values.empty() ? "" : text(values.front()).append(" to ").append(text(values.back())), row.bound,
                     std::to_string(holding).append(" of ").append(std::to_string(runs.size()))});
    }
}

void printBeside(std::ostream& out, const std::vector<Results>& runs, const std::vector<std::string>& names)
{
    std::vector<std::string> heads{"path"};
    heads.insert(heads.end(), names.begin(), names.end());
    Table table(out, heads, widestName(runs.front()));
    const RowResult* previous = nullptr;
    for (const RowResult& row : runs.front().rows) {
        if (previous != nullptr && previous->name == row.name) {
            continue; // the same path beside another peer
        }
        previous = &row;
        std::vector<std::string> cells{row.name};
        for (const Results& run : runs) {
            const RowResult* const same = sameRow(run, row);
            cells.push_back(same != nullptr ? spreadText(same->ours, row.unit) : "");
        }
        table.print(cells);
    }
}

} // namespace orvan::bench

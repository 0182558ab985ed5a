#include "Report.h"

#include "Json.h"

#include <shared/TerminalText.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

namespace orvan::trace_reader {

namespace {

using shared::countOf;
using shared::terminalText;

std::string shown(const std::vector<std::filesystem::path>& files, Place place)
{
    return terminalText(files[place.file].string()) + ':' + std::to_string(place.line);
}

/// The procedures, those that took most time of their own first.
std::vector<std::size_t> byOwnTime(const Summary& summary)
{
    std::vector<std::size_t> order(summary.figures.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::erase_if(order, [&](std::size_t at) { return summary.figures[at].calls == 0; });
    const auto rank = [&](std::size_t at) {
        return std::pair(-summary.figures[at].own, -static_cast<std::int64_t>(summary.figures[at].calls));
    };
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return rank(a) < rank(b); });
    return order;
}

void printFigures(std::ostream& out, const Summary& summary)
{
    using Cells = std::array<std::string, 7>;
    std::vector<Cells> rows{{"calls", "errors", "own ms", "total ms", "slowest ms", "procedure", "slowest at"}};
    for (const std::size_t at : byOwnTime(summary)) {
        const ProcedureFigures& figures = summary.figures[at];
        rows.push_back({std::to_string(figures.calls), std::to_string(figures.errors), std::to_string(figures.own),
                        std::to_string(figures.total), std::to_string(figures.slowest),
                        terminalText(summary.procedures[at].label), shown(summary.files, figures.slowestAt)});
    }
    constexpr std::size_t kNumbers = 5; // the columns at the right edge
    std::array<std::size_t, 7> widths = {};
    for (const Cells& row : rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            widths[column] = std::max(widths[column], row[column].size());
        }
    }
    for (const Cells& row : rows) {
        for (std::size_t column = 0; column + 1 < row.size(); ++column) {
            const std::string blanks(widths[column] - row[column].size(), ' ');
            out << (column < kNumbers ? blanks + row[column] : row[column] + blanks) << "  ";
        }
        out << row.back() << '\n';
    }
}

/// What does not pair, of one kind.
struct Unpaired {
    const char* name; ///< in JSON
    const char* heading;
    Observed ProcedureFigures::*observed;
    bool deliberate;
};
constexpr Unpaired kUnpaired[] = {
    {"entryOnly", "Entries without an exit, on purpose", &ProcedureFigures::entryOnly, true},
    {"early", "Exits of procedures that were entered before the log begins", &ProcedureFigures::early, true},
    {"open", "Entered, and open when the log ends", &ProcedureFigures::open, false},
    {"left", "Entries without an exit, NOT on purpose", &ProcedureFigures::left, false},
    {"exitAlone", "Exits without an entry, NOT on purpose", &ProcedureFigures::exitAlone, false},
};

void printUnpaired(std::ostream& out, const Summary& summary, const Unpaired& kind)
{
    bool headed = false;
    for (std::size_t at = 0; at < summary.figures.size(); ++at) {
        const Observed& observed = summary.figures[at].*kind.observed;
        if (observed.count == 0) {
            continue;
        }
        if (!std::exchange(headed, true)) {
            out << '\n' << kind.heading << ":\n";
        }
        const Procedure& procedure = summary.procedures[at];
        out << "  " << observed.count << "  " << terminalText(procedure.label) << ", first at "
            << shown(summary.files, observed.first) << '\n';
        if (kind.observed == &ProcedureFigures::entryOnly && procedure.known != nullptr) {
            out << "      " << procedure.known->reason << '\n';
        }
    }
}

const char* nameOf(Ending ending)
{
    switch (ending) {
    case Ending::exited: return "exited";
    case Ending::failed: return "failed";
    case Ending::entryOnly: return "entryOnly";
    case Ending::left: return "left";
    case Ending::openAtEnd: return "open";
    }
    return "";
}

const char* noteOn(Ending ending)
{
    switch (ending) {
    case Ending::exited: return "";
    case Ending::failed: return ", ended by its error";
    case Ending::entryOnly: return ", entry alone, on purpose";
    case Ending::left: return ", left WITHOUT an exit";
    case Ending::openAtEnd: return ", open when the log ends";
    }
    return "";
}

const char* nameOf(TreeNode::Kind kind)
{
    constexpr const char* kNames[] = {"call", "error", "show"};
    return kNames[static_cast<std::size_t>(kind)];
}

Json& place(Json& json, const std::vector<std::filesystem::path>& files, Place where)
{
    return json.begin('{').name("file").value(files[where.file].string()).name("line").value(where.line).end('}');
}

void printSide(std::ostream& out, const Side& side)
{
    if (side.line == 0) {
        out << terminalText(side.file.string()) << ": the log has ended\n";
    } else {
        out << terminalText(side.file.string()) << ':' << side.line << ": " << terminalText(side.text) << '\n';
    }
    out << (side.open.empty() ? "  no procedure is open\n" : "  open:\n");
    for (std::size_t depth = 0; depth < side.open.size(); ++depth) {
        out << std::string(4 + 2 * depth, ' ') << terminalText(side.open[depth]) << '\n';
    }
}

void jsonSide(Json& json, const Side& side)
{
    json.begin('{').name("file").value(side.file.string()).name("line").value(side.line);
    json.name("text").value(side.text).name("open").begin('[');
    for (const std::string& label : side.open) {
        json.value(label);
    }
    json.end(']').end('}');
}

} // namespace

void printText(std::ostream& out, const Summary& summary)
{
    printFigures(out, summary);
    for (const Unpaired& kind : kUnpaired) {
        printUnpaired(out, summary, kind);
    }
    if (summary.errorsOutside > 0) {
        out << "\nErrors outside of all procedures: " << summary.errorsOutside << '\n';
    }
    out << '\n'
        << countOf(summary.lines, "line", "lines") << " of " << countOf(summary.files.size(), "file", "files") << '\n';
}

void printJson(std::ostream& out, const Summary& summary)
{
    Json json(out);
    json.begin('{').name("files").begin('[');
    for (const auto& file : summary.files) {
        json.value(file.string());
    }
    json.end(']').name("lines").value(summary.lines).name("badLines").value(summary.badLines);
    json.name("errorsOutside").value(summary.errorsOutside).name("procedures").begin('[');
    for (const std::size_t at : byOwnTime(summary)) {
        const ProcedureFigures& figures = summary.figures[at];
        json.begin('{').name("label").value(summary.procedures[at].label).name("calls").value(figures.calls);
        json.name("errors").value(figures.errors).name("ownMs").value(figures.own).name("totalMs");
        json.value(figures.total).name("slowestMs").value(figures.slowest).name("slowestAt");
        place(json, summary.files, figures.slowestAt).end('}');
    }
    json.end(']').name("unpaired").begin('[');
    for (const Unpaired& kind : kUnpaired) {
        for (std::size_t at = 0; at < summary.figures.size(); ++at) {
            if (const Observed& observed = summary.figures[at].*kind.observed; observed.count > 0) {
                const Procedure& procedure = summary.procedures[at];
                const bool reasoned = kind.observed == &ProcedureFigures::entryOnly && procedure.known != nullptr;
                json.begin('{').name("kind").value(kind.name).name("deliberate");
                json.word(kind.deliberate ? "true" : "false").name("label").value(procedure.label);
                json.name("count").value(observed.count).name("reason");
                json.value(reasoned ? procedure.known->reason : std::string_view()).name("first");
                place(json, summary.files, observed.first).end('}');
            }
        }
    }
    json.end(']').end('}');
    out << '\n';
}

void printText(std::ostream& out, const Tree& tree)
{
    out << "thread " << tree.thread << ", from " << shown(tree.files, tree.nodes.front().place) << '\n';
    for (const TreeNode& node : tree.nodes) {
        out << std::string(2 * node.depth, ' ');
        if (node.kind != TreeNode::Kind::call) {
            out << nameOf(node.kind) << ' ' << terminalText(node.text) << '\n';
            continue;
        }
        out << terminalText(node.text) << "  " << node.total << " ms";
        if (node.own != node.total) {
            out << ", own " << node.own << " ms";
        }
        if (node.errors > 0) {
            out << ", " << node.errors << (node.errors == 1 ? " error" : " errors");
        }
        out << noteOn(node.ending) << "  (:" << node.place.line << ")\n";
    }
}

void printJson(std::ostream& out, const Tree& tree)
{
    Json json(out);
    json.begin('{').name("thread").value(tree.thread).name("lines").begin('[');
    for (const TreeNode& node : tree.nodes) {
        json.begin('{').name("kind").value(nameOf(node.kind)).name("depth").value(node.depth);
        json.name("text").value(node.text);
        if (node.kind == TreeNode::Kind::call) {
            json.name("totalMs").value(node.total).name("ownMs").value(node.own).name("errors").value(node.errors);
            json.name("ending").value(nameOf(node.ending));
        }
        json.name("at");
        place(json, tree.files, node.place).end('}');
    }
    json.end(']').end('}');
    out << '\n';
}

void printText(std::ostream& out, const std::optional<Parting>& parting)
{
    if (!parting) {
        out << "The logs are alike.\n";
        return;
    }
    out << "The logs part after " << countOf(parting->lines, "line", "lines") << " of the thread:\n";
    printSide(out, parting->left);
    printSide(out, parting->right);
}

void printJson(std::ostream& out, const std::optional<Parting>& parting)
{
    Json json(out);
    json.begin('{').name("alike").word(parting ? "false" : "true");
    if (parting) {
        json.name("linesAlike").value(parting->lines).name("sides").begin('[');
        jsonSide(json, parting->left);
        jsonSide(json, parting->right);
        json.end(']');
    }
    json.end('}');
    out << '\n';
}

} // namespace orvan::trace_reader

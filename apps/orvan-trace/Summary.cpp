#include "Reading.h"

#include <algorithm>

namespace orvan::trace_reader {

namespace {

class Counter final : public CallWatcher {
public:
    explicit Counter(Summary& summary) : summary_(summary) {}

    void began(const TraceLine& /*line*/, const Call& call, std::size_t /*depth*/) override { ++of(call).calls; }

    void ended(std::uint64_t /*thread*/, const Call& call, Ending ending, std::size_t /*depth*/) override
    {
        ProcedureFigures& figures = of(call);
        const std::int64_t total = std::max<std::int64_t>(call.ended - call.entered, 0); // a clock may be set back
        figures.errors += call.errors;
        figures.own += std::max<std::int64_t>(total - call.children, 0);
        figures.total += call.nested ? 0 : total;
        if (total > figures.slowest || figures.slowestAt.line == 0) {
            figures.slowest = total;
            figures.slowestAt = call.place;
        }
        switch (ending) {
        case Ending::entryOnly: figures.entryOnly.add(call.place); break;
        case Ending::left: figures.left.add(call.place); break;
        case Ending::openAtEnd: figures.open.add(call.place); break;
        case Ending::exited:
        case Ending::failed: break;
        }
    }

    void told(const TraceLine& line, Place /*place*/, std::size_t depth) override
    {
        summary_.errorsOutside += line.kind == Kind::error && depth == 0 ? 1 : 0;
    }

    void exitAlone(std::size_t procedure, Place place, bool early) override
    {
        (early ? at(procedure).early : at(procedure).exitAlone).add(place);
    }

private:
    ProcedureFigures& at(std::size_t procedure)
    {
        if (procedure >= summary_.figures.size()) {
            summary_.figures.resize(summary_.procedures.size());
        }
        return summary_.figures[procedure];
    }
    ProcedureFigures& of(const Call& call) { return at(call.procedure); }

    Summary& summary_;
};

} // namespace

Summary summarize(const std::vector<Log>& logs)
{
    Summary summary;
    Counter counter(summary);
    Calls calls(summary.procedures, counter);
    LineParser parser;
    for (const Log& log : logs) {
        for (const std::filesystem::path& file : log) {
            summary.files.push_back(file);
            LineReader lines(file);
            while (const auto text = lines.next()) {
                const Place place{summary.files.size() - 1, lines.number()};
                if (const auto line = parser.parse(*text)) {
                    ++summary.lines;
                    calls.add(*line, place);
                } else if (++summary.badLines <= kPlacesTold) {
                    summary.badPlaces.push_back(place);
                }
            }
        }
        calls.endLog();
    }
    summary.figures.resize(summary.procedures.size());
    return summary;
}

} // namespace orvan::trace_reader

// S: the six lines that a key in an amount box leaves in the trace log. In the editor, procedures that wait for it are
// open around them, so that nothing is flushed; the same lines of outermost procedures are flushed twice.

#include "benchmarks/Comparison.h"
#include "benchmarks/Subjects.h"
#include "benchmarks/TemporaryFiles.h"
#include "orvan/components/trace/TraceLog.h"
#include "orvan/core/Trace.h"
#include "orvan/ui/headless/HeadlessPlatform.h"

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace orvan::bench {

namespace {

constexpr std::string_view kKeyPress = "KTVOrvanProduct.frmProduct::txtQty_KeyPress";
constexpr std::string_view kChange = "KTVOrvanProduct.frmProduct::txtQty_LostFocus";
constexpr std::string_view kSave = "KTVOrvanProduct.frmProduct::PrvSaveQtyFld";

void traceKeystroke(Trace& trace)
{
    trace.TraceEnter(kKeyPress);
    trace.TraceExit(kKeyPress); // flushes, if outermost
    trace.TraceEnter(kChange);
    trace.TraceEnter(kSave);
    trace.TraceExit(kSave);
    trace.TraceExit(kChange); // flushes, if outermost
}

Side sixLines(bool inEditor)
{
    static headless::HeadlessMessageBox messageBox;
    TraceLogOptions options;
    options.file = temporaryFiles() / (inEditor ? "editor.log" : "outermost.log");
    const auto trace = std::dynamic_pointer_cast<Trace>(traceLogFactory(options, messageBox)());
    if (inEditor) {
        trace->TraceEnter("KTVOrvanProduct.ProductView::cmdNew_Click");
        trace->TraceEnter("KTVOrvanProduct.ProductDlg::Show");
    }
    traceKeystroke(*trace); // opens the file
    return timed("", [trace](benchmark::State& state) {
        for ([[maybe_unused]] auto _ : state) {
            traceKeystroke(*trace);
        }
    });
}

/// The bytes that such a key adds to the log, written by the two calls of the system alone.
Side bareWrites()
{
    const std::filesystem::path name = temporaryFiles() / "bare.log";
    const std::shared_ptr<int> file(new int(::open(name.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600)),
                                    [](const int* open) {
                                        ::close(*open);
                                        delete open;
                                    });
    const std::string first(
        2 * (std::string_view("2026-01-31 09:15:02.123 4711  0 enter \n").size() + kKeyPress.size()), 'x');
    const std::string second(
        first.size() + 2 * (std::string_view("2026-01-31 09:15:02.123 4711  1   enter \n").size() + kSave.size()), 'x');
    return timed("two bare writes", [file, first, second](benchmark::State& state) {
        std::size_t written = 0;
        for ([[maybe_unused]] auto _ : state) {
            if (::write(*file, first.data(), first.size()) < 0 || ::write(*file, second.data(), second.size()) < 0) {
                throw std::runtime_error("cannot write");
            }
            written += first.size() + second.size();
            if (written > TraceLogOptions().maxFileSize) { // the log begins a new file then
                written = 0;
                static_cast<void>(::ftruncate(*file, 0) == 0);
            }
        }
    });
}

} // namespace

void addTraceLines(Suite& suite)
{
    constexpr double kMicrosecond = 1'000;
    suite.add(Row{"S six lines of a keystroke in the editor", atMost(1.5 * kMicrosecond),
                  [] { return Sides{sixLines(true)}; }});
    suite.add(Row{"S six lines that are flushed twice", atMostTimes(1.5), [] {
                      return Sides{sixLines(false), bareWrites()};
                  }});
}

} // namespace orvan::bench

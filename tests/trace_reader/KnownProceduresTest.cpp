// Checks the table of the procedures that do not pair against sessions of the editor whose trace a real log writes.

#include "apps/orvan-trace/Reading.h"
#include "orvan/components/trace/TraceLog.h"
#include "tests/support/EditorFixture.h"
#include "tests/support/Raised.h"
#include "tests/support/TemporaryFolder.h"

#include <set>

namespace orvan::test {
namespace {

using namespace trace_reader;
using Labels = std::set<std::string>;

/// Writes a log, and fails once when a procedure is entered, after that has been written.
class FailingLog final : public Trace {
public:
    FailingLog(const std::filesystem::path& file, ui::MessageBox& messages, std::string failing)
        : failing_(std::move(failing))
    {
        TraceLogOptions options;
        options.file = file;
        log_ = std::dynamic_pointer_cast<Trace>(traceLogFactory(options, messages)());
    }

    std::int32_t LastErrorNumber() override { return log_->LastErrorNumber(); }
    void TraceError(std::string_view sText) override { log_->TraceError(sText); }
    void TraceEnter(std::string_view label) override
    {
        log_->TraceEnter(label);
        entered.emplace(label);
        if (label == failing_) {
            failing_.clear();
            throw RuntimeError(1000, "FailingLog", "told to fail");
        }
    }
    void TraceExit(std::string_view label) override { log_->TraceExit(label); }
    std::int32_t AppErrorNumber() override { return log_->AppErrorNumber(); }
    void ShowLastError(std::int32_t hWnd) override { log_->ShowLastError(hWnd); }

    Labels entered;

private:
    std::shared_ptr<Trace> log_;
    std::string failing_;
};

/// The procedures that ended in each way.
class Endings final : public CallWatcher {
public:
    explicit Endings(const Procedures& procedures) : procedures_(procedures) {}

    void ended(std::uint64_t /*thread*/, const Call& call, Ending ending, std::size_t /*depth*/) override
    {
        const std::string& label = procedures_[call.procedure].label;
        if (ending == Ending::exited && call.errors > 0) {
            wentOn.insert(label);
        } else if (ending == Ending::entryOnly) {
            entryOnly.insert(label);
        } else if (ending == Ending::left || ending == Ending::openAtEnd) {
            unexplained.insert(label);
        }
    }
    void exitAlone(std::size_t procedure, Place /*place*/, bool /*early*/) override
    {
        unexplained.insert("exit of " + procedures_[procedure].label);
    }

    Labels wentOn, entryOnly, unexplained;

private:
    const Procedures& procedures_;
};

class KnownProceduresTest : public EditorFixture {
protected:
    KnownProceduresTest()
    {
        platform.messageBox().onWaiting = [this](const ui::Message& message) {
            platform.messageBox().answer(message.buttons == ui::MessageButtons::ok ? ui::MessageResult::ok
                                                                                   : ui::MessageResult::yes);
        };
    }

    /// One session of the editor, in which the first entry of `failing` fails. Returns what was entered.
    Labels session(const std::string& failing)
    {
        load(kThreeProducts);
        const auto log = std::make_shared<FailingLog>(folder / "trace.log", platform.messageBox(), failing);
        const auto before = std::exchange(gobjTrace, log);
        bool driven = false;
        platform.drive([&](headless::FormDriver& form) {
            driven = true;
            form.comboBox("cboPartNum").type("P");
            wholeSession(form);
        });
        errorOf([&] { dialog.Show(manager, 2); });
        if (!driven) {
            platform.dropDriver();
        }
        gobjTrace = before;
        return log->entered;
    }

    /// Reads the session's log, and removes it.
    void readLog(const std::string& failing)
    {
        Procedures procedures;
        Endings endings(procedures);
        Calls calls(procedures, endings);
        LineParser parser;
        LineReader lines(folder / "trace.log");
        while (const auto text = lines.next()) {
            const auto line = parser.parse(*text);
            ASSERT_TRUE(line) << *text;
            calls.add(*line, {0, lines.number()});
        }
        calls.endLog();
        EXPECT_EQ(endings.unexplained, Labels()) << "where " << failing << " failed";
        wentOn.merge(endings.wentOn);
        entryOnly.merge(endings.entryOnly);
        std::filesystem::remove(folder / "trace.log");
    }

    TemporaryFolder folder;
    Labels wentOn, entryOnly;
};

TEST_F(KnownProceduresTest, AreThoseThatDoNotPairInSessionsOfTheEditor)
{
    for (const auto way : {ui::EditingWay::classic, ui::EditingWay::careful}) {
        platform.editing = way;
        const Labels all = session("");
        readLog("nothing");
        ASSERT_GT(all.size(), 20U);
        for (const std::string& label : all) {
            session(label);
            readLog(label);
        }
    }
    Labels expectedToGoOn, expectedToEnterOnly;
    for (const KnownProcedure& known : kKnownProcedures) {
        (known.habit == Habit::goesOn ? expectedToGoOn : expectedToEnterOnly).emplace(known.label);
    }
    EXPECT_EQ(wentOn, expectedToGoOn);
    EXPECT_EQ(entryOnly, expectedToEnterOnly);
}

} // namespace
} // namespace orvan::test

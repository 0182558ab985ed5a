// A trace of the host's own, which sends what the library does to the host's log.

#include <orvan/base/RuntimeError.h>
#include <orvan/core/Trace.h>
#include <orvan/hosting/HeadlessProductView.h>
#include <orvan/testing/TraceConformance.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <mutex>
#include <thread>

namespace {

/// Stands for the log that a host has.
class AcmeLog {
public:
    static void write(const std::string& line)
    {
        const std::lock_guard lock(mutex());
        lines().push_back(line);
    }
    static std::vector<std::string> taken()
    {
        const std::lock_guard lock(mutex());
        return std::exchange(lines(), {});
    }

    /// How many errors the user has been told of since the log was taken.
    static std::size_t messages()
    {
        const std::lock_guard lock(mutex());
        return static_cast<std::size_t>(std::count_if(
            lines().begin(), lines().end(), [](const std::string& line) { return line.starts_with("told the user"); }));
    }

private:
    static std::mutex& mutex()
    {
        static std::mutex one;
        return one;
    }
    static std::vector<std::string>& lines()
    {
        static std::vector<std::string> all;
        return all;
    }
};

//! [trace]
class AcmeTrace final : public orvan::Trace {
public:
    void TraceEnter(std::string_view label) override { AcmeLog::write("enter " + std::string(label)); }
    void TraceExit(std::string_view label) override { AcmeLog::write("exit " + std::string(label)); }
    void TraceError(std::string_view sText) override
    {
        const orvan::RuntimeError error = orvan::currentError(); // the one that the thread is handling
        number_ = error.number();
        AcmeLog::write("error " + std::to_string(number_) + " " + std::string(error.text()) + std::string(sText));
    }
    std::int32_t LastErrorNumber() override { return number_; }
    std::int32_t AppErrorNumber() override { return 1000; }
    void ShowLastError(std::int32_t /*hWnd*/) override
    {
        AcmeLog::write("told the user of error " + std::to_string(number_)); // a host with windows shows a message here
    }

private:
    std::int32_t number_ = orvan::ErrorNumber::invalidProcedureCall;
};
//! [trace]

//! [conformance]
const auto kTests = orvan::conformance::addTraceTests(
    "Acme", {.make = [] { return std::make_shared<AcmeTrace>(); }, .messages = [] { return AcmeLog::messages(); }});
//! [conformance]

std::int32_t showDamagedList()
{
    //! [options]
    orvan::HostOptions options;
    options.makeTrace = [] { return std::make_shared<AcmeTrace>(); };
    orvan::HeadlessHost host(options);
    //! [options]
    orvan::HeadlessProductView view(host.platform());
    AcmeLog::taken(); // what making the view has written
    return orvan::conformance::errorOf([&] { view.Show("this is no list"); });
}

TEST(OwnTrace, GetsTheErrorWithItsText)
{
    std::thread([] { // a thread keeps its trace to its end, so this test has one of its own
        EXPECT_EQ(showDamagedList(), orvan::ErrorNumber::invalidFileFormat);
    })
        .join();
    const std::vector<std::string> lines = AcmeLog::taken();
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), "enter KTVOrvanProduct.ProductView::Show");
    EXPECT_THAT(lines, testing::Contains(testing::StartsWith("error 321 ")));
}

} // namespace

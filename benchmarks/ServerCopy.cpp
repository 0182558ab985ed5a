// R: the local copy of a catalogue on a PostgreSQL server, which runs on the same computer for the time of the
// benchmark: how long until a change is found, what an idle desk asks for, how long the first copy of a million entries
// takes, and what a look-up takes while that copy is made.

#include "benchmarks/Comparison.h"
#include "benchmarks/SampleCatalogue.h"
#include "benchmarks/Subjects.h"
#include "benchmarks/TemporaryFiles.h"
#include "orvan/components/catalogue/Catalogue.h"
#include "orvan/components/catalogue/CatalogueImport.h"
#include "orvan/components/catalogue/server/CatalogueSync.h"
#include "orvan/components/catalogue/server/ServerImport.h"
#include "orvan/components/catalogue/server/ServerSchema.h"
#include "tests/server/PostgresCluster.h"
#include "tests/server/Proxy.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

namespace orvan::bench {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using test::PostgresCluster;

constexpr std::size_t kEntries = 1'000'000;

double since(Clock::time_point begin)
{
    return std::chrono::duration<double, std::nano>(Clock::now() - begin).count();
}

double median(std::vector<double> times)
{
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

/// The server's catalogue of a million entries.
const ServerUri& server()
{
    static const ServerUri made = [] {
        PostgresCluster& cluster = PostgresCluster::shared();
        ServerUri uri(cluster.uri(cluster.newDatabase()));
        ServerConnection owner(uri);
        setUpServer(owner);
        importToServer(priceList(kEntries), uri);
        return uri;
    }();
    return made;
}

void waitUntil(const std::function<bool()>& condition)
{
    for (const auto begin = Clock::now(); !condition(); std::this_thread::sleep_for(1ms)) {
        if (Clock::now() - begin > 30min) {
            throw std::runtime_error("the copy does not come");
        }
    }
}

/// A copy in a folder of its own; complete once made.
class Copy {
public:
    explicit Copy(const char* name, const ServerUri& uri = server())
        : folder_(temporaryFiles() / name), sync_(std::make_unique<CatalogueSync>(options(uri)))
    {
    }
    ~Copy()
    {
        sync_.reset();
        std::filesystem::remove_all(folder_);
    }
    std::filesystem::path file() const { return LocalCopy::catalogueIn(folder_); }
    void waitForChecked() const
    {
        waitUntil([this] { return std::filesystem::exists(file()) && sync_->state().checked; });
    }

private:
    CatalogueSyncOptions options(const ServerUri& uri) const { return {.uri = uri, .folder = folder_}; }

    const std::filesystem::path folder_;
    std::unique_ptr<CatalogueSync> sync_;
};

/// One copy for the rows that need not make it.
const Copy& present()
{
    static const Copy copy("server copy");
    copy.waitForChecked();
    return copy;
}

/// From the end of the transaction to the first look-up that finds the new price.
double latency()
{
    SqliteCatalogue desk({.file = present().file()});
    ServerConnection writer(server());
    static std::int64_t price = 1'000'000'000;
    writer.execute("UPDATE orvan.product SET unit_price = $1 WHERE id = 7", ++price);
    const auto begin = Clock::now();
    waitUntil([&] {
        static_cast<void>(desk.GetPartNumList("x", false)); // takes the present version
        desk.SeekItem(7);
        return std::get<Currency>(desk.GetFieldValue(6)).scaled() == price;
    });
    return since(begin);
}

/// What one minute's question and its answer take, without the bytes by which the network itself carries them.
double idleBytes()
{
    const std::filesystem::path folder = PostgresCluster::shared().folder() / "proxy";
    std::filesystem::create_directory(folder);
    test::Proxy network(PostgresCluster::shared().socket(), folder);
    ServerUri uri("postgresql://owner@/" + std::string("postgres") + "?host=" + folder.string());
    ServerConnection owner(uri);
    setUpServer(owner);
    const std::filesystem::path copy = temporaryFiles() / "idle copy";
    constexpr int kQuestions = 10;
    CatalogueSync sync({.uri = uri, .folder = copy, .pollEvery = 200ms});
    waitUntil([&] { return sync.state().checked.has_value(); });
    std::this_thread::sleep_for(500ms);
    const std::int64_t before = network.bytes;
    std::this_thread::sleep_for(kQuestions * 200ms);
    return static_cast<double>(network.bytes - before) / kQuestions;
}

double firstCopy()
{
    static_cast<void>(server());
    const auto begin = Clock::now();
    const Copy copy("first copy");
    copy.waitForChecked();
    return since(begin);
}

double mostForFirstCopy()
{
    ServerConnection reader(server());
    const std::filesystem::path file = temporaryFiles() / "copied.catalogue";
    const auto begin = Clock::now();
    {
        std::ofstream out(temporaryFiles() / "copied.txt", std::ios::binary);
        reader.copyOut("COPY orvan.product TO STDOUT", [&](std::string_view row) { out << row; });
    }
    const double copied = since(begin);
    const auto imports = Clock::now();
    importCatalogue(priceList(kEntries), file);
    return 3 * copied + 1.2 * since(imports);
}

double lookUp(SqliteCatalogue& desk)
{
    std::vector<double> times;
    for (int i = 0; i < 2'000; ++i) {
        const std::string typed = priceListRow(static_cast<std::size_t>(i) * 7919 % kEntries).name.substr(0, 6);
        const auto begin = Clock::now();
        static_cast<void>(desk.GetProductNameList(typed, false));
        times.push_back(since(begin));
        std::this_thread::sleep_for(1ms);
    }
    return median(std::move(times));
}

Sides lookUps()
{
    auto desk = std::make_shared<SqliteCatalogue>(CatalogueOptions{.file = present().file()});
    return {{"",
             [desk] {
                 const Copy copy("copy beside look-ups");
                 std::this_thread::sleep_for(3s);
                 return lookUp(*desk);
             }},
            Side{"without a copy being made", [desk] { return lookUp(*desk); }}};
}

} // namespace

void addServerCopy(Suite& suite)
{
    suite.add(Row{"R first copy of 1,000,000 entries", atMostTimes(1),
                  [] {
                      return Sides{{"", firstCopy}, Side{"3 x COPY TO + 1.2 x import", mostForFirstCopy}};
                  },
                  Unit::nanoseconds, 1});
    suite.add(Row{"R change of a price found, 1,000,000 entries", atMost(2e9),
                  [] {
                      return Sides{{"", latency}};
                  },
                  Unit::nanoseconds, 9});
    suite.add(Row{"R look-ups while a copy is made", atMostTimes(1.5), lookUps, Unit::nanoseconds, 3});
    suite.add(Row{"R idle desk, bytes in a minute", atMost(1'000),
                  [] {
                      return Sides{{"", idleBytes}};
                  },
                  Unit::bytes, 1});
}

} // namespace orvan::bench

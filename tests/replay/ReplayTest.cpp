// A session that is recorded comes out the same when it is replayed, whatever happened in it.

#include "tests/contract/HeadlessDriver.h"
#include "tests/replay/RandomSession.h"
#include "tests/support/TemporaryFolder.h"
#ifdef ORVAN_REPLAY_QT
#include "tests/contract/QtDriver.h"
#endif

#include "orvan/files/WholeFile.h"
#include "orvan/replay/Replay.h"

#include <cstdlib>
#include <iostream>

namespace orvan::replay {
namespace {

struct Sessions {
    const char* name;
    std::unique_ptr<contract::Driver> (*makeDriver)();
    ui::EditingWay editing;
    bool ownManager;
    unsigned count;
    unsigned whole; ///< Where the sweeps run whole.
    int waitsInHundred = 6;
};

template <class Driver>
std::unique_ptr<contract::Driver> make()
{
    return std::make_unique<Driver>();
}

std::string readAll(const std::filesystem::path& file)
{
    return files::Descriptor::openRegular(file).readAll();
}

void expectSameWhenReplayed(const Sessions& sessions)
{
    const char* const size = std::getenv("ORVAN_SWEEPS");
    const unsigned count = size && std::string_view(size) == "whole" ? sessions.whole : sessions.count;
    const test::TemporaryFolder folder;
    std::size_t events = 0;
    for (unsigned seed = 1; seed <= count; ++seed) {
        const auto file = folder.path() / ("session-" + std::to_string(seed));
        std::string products;
        {
            const std::unique_ptr<contract::Driver> driver = sessions.makeDriver();
            RandomSession session(*driver,
                                  {.seed = seed,
                                   .editing = sessions.editing,
                                   .ownManager = sessions.ownManager,
                                   .waitsInHundred = sessions.waitsInHundred},
                                  file);
            products = session.run();
        }
        if (const char* const kept = std::getenv("ORVAN_KEEP_RECORDINGS")) { // a folder, for those who look for a fault
            std::filesystem::copy(file, std::string(kept) + "/" + sessions.name + std::to_string(seed));
        }
        const ReplayResult result = replayInMemory(RecordedLines(readAll(file)));
        events += result.events;
        if (result.end != ReplayResult::End::same) {
            ADD_FAILURE() << "seed " << seed << ", line " << result.line << "\n recorded " << result.recorded
                          << "\n replayed " << result.replayed
                          << (result.open.empty() ? "" : "\n in " + result.open.back());
            return;
        }
        EXPECT_EQ(result.products, products) << "seed " << seed;
    }
    std::cout << sessions.name << ": " << count << " sessions, " << events << " events\n";
    EXPECT_GT(events, 250 * count);
}

TEST(ReplayTest, InMemory)
{
    using enum ui::EditingWay;
    test::forEachRow(std::vector<Sessions>{{"classic", make<contract::HeadlessDriver>, classic, true, 40, 200},
                                           {"careful", make<contract::HeadlessDriver>, careful, true, 40, 200},
                                           {"host's manager", make<contract::HeadlessDriver>, careful, false, 20, 200}},
                     expectSameWhenReplayed);
}

#ifdef ORVAN_REPLAY_QT
TEST(ReplayTest, InWindows)
{
    using enum ui::EditingWay;
    test::forEachRow(std::vector<Sessions>{{"classic", make<contract::QtDriver>, classic, true, 4, 200, 1},
                                           {"careful", make<contract::QtDriver>, careful, true, 4, 200, 1}},
                     expectSameWhenReplayed);
}
#endif

} // namespace
} // namespace orvan::replay

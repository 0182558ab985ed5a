// The local copy of a server's catalogue follows the server, whatever becomes of server, network and desk.

#include "orvan/components/catalogue/server/CatalogueSync.h"
#include "orvan/components/catalogue/Catalogue.h"
#include "orvan/components/catalogue/server/ServerSchema.h"
#include "tests/server/PostgresCluster.h"
#include "tests/server/Proxy.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <fstream>
#include <future>
#include <set>

namespace orvan::test {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;
using ::testing::HasSubstr;

/// Whether it becomes true before a minute has passed, when a desk that listens would ask by itself.
bool becomes(const std::function<bool()>& condition)
{
    for (const auto end = steady_clock::now() + 40s; steady_clock::now() < end;) {
        if (condition()) {
            return true;
        }
        std::this_thread::sleep_for(5ms);
    }
    return condition();
}

class CatalogueSyncTest : public testing::Test {
protected:
    CatalogueSyncTest()
    {
        ServerConnection owner(uri());
        setUpServer(owner);
    }

    ServerUri uri(const std::string& user = "owner") const { return ServerUri(cluster.uri(database, user)); }
    CatalogueSyncOptions options() const
    {
        return {.uri = uri(),
                .folder = folder / "copy",
                .firstPause = 50ms,
                .longestPause = 200ms,
                .lockEvery = 50ms,
                .block = 500};
    }
    CatalogueSyncOptions polling() const
    {
        CatalogueSyncOptions polling = options();
        polling.listens = false;
        polling.pollEvery = 50ms;
        return polling;
    }
    void run(const std::string& sql) const
    {
        ServerConnection writer(uri());
        writer.run("SET synchronous_commit = on"); // the server may be killed soon
        writer.run(sql.c_str());
    }
    void insert(int first, int last) const
    {
        run("INSERT INTO orvan.product (name, part_num, unit_price) SELECT 'Bolt ' || n, 'B-' || n, n * 10000"
            " FROM generate_series(" +
            std::to_string(first) + ", " + std::to_string(last) + ") AS n");
    }
    std::filesystem::path copied() const { return LocalCopy::catalogueIn(folder / "copy"); }
    /// The copy's entries as one text; empty as long as there is none.
    std::string copy() const
    {
        std::string text;
        if (!isCatalogue(copied())) {
            return text;
        }
        SqliteCatalogue catalogue({.file = copied(), .mostListed = 100'000});
        for (const LookUpRow& row : catalogue.GetPartNumList("", true).value_or(std::vector<LookUpRow>())) {
            const auto its = catalogue.summary(row.itemId);
            const auto* const price = std::get_if<Currency>(&its->unitPrice);
            text.append(std::get<std::string>(its->name)).append("|").append(row.text).append("|");
            text.append(price ? price->toText() : "none").append("\n");
        }
        return text;
    }
    std::string onServer() const
    {
        ServerConnection server(uri());
        std::string text;
        ServerRows rows = server.query("SELECT name, part_num, unit_price FROM orvan.product"
                                       " ORDER BY length(part_num), part_num");
        while (rows.next()) {
            text.append(rows.text(0)).append("|").append(rows.text(1)).append("|");
            text.append(rows.isNull(2) ? "none" : Currency::fromScaled(rows.integer(2)).toText()).append("\n");
        }
        return text;
    }
    /// Both sorted, because the server does not know the language's order.
    static std::multiset<std::string> lines(const std::string& text)
    {
        std::multiset<std::string> all;
        std::istringstream stream(text);
        for (std::string line; std::getline(stream, line);) {
            all.insert(line);
        }
        return all;
    }
    bool follows() const
    {
        return becomes([this] { return isCatalogue(copied()) && lines(copy()) == lines(onServer()); });
    }

    PostgresCluster& cluster = PostgresCluster::shared();
    const std::string database = cluster.newDatabase();
    TemporaryFolder folder;
};

TEST_F(CatalogueSyncTest, BringsAllEntriesAndThenEachChangeOfWhichItIsNotified)
{
    insert(1, 2'000);
    CatalogueSync sync(options());
    ASSERT_TRUE(follows());
    const std::string changes[] = {
        "UPDATE orvan.product SET unit_price = 77777 WHERE part_num = 'B-5'",
        "DELETE FROM orvan.product WHERE part_num IN ('B-6', 'B-7')",
        "INSERT INTO orvan.product (name, part_num) VALUES ('Bolt 6', 'B-6'), ('Mutter', 'M''); DROP TABLE x; --')",
        "UPDATE orvan.product SET name = upper(name)",
        "DELETE FROM orvan.product",
    };
    forEachRow(changes, [&](const std::string& change) {
        run(change);
        EXPECT_TRUE(follows()); // it would ask after a minute
    });
    EXPECT_EQ(sync.state().problem.english(), "");
    EXPECT_TRUE(sync.state().brought && sync.state().checked && !sync.state().percent);
}

TEST_F(CatalogueSyncTest, AReaderIsEnoughAndWithoutNotificationsTheServerIsAsked)
{
    insert(1, 10);
    run("CREATE ROLE sync_reader LOGIN IN ROLE orvan_reader; CREATE ROLE sync_nobody LOGIN");
    CatalogueSyncOptions reader = polling();
    reader.uri = uri("sync_reader");
    {
        const CatalogueSync sync(reader);
        ASSERT_TRUE(follows());
        run("UPDATE orvan.product SET unit_price = 1 WHERE part_num = 'B-5'");
        EXPECT_TRUE(follows());
    }
    CatalogueSyncOptions nobody = options();
    nobody.uri = uri("sync_nobody");
    const CatalogueSync sync(nobody);
    EXPECT_TRUE(becomes([&] { return !sync.state().problem.empty(); }));
    EXPECT_THAT(sync.state().problem.english(), HasSubstr("sync_nobody"));
    run("DROP ROLE sync_reader; DROP ROLE sync_nobody");
}

TEST_F(CatalogueSyncTest, AFirstCopyGoesOnWhereTheServerOrTheDeskHasEnded)
{
    insert(1, 3'000);
    struct Row {
        const char* name;
        bool serverEnds;
    };
    const Row rows[] = {{"the server is killed", true}, {"the desk ends", false}};
    forEachRow(rows, [&](const Row& row) {
        std::filesystem::remove_all(folder / "copy");
        std::promise<void> half, goOn;
        std::atomic<int> told = 0, afterwards = 100;
        CatalogueSyncOptions watched = options();
        watched.changed = [&, goesOn = goOn.get_future().share()](const CatalogueCopyState& state) {
            // The entries come in the first fifth.
            if (state.percent.value_or(0) >= 8 && state.percent.value_or(0) < 20 && told++ == 0) {
                half.set_value();
                goesOn.wait();
            }
        };
        auto sync = std::make_unique<CatalogueSync>(watched);
        ASSERT_EQ(half.get_future().wait_for(20s), std::future_status::ready);
        // What has come already changes meanwhile.
        run("UPDATE orvan.product SET unit_price = unit_price + 1 WHERE id % 10 = 0; "
            "DELETE FROM orvan.product WHERE id IN (11, 2011)");
        insert(11, 11);
        if (row.serverEnds) {
            cluster.kill();
            goOn.set_value();
            EXPECT_TRUE(becomes([&] { return !sync->state().problem.empty(); }));
            EXPECT_FALSE(isCatalogue(copied())) << "half a version";
            cluster.start();
        } else {
            std::thread ending([&] { sync.reset(); });
            goOn.set_value();
            ending.join();
            CatalogueSyncOptions next = options();
            next.changed = [&](const CatalogueCopyState& state) {
                const int percent = state.percent.value_or(0);
                afterwards = percent > 0 ? std::min<int>(afterwards, percent) : afterwards.load();
            };
            sync = std::make_unique<CatalogueSync>(next);
        }
        EXPECT_TRUE(follows());
        EXPECT_GE(afterwards, 8) << "it did not begin again";
        EXPECT_TRUE(becomes([&] { return sync->state().problem.empty(); }));
        EXPECT_FALSE(std::filesystem::exists(folder / "copy/arriving.sqlite"));
    });
}

TEST_F(CatalogueSyncTest, ANetworkThatIsDeadOrCutDelaysChangesAndNoLookUp)
{
    insert(1, 300);
    Proxy network(cluster.socket(), folder.path());
    CatalogueSyncOptions remote = polling();
    remote.uri = ServerUri("postgresql://owner@/" + database + "?host=" + folder.path().string());
    remote.silence = 300ms;
    remote.connecting = 300ms;
    const CatalogueSync sync(remote);
    ASSERT_TRUE(follows());
    SqliteCatalogue desk({.file = copied()});
    std::atomic<bool>* const faults[] = {&network.drops, &network.cuts};
    for (std::atomic<bool>* const fault : faults) {
        SCOPED_TRACE(fault == &network.drops ? "drops" : "cuts");
        *fault = true;
        EXPECT_TRUE(becomes([&] { return !sync.state().problem.empty(); }));
        run("UPDATE orvan.product SET unit_price = unit_price + 10000");
        const auto begin = steady_clock::now();
        for (int i = 0; i < 20; ++i) {
            EXPECT_EQ(desk.GetPartNumList("b-7", false).value_or(std::vector<LookUpRow>()).size(), 11U);
        }
        EXPECT_LT(steady_clock::now() - begin, 2s);
        EXPECT_NE(lines(copy()), lines(onServer()));
        *fault = false;
        EXPECT_TRUE(follows());
        EXPECT_TRUE(becomes([&] { return sync.state().problem.empty(); }));
    }
}

/// Each import gives all entries the same price, so two prices in one list are two versions.
TEST_F(CatalogueSyncTest, NoDeskSeesHalfAnImport)
{
    insert(1, 1'000);
    CatalogueSyncOptions frequent = options();
    frequent.limits = {
        .onTop = 400, .layersBetween = 2, .fewChanges = 1'500, .lowestByChanges = 1, .atOnceByChanges = 0};
    const CatalogueSync sync(frequent);
    ASSERT_TRUE(follows());
    run("UPDATE orvan.product SET unit_price = 10000");
    ASSERT_TRUE(follows());
    std::atomic<bool> imports = true;
    std::thread importer([&] {
        ServerConnection writer(uri());
        for (int price = 2; price <= 12; ++price) {
            writer.execute("UPDATE orvan.product SET unit_price = $1", std::int64_t{price} * 10'000);
        }
        imports = false;
    });
    SqliteCatalogue desk({.file = copied()});
    std::set<std::string> seen;
    int lists = 0, mixed = 0, missing = 0;
    const auto look = [&] {
        std::set<std::string> prices;
        const LookUpList rows = desk.GetPartNumList("b-" + std::to_string(1 + lists % 9), false);
        for (const LookUpRow& row : rows.value_or(std::vector<LookUpRow>())) {
            desk.SeekItem(static_cast<std::int32_t>(row.itemId));
            prices.insert(desk.IsEOF() ? "missing" : std::get<Currency>(desk.GetFieldValue(6)).toText());
        }
        ++lists;
        missing += static_cast<int>(prices.count("missing"));
        mixed += prices.size() == 1 ? 0 : 1;
        seen.insert(prices.begin(), prices.end());
    };
    while (imports || !seen.contains("12")) {
        look();
        ASSERT_LT(lists, 1'000'000);
    }
    importer.join();
    EXPECT_EQ(mixed, 0) << "of " << lists;
    EXPECT_EQ(missing, 0);
    EXPECT_GT(seen.size(), 2U) << "versions between the first and the last one";
    EXPECT_TRUE(follows());
}

TEST_F(CatalogueSyncTest, ACopyThatIsOfNoUseIsMadeAnew)
{
    insert(1, 50);
    struct Row {
        const char* name;
        std::string sql;
        std::function<void(CatalogueSync&)> also = [](CatalogueSync&) {};
    };
    const Row rows[] = {
        {"another catalogue", "UPDATE orvan.state SET lineage = 'other'; UPDATE orvan.product SET name = 'other'"},
        {"the server was set back",
         "UPDATE orvan.product SET name = 'later'; SET session_replication_role = replica;"
         " UPDATE orvan.product SET name = 'earlier', revision = 1;"
         " UPDATE orvan.state SET revision = 1; DELETE FROM orvan.change WHERE revision > 1"},
        {"the server has lost a change and made another one",
         "UPDATE orvan.change SET stamp = 'other' WHERE revision = (SELECT revision FROM orvan.state);"
         " SET session_replication_role = replica; UPDATE orvan.product SET name = 'without the change' WHERE id = 1;"
         " SET session_replication_role = origin; UPDATE orvan.product SET name = 'another change' WHERE id = 2"},
        {"another language", "UPDATE orvan.state SET language = 'sv'"},
        {"the copy is damaged", "SELECT 1",
         [&](CatalogueSync& sync) {
             std::filesystem::resize_file(copied(), 5'000);
             sync.replaceDamaged();
         }},
    };
    CatalogueSync sync(options());
    ASSERT_TRUE(follows());
    forEachRow(rows, [&](const Row& row) {
        const auto before = std::filesystem::last_write_time(copied());
        run(row.sql);
        row.also(sync);
        sync.bringNow(); // not all of these notify
        EXPECT_TRUE(becomes([&] { return std::filesystem::last_write_time(copied()) != before; }));
        EXPECT_TRUE(becomes([&] { return errorOf([&] { static_cast<void>(copy()); }) == 0; }));
        EXPECT_TRUE(follows());
        EXPECT_TRUE(becomes([&] { return sync.state().problem.empty(); }));
    });
    SqliteFile file = openCatalogue(copied());
    EXPECT_EQ(catalogueOrigin(file).language, "sv");
}

TEST_F(CatalogueSyncTest, DamageIsMendedThatADeskFindsWhichDoesNotBringTheChanges)
{
    insert(1, 50);
    const CatalogueSync first(polling());
    ASSERT_TRUE(follows());
    CatalogueSync second(options());
    std::filesystem::resize_file(copied(), 5'000);
    second.replaceDamaged();
    EXPECT_TRUE(becomes([&] { return errorOf([&] { static_cast<void>(copy()); }) == 0; }));
    EXPECT_TRUE(follows());
    EXPECT_TRUE(becomes([&] { return !std::filesystem::exists(folder / "copy/damaged"); }));
}

TEST_F(CatalogueSyncTest, DesksShareACopyAndAnotherOneTakesOver)
{
    insert(1, 50);
    auto first = std::make_unique<CatalogueSync>(options());
    ASSERT_TRUE(follows());
    const CatalogueSync second(options());
    EXPECT_TRUE(becomes([&] { return second.state().checked.has_value(); }));
    EXPECT_FALSE(second.state().brought);
    first.reset();
    insert(51, 60);
    EXPECT_TRUE(follows()) << "by the second one";
    EXPECT_TRUE(second.state().brought);
}

TEST_F(CatalogueSyncTest, ACatalogueIsNamedByItsUriAndThePasswordIsNeverShown)
{
    insert(1, 3);
    run("DROP ROLE IF EXISTS sync_secret; CREATE ROLE sync_secret LOGIN PASSWORD 'oPen%sesame'"
        " IN ROLE orvan_reader, with_password");
    const auto named = [&](const std::string& password) {
        return "postgresql://sync_secret:" + password + "@/" + database + "?host=" + cluster.folder().string();
    };
    std::mutex mutex;
    std::string told;
    const auto tell = [&](const std::string& text) {
        const std::lock_guard lock(mutex);
        told += text + "\n";
    };
    const auto isTold = [&](const char* text) {
        const std::lock_guard lock(mutex);
        return told.find(text) != told.npos;
    };
    /// How many rows are found; 0 once the text is told.
    const auto lookUp = [&](const std::string& name, const char* text) {
        CatalogueOptions catalogue{.file = name, .copies = folder / "copies"};
        catalogue.report = [&](const UserText& reason) { tell(reason.english()); };
        catalogue.copyChanged = [&](const CatalogueCopyState& state) {
            tell(state.server + state.copy.string() + state.problem.english());
        };
        const auto factory = catalogueFactory(catalogue);
        std::size_t rows = 0;
        EXPECT_TRUE(becomes([&] {
            const auto found = std::dynamic_pointer_cast<ProductLkpMgr>(factory());
            rows = found->GetPartNumList("", true).value_or(std::vector<LookUpRow>()).size();
            return rows > 0 || isTold(text);
        }));
        return rows;
    };
    EXPECT_EQ(lookUp(named("wrong%20one"), "authentication failed"), 0U);
    EXPECT_EQ(lookUp("postgresql://host:port:unsaid/", "address of the server is wrong"), 0U);
    EXPECT_EQ(lookUp(named("oPen%25sesame"), "(never told)"), 3U);
    for (const char* const secret : {"sesame", "wrong one", "wrong%20", "unsaid"}) {
        EXPECT_FALSE(isTold(secret)) << told;
    }
    run("DROP ROLE sync_secret");
}

} // namespace
} // namespace orvan::test

// The connection to a server, and the URI that names one.

#include "orvan/components/catalogue/server/ServerConnection.h"
#include "orvan/components/catalogue/server/ServerSchema.h"
#include "tests/server/PostgresCluster.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"

#include <gmock/gmock.h>

#include <thread>

namespace orvan::test {

namespace {

using namespace std::chrono_literals;

ServerUri newCatalogue()
{
    PostgresCluster& cluster = PostgresCluster::shared();
    ServerUri uri(cluster.uri(cluster.newDatabase()));
    ServerConnection server(uri);
    setUpServer(server);
    return uri;
}

TEST(ServerConnection, ChangesByPlainSqlGetRevisionsAndNotify)
{
    const ServerUri uri = newCatalogue();
    ServerConnection listener(uri), writer(uri);
    listener.run("LISTEN orvan");
    EXPECT_EQ(listener.wait(0ms), ServerWait::timedOut);
    writer.run(
        "INSERT INTO orvan.product (name, part_num, unit_price) VALUES ('Bolt', 'B-1', 12500), ('Nut', 'N-1', NULL)");
    EXPECT_EQ(listener.wait(5s), ServerWait::notified);
    writer.run("DELETE FROM orvan.product WHERE part_num = 'B-1'");
    EXPECT_EQ(writer.number("SELECT id * 10 + revision FROM orvan.product"), 21);
    EXPECT_EQ(writer.number("SELECT id * 10 + revision FROM orvan.gone"), 12);
    EXPECT_EQ(serverState(listener).revision, 2);
    EXPECT_EQ(serverState(listener).nextNumber, 3);
}

TEST(ServerConnection, AnotherThreadWakesAndCancels)
{
    ServerSignal signal;
    ServerConnection server(ServerUri(PostgresCluster::shared().uri("postgres")), {.signal = &signal});
    std::thread([&] { signal.wake(); }).join();
    EXPECT_EQ(server.wait(10s), ServerWait::woken);
    EXPECT_EQ(server.wait(1ms), ServerWait::timedOut);
    std::thread canceller([&] {
        std::this_thread::sleep_for(50ms);
        signal.cancel();
    });
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_NE(errorOf([&] { server.run("SELECT pg_sleep(60)"); }), 0);
    canceller.join();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 10s);
}

TEST(ServerConnection, CopiesInAndOut)
{
    const ServerUri uri = newCatalogue();
    ServerConnection server(uri);
    EXPECT_EQ(server.copyIn("COPY orvan.product (name, note) FROM STDIN",
                            [](const ServerConnection::Put& put) {
                                for (int i = 0; i < 10'000; ++i) {
                                    put("Name " + std::to_string(i) + "\ta note\n");
                                }
                            }),
              10'000);
    std::int64_t rows = 0;
    server.copyOut("COPY orvan.product TO STDOUT", [&](std::string_view row) { rows += row.ends_with('\n') ? 1 : 0; });
    EXPECT_EQ(rows, 10'000);
    EXPECT_EQ(server.number("SELECT max(id) FROM orvan.product"), 10'000);
}

} // namespace

} // namespace orvan::test

// The schema on a server: who can make it, changes by plain SQL, and servers that do not answer.

#include "tests/server/ServerFixture.h"

#include <chrono>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace orvan::test {

namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;

class ServerSchema : public ServerFixture {};

TEST_F(ServerSchema, IsMadeOnceAndByNewerProgramsOnly)
{
    EXPECT_EQ(setUpServer(owner), ServerSetUp::unchanged);
    owner.run("UPDATE orvan.state SET version = 1000");
    for (const Raised& raised :
         {raisedBy([&] { setUpServer(owner); }), raisedBy([&] { static_cast<void>(serverState(owner)); })}) {
        EXPECT_EQ(raised.number, 321);
        EXPECT_THAT(raised.description, HasSubstr("a newer version of this program"));
    }
}

TEST_F(ServerSchema, AllOrNothing)
{
    ServerConnection other(ServerUri(cluster().uri(cluster().newDatabase())));
    other.run("CREATE SCHEMA orvan; CREATE TABLE orvan.product ()");
    EXPECT_EQ(errorOf([&] { setUpServer(other); }), 321);
    EXPECT_EQ(other.number("SELECT count(*) FROM pg_tables WHERE schemaname = 'orvan'"), 1);
    const std::string user = newUser();
    ServerConnection unprivileged(ServerUri(cluster().uri(cluster().newDatabase(), user)));
    EXPECT_EQ(errorOf([&] { setUpServer(unprivileged); }), 75);
    owner.run("DROP DATABASE IF EXISTS in_latin1");
    owner.run("CREATE DATABASE in_latin1 ENCODING 'LATIN1' LOCALE 'C' TEMPLATE template0");
    ServerConnection latin(ServerUri(cluster().uri("in_latin1")));
    EXPECT_THAT(raisedBy([&] { setUpServer(latin); }).description, HasSubstr("has the encoding LATIN1"));
}

const struct {
    const char *name, *sql;
    const char* entries; ///< Afterwards; or what the server says.
} kChanges[] = {
    {"a new entry", "INSERT INTO orvan.product (name) VALUES (' New ')", "1 Bolt 10000 1, 2 Nut 20000 1, 3 New - 2"},
    {"own ids",
     "INSERT INTO orvan.product (own_id, name) VALUES ('077', 'A'), ('1', 'B'), ('x', 'C'), ('4294967297', 'D')",
     "1 Bolt 10000 1, 2 Nut 20000 1, 3 B - 2, 4 C - 2, 5 D - 2, 77 A - 2"},
    {"an own id with zeros, that is there", "INSERT INTO orvan.product (own_id, name) VALUES ('7', 'A'), ('007', 'B')",
     "product_id_key"},
    {"a price", "UPDATE orvan.product SET unit_price = 5 WHERE id = 2", "1 Bolt 10000 1, 2 Nut 5 2"},
    {"one that goes and comes back",
     "DELETE FROM orvan.product WHERE id = 1; INSERT INTO orvan.product (part_num, name)"
     " VALUES ('B', 'Again')",
     "1 Again - 2, 2 Nut 20000 1"},
    {"two revisions",
     "UPDATE orvan.product SET name = 'X' WHERE id = 1; COMMIT; BEGIN;"
     "UPDATE orvan.product SET name = 'Y' WHERE id = 2",
     "1 X 10000 2, 2 Y 20000 3"},
    {"another id", "UPDATE orvan.product SET id = 9 WHERE id = 1", "an entry keeps its id: 1 cannot become 9"},
    {"another id later", "UPDATE orvan.product SET name = 'X'; UPDATE orvan.product SET id = 9 WHERE id = 1",
     "an entry keeps its id: 1 cannot become 9"},
    {"an id of another", "DELETE FROM orvan.product WHERE id = 1; INSERT INTO orvan.product (id, name) VALUES (1, 'X')",
     "the id 1 was that of another entry, Bolt"},
    {"an own id twice", "INSERT INTO orvan.product (own_id, name) VALUES ('x', 'A'), ('x', 'B')", "product_id_key"},
    {"without texts", "INSERT INTO orvan.product (name, part_num) VALUES (' ', '')", "product_has_name_or_part_num"},
    {"a negative price", "UPDATE orvan.product SET unit_price = -1", "unit_price_check"},
    {"all at once", "TRUNCATE orvan.product", "use DELETE"},
};

TEST_F(ServerSchema, PlainSqlKeepsItInOrder)
{
    forEachRow(kChanges, [&](const auto& row) {
        owner.run("DROP SCHEMA orvan CASCADE");
        setUpServer(owner);
        owner.run(
            "INSERT INTO orvan.product (name, part_num, unit_price) VALUES ('Bolt', 'B', 10000), ('Nut', 'N', 20000)");
        std::string found;
        try {
            owner.transaction("BEGIN", [&] { owner.run(row.sql); });
            found = entries();
        } catch (const ServerError& error) {
            found = error.description();
            EXPECT_EQ(serverState(owner).revision, 1);
        }
        EXPECT_THAT(found, HasSubstr(row.entries));
    });
}

TEST_F(ServerSchema, ALaterImportFindsWhatSqlHasChanged)
{
    import("name,part number,price\nBolt,B,1\nNut,N,2\n");
    owner.run("UPDATE orvan.product SET part_num = 'B-2' WHERE id = 1; UPDATE orvan.product SET part_num = 'N-2' WHERE "
              "id = 2");
    import("name,part number,price\nBolt,B-2,3\nNut,N,4\n");
    EXPECT_EQ(entries(), "1 Bolt 30000 3, 2 Nut 20000 2, 3 Nut 40000 3");
}

TEST_F(ServerSchema, AnotherPastIsNoticed)
{
    import("name,part number,price\nBolt,B,1\n");
    const ServerState before = serverState(owner);
    EXPECT_TRUE(serverKnows(owner, before.revision, before.stamp));
    // A backup of revision 0 comes back, and another change gets revision 1.
    owner.run("DELETE FROM orvan.change WHERE revision = 1; UPDATE orvan.state SET revision = 0");
    import("name,part number,price\nNut,N,1\n");
    EXPECT_EQ(serverState(owner).revision, before.revision);
    EXPECT_EQ(serverState(owner).lineage, before.lineage);
    EXPECT_FALSE(serverKnows(owner, before.revision, before.stamp));
}

TEST_F(ServerSchema, AServerThatDoesNotAnswer)
{
    // A socket that takes connections and says nothing.
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const std::string path = (folder / ".s.PGSQL.5432").string();
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const int silent = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(silent, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(silent, 1), 0);
    try {
        const ServerConnection server(ServerUri("postgresql:///x?host=" + folder.path().string()),
                                      {.connecting = 200ms});
        ADD_FAILURE() << "connected";
    } catch (const ServerError& error) {
        EXPECT_EQ(error.kind(), ServerFailure::Kind::timedOut);
        EXPECT_TRUE(error.isTemporary());
        EXPECT_EQ(error.number(), 75);
    }
    const std::string both = folder.path().string() + "," + cluster().folder().string();
    const ServerUri second("postgresql://owner@/" + database + "?host=" + both);
    EXPECT_EQ(ServerConnection(second, {.connecting = 500ms}).number("SELECT 7"), 7);
    ::close(silent);
    ServerConnection server(uri, {.silence = 200ms});
    try {
        server.run("SELECT pg_sleep(60)");
        ADD_FAILURE() << "slept";
    } catch (const ServerError& error) {
        EXPECT_EQ(error.kind(), ServerFailure::Kind::timedOut);
    }
    EXPECT_EQ(errorOf([&] { server.run("SELECT 1"); }), 75);
}

} // namespace

} // namespace orvan::test

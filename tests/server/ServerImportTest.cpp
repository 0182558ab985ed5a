// Imports into a server's catalogue: what they change, numbers, refused rows, rights, and what ends them.

#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/components/catalogue/CatalogueImport.h"
#include "tests/server/ServerFixture.h"

#include <atomic>
#include <map>
#include <thread>

namespace orvan::test {

namespace {

using Outcome = CatalogueImportResult::Outcome;
const std::string kHeader = "id,name,part number,price\n";

class ServerImport : public ServerFixture {
protected:
    /// Each entry's number by its texts, as the catalogue file has them.
    static std::map<std::string, std::int64_t> numbersIn(const std::filesystem::path& file)
    {
        std::map<std::string, std::int64_t> numbers;
        SqliteFile catalogue = openCatalogue(file);
        SqliteStatement all(catalogue, "SELECT item_id, name || '/' || part_num FROM product");
        for (SqliteRows rows = all.query(); rows.next();) {
            numbers[std::string(rows.text(1))] = rows.integer(0);
        }
        return numbers;
    }
    std::map<std::string, std::int64_t> numbersOnServer()
    {
        std::map<std::string, std::int64_t> numbers;
        ServerRows rows = owner.query("SELECT id, name || '/' || part_num FROM orvan.product");
        while (rows.next()) {
            numbers[std::string(rows.text(1))] = rows.integer(0);
        }
        return numbers;
    }
    std::string many(int rows) const
    {
        std::string list = kHeader;
        for (int row = 0; row < rows; ++row) {
            const std::string number = std::to_string(row);
            list.append(",Name ").append(number).append(",P").append(number).append(",1.50\n");
        }
        return list;
    }
};

TEST_F(ServerImport, AddsChangesRemovesAndBringsBack)
{
    const ServerImportResult first = import(kHeader + ",Bolt,B,1.50\n,Nut,N,\n,Washer,W,2\n");
    EXPECT_EQ(first.list.outcome, Outcome::imported);
    EXPECT_EQ(first.added, 3);
    EXPECT_EQ(entries(), "1 Bolt 15000 1, 2 Nut - 1, 3 Washer 20000 1");
    const ServerImportResult second = import(kHeader + ",Bolt,B,1.50\n,Nut,N,3\n,Screw,S,1.25\n");
    EXPECT_EQ(second.added * 100 + second.changed * 10 + second.removed, 110);
    EXPECT_EQ(entries(), "1 Bolt 15000 1, 2 Nut 30000 2, 3 Washer 20000 1, 4 Screw 12500 2");
    const ServerImportResult third = import(kHeader + ",Screw,S,1.25\n", {.removeMissing = true});
    EXPECT_EQ(third.removed, 3);
    EXPECT_EQ(entries(), "4 Screw 12500 2");
    EXPECT_EQ(gone(), "1 Bolt 3, 2 Nut 3, 3 Washer 3");
    import(kHeader + ",Nut,N,3\n,Rivet,R,1.25\n");
    EXPECT_EQ(entries(), "2 Nut 30000 4, 4 Screw 12500 2, 5 Rivet 12500 4");
    EXPECT_EQ(gone(), "1 Bolt 3, 3 Washer 3");
    EXPECT_EQ(serverState(owner).source, "list.csv");
}

/// Lists that are imported one after the other, without blanks: rows have ids, names and part numbers.
const struct {
    const char* name;
    std::vector<std::string> lists;
} kNumbered[] = {
    {"new entries between", {"/A/1 /B/2", "/A/1 /C/3 /B/2 /D/4"}},
    {"another name", {"/A/1 /B/2", "/AA/1 /B/2"}},
    {"another part number", {"/A/1", "/A/2"}},
    {"without part numbers", {"/A/ /B/", "/B/ /C/ /A/"}},
    {"missing between", {"/A/1 /B/2", "/B/2", "/C/3 /A/1 /B/2"}},
    {"own ids that are numbers", {"7/A/1 9/B/2", "9/B/2 8/C/3 7/X/4"}},
    {"own ids with leading zeros", {"007/A/1", "7/B/1"}},
    {"own ids that are texts", {"x/A/1 y/B/2", "y/A/1 x/B/2 z/C/3"}},
    {"own ids at the limits", {"2147483647/A/1 -2147483648/B/2 2147483648/C/3 0/D/4", "2147483648/C/3 /E/5"}},
    {"numbers that own ids have taken", {"2/A/1 3/B/2 x/C/3 y/D/4 z/E/5"}},
    {"an own id that is another's number", {"x/A/1 y/B/2", "2/C/3 x/A/1 y/B/2"}},
    {"own ids that come later", {"/A/1 /B/2", "5/A/1 6/B/2"}},
    {"the same part number, other names", {"/A/1 /B/1", "/B/1 /A/1", "/C/1 /B/1"}},
    {"the same in all", {"/A/1 /A/1 /B/2", "/B/2 /A/1 /A/1"}},
};

std::string listOf(const std::string& rows)
{
    std::string list = kHeader;
    for (const char c : rows + ' ') {
        list.append(c == '/' ? "," : c == ' ' ? ",1\n" : std::string(1, c));
    }
    return list;
}

TEST_F(ServerImport, GivesTheNumbersThatAFileGives)
{
    forEachRow(kNumbered, [&](const auto& row) {
        owner.run("BEGIN; DELETE FROM orvan.product; DELETE FROM orvan.gone; UPDATE orvan.state SET next_number = 1;"
                  "COMMIT");
        std::filesystem::remove(folder / "goods");
        for (const std::string& rows : row.lists) {
            import(listOf(rows), {.removeMissing = true});
            importCatalogue(folder / "list.csv", folder / "goods");
            EXPECT_EQ(numbersOnServer(), numbersIn(folder / "goods")) << rows;
        }
    });
}

TEST_F(ServerImport, RefusedRowsChangeNothingUnlessTheyAreLeftOut)
{
    const std::string list = kHeader + "1,A,P1,1\n2,B,P2,x\n1,C,P3,3\n4,D,P4,4\n01,E,P5,5\n";
    const ServerImportResult refused = import(list);
    EXPECT_EQ(refused.list.outcome, Outcome::refused);
    EXPECT_EQ(entries(), "");
    std::string report;
    CatalogueImportOptions options{.skipBadRows = true};
    options.eachRefused = [&](const RefusedRow& row, const auto& cells) {
        report.append(std::to_string(row.line)).append(1, ' ').append(cells.at(1)).append("; ");
    };
    const ServerImportResult imported = import(list, {}, options);
    EXPECT_EQ(imported.list.outcome, Outcome::imported);
    EXPECT_EQ(entries(), "1 A 10000 1, 4 D 40000 1");
    EXPECT_EQ(report, "3 B; 4 C; 6 E; ");
    ASSERT_EQ(imported.list.refused.size(), 3U);
    EXPECT_EQ(imported.list.refused[2].reason, "the item id \"01\" is in an earlier row, too");
    const ServerImportResult zero =
        import(kHeader + ",A" + std::string(1, '\0') + "B,P1,1\n", {}, {.encoding = "UTF-8"});
    ASSERT_EQ(zero.list.refused.size(), 1U);
    EXPECT_EQ(zero.list.refused[0].reason, "a text has a character 0, which the server cannot keep");
}

TEST_F(ServerImport, TextsAreOnlyTexts)
{
    const char* const kTexts[] = {
        "'); DROP TABLE orvan.product; --", "$1 {rows} %s", "\\N", "\\.", "a\tb", "a\nb\r\nc", "\\",
        "\xF0\x9F\x94\xA9 \xC3\x84",        "\"quoted\""};
    forEachRow(kTexts, [&](const char* text) {
        std::string cell;
        for (const char c : std::string_view(text)) {
            cell.append(c == '"' ? 2 : 1, c);
        }
        import(kHeader + ",\"" + cell + "\",P,1\n", {}, {.sourceName = text});
        EXPECT_EQ(shown(owner, "SELECT name FROM orvan.product", 1), text);
        EXPECT_EQ(serverState(owner).source, text);
    });
    import(kHeader + ",," + std::string(100'000, 'x') + ",1\n,," + std::string(99'999, 'x') + "y,2\n");
    import(kHeader + ",," + std::string(100'000, 'x') + ",3\n");
    EXPECT_EQ(shown(owner, "SELECT id, unit_price, right(part_num, 1) FROM orvan.product WHERE id > 1 ORDER BY id", 3),
              "2 30000 x, 3 20000 y");
}

TEST_F(ServerImport, WithoutTemporaryTables)
{
    owner.run(("REVOKE TEMPORARY ON DATABASE " + database + " FROM PUBLIC").c_str());
    const std::string importer = newUser();
    grantServerRole(owner, ServerRole::importer, importer);
    importAs(uriOf(importer), kHeader + ",Bolt,B,1.50\n,Nut,N,2\n");
    import(kHeader + ",Nut,N,3\n", {.removeMissing = true, .temporaryTables = false});
    EXPECT_EQ(entries(), "2 Nut 30000 2");
    EXPECT_EQ(owner.number("SELECT count(*) FROM orvan.incoming"), 0);
    EXPECT_EQ(owner.number("SELECT count(*) FROM orvan.incoming_number"), 0);
}

TEST_F(ServerImport, WithoutNotifications)
{
    owner.run("REVOKE EXECUTE ON FUNCTION pg_notify FROM PUBLIC");
    const std::string importer = newUser();
    grantServerRole(owner, ServerRole::importer, importer);
    importAs(uriOf(importer), kHeader + ",Bolt,B,1.50\n");
    EXPECT_EQ(entries(), "1 Bolt 15000 1");
}

TEST_F(ServerImport, RolesWithoutTheRight)
{
    const std::string reader = newUser(), nobody = newUser();
    grantServerRole(owner, ServerRole::reader, reader);
    import(kHeader + ",Bolt,B,1.50\n");
    const Raised byReader = raisedBy([&] { importAs(uriOf(reader), kHeader + ",Nut,N,1\n"); });
    EXPECT_EQ(byReader.number, 75);
    EXPECT_THAT(byReader.description, testing::EndsWith("needs the role orvan_importer"));
    const Raised byNobody = raisedBy([&] { importAs(uriOf(nobody), kHeader + ",Nut,N,1\n"); });
    EXPECT_EQ(byNobody.number, 75);
    EXPECT_THAT(byNobody.description, testing::EndsWith("needs the role orvan_reader"));
    ServerConnection asReader(uriOf(reader));
    for (const char* const statement :
         {"UPDATE orvan.product SET unit_price = 0", "DELETE FROM orvan.product", "DELETE FROM orvan.gone",
          "UPDATE orvan.state SET revision = 7", "INSERT INTO orvan.incoming (line) VALUES (1)",
          "INSERT INTO orvan.product (name) VALUES ('x')", "CREATE TABLE orvan.mine ()"}) {
        EXPECT_EQ(errorOf([&] { asReader.run(statement); }), 75) << statement;
    }
    EXPECT_EQ(entries(), "1 Bolt 15000 1");
}

TEST_F(ServerImport, TheSecondOfTwoImportsWaits)
{
    import(kHeader + ",Bolt,B,1\n,Nut,N,1\n");
    std::atomic<bool> waits = false;
    owner.run("BEGIN; UPDATE orvan.product SET unit_price = 20000 WHERE part_num = 'B'");
    ServerImportResult second;
    std::thread other([&] { second = import(kHeader + ",Nut,N,3\n,Screw,S,4\n", {.waits = [&] { waits = true; }}); });
    while (!waits) {
        std::this_thread::yield();
    }
    owner.run("INSERT INTO orvan.product (name, part_num) VALUES ('Rivet', 'R'); COMMIT");
    other.join();
    EXPECT_EQ(second.revision, 3);
    EXPECT_EQ(entries(), "1 Bolt 20000 2, 2 Nut 30000 3, 3 Rivet - 2, 4 Screw 40000 3");
}

TEST_F(ServerImport, ManyImportsAtOnceLoseNothing)
{
    constexpr int kImporters = 4, kRounds = 5;
    std::vector<std::thread> importers;
    importers.reserve(kImporters);
    for (int importer = 0; importer < kImporters; ++importer) {
        importers.emplace_back([&, importer] {
            const std::filesystem::path list = folder / ("list" + std::to_string(importer));
            for (int round = 0; round < kRounds; ++round) {
                const std::string own = std::to_string(importer) + "-" + std::to_string(round);
                std::string rows = kHeader;
                rows.append(",Own ").append(own).append(",").append(own).append(",1\n");
                rows.append(",Shared,S,").append(own.substr(2)).append("\n");
                writeText(list, rows);
                importToServer(list, uri);
            }
        });
    }
    for (std::thread& importer : importers) {
        importer.join();
    }
    EXPECT_EQ(owner.number("SELECT count(*) FROM orvan.product"), kImporters * kRounds + 1);
    EXPECT_EQ(owner.number("SELECT max(id) FROM orvan.product"), kImporters * kRounds + 1);
    EXPECT_EQ(serverState(owner).revision, kImporters * kRounds);
}

TEST_F(ServerImport, CancelledWhileItReadsOrWaits)
{
    import(kHeader + ",Bolt,B,1\n");
    CatalogueImportOptions options{.progress = [](const auto& progress) { return progress.rows < 3000; }};
    EXPECT_EQ(import(many(5000), {.removeMissing = true}, options).list.outcome, Outcome::cancelled);
    bool waits = false;
    ServerConnection other(uri);
    other.run("BEGIN; SELECT FROM orvan.state FOR UPDATE");
    options.progress = [&](const auto&) { return !waits; };
    EXPECT_EQ(import(many(10), {.waits = [&] { waits = true; }}, options).list.outcome, Outcome::cancelled);
    other.run("ROLLBACK");
    EXPECT_EQ(entries(), "1 Bolt 10000 1");
    options.progress = [](const auto&) -> bool { throw std::out_of_range("progress"); };
    EXPECT_THROW(import(many(5000), {}, options), std::out_of_range);
    EXPECT_EQ(entries(), "1 Bolt 10000 1");
}

TEST_F(ServerImport, ServerKilledInMidImport)
{
    import(kHeader + ",Bolt,B,1\n");
    // While the list is read, and while the catalogue is changed.
    for (const int step : {0, 3}) {
        bool killed = false;
        CatalogueImportOptions options{.progress = [&](const auto& progress) {
            if (!killed && progress.rows >= 2000 && progress.indexesBuilt >= step) {
                killed = true;
                cluster().kill();
            }
            return true;
        }};
        const Raised raised = raisedBy([&] { import(many(100'000), {.removeMissing = true}, options); });
        EXPECT_TRUE(killed);
        EXPECT_EQ(raised.number, 75);
        cluster().start();
        ServerConnection server(uri);
        EXPECT_EQ(shown(server, "SELECT id, name, revision FROM orvan.product", 3), "1 Bolt 1");
    }
    EXPECT_EQ(import(many(10)).added, 10);
}

} // namespace

} // namespace orvan::test

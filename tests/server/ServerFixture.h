// ServerFixture: an empty catalogue on the tests' server, imports into it, and what stands in it as text.
#pragma once

#include "orvan/components/catalogue/server/ServerConnection.h"
#include "orvan/components/catalogue/server/ServerImport.h"
#include "orvan/components/catalogue/server/ServerSchema.h"
#include "tests/server/PostgresCluster.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <string>

namespace orvan::test {

class ServerFixture : public testing::Test {
protected:
    ServerFixture() { setUpServer(owner); }

    static PostgresCluster& cluster() { return PostgresCluster::shared(); }
    /// A new user of the server, who may log in and nothing else.
    std::string newUser(const std::string& more = {})
    {
        std::string name = database + "_user" + std::to_string(++users_);
        owner.run(("CREATE ROLE " + name + " LOGIN " + more).c_str());
        return name;
    }
    ServerUri uriOf(const std::string& user) const { return ServerUri(cluster().uri(database, user)); }

    ServerImportResult import(const std::string& list, const ServerImportOptions& serverOptions = {},
                              const CatalogueImportOptions& options = {})
    {
        return importAs(uri, list, serverOptions, options);
    }
    ServerImportResult importAs(const ServerUri& as, const std::string& list,
                                const ServerImportOptions& serverOptions = {},
                                const CatalogueImportOptions& options = {})
    {
        writeText(folder / "list.csv", list);
        return importToServer(folder / "list.csv", as, options, serverOptions);
    }

    /// What a query gives: its columns with blanks between, its rows with commas between.
    static std::string shown(ServerConnection& server, const char* sql, int columns)
    {
        std::string text;
        ServerRows rows = server.query(sql);
        while (rows.next()) {
            text.append(text.empty() ? "" : ", ");
            for (int column = 0; column < columns; ++column) {
                text.append(column == 0 ? "" : " ").append(rows.isNull(column) ? "-" : rows.text(column));
            }
        }
        return text;
    }
    /// "id name price revision" of each entry, in the order of ids.
    std::string entries()
    {
        return shown(owner, "SELECT id, name, unit_price, revision FROM orvan.product ORDER BY id", 4);
    }
    std::string gone() { return shown(owner, "SELECT id, name, revision FROM orvan.gone ORDER BY id", 3); }

    TemporaryFolder folder;
    const std::string database = cluster().newDatabase();
    const ServerUri uri{cluster().uri(database)};
    ServerConnection owner{uri};

private:
    int users_ = 0;
};

} // namespace orvan::test

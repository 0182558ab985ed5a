// CatalogueFixture: a catalogue in a folder of the test's own, imports into it, and its lists as text.
#pragma once

#include "orvan/components/catalogue/Catalogue.h"
#include "orvan/components/catalogue/CatalogueImport.h"
#include "orvan/components/catalogue/SqliteFile.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <fstream>
#include <string>

namespace orvan::test {

class CatalogueFixture : public testing::Test {
protected:
    std::filesystem::path write(const std::string& content, const char* name = "list.csv") const
    {
        std::ofstream(folder / name, std::ios::binary) << content;
        return folder / name;
    }
    CatalogueImportResult import(const std::string& content, const CatalogueImportOptions& options = {}) const
    {
        return importCatalogue(write(content), file(), options);
    }
    std::filesystem::path file() const { return folder / "goods.catalogue"; }

    /// "1:Bolt 2:Nut", or "none".
    static std::string shown(const LookUpList& rows)
    {
        std::string text;
        for (const LookUpRow& row : rows.value_or(std::vector<LookUpRow>())) {
            text.append(text.empty() ? "" : " ").append(std::to_string(row.itemId)).append(":").append(row.text);
        }
        return rows ? text : "none";
    }

    TemporaryFolder folder;
};

} // namespace orvan::test

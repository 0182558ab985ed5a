// A directory of its own, files in it, and lists as text.
#pragma once

#include "orvan/components/catalogue/Catalogue.h"
#include "orvan/components/catalogue/CatalogueImport.h"
#include "orvan/components/catalogue/SqliteFile.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

namespace orvan::test {

class CatalogueFixture : public testing::Test {
protected:
    CatalogueFixture()
    {
        std::string name = testing::TempDir() + "orvan-catalogue-XXXXXX";
        directory = ::mkdtemp(name.data());
    }
    ~CatalogueFixture() override { std::filesystem::remove_all(directory); }

    std::filesystem::path write(const std::string& content, const char* name = "list.csv") const
    {
        std::ofstream(directory / name, std::ios::binary) << content;
        return directory / name;
    }
    CatalogueImportResult import(const std::string& content, const CatalogueImportOptions& options = {}) const
    {
        return importCatalogue(write(content), file(), options);
    }
    std::filesystem::path file() const { return directory / "goods.catalogue"; }

    /// "1:Bolt 2:Nut", or "none".
    static std::string shown(const LookUpList& rows)
    {
        std::string text;
        for (const LookUpRow& row : rows.value_or(std::vector<LookUpRow>())) {
            text.append(text.empty() ? "" : " ").append(std::to_string(row.itemId)).append(":").append(row.text);
        }
        return rows ? text : "none";
    }

    std::filesystem::path directory;
};

} // namespace orvan::test

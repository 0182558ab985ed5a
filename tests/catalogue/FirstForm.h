// FirstForm: a catalogue as version 2.1.30 wrote it.
#pragma once

#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/components/catalogue/SqliteFile.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvan::test {

struct FirstFormEntry {
    std::int64_t itemId;
    std::string_view name, partNum;
    std::int64_t unitPrice;
};

inline void makeFirstForm(const std::filesystem::path& path, const std::vector<FirstFormEntry>& entries)
{
    SqliteFile file(path, SqliteFile::Access::create);
    file.run("BEGIN;"
             "CREATE TABLE product (item_id INTEGER PRIMARY KEY, name_folded TEXT, part_num_folded TEXT, name TEXT,"
             " key TEXT, part_num TEXT, unit_price, note TEXT);"
             "CREATE INDEX product_name_folded ON product (name_folded, name);"
             "CREATE INDEX product_name ON product (name);"
             "CREATE INDEX product_part_num_folded ON product (part_num_folded, part_num);"
             "CREATE INDEX product_part_num ON product (part_num);");
    SqliteStatement insert(file, "INSERT INTO product VALUES (?, ?, ?, ?, 'key', ?, ?, 'note')");
    for (const FirstFormEntry& entry : entries) {
        const std::string name = foldCase(entry.name), partNum = foldCase(entry.partNum);
        insert.execute(entry.itemId, std::string_view(name), std::string_view(partNum), entry.name, entry.partNum,
                       entry.unitPrice);
    }
    file.run("PRAGMA application_id = 1332901451; PRAGMA user_version = 1; COMMIT");
}

} // namespace orvan::test

#include "orvan/components/catalogue/CatalogueColumns.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CaseFolding.h"

#include <algorithm>
#include <cctype>
#include <iterator>

namespace orvan {

namespace {

struct Kind {
    std::optional<std::size_t> CatalogueColumns::*column;
    std::string CatalogueImportOptions::ColumnNames::*given;
    const char* shown;
    bool required;
    std::vector<std::string_view>
        usual; ///< Names as simplifiedColumnName() returns them; the first that the header has is used.
};

using Names = CatalogueImportOptions::ColumnNames;
const Kind kKinds[] = {
    {&CatalogueColumns::itemId, &Names::itemId, "item id", false, {"itemid", "id", "productid", "articleid"}},
    {&CatalogueColumns::name,
     &Names::name,
     "name",
     true,
     {"name", "productname", "itemname", "articlename", "product", "article", "title"}},
    {&CatalogueColumns::key, &Names::key, "key", false, {"key", "productkey", "itemkey"}},
    {&CatalogueColumns::partNum,
     &Names::partNum,
     "part number",
     true,
     {"partnumber", "partnum", "partno", "part", "sku", "itemnumber", "itemno", "articlenumber", "articleno",
      "productnumber", "productno"}},
    {&CatalogueColumns::unitPrice, &Names::unitPrice, "unit price", true, {"unitprice", "price", "listprice"}},
    {&CatalogueColumns::note,
     &Names::note,
     "note",
     false,
     {"note", "notes", "remark", "remarks", "comment", "comments", "description"}},
};

std::string listed(const std::vector<std::string_view>& names)
{
    std::string list;
    for (const std::string_view name : names) {
        list.append(list.empty() ? "\"" : ", \"").append(name).append("\"");
    }
    return list;
}

} // namespace

std::string simplifiedColumnName(std::string_view name)
{
    std::string result = foldCase(name);
    std::erase_if(result, [](unsigned char c) { return c < 0x80 && std::isalnum(c) == 0; });
    return result;
}

const std::vector<std::string_view>& usualColumnNames(std::optional<std::size_t> CatalogueColumns::*column)
{
    return std::find_if(std::begin(kKinds), std::end(kKinds),
                        [column](const Kind& kind) { return kind.column == column; })
        ->usual;
}

CatalogueColumns findColumns(const std::vector<std::string_view>& header, const Names& names, const std::string& source)
{
    std::vector<std::string> present;
    std::transform(header.begin(), header.end(), std::back_inserter(present), simplifiedColumnName);
    CatalogueColumns columns;
    for (const Kind& kind : kKinds) {
        const std::string given = simplifiedColumnName(names.*kind.given);
        const std::vector<std::string_view> wanted = given.empty() ? kind.usual : std::vector<std::string_view>{given};
        for (const std::string_view name : wanted) {
            const auto found = std::find(present.begin(), present.end(), name);
            if (found != present.end()) {
                columns.*kind.column = static_cast<std::size_t>(found - present.begin());
                break;
            }
        }
        if (!(columns.*kind.column) && (kind.required || !given.empty())) {
            std::string reason = source;
            reason.append(": no column for the ").append(kind.shown).append(" (");
            reason.append(given.empty() ? std::string_view("usual names: ") : std::string_view("named: "));
            reason.append(given.empty() ? listed(wanted) : listed({names.*kind.given}));
            throw RuntimeError(ErrorNumber::invalidFileFormat, {},
                               reason.append("); the first line has ").append(listed(header)));
        }
    }
    return columns;
}

} // namespace orvan

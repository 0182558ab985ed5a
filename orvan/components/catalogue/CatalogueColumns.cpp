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
    UserText shown;
    bool required;
    std::vector<std::string_view>
        usual; ///< Names as simplifiedColumnName() returns them; the first that the header has is used.
};

using Names = CatalogueImportOptions::ColumnNames;
const Kind kKinds[] = {
    {&CatalogueColumns::itemId, &Names::itemId, userText("item id"), false, {"itemid", "id", "productid", "articleid"}},
    {&CatalogueColumns::name,
     &Names::name,
     userText("name"),
     true,
     {"name", "productname", "itemname", "articlename", "product", "article", "title"}},
    {&CatalogueColumns::key, &Names::key, userText("key"), false, {"key", "productkey", "itemkey"}},
    {&CatalogueColumns::partNum,
     &Names::partNum,
     userText("part number"),
     true,
     {"partnumber", "partnum", "partno", "part", "sku", "itemnumber", "itemno", "articlenumber", "articleno",
      "productnumber", "productno"}},
    {&CatalogueColumns::unitPrice,
     &Names::unitPrice,
     userText("unit price"),
     true,
     {"unitprice", "price", "listprice"}},
    {&CatalogueColumns::note,
     &Names::note,
     userText("note"),
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
            const UserText reason = given.empty()
                                        ? userText("no column for the %1 (usual names: %2); the first line has %3",
                                                   kind.shown, listed(wanted), listed(header))
                                        : userText("no column for the %1 (named: %2); the first line has %3",
                                                   kind.shown, listed({names.*kind.given}), listed(header));
            throw RuntimeError(ErrorNumber::invalidFileFormat, {}, userText("%1: %2", source, reason));
        }
    }
    return columns;
}

} // namespace orvan

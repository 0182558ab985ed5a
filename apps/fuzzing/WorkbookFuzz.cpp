// Workbooks. The first byte says what the rest is: "z" a whole file (.xlsx); "s" the XML of a sheet and "t" that of the
// shared texts, which are put into a file that is well formed otherwise, because no fuzzer invents checksums. What is
// read must keep the bounds of the reader, and be the same when it is read again.

#include "apps/fuzzing/FuzzTarget.h"
#include "orvan/components/catalogue/CaseFolding.h"
#include "orvan/components/catalogue/lists/WorkbookModule.h"

#include <zip.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <string>
#include <utility>

extern "C" orvan::WorkbookParts* orvanOpenWorkbookParts(orvan::WorkbookBytes& bytes);

namespace orvan::fuzz {
namespace {

class MemoryBytes final : public WorkbookBytes {
public:
    explicit MemoryBytes(std::string_view bytes) : bytes_(bytes) {}

    std::uint64_t size() const noexcept override { return bytes_.size(); }
    std::int64_t readAt(std::uint64_t place, char* into, std::uint64_t size) noexcept override
    {
        require(place + size <= bytes_.size(), "no byte behind the end is asked for");
        std::memcpy(into, bytes_.data() + place, size);
        return static_cast<std::int64_t>(size);
    }

private:
    const std::string_view bytes_;
};

/// A workbook with one sheet.
std::string packed(std::string_view sheet, std::string_view texts)
{
    constexpr std::string_view kRoot = "<R><R Id='1' Type='/officeDocument' Target='w.xml'/></R>";
    constexpr std::string_view kMain = "<w><sheets><sheet name='S' id='1'/></sheets></w>";
    constexpr std::string_view kParts = "<R><R Id='1' Type='/worksheet' Target='s.xml'/>"
                                        "<R Id='2' Type='/sharedStrings' Target='t.xml'/></R>";
    const auto relations = [](std::string_view text) {
        std::string result(text);
        for (std::size_t at = 0; (at = result.find("<R I", at)) != result.npos; ++at) {
            result.replace(at, 2, "<Relationship");
        }
        return result;
    };
    const std::string root = relations(kRoot), parts = relations(kParts);
    const std::array<std::pair<const char*, std::string_view>, 5> files = {
        {{"_rels/.rels", root}, {"w.xml", kMain}, {"_rels/w.xml.rels", parts}, {"s.xml", sheet}, {"t.xml", texts}}};
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* const target = zip_source_buffer_create(nullptr, 0, 0, &error);
    zip_source_keep(target);
    zip_t* const archive = zip_open_from_source(target, ZIP_TRUNCATE, &error);
    for (const auto& [name, content] : files) {
        zip_source_t* const source = zip_source_buffer(archive, content.data(), content.size(), 0);
        require(zip_file_add(archive, name, source, 0) >= 0, "a part is packed");
    }
    require(zip_close(archive) == 0, "the file is packed");
    zip_source_open(target);
    zip_stat_t stat;
    zip_source_stat(target, &stat);
    std::string bytes(stat.size, '\0');
    zip_source_read(target, bytes.data(), bytes.size());
    zip_source_close(target);
    zip_source_free(target);
    return bytes;
}

/// All rows of all sheets as one text, and the failure that ended them.
std::string contentOf(std::string_view file)
{
    MemoryBytes bytes(file);
    const std::unique_ptr<WorkbookParts> workbook(orvanOpenWorkbookParts(bytes));
    require(workbook != nullptr, "there is memory");
    std::string content;
    const auto isToldFailure = [](const WorkbookFailure& failure) {
        return failure.number == 0 || (failure.number == 321 && !failure.reason.empty());
    };
    require(isToldFailure(workbook->failure()), "a failure says what it is");
    for (std::size_t at = 0; workbook->failure().number == 0 && at < workbook->sheets().size(); ++at) {
        const std::unique_ptr<WorkbookSheet> sheet = workbook->open(at);
        require((sheet != nullptr) == (workbook->failure().number == 0), "a sheet is opened, or a failure is told");
        std::uint64_t line = 0;
        while (sheet && sheet->next()) {
            require(sheet->line() > line && sheet->line() <= 1'048'576, "rows go on");
            line = sheet->line();
            content += std::to_string(line) + ':';
            require(!sheet->cells().empty() && sheet->cells().size() <= 1000, "a row has cells, and not too many");
            for (std::size_t cell = 0; cell < sheet->cells().size(); ++cell) {
                const std::string_view text = sheet->cells()[cell];
                require(isUtf8(text), "cells are UTF-8");
                require(!sheet->isNumber(cell) || text.find_first_not_of("-0123456789.") == text.npos,
                        "a number is written plainly");
                content.append(text).append("|");
            }
            require(content.size() < std::size_t{512} * 1024 * 1024, "a sheet does not grow without end");
        }
        require(!sheet || isToldFailure(sheet->failure()), "a failure says what it is");
        content += sheet ? sheet->failure().reason.english() : "";
    }
    return content + workbook->failure().reason.english();
}

} // namespace

void runTarget(std::string_view input)
{
    const char kind = takeByte(input);
    std::string file(input);
    if (kind == 's') {
        file = packed(input, "<sst><si><t>shared</t></si></sst>");
    } else if (kind == 't') {
        file = packed("<w><row><c t='s'><v>0</v></c><c t='s'><v>1</v></c></row></w>", input);
    } else if (kind != 'z') {
        return;
    }
    require(contentOf(file) == contentOf(file), "a workbook is read in the same way each time");
}

} // namespace orvan::fuzz

#include "orvan/components/catalogue/lists/ListPreview.h"

#include "orvan/base/RuntimeError.h"

#include <fstream>
#include <utility>

namespace orvan {

namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kRowsBetweenReports = 1000;

[[noreturn]] void raise(const fs::path& source, const UserText& reason)
{
    throw RuntimeError(ErrorNumber::pathFileAccess, {}, userText("%1: %2", source.string(), reason));
}

std::unique_ptr<std::istream> openSource(const fs::path& file)
{
    std::error_code error;
    if (!fs::is_regular_file(file, error)) {
        raise(file, error ? UserText(error.message()) : userText("it is no file"));
    }
    auto stream = std::make_unique<std::ifstream>(file, std::ios::binary);
    if (!*stream) {
        raise(file, userText("it cannot be opened"));
    }
    return stream;
}

PreviewedRow previewed(const ListReader& reader)
{
    PreviewedRow row{.line = reader.line(), .cells = {reader.cells().begin(), reader.cells().end()}};
    row.kind = reader.kind();
    row.reason = reader.reason();
    if (row.kind == ListReader::Kind::entry) {
        row.unitPrice = reader.entry().unitPrice;
    }
    return row;
}

} // namespace

ImportSource importSource(const fs::path& file, const std::string& origin)
{
    std::error_code error;
    return {.name = file.string(),
            .origin = origin.empty() ? file.filename().string() : origin,
            .bytes = fs::is_regular_file(file, error) ? fs::file_size(file) : 0, // openSource refuses others
            .open = [file] { return openSource(file); }};
}

ListPreview previewList(const fs::path& file, const CatalogueImportOptions& options, std::size_t mostRows,
                        const std::function<bool()>& goesOn)
{
    const ImportSource source = importSource(file);
    ListReader reader(source, options);
    ListPreview preview;
    // Never cut short: without it the prices would be misread.
    static_cast<void>(reader.findPrices([](std::uint64_t /*bytesRead*/) { return true; }));
    preview.form = reader.form();
    preview.columns = reader.columns();
    preview.decimalSeparator = reader.decimalSeparator() != 0 ? reader.decimalSeparator() : '.';
    preview.ambiguousPrice = reader.ambiguousPrice();
    std::uint64_t count = 0;
    bool more = true;
    while ((preview.rows.size() < mostRows || count % kRowsBetweenReports != 0 || goesOn()) && (more = reader.next())) {
        ++count;
        const auto note = [&](std::vector<RefusedRow>& rows, std::uint64_t& counted) {
            if (++counted <= options.mostRefused) {
                rows.push_back({reader.line(), reader.reason()});
            }
        };
        switch (reader.kind()) {
        case ListReader::Kind::entry:
            ++preview.entries;
            preview.withoutPrice += reader.entry().unitPrice ? 0 : 1;
            break;
        case ListReader::Kind::skipped: note(preview.skipped, preview.skippedCount); break;
        case ListReader::Kind::refused: note(preview.refused, preview.refusedCount); break;
        }
        if (preview.rows.size() < mostRows) {
            preview.rows.push_back(previewed(reader));
        }
    }
    preview.complete = !more;
    return preview;
}

} // namespace orvan

#include "benchmarks/SampleCatalogue.h"

#include "benchmarks/TemporaryFiles.h"
#include "orvan/components/catalogue/CatalogueImport.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <vector>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace orvan::bench {

namespace {

constexpr const char* kThings[] = {"Angle bracket",  "Anchor, heavy duty", "Cable tie",       "Drill bit",
                                   "Hexagon bolt",   "Nut, self-locking",  "Pipe clamp",      "Sanding disc",
                                   "Threaded rod",   "Turnbuckle",         "Wall plug",       "Washer",
                                   "Werkzeugträger", "Wood screw",         "Écrou à ailettes"};
constexpr const char* kMaterials[] = {"zinc plated", "stainless A2", "stainless A4", "brass", "galvanized", "nylon"};

/// A number for each row, spread over all numbers of 32 bits; no two rows have the same.
std::uint32_t spread(std::size_t row)
{
    return static_cast<std::uint32_t>(row) * 2'654'435'761U;
}

/// Returns the file with that many rows; the first call for a number of rows makes the file.
template <class Make>
const std::filesystem::path& made(std::map<std::size_t, std::filesystem::path>& files, std::size_t rows,
                                  const char* name, Make make)
{
    const auto [place, isNew] = files.try_emplace(rows, temporaryFiles() / (std::to_string(rows).append(name)));
    if (isNew) {
        make(place->second);
    }
    return place->second;
}

std::ptrdiff_t pagesInMemory(const std::filesystem::path& file)
{
    const std::size_t size = std::filesystem::file_size(file);
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    void* const mapped = ::mmap(nullptr, size, PROT_READ, MAP_SHARED, descriptor, 0);
    std::vector<unsigned char> pages(size / static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)) + 1);
    const bool told = mapped != MAP_FAILED && ::mincore(mapped, size, pages.data()) == 0;
    ::munmap(mapped, size);
    ::close(descriptor);
    if (!told) {
        throw std::runtime_error("the system does not tell what it holds of the catalogue");
    }
    return std::count_if(pages.begin(), pages.end(), [](unsigned char page) { return (page & 1) != 0; });
}

} // namespace

PriceListRow priceListRow(std::size_t row)
{
    const std::uint32_t number = spread(row);
    const auto letter = [](std::uint32_t of) { return static_cast<char>('A' + of % 26); };
    PriceListRow made;
    made.itemId = static_cast<std::int32_t>(row + 1);
    made.name = std::string(kThings[number % std::size(kThings)]).append(" ");
    made.name.append(kMaterials[number / 16 % std::size(kMaterials)]).append(" M");
    made.name.append(std::to_string(3 + number / 256 % 30)).append(" x ").append(std::to_string(number % 5'000));
    made.key = std::to_string(number);
    made.partNum = {letter(number >> 27), letter(number >> 22), '-'};
    made.partNum.append(std::to_string(number % 100'000)).append("-").append(std::to_string(row % 1'000));
    made.unitPrice = std::int64_t{1 + number % 2'000'000} * 100;
    if (row % 3 == 0) {
        made.note = "Box of 100, delivered within two days";
    }
    return made;
}

const std::filesystem::path& priceList(std::size_t rows)
{
    static std::map<std::size_t, std::filesystem::path> files;
    return made(files, rows, ".csv", [&](const std::filesystem::path& file) {
        std::ofstream csv(file, std::ios::binary);
        csv << "Item id,Part number,Product,Unit price,Key,Note\n";
        for (std::size_t i = 0; i < rows; ++i) {
            const PriceListRow row = priceListRow(i);
            const std::int64_t cents = row.unitPrice / 100;
            csv << row.itemId << ',' << row.partNum << ",\"" << row.name << "\"," << cents / 100 << '.'
                << static_cast<char>('0' + cents / 10 % 10) << static_cast<char>('0' + cents % 10) << ',' << row.key
                << ",\"" << row.note << "\"\n";
        }
        if (!csv.flush()) {
            throw std::runtime_error("a price list cannot be written");
        }
    });
}

const std::filesystem::path& catalogueFile(std::size_t rows)
{
    static std::map<std::size_t, std::filesystem::path> files;
    return made(files, rows, ".catalogue",
                [&](const std::filesystem::path& file) { importCatalogue(priceList(rows), file); });
}

void settleDisk()
{
    ::sync();
}

void dropFromCache(const std::filesystem::path& file)
{
    const auto begin = std::chrono::steady_clock::now();
    while (pagesInMemory(file) > 0) { // more than once, because the system may still be reading ahead
        if (std::chrono::steady_clock::now() - begin > std::chrono::seconds(1)) {
            throw std::runtime_error("the catalogue's pages stay in memory");
        }
        const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
        ::posix_fadvise(descriptor, 0, 0, POSIX_FADV_DONTNEED);
        ::close(descriptor);
    }
}

} // namespace orvan::bench

// Q: the catalogue's search by itself, without the editor: each kind of what people type, in a catalogue of a million
// entries that has just been opened and whose pages are not in memory. `orvan-bench Q` prints the figures.

#include "benchmarks/Comparison.h"
#include "benchmarks/SampleCatalogue.h"
#include "benchmarks/Subjects.h"
#include "orvan/base/Text.h"
#include "orvan/components/catalogue/Catalogue.h"
#include "orvan/components/catalogue/PageChecksums.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace orvan::bench {

namespace {

constexpr std::size_t kEntries = 1'000'000;
constexpr int kSamples = 300;
constexpr int kPagesOfASearch = 60;   // about the median of the searches below
constexpr double kTimesTheDisk = 1.5; // what the slowest hundredth of the searches reads beside the median

using Random = std::mt19937;

/// One of the words of three characters or more.
std::string wordOf(const std::string& text, Random& random, std::size_t shortest = 3)
{
    std::vector<std::string> words(1);
    for (const char c : text) {
        if (c == ' ') {
            words.emplace_back();
        } else {
            words.back() += c;
        }
    }
    std::erase_if(words, [&](const std::string& word) { return characterCount(word) < shortest; });
    return words[random() % words.size()];
}

std::string withError(std::string text, Random& random)
{
    const auto letter = static_cast<char>('a' + random() % 26);
    const std::size_t at = random() % (text.size() - 1);
    switch (random() % 4) {
    case 0: text[at] = letter; break;
    case 1: text.erase(at, 1); break;
    case 2: text.insert(at, 1, letter); break;
    default: std::swap(text[at], text[at + 1]);
    }
    return text;
}

struct Kind {
    const char* name;
    bool ofNames;
    double most; ///< Nanoseconds at the 99th percentile.
    std::string (*typed)(const PriceListRow& row, Random& random);
};

// A word in front of which another one stands begins no text, so the whole list is asked for, too, as the editor does.
const Kind kKinds[] = {
    {"full match, name", true, 16e6, [](const PriceListRow& row, Random& /*random*/) { return row.name; }},
    {"full match, part number", false, 16e6, [](const PriceListRow& row, Random& /*random*/) { return row.partNum; }},
    {"beginning of a name", true, 16e6,
     [](const PriceListRow& row, Random& random) { return std::string(firstCharacters(row.name, 1 + random() % 12)); }},
    {"a word", true, 16e6,
     [](const PriceListRow& row, Random& random) {
         return "-" + std::string(firstCharacters(wordOf(row.name, random), 3 + random() % 6));
     }},
    {"two words", true, 16e6,
     [](const PriceListRow& row, Random& random) {
         return "-" + wordOf(row.name, random).append(" ").append(wordOf(row.name, random));
     }},
    {"a part number without dashes", false, 16e6,
     [](const PriceListRow& row, Random& /*random*/) {
         std::string code = row.partNum;
         std::erase(code, '-');
         return code;
     }},
    {"a word with an error", true, 50e6,
     [](const PriceListRow& row, Random& random) { return "-" + withError(wordOf(row.name, random, 5), random); }},
    {"a part number with an error", false, 50e6,
     [](const PriceListRow& row, Random& random) { return withError(row.partNum, random); }},
};

LookUpList listed(SqliteCatalogue& catalogue, bool names, const std::string& typed, bool all)
{
    return names ? catalogue.GetProductNameList(typed, all) : catalogue.GetPartNumList(typed, all);
}

double percentile(std::vector<double> times, double part)
{
    const auto at = times.begin() + std::lround(std::ceil(part * static_cast<double>(times.size()))) - 1;
    std::nth_element(times.begin(), at, times.end());
    return *at;
}

double coldSearch(const Kind& kind, double part)
{
    const std::filesystem::path& file = catalogueFile(kEntries);
    Random random(17);
    std::vector<double> times;
    settleDisk();
    for (int i = 0; i < kSamples; ++i) {
        const std::string typed = kind.typed(priceListRow(random() % kEntries), random);
        SqliteCatalogue catalogue({.file = file});
        dropFromCache(file);
        const auto begin = std::chrono::steady_clock::now();
        LookUpList rows = listed(catalogue, kind.ofNames, typed, false);
        if (!rows) {
            rows = listed(catalogue, kind.ofNames, {}, true);
        }
        times.push_back(std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - begin).count());
        requireSame(rows.has_value(), true, "there is a list");
    }
    return percentile(std::move(times), part);
}

/// What the disk alone takes for as many pages as a search reads: no search can be faster where this takes long.
double coldPages(double part)
{
    const std::filesystem::path& file = catalogueFile(kEntries);
    const std::uintmax_t pages = std::filesystem::file_size(file) / kCheckedPage;
    Random random(17);
    std::vector<double> times;
    std::vector<char> page(kCheckedPage);
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    settleDisk();
    for (int i = 0; i < kSamples; ++i) {
        dropFromCache(file);
        const auto begin = std::chrono::steady_clock::now();
        for (int read = 0; read < kPagesOfASearch; ++read) {
            const auto place = static_cast<off_t>(random() % pages * kCheckedPage);
            requireSame(::pread(descriptor, page.data(), page.size(), place), ssize_t{kCheckedPage}, "a page");
        }
        times.push_back(std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - begin).count());
    }
    ::close(descriptor);
    return percentile(std::move(times), part);
}

} // namespace

void addSearch(Suite& suite)
{
    constexpr double kLast = 0.99;
    for (const Kind& kind : kKinds) {
        suite.add(Row{std::string("Q cold search, ").append(kind.name).append(", 99th percentile"),
                      atMostOrTimes(kind.most, kTimesTheDisk),
                      [&kind] {
                          return Sides{{"", [&kind] { return coldSearch(kind, kLast); }},
                                       Side{"60 pages from the disk", [] { return coldPages(kLast); }}};
                      },
                      Unit::nanoseconds, 1});
    }
    suite.add(Row{
        "Q catalogue file, 1,000,000 entries", atMost(930e6), // three times that of version 2.1.30
        [] {
            return Sides{{"", [] { return static_cast<double>(std::filesystem::file_size(catalogueFile(kEntries))); }}};
        },
        Unit::bytes, 1});
}

} // namespace orvan::bench

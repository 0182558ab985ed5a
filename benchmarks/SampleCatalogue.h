// SampleCatalogue: price lists and the catalogues imported from them, which are made once per run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

namespace orvan::bench {

struct PriceListRow {
    std::int32_t itemId;
    std::string name, key, partNum, note;
    std::int64_t unitPrice; ///< In ten-thousandths.
};

/// A row of a price list, counted from 0. The rows are not sorted by name or part number.
PriceListRow priceListRow(std::size_t row);

/// A CSV file with that many rows.
const std::filesystem::path& priceList(std::size_t rows);
/// The catalogue imported from it.
const std::filesystem::path& catalogueFile(std::size_t rows);

/// Waits until the system has written what other benchmarks have left to write, which would delay readings.
void settleDisk();
/// Removes the file's pages from the system's memory, so that they are read from the disk again. Throws if they stay.
void dropFromCache(const std::filesystem::path& file);

} // namespace orvan::bench

// SampleCatalogue: price lists and the catalogues imported from them, made once a run.
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

/// A price list's rows from 0 on, in no order of names or part numbers.
PriceListRow priceListRow(std::size_t row);

/// A CSV file of that many rows.
const std::filesystem::path& priceList(std::size_t rows);
/// The catalogue imported from it.
const std::filesystem::path& catalogueFile(std::size_t rows);

/// Takes the file's pages out of the system's memory. Throws where they stay there.
void dropFromCache(const std::filesystem::path& file);

} // namespace orvan::bench

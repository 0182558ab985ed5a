// ShownProducts: the rows of the list view's grid: which product each of them shows, and how it gets to show it.
//
// Each refresh of the list asks the manager for every product, however few have changed. So a row remembers the stamp
// of the record that it shows (InPlaceRecord in orvan/core/ProductMgr.h); while the record has that stamp, only the
// product's position is compared. Other records are read as a whole. Only cells that differ are set, and the platform
// is told of no others.
//
// Row 0 is the header; row r shows the product at position r. Ownership: ProductView; the grid and the columns outlive
// it. Thread: the user-interface thread. Raises what the record raises, and 7 where memory runs out; a row that was not
// set as a whole is set again at the next refresh.
#pragma once

#include "orvan/core/ProductMgr.h"
#include "orvan/ui/GridCell.h"
#include "orvan/view/ProductColumns.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

namespace orvan {

class ShownProducts {
public:
    ShownProducts(ui::Grid& grid, const ProductColumns& columns) : flexGrid_(grid), columns_(columns) {}

    /// A product of the list, to be used for one after the other.
    struct Product {
        std::int32_t index = 0;
        std::shared_ptr<ProductRecord> record; ///< Its texts may stand in the fields, so it lives as long as they do.
        ProductFields fields;
        std::array<std::string, 4> texts;          ///< The texts of a record that cannot be read in place.
        const InPlaceRecord* inPlace = nullptr;    ///< The record, if it can be read in place; has not been read yet.
        const std::type_info* lastClass = nullptr; ///< The class of the record that was read last.
        bool lastInPlace = false;                  ///< Whether records of that class can be read in place.

        /// Reads the record as far as it cannot be read in place.
        void read();
        [[nodiscard]] std::uint64_t stamp() const noexcept { return inPlace ? inPlace->stamp() : 0; }
    };

    /// Sets the number of rows, the header included. If `deletedRow` is not 0, that row is taken out first, and those
    /// after it move up.
    void setRowCount(std::int32_t count, std::int32_t deletedRow);
    void show(std::int32_t row, Product& product);

    /// What differs from the rows that are shown, to be shown later.
    struct Changes {
        struct Cell {
            std::int32_t row;
            std::int32_t column; ///< In the order of kColumns.
            ui::GridCell cell;
        };
        std::vector<Cell> cells;
        std::vector<std::uint64_t> stamps = {0}; ///< Of each row.
    };
    /// Adds the next row to the changes. It is compared with `shownRow`, which need not be there.
    void addRow(Changes& changes, std::int32_t shownRow, Product& product) const;
    void show(Changes& changes);

private:
    [[nodiscard]] std::uint64_t stampOf(std::int32_t row) const noexcept;
    void setStamp(std::int32_t row, std::uint64_t stamp) noexcept;
    [[nodiscard]] bool shows(std::int32_t row, const Product& product) const noexcept;

    ui::Grid& flexGrid_;
    const ProductColumns& columns_;
    std::vector<std::uint64_t> stamps_; ///< Of the record that each row shows; 0, and none: the row is to be set.
};

} // namespace orvan

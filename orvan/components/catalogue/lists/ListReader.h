// ListReader: the rows of a price list, each understood as an entry, or skipped or refused with a reason.
//
// What is skipped and what is refused is described in orvan/components/catalogue/CatalogueImport.h. Ownership: source
// and options outlive the reader. Thread: one at a time. Errors: those of foundForm.
#pragma once

#include "orvan/base/UserText.h"
#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/components/catalogue/lists/ListForm.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvan {

class ListReader {
public:
    ListReader(const ImportSource& source, const CatalogueImportOptions& options);

    [[nodiscard]] const ListForm& form() const { return form_; }
    /// Which column has what; findPrices decides about the price.
    [[nodiscard]] const CatalogueColumns& columns() const { return columns_; }
    /// What the list does not tell about its columns, as a text for the user; empty if it tells all that is needed.
    [[nodiscard]] UserText missingColumns() const;

    /// Called now and then with how much of the list has been read; returns false to cancel.
    using GoesOn = std::function<bool(std::uint64_t bytesRead)>;
    /// Reads the list up to the first price that tells the decimal separator, and to the first price at all, which
    /// tells that the column for the unit price is not empty. Returns false when it was cancelled, and when there are
    /// ambiguous prices but none that tells the separator.
    [[nodiscard]] bool findPrices(const GoesOn& goesOn);
    [[nodiscard]] char decimalSeparator() const { return decimal_; }
    /// A price that can be read in two ways, where none tells how.
    [[nodiscard]] const std::string& ambiguousPrice() const { return ambiguousPrice_; }

    /// What the current row is.
    enum class Kind { entry, skipped, refused };
    /// Reads the next row. Returns false at the end.
    bool next();
    [[nodiscard]] Kind kind() const { return kind_; }
    /// Why the row is skipped or refused.
    [[nodiscard]] const UserText& reason() const { return reason_; }
    /// The row's values, if it is an entry; the texts are valid until the next call of next(). It has the list's own
    /// id, but no item id, which the catalogue gives it.
    [[nodiscard]] const CatalogueEntry& entry() const { return entry_; }
    [[nodiscard]] const std::vector<std::string_view>& cells() const { return rows_->cells(); }
    [[nodiscard]] std::uint64_t line() const { return rows_->line(); }
    [[nodiscard]] std::uint64_t bytesRead() const { return rows_->bytesRead(); }

private:
    struct PriceColumn;

    std::string_view cell(const std::optional<std::size_t>& column) const;
    bool isRepeatedHeader() const;
    bool isTotal() const;
    [[nodiscard]] UserText whyRefused();
    [[nodiscard]] UserText whyShaped(const RowSource& rows) const;
    [[nodiscard]] UserText readPriceOf(std::size_t column);
    void judge();

    const ImportSource& source_;
    const CatalogueImportOptions& options_;
    ListForm form_;
    CatalogueColumns columns_;
    std::unique_ptr<RowSource> rows_;
    char decimal_ = 0;
    std::string ambiguousPrice_;
    Kind kind_ = Kind::entry;
    UserText reason_;
    CatalogueEntry entry_;
};

} // namespace orvan

// The products string: a product list as one text.
//
//   "" is the empty list; otherwise the count, then one record after the other, each of these
//   elements closed by the record separator ('~' here, with ':' between fields):
//
//       2~Bolt:B-1:100:0.25:12:0:3:~Nut::101:0.1:1:10:0.09:4\:1 pack~
//
//   A record has eight fields, in the order of ProductValues: Name, Key, PartNum, UnitPrice, Qty,
//   DiscPrcnt, ExtPrice, Note. Amounts are as Currency::toText writes them. In texts a backslash
//   stands before each separator and each backslash; every other byte stands for itself, so that
//   any text is carried, line breaks, NUL and bytes that are not UTF-8 included.
//
// The count and the closing separators make sure that a string that was cut short is refused, wherever the cut is.
// Each list has exactly one string, and no other form is read ("007", "1.50", "-0" and a needless backslash are
// refused). A string that was read is therefore written again as the same bytes, and a host may compare strings to see
// whether a list has changed. Thread: any.
#pragma once

#include "orvan/base/UserText.h"
#include "orvan/components/products/FieldMarks.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/core/ProductValues.h"
#include "orvan/core_export.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvan {

struct ProductsSeparators {
    char record = '~';
    char field = ':';

    friend bool operator==(const ProductsSeparators&, const ProductsSeparators&) = default;
};

/// Each separator is one ASCII character that cannot stand in an amount, a count or an escape: no
/// letter, digit, '-', '.' or backslash; and the two differ. Raises 5 for anything else.
ProductsSeparators productsSeparators(std::string_view recordSep, std::string_view fieldSep);

[[nodiscard]] inline ProductFields fieldsOf(const ProductValues& values) noexcept
{
    return {values.name, values.key,       values.partNum,  values.unitPrice,
            values.qty,  values.discPrcnt, values.extPrice, values.note};
}

/// Appends one record with its closing record separator.
ORVAN_CORE_INTERNAL void appendProduct(std::string& out, const ProductFields& fields, ProductsSeparators separators);
inline void appendProduct(std::string& out, const ProductValues& values, ProductsSeparators separators)
{
    appendProduct(out, fieldsOf(values), separators);
}

/// The size of what appendProduct would append, in bytes; and the part of it that one field takes, without its
/// separator.
[[nodiscard]] std::size_t productSize(const ProductFields& fields, ProductsSeparators separators) noexcept;
[[nodiscard]] std::size_t fieldSize(std::string_view text, ProductsSeparators separators) noexcept;
[[nodiscard]] std::size_t fieldSize(Currency amount, ProductsSeparators separators) noexcept;

/// The count and its closing separator, which stand in front of the records; "" for a count of 0.
[[nodiscard]] std::string productsStringHead(std::size_t count, ProductsSeparators separators);

/// Reads a products string record by record:
///
///     ProductsReader reader(text, separators);
///     while (reader.more()) { reader.next(values); }
///
/// Both operations raise 321 for a string that is not of the form above and 6 for a number beyond
/// its range. The description says at which record (1-based), in which field where it is about one,
/// and why. The text must outlive the reader.
class ORVAN_CORE_INTERNAL ProductsReader {
public:
    ProductsReader(std::string_view text, ProductsSeparators separators);

    /// An upper limit of the records still to be read: the count, or fewer if the rest of the text cannot hold as many.
    std::size_t expected() const noexcept;
    /// False after the last record; raises 321 where something follows it.
    bool more() const;
    /// Reads the next record into `values`.
    void next(ProductValues& values);

private:
    std::int32_t readCount();
    void read(std::size_t field, std::size_t begin, std::size_t end, std::string& text);
    void read(std::size_t field, std::size_t begin, std::size_t end, Currency& amount);
    void readLongText(std::size_t begin, std::size_t end, std::string& text);
    char* copyRuns(char* to, std::size_t begin, std::size_t end, std::uint64_t escapes) const;
    [[noreturn]] void refuseAmount(std::size_t field, std::size_t begin, std::string_view digits) const;
    void checkEnd(std::size_t field, std::size_t end) const;
    [[noreturn]] void refuseEnd(std::size_t field, std::size_t end) const;
    [[noreturn]] void refuse(std::int32_t error, std::string_view fieldName, const UserText& reason) const;

    std::string_view text_;
    ProductsSeparators separators_;
    std::size_t at_ = 0;
    std::int32_t position_ = 1; // 1-based position of the record being read
    std::int32_t count_ = 0;
    FieldMarks marks_;
    FieldMarks::Cursor ends_;
    std::string unescaped_; // Scratch buffer for a long text; a member so that its capacity is reused.
};

} // namespace orvan

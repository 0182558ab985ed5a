// The products string: the first two bytes are the separators, and the rest is the string.

#include "apps/fuzzing/FuzzTarget.h"
#include "apps/fuzzing/PlainNumbers.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/components/products/ProductsString.h"
#include "orvan/core/ProductMgr.h"

#include <array>
#include <optional>
#include <vector>

namespace orvan::fuzz {
namespace {

using PlainProduct = std::array<std::string, 8>;
using PlainProducts = std::optional<std::vector<PlainProduct>>;

/// Reads a field without its escapes, from `at` on; nothing where it does not end with `separator`.
std::optional<std::string> readField(std::string_view text, std::size_t& at, const std::string& separators,
                                     char separator)
{
    std::string value;
    for (; at < text.size(); ++at) {
        if (text[at] == '\\') {
            ++at;
            if (at == text.size() || (separators + '\\').find(text[at]) == std::string::npos) {
                return std::nullopt;
            }
        } else if (separators.find(text[at]) != std::string::npos) {
            return text[at++] == separator ? std::optional(value) : std::nullopt;
        }
        value += text[at];
    }
    return std::nullopt;
}

PlainProducts readPlainly(std::string_view text, char record, char field)
{
    std::vector<PlainProduct> products;
    if (text.empty()) {
        return products;
    }
    const std::string count(text.substr(0, text.find(record)));
    std::size_t at = count.size() + 1;
    if (at > text.size() || count.empty() || !plainDigits(count) || count[0] == '0' || count.size() > 10 ||
        std::strtoull(count.c_str(), nullptr, 10) > 2147483647) {
        return std::nullopt;
    }
    for (std::uint64_t left = std::strtoull(count.c_str(), nullptr, 10); left > 0; --left) {
        PlainProduct product;
        for (std::size_t i = 0; i < product.size(); ++i) {
            const std::size_t begin = at;
            const auto value = readField(text, at, {record, field}, i + 1 < product.size() ? field : record);
            const bool isAmount = i >= 3 && i <= 6;
            if (!value || (isAmount && !isShortest(text.substr(begin, at - begin - 1)))) {
                return std::nullopt;
            }
            product[i] = *value;
        }
        products.push_back(product);
    }
    return at == text.size() ? PlainProducts(products) : std::nullopt;
}

PlainProduct textsOf(const ProductRecord& product)
{
    return {product.Name(),
            product.Key(),
            product.PartNum(),
            product.UnitPrice().toText(),
            product.Qty().toText(),
            product.DiscPrcnt().toText(),
            product.ExtPrice().toText(),
            product.Note()};
}

void compare(ProductMgr& manager, const std::vector<PlainProduct>& products)
{
    require(static_cast<std::size_t>(manager.GetProductCount()) == products.size(), "the count is right");
    __extension__ using Sum = __int128;
    Sum total = 0;
    std::int32_t index = 0;
    for (const PlainProduct& product : products) {
        require(textsOf(*manager.GetProduct(++index)) == product, "each field has its value");
        total += readPlainAmount(product[6]).scaled;
    }
    const bool fits =
        total <= std::numeric_limits<std::int64_t>::max() && total >= std::numeric_limits<std::int64_t>::min();
    try {
        const Currency shown = manager.GetTotalValue();
        require(fits && shown.scaled() == total, "the total is the sum");
    } catch (const RuntimeError& error) {
        require(!fits && error.number() == ErrorNumber::overflow, "a total that fits is shown");
    }
}

/// What the error says that `action` raises.
template <class Action>
std::string refusal(Action&& action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.description();
    }
    return {};
}

} // namespace

void runTarget(std::string_view input)
{
    static const auto makeManager = productMgrFactory();
    const std::string record(1, takeByte(input)), field(1, takeByte(input));
    const auto manager = std::dynamic_pointer_cast<ProductMgr>(makeManager());
    try {
        static_cast<void>(productsSeparators(record, field));
    } catch (const RuntimeError& error) {
        require(error.number() == ErrorNumber::invalidProcedureCall, "separators that cannot be used raise 5");
        return;
    }
    const PlainProducts expected = readPlainly(input, record[0], field[0]);
    try {
        manager->SetProductsString(input, record, field, false);
    } catch (const RuntimeError& error) {
        require(!expected, "a good string is read");
        require(error.number() == ErrorNumber::invalidFileFormat || error.number() == ErrorNumber::overflow,
                "a bad string raises 321 or 6");
        require(manager->GetProductCount() == 0, "a refused string leaves the list as it was");
        return;
    }
    require(expected.has_value(), "a bad string is refused");
    compare(*manager, *expected);
    require(manager->GetProductsString(record, field) == input, "the string is written again as the same bytes");
    static const auto makeFull =
        productMgrFactory({.maxDataSize = -1}); // always too large, and its error tells the size
    const auto full = std::dynamic_pointer_cast<ProductMgr>(makeFull());
    full->SetProductsString(input, record, field, false);
    for (const auto& separators : {std::pair(record, field), std::pair(std::string(";"), std::string("^"))}) {
        require(refusal([&] { full->CheckDataSize(separators.first, separators.second); }) ==
                    refusal([&] { full->GetProductsString(separators.first, separators.second); }),
                "the size that is checked is that of the string");
    }
    const std::string other = manager->GetProductsString(";", "^");
    manager->SetProductsString(other, ";", "^", false);
    compare(*manager, *expected);
}

} // namespace orvan::fuzz

#include "benchmarks/Samples.h"

#include "orvan/core/modInit.h"

#include <iterator>
#include <limits>

namespace orvan::bench {

namespace {

class SilentTrace final : public Trace {
public:
    std::int32_t LastErrorNumber() override { return 0; }
    void TraceError(std::string_view /*sText*/) override {}
    void TraceEnter(std::string_view /*sLabel*/) override {}
    void TraceExit(std::string_view /*sLabel*/) override {}
    std::int32_t AppErrorNumber() override { return 0; }
    void ShowLastError(std::int32_t /*hWnd*/) override {}
};

constexpr const char* kThings[] = {"Hexagon bolt",  "Washer, large series",    "Threaded rod",      "Nut, self-locking",
                                   "Angle bracket", "Wood screw, countersunk", "Anchor, heavy duty"};
constexpr const char* kMaterials[] = {"zinc plated", "stainless A2", "stainless A4", "brass", "galvanized"};

/// Replaces each blank by one of the three characters that need an escape, in turn.
std::string withEscapes(std::string text)
{
    std::size_t next = 0;
    for (char& c : text) {
        if (c == ' ') {
            c = "~:\\"[next++ % 3];
        }
    }
    return "~" + text;
}

} // namespace

std::vector<ProductValues> sampleProducts(std::size_t count, Escapes escapes)
{
    std::vector<ProductValues> products;
    products.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto number = static_cast<std::int64_t>(i);
        ProductValues fields;
        fields.name = std::string(kThings[i % std::size(kThings)]).append(" ");
        fields.name.append(kMaterials[i % std::size(kMaterials)]).append(" M").append(std::to_string(3 + i % 20));
        fields.key = std::to_string(100'000 + i);
        fields.partNum = std::string("HB-").append(std::to_string(i % 97)).append("-").append(std::to_string(i));
        fields.unitPrice = Currency::fromScaled(2'500 + number * 7'919 % 5'000'000 / 100 * 100);
        fields.qty = Currency::fromScaled((1 + number % 250) * Currency::kScale + (i % 10 == 0 ? 5'000 : 0));
        fields.discPrcnt = Currency::fromScaled(number % 4 * 25'000);
        fields.extPrice = Currency::fromDouble((100.0 - fields.discPrcnt.toDouble()) / 100.0 *
                                               (fields.qty * fields.unitPrice).toDouble());
        if (i % 3 == 0) {
            fields.note = "Box of 100, delivered within two days; larger boxes on request";
        }
        if (escapes == Escapes::everywhere) {
            for (std::string* text : {&fields.name, &fields.key, &fields.partNum, &fields.note}) {
                *text = withEscapes(std::move(*text));
            }
        }
        products.push_back(std::move(fields));
    }
    return products;
}

std::string productsString(const std::vector<ProductValues>& products)
{
    const ProductsSeparators separators = productsSeparators(kRecordSeparator, kFieldSeparator);
    std::string text = productsStringHead(products.size(), separators);
    for (const ProductValues& fields : products) {
        appendProduct(text, fields, separators);
    }
    return text;
}

HostOptions hostOptions()
{
    HostOptions options{.locale = {.monetary = "en_US", .numeric = "en_US"}};
    options.components.productMgr.maxDataSize = std::numeric_limits<std::int32_t>::max();
    return options;
}

void registerSilentTrace(ComponentRegistry& components)
{
    components.registerClass(std::string(kTraceClassName), [] { return std::make_shared<SilentTrace>(); });
}

HeadlessHost& headlessHost()
{
    static HeadlessHost host(hostOptions());
    static const bool once = (registerSilentTrace(host.components()), true);
    static_cast<void>(once);
    return host;
}

std::shared_ptr<ProductMgr> sampleManager(std::size_t count, Escapes escapes)
{
    auto manager = ui::createComponent<ProductMgr>(headlessHost().components(), kProductMgrClassName);
    manager->SetProductsString(productsString(sampleProducts(count, escapes)), kRecordSeparator, kFieldSeparator,
                               false);
    return manager;
}

} // namespace orvan::bench

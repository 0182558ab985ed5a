// G: reads a list from a products string and writes it to one; the peers are copies and the same work with QString.

#include "benchmarks/Comparison.h"
#include "benchmarks/Samples.h"
#include "benchmarks/Subjects.h"
#include "benchmarks/Table.h"

#include <QStringList>
#include <utility>

namespace orvan::bench {

namespace {

using Manager = std::shared_ptr<ProductMgr>;

/// A product as a Qt program would hold it.
struct QtProduct {
    QString name, key, partNum;
    double unitPrice = 0, qty = 0, discPrcnt = 0, extPrice = 0;
    QString note;
};

/// The escaped characters, and the private-use characters that replace them while a text is split.
constexpr std::pair<const char*, char16_t> kEscaped[] = {{"\\\\", u'\uE000'}, {"\\~", u'\uE001'}, {"\\:", u'\uE002'}};

QString withoutEscapes(QString text, bool hasEscapes)
{
    if (hasEscapes) {
        for (const auto& [escape, standIn] : kEscaped) {
            text.replace(QChar(standIn), QLatin1Char(escape[1]));
        }
    }
    return text;
}

std::vector<QtProduct> readWithQt(QString text)
{
    const bool hasEscapes = text.contains(u'\\');
    if (hasEscapes) {
        for (const auto& [escape, standIn] : kEscaped) {
            text.replace(QLatin1String(escape), QString(QChar(standIn)));
        }
    }
    const QStringList records = text.split(u'~');
    std::vector<QtProduct> products;
    products.reserve(static_cast<std::size_t>(records.size()));
    for (qsizetype i = 1; i + 1 < records.size(); ++i) { // not the count, nor the empty text at the end
        const QStringList fields = records[i].split(u':');
        products.push_back({withoutEscapes(fields[0], hasEscapes), withoutEscapes(fields[1], hasEscapes),
                            withoutEscapes(fields[2], hasEscapes), fields[3].toDouble(), fields[4].toDouble(),
                            fields[5].toDouble(), fields[6].toDouble(), withoutEscapes(fields[7], hasEscapes)});
    }
    return products;
}

QString withEscapes(QString text)
{
    for (const auto& [escape, standIn] : kEscaped) {
        // The backslash comes first in kEscaped, so that no escape is escaped again.
        text.replace(QLatin1String(escape + 1), QLatin1String(escape));
    }
    return text;
}

QString writeWithQt(const std::vector<QtProduct>& products)
{
    const auto amount = [](double value) { return QString::number(value, 'g', 15); };
    QStringList records(QString::number(products.size()));
    records.reserve(static_cast<qsizetype>(products.size()) + 2);
    for (const QtProduct& product : products) {
        records.append(QStringList{withEscapes(product.name), withEscapes(product.key), withEscapes(product.partNum),
                                   amount(product.unitPrice), amount(product.qty), amount(product.discPrcnt),
                                   amount(product.extPrice), withEscapes(product.note)}
                           .join(u':'));
    }
    records.append(QString());
    return records.join(u'~');
}

std::vector<ProductValues> read(const std::string& text)
{
    ProductsReader reader(text, productsSeparators(kRecordSeparator, kFieldSeparator));
    std::vector<ProductValues> products;
    products.reserve(reader.expected());
    while (reader.more()) {
        reader.next(products.emplace_back());
    }
    return products;
}

std::string write(ProductMgr& manager)
{
    return manager.GetProductsString(kRecordSeparator, kFieldSeparator);
}

/// A side that calls `make`; the measured time includes destroying the result.
template <class Make>
Side making(std::string name, Make make)
{
    return timed(std::move(name), [make](benchmark::State& state) mutable {
        for ([[maybe_unused]] auto _ : state) {
            const auto made = make();
            benchmark::DoNotOptimize(made.data());
        }
    });
}

struct Sample {
    std::size_t count;
    Escapes escapes;

    std::string text() const { return productsString(sampleProducts(count, escapes)); }
};

Side reading(const Sample& sample)
{
    return making("", [text = sample.text()] { return read(text); });
}

Sides readingBesideCopy(const Sample& sample)
{
    return {reading(sample),
            making("copying the records", [records = read(sample.text())] { return std::vector(records); })};
}

Sides readingBesideQt(const Sample& sample)
{
    const QString text = QString::fromStdString(sample.text());
    const std::vector<ProductValues> ours = read(sample.text());
    const std::vector<QtProduct> peers = readWithQt(text);
    requireSame(ours.size(), peers.size(), "count");
    for (std::size_t i = 0; i < ours.size(); ++i) {
        requireSame(ours[i].name, peers[i].name.toStdString(), "name");
        requireSame(ours[i].note, peers[i].note.toStdString(), "note");
        requireSame(ours[i].extPrice.toDouble(), peers[i].extPrice, "extended price");
    }
    return {reading(sample), making("QString", [text] { return readWithQt(text); })};
}

/// The time of the manager's first string of a list, when no record has kept its text yet.
Side writing(const Sample& sample)
{
    return timed(
        "",
        [sample, text = sample.text()](benchmark::State& state) {
            const Manager manager = sampleManager(sample.count, sample.escapes);
            for ([[maybe_unused]] auto _ : state) {
                manager->SetProductsString(text, kRecordSeparator, kFieldSeparator, false);
                timePart(state, [&] {
                    std::string written = write(*manager);
                    benchmark::DoNotOptimize(written.data());
                });
            }
        },
        Timing::parts);
}

Sides writingBesideQt(const Sample& sample)
{
    const std::string text = sample.text();
    const std::vector<QtProduct> products = readWithQt(QString::fromStdString(text));
    requireSame(text, writeWithQt(products).toStdString(), "the string");
    requireSame(text, write(*sampleManager(sample.count, sample.escapes)), "the string");
    return {writing(sample), making("QString", [products] { return writeWithQt(products); })};
}

Side writingAgain(const Sample& sample)
{
    const Manager manager = sampleManager(sample.count, sample.escapes);
    const auto record = manager->GetProduct(static_cast<std::int32_t>(sample.count / 2));
    return making("", [manager, record, i = std::int64_t{0}]() mutable {
        record->SetQty(Currency::fromScaled((1 + i++ % 9) * Currency::kScale));
        return write(*manager);
    });
}

Sides writingAgainBesideCopy(const Sample& sample)
{
    return {writingAgain(sample), making("copying the bytes", [text = sample.text()] { return std::string(text); })};
}

} // namespace

void addProductsString(Suite& suite)
{
    struct Path {
        const char* name;
        Bound bound;
        Sides (*prepare)(const Sample&);
    };
    static constexpr Path kPaths[] = {
        {"G read the string", {Bound::Kind::atMostTimes, 3}, readingBesideCopy},
        {"G read the string", {Bound::Kind::atLeastTimesFaster, 15}, readingBesideQt},
        {"G write the string", {Bound::Kind::atLeastTimesFaster, 8}, writingBesideQt},
        {"G write it again after a change", {Bound::Kind::atMostTimes, 2}, writingAgainBesideCopy},
    };
    for (const auto escapes : {Escapes::none, Escapes::everywhere}) {
        const char* const with = escapes == Escapes::none ? "" : " with escapes";
        for (const std::size_t count : {1'000U, 100'000U}) {
            for (const Path& path : kPaths) {
                std::string name = std::string(path.name).append(", ").append(groupedNumber(count)).append(with);
                suite.add(Row{std::move(name), path.bound,
                              [prepare = path.prepare, count, escapes] {
                                  return prepare({count, escapes});
                              },
                              Unit::nanoseconds, count > 10'000 ? 5 : 9});
            }
        }
        const auto grows = [&](const char* name, Side (*side)(const Sample&)) {
            suite.add(Growth{std::string(name).append(with), [=](std::size_t size) { return side({size, escapes}); }});
        };
        grows("G read the string", reading);
        grows("G write the string", writing);
        grows("G write it again after a change", writingAgain);
    }
}

} // namespace orvan::bench

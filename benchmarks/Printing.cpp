// O: a quote as a PDF file, from its products string to the bytes of the file.

#include "apps/orvan-desk/printing/PrintedQuote.h"
#include "apps/orvan-desk/printing/QuotePdf.h"
#include "benchmarks/Comparison.h"
#include "benchmarks/Samples.h"
#include "benchmarks/Subjects.h"

namespace orvan::bench {

namespace {

/// Makes the whole file in each iteration, with notes, a tax and a currency that is not the locale's own.
Side printing(std::size_t lines)
{
    desk::Quote quote{.customer = QStringLiteral("A customer"),
                      .number = QStringLiteral("Q-1"),
                      .date = QDate(2026, 11, 20),
                      .products = productsString(sampleProducts(lines)),
                      .currency = QStringLiteral("USD")};
    desk::PrintOptions options;
    options.showTax = true;
    options.taxRate = Currency::fromInteger(19);
    options.page = desk::usualPage();
    const std::shared_ptr<ui::LocaleService> money =
        makeLocaleService({.monetary = "de_DE", .numeric = "de_DE", .currency = "USD"});
    return timed("", [=](benchmark::State& state) {
        for ([[maybe_unused]] auto _ : state) {
            const desk::PrintedQuote printed = desk::makePrintedQuote(quote, options, *money, QLocale());
            const QByteArray bytes = desk::quoteToPdf(printed, options.page);
            benchmark::DoNotOptimize(bytes.constData());
        }
    });
}

} // namespace

void addPrinting(Suite& suite)
{
    suite.add(Row{"O print 5,000 lines into a PDF file", atMost(3e9), [] { return Sides{printing(5'000)}; },
                  Unit::nanoseconds, 3});
}

} // namespace orvan::bench

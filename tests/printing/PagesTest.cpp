// Where everything stands on the pages: nothing is painted, and no number of pixels is compared.
#include "printing/QuotePages.h"
#include "tests/support/QtEnvironment.h"
#include "tests/support/Rows.h"

#include <map>

namespace orvan::desk {
namespace {

using test::forEachRow;

struct Row {
    const char* name;
    std::size_t lines = 40;
    QString note = {};                            // of each third line
    QString numbers = QStringLiteral("1,234.56"); // in each column of numbers
    QString closing = {};
    QString seller = QStringLiteral("Seller");
    std::size_t tallLine = 1'000'000; // a line with a note of 2,000 lines
    QPageSize::PageSizeId paper = QPageSize::A4;
    bool rightToLeft = false;
    bool logo = false;
};

PrintedQuote quoteOf(const Row& row)
{
    PrintedQuote quote;
    quote.texts = printTexts(QLocale(QLocale::English));
    quote.rightToLeft = row.rightToLeft;
    quote.sellerName = row.seller;
    quote.sellerAddress = QStringLiteral("Street\nTown");
    quote.closingText = row.closing;
    quote.note = row.lines % 2 == 0 ? quote.texts.rounded : QString();
    quote.logo = row.logo ? QImage(800, 200, QImage::Format_RGB32) : QImage();
    quote.facts = {{QStringLiteral("Customer"), QStringLiteral("A customer")},
                   {QStringLiteral("Date"), QStringLiteral("a day")}};
    quote.runningHead = QStringLiteral("Quote");
    quote.columns = {{PrintColumn::position, QStringLiteral("No."), true},
                     {PrintColumn::partNumber, QStringLiteral("Part number"), false},
                     {PrintColumn::name, QStringLiteral("Product"), false},
                     {PrintColumn::unitPrice, QStringLiteral("Unit price"), true},
                     {PrintColumn::extendedPrice, QStringLiteral("Price"), true}};
    for (std::size_t i = 0; i < row.lines; ++i) {
        PrintedLine& line = quote.lines.emplace_back();
        line.cells = {QString::number(i + 1), QStringLiteral("P-1"), QStringLiteral("A product"), row.numbers,
                      row.numbers};
        line.note = i == row.tallLine ? QStringLiteral("a line of text\n").repeated(2'000)
                    : i % 3 == 0      ? row.note
                                      : QString();
    }
    quote.totals = {{QStringLiteral("Net"), row.numbers},
                    {QStringLiteral("Tax"), row.numbers},
                    {QStringLiteral("Total"), row.numbers}};
    return quote;
}

const Row kRows[] = {
    {.name = "no line", .lines = 0},
    {.name = "one line", .lines = 1},
    {.name = "some pages", .lines = 300},
    {.name = "notes of several lines", .lines = 100, .note = QStringLiteral("one\ntwo\n\nfour")},
    {.name = "a word wider than the page", .lines = 50, .note = QString(700, u'w')},
    {.name = "right to left", .lines = 100, .rightToLeft = true},
    {.name = "Letter", .lines = 100, .paper = QPageSize::Letter, .logo = true},
    {.name = "small paper", .lines = 30, .paper = QPageSize::A6, .logo = true},
    {.name = "numbers wider than the page", .lines = 30, .numbers = QString(120, u'8'), .paper = QPageSize::A6},
    {.name = "the tall line is the first", .lines = 9, .tallLine = 0},
    {.name = "the tall line is in between", .lines = 9, .tallLine = 4},
    {.name = "the tall line is the last", .lines = 9, .tallLine = 8},
    {.name = "a long closing text", .closing = QStringLiteral("closing words\n").repeated(300)},
    {.name = "a long letterhead", .seller = QStringLiteral("seller\n").repeated(300)},
};

const QPageLayout pageOf(const Row& row)
{
    return QPageLayout(QPageSize(row.paper), QPageLayout::Portrait, QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
}

TEST(Pages, EachLineStandsWholeBelowTheHeadsOfItsPage)
{
    forEachRow(kRows, [](const Row& row) {
        const PrintedQuote quote = quoteOf(row);
        const QuotePages pages = layOut(quote, pageOf(row));
        const double bottom = pages.area.bottom() - pages.footHeight;
        const double space = bottom - pages.area.top() - pages.runningHeight - pages.headsHeight;
        std::map<std::pair<BlockKind, std::size_t>, std::size_t> textsSoFar;
        std::size_t nextLine = 0;
        for (std::size_t number = 0; number < pages.pages.size(); ++number) {
            const QuotePage& page = pages.pages[number];
            double at = pages.area.top() + (number == 0 ? 0 : pages.runningHeight);
            EXPECT_FALSE(page.blocks.empty()) << "page " << number;
            bool headsSeen = false;
            for (const PlacedBlock& block : page.blocks) {
                if (block.kind == BlockKind::line && !headsSeen) {
                    EXPECT_GE(page.headsTop, at) << "page " << number << " does not repeat the heads";
                    at = page.headsTop + pages.headsHeight;
                    headsSeen = true;
                }
                EXPECT_GE(block.top, at - 1) << "page " << number << ": blocks overlap";
                EXPECT_LE(block.top + block.height, bottom + 1) << "page " << number << ": below the page";
                at = block.top + block.height;

                std::size_t& texts = textsSoFar[{block.kind, block.index}];
                EXPECT_EQ(block.firstText, texts) << "a text is lost or stands twice, page " << number;
                texts = block.endText;
                const bool whole = block.firstText == 0 && block.endText == block.texts.lines;
                EXPECT_TRUE(whole || block.texts.offset(block.texts.lines) > space * 0.9) << "parted, page " << number;
                if (block.kind == BlockKind::line && block.firstText == 0) {
                    EXPECT_EQ(block.index, nextLine++);
                }
                EXPECT_TRUE(whole || block.kind != BlockKind::line || block.index == row.tallLine);
                if (block.kind == BlockKind::totals && row.lines > 1) {
                    EXPECT_EQ(page.blocks.front().kind == BlockKind::totals, false) << "totals without a line";
                }
            }
        }
        EXPECT_EQ(nextLine, row.lines);
        for (const auto& [block, texts] : textsSoFar) {
            if (block.first == BlockKind::line && block.second == row.tallLine) {
                EXPECT_EQ(texts, 2'002U) << "the name, 2,000 lines, and the empty one after the last line feed";
            }
        }
    });
}

TEST(Pages, ColumnsStandBesideEachOtherAndAreMirrored)
{
    forEachRow(kRows, [](const Row& row) {
        PrintedQuote quote = quoteOf(row);
        const QuotePages pages = layOut(quote, pageOf(row));
        quote.rightToLeft = !quote.rightToLeft;
        const QuotePages mirrored = layOut(quote, pageOf(row));
        const double sum = pages.area.left() + pages.area.right();
        double end = row.rightToLeft ? pages.area.right() : pages.area.left();
        for (std::size_t i = 0; i < pages.columns.size(); ++i) {
            const ColumnPlace& place = pages.columns[i];
            EXPECT_GT(place.width, 0);
            const double near = row.rightToLeft ? end - place.left - place.width : place.left - end;
            EXPECT_GE(near, -1) << "column " << i << " overlaps the one before it";
            end = row.rightToLeft ? place.left : place.left + place.width;
            EXPECT_NEAR(mirrored.columns[i].left, sum - place.left - place.width, 1);
        }
        EXPECT_GE(end, pages.area.left() - 1);
        EXPECT_LE(end, pages.area.right() + 1);
    });
}

} // namespace
} // namespace orvan::desk

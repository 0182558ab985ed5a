#include "QuotePages.h"

#include <algorithm>
#include <cmath>

namespace orvan::desk {

namespace {

constexpr double kLogoWidth = 2.2 * kUnitsPerInch, kLogoHeight = 0.85 * kUnitsPerInch;
constexpr double kMostPartNumber = 0.22; // a share of the area's width, as is the next one
constexpr double kLeastName = 0.25;
constexpr double kSlack = 4; // units; a laid out line and the same text alone can differ a little in width

/// A block that has no place yet.
struct Block {
    BlockKind kind = BlockKind::line;
    std::size_t index = 0;
    TextStack texts = {};
    double below = 0; ///< Space below the last line of text, which belongs to it.
    double least = 0; ///< The least height, for example of a logo beside the texts.

    /// The height of the lines of text from `first` to `end`.
    double height(std::size_t first, std::size_t end) const
    {
        const bool begins = first == 0, ends = end == texts.lines;
        const double sum = (begins ? texts.above : 0) + texts.offset(end) - texts.offset(first) + (ends ? below : 0);
        return begins && ends ? std::max(sum, least) : sum;
    }
};

/// Puts blocks on pages, from the top down.
class Placer {
public:
    explicit Placer(QuotePages& pages) : pages_(pages) { newPage(); }

    void place(const Block& block)
    {
        const double height = block.height(0, block.texts.lines);
        if (height <= 0) {
            return;
        }
        if (!fits(block, height)) {
            if (pageHasBlocks()) {
                goToNextPage(block, height);
            }
            if (!fits(block, height)) {
                part(block);
                return;
            }
        }
        put(block, 0, block.texts.lines);
    }

private:
    double bottom() const { return pages_.area.bottom() - pages_.footHeight; }
    double headsFor(const Block& block) const
    {
        return block.kind == BlockKind::line && pages_.pages.back().headsTop < 0 ? pages_.headsHeight : 0;
    }
    bool fits(const Block& block, double height) const { return at_ + headsFor(block) + height <= bottom(); }

    void newPage()
    {
        at_ = pages_.area.top() + (pages_.pages.empty() ? 0 : pages_.runningHeight);
        pages_.pages.emplace_back();
    }

    void put(const Block& block, std::size_t first, std::size_t end)
    {
        QuotePage& page = pages_.pages.back();
        if (const double heads = headsFor(block); heads > 0) {
            page.headsTop = at_;
            at_ += heads;
        }
        const double height = block.height(first, end);
        page.blocks.push_back({block.kind, block.index, at_, height, block.texts, first, end});
        at_ += height;
    }

    bool pageHasBlocks() const { return !pages_.pages.back().blocks.empty(); }

    /// Begins a page for a block. Totals take the last line of the quote with them, so that they do not stand alone.
    void goToNextPage(const Block& block, double height)
    {
        std::vector<PlacedBlock>& blocks = pages_.pages.back().blocks;
        const PlacedBlock last = blocks.back();
        const double space = bottom() - pages_.area.top() - pages_.runningHeight - pages_.headsHeight;
        const bool takes = block.kind == BlockKind::totals && last.kind == BlockKind::line && last.firstText == 0 &&
                           blocks.size() > 1 && blocks[blocks.size() - 2].kind == BlockKind::line &&
                           last.height + height <= space;
        if (takes) {
            blocks.pop_back();
        }
        newPage();
        if (takes) {
            QuotePage& page = pages_.pages.back();
            page.headsTop = at_;
            at_ += pages_.headsHeight;
            page.blocks.push_back(last);
            page.blocks.back().top = at_;
            at_ += last.height;
        }
    }

    /// Places a block that is taller than a page. Each page gets at least one line of text, so that this ends.
    void part(const Block& block)
    {
        const std::size_t lines = std::max<std::size_t>(block.texts.lines, 1); // a logo alone has none
        for (std::size_t first = 0; first < lines;) {
            std::size_t end = first + 1;
            while (end < lines && fits(block, block.height(first, end + 1))) {
                ++end;
            }
            put(block, first, end);
            first = end;
            if (first < lines) {
                newPage();
            }
        }
    }

    QuotePages& pages_;
    double at_ = 0;
};

std::size_t columnOf(const PrintedQuote& quote, PrintColumn kind)
{
    const auto found = std::find_if(quote.columns.begin(), quote.columns.end(),
                                    [&](const PrintedColumn& column) { return column.kind == kind; });
    return static_cast<std::size_t>(found - quote.columns.begin());
}

/// The width that each column but the name's needs for its widest text; of its caption, for the widest word.
std::vector<double> neededWidths(const PrintedQuote& quote, const QuotePages& pages)
{
    std::vector<double> widths(quote.columns.size(), 0);
    for (std::size_t column = 0; column < widths.size(); ++column) {
        if (quote.columns[column].kind == PrintColumn::name) {
            continue;
        }
        for (const QString& word : quote.columns[column].caption.split(u' ')) {
            widths[column] = std::max(widths[column], pages.tableHead.metrics.horizontalAdvance(word));
        }
        const bool isText = !quote.columns[column].isNumber;
        const double most = isText ? pages.area.width() * kMostPartNumber : pages.area.width();
        qsizetype longest = 0;
        for (const PrintedLine& line : quote.lines) {
            const QString& text = line.cells[column];
            // Digits have one width: numbers that are shorter than the longest so far need no measuring.
            if (widths[column] < most && (isText || text.size() + 1 >= longest)) {
                widths[column] = std::max(widths[column], pages.table.metrics.horizontalAdvance(text.left(200)));
                longest = std::max(longest, text.size());
            }
        }
        widths[column] = std::min(widths[column], std::max(most, 1.0)) + kSlack;
    }
    return widths;
}

/// Gives the columns their places. If the numbers leave too little width for the name, the table gets a smaller font.
/// If that does not help either, the columns become narrower, and even numbers are wrapped, so that nothing is lost.
void placeColumns(const PrintedQuote& quote, QuotePages& pages)
{
    const double width = pages.area.width();
    const double gaps = pages.kGap * static_cast<double>(quote.columns.size() - 1);
    const double mostForOthers = std::max(width * (1 - kLeastName) - gaps, width * 0.1);
    std::vector<double> widths;
    double sum = 0;
    for (const double points : {9.0, 8.0, 7.0, 6.0}) {
        pages.table = PrintFont(points, false);
        pages.tableHead = PrintFont(points, true);
        widths = neededWidths(quote, pages);
        sum = 0;
        for (const double each : widths) {
            sum += each;
        }
        if (sum <= mostForOthers) {
            break;
        }
    }
    const double factor = std::min(1.0, mostForOthers / sum);
    widths[columnOf(quote, PrintColumn::name)] = std::max(width - gaps - sum * factor, width * 0.1);
    double left = pages.area.left();
    for (std::size_t column = 0; column < widths.size(); ++column) {
        const double each = widths[column] * (quote.columns[column].kind == PrintColumn::name ? 1 : factor);
        pages.columns.push_back(
            {quote.rightToLeft ? pages.area.left() + pages.area.right() - left - each : left, each});
        left += each + pages.kGap;
    }
}

Block letterheadBlock(const PrintedQuote& quote, QuotePages& pages)
{
    if (!quote.logo.isNull()) {
        const QSizeF most(std::min(kLogoWidth, pages.area.width() * 0.4), kLogoHeight);
        const QSizeF size = QSizeF(quote.logo.size()).scaled(most, Qt::KeepAspectRatio);
        const double left = quote.rightToLeft ? pages.area.left() : pages.area.right() - size.width();
        pages.logo = QRectF(QPointF(left, pages.area.top()), size);
    }
    const double width = pages.area.width() - (pages.logo.isEmpty() ? 0 : pages.logo.width() + pages.kBlockGap);
    const std::size_t nameLines = countLines(quote.sellerName, pages.seller, width);
    Block block{.kind = BlockKind::letterhead};
    block.texts = {.headLines = nameLines,
                   .headHeight = pages.seller.lineHeight,
                   .lines = nameLines + countLines(quote.sellerAddress, pages.body, width),
                   .lineHeight = pages.body.lineHeight};
    const bool any = block.texts.lines > 0 || !pages.logo.isEmpty();
    block.below = any ? pages.kBlockGap : 0;
    block.least = pages.logo.isEmpty() ? 0 : pages.logo.height() + pages.kBlockGap;
    return block;
}

Block factsBlock(const PrintedQuote& quote, QuotePages& pages)
{
    for (const PrintedPair& fact : quote.facts) {
        pages.labelWidth = std::max(pages.labelWidth, pages.body.metrics.horizontalAdvance(fact.label) + pages.kGap);
    }
    pages.labelWidth = std::min(pages.labelWidth, pages.area.width() / 2);
    const double width = pages.area.width() - pages.labelWidth;
    std::size_t lines = 1; // the title
    for (const PrintedPair& fact : quote.facts) {
        lines += countLines(fact.text, pages.body, width);
    }
    return {.kind = BlockKind::facts,
            .texts = {.headLines = 1,
                      .headHeight = pages.title.lineHeight,
                      .lines = lines,
                      .lineHeight = pages.body.lineHeight},
            .below = pages.kBlockGap};
}

Block lineBlock(const PrintedQuote& quote, const QuotePages& pages, std::size_t index)
{
    const PrintedLine& line = quote.lines[index];
    std::size_t most = 1;
    for (std::size_t column = 0; column < quote.columns.size(); ++column) {
        const double width = pages.columns[column].width;
        std::size_t lines = countLines(line.cells[column], pages.table, width);
        if (quote.columns[column].kind == PrintColumn::name) {
            lines += countLines(line.note, pages.table, width);
        }
        most = std::max(most, lines);
    }
    return {.kind = BlockKind::line,
            .index = index,
            .texts = {.lines = most, .lineHeight = pages.table.lineHeight, .above = pages.kPadding},
            .below = pages.kPadding};
}

} // namespace

double TextStack::offset(std::size_t line) const
{
    const std::size_t heads = std::min(line, headLines);
    return static_cast<double>(heads) * headHeight + static_cast<double>(line - heads) * lineHeight;
}

QuotePages layOut(const PrintedQuote& quote, const QPageLayout& page)
{
    QuotePages pages;
    pages.paper = page.fullRect(QPageLayout::Inch).size() * kUnitsPerInch;
    const QMarginsF margins = page.margins(QPageLayout::Inch) * kUnitsPerInch;
    pages.area = QRectF(QPointF(), pages.paper).marginsRemoved(margins);
    pages.footHeight = pages.body.lineHeight * 2;
    pages.runningHeight = pages.body.lineHeight * 2;
    placeColumns(quote, pages);
    std::size_t headLines = 1;
    for (std::size_t column = 0; column < quote.columns.size(); ++column) {
        headLines = std::max(headLines,
                             countLines(quote.columns[column].caption, pages.tableHead, pages.columns[column].width));
    }
    pages.headsHeight = static_cast<double>(headLines) * pages.tableHead.lineHeight + 3 * pages.kPadding;

    Placer placer(pages);
    placer.place(letterheadBlock(quote, pages));
    placer.place(factsBlock(quote, pages));
    for (std::size_t index = 0; index < quote.lines.size(); ++index) {
        placer.place(lineBlock(quote, pages, index));
    }
    placer.place({.kind = BlockKind::totals,
                  .texts = {.lines = quote.totals.size(), .lineHeight = pages.strong.lineHeight, .above = pages.kGap},
                  .below = quote.note.isEmpty() ? pages.kBlockGap : 0});
    if (!quote.note.isEmpty()) {
        placer.place({.kind = BlockKind::note,
                      .texts = {.lines = countLines(quote.note, pages.body, pages.area.width()),
                                .lineHeight = pages.body.lineHeight},
                      .below = pages.kBlockGap});
    }
    placer.place({.kind = BlockKind::closing,
                  .texts = {.lines = countLines(quote.closingText, pages.body, pages.area.width()),
                            .lineHeight = pages.body.lineHeight}});
    return pages;
}

} // namespace orvan::desk

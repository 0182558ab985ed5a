#include "QuotePainter.h"

#include <QPainter>

#include <algorithm>

namespace orvan::desk {

namespace {

constexpr double kThin = 0.5 / 72 * kUnitsPerInch, kThick = 1.0 / 72 * kUnitsPerInch;
const QColor kInk(0x1a, 0x1a, 0x1a), kFaint(0x5c, 0x62, 0x6b), kRule(0xc4, 0xc9, 0xd0), kHeads(0xee, 0xf1, 0xf5);

} // namespace

void QuotePainter::rule(QPainter& painter, double y, double width, double left, double right) const
{
    painter.setPen(QPen(width > kThin ? kInk : kRule, width));
    painter.drawLine(QPointF(left, y), QPointF(right, y));
}

void QuotePainter::paint(QPainter& painter, std::size_t page)
{
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.scale(painter.device()->logicalDpiX() / double(kUnitsPerInch),
                  painter.device()->logicalDpiY() / double(kUnitsPerInch));
    const QuotePage& content = pages_.pages[page];
    if (content.headsTop >= 0) {
        paintHeads(painter, content.headsTop);
    }
    for (const PlacedBlock& block : content.blocks) {
        paintBlock(painter, block);
    }
    paintEnds(painter, page);
    painter.restore();
}

void QuotePainter::paintHeads(QPainter& painter, double top) const
{
    const double height = pages_.headsHeight - pages_.kPadding;
    painter.fillRect(QRectF(pages_.area.left(), top, pages_.area.width(), height), kHeads);
    painter.setPen(kInk);
    for (std::size_t i = 0; i < quote_.columns.size(); ++i) {
        const ColumnPlace& place = pages_.columns[i];
        const TextSide side = quote_.columns[i].isNumber ? TextSide::right : begin();
        const WrappedText caption(quote_.columns[i].caption, pages_.tableHead, place.width, side);
        const double used = static_cast<double>(caption.lines()) * pages_.tableHead.lineHeight;
        caption.draw(painter, {place.left, top + height - pages_.kPadding - used}, 0, caption.lines());
    }
    rule(painter, top + height, kThick, pages_.area.left(), pages_.area.right());
}

/// The running head and the page number.
void QuotePainter::paintEnds(QPainter& painter, std::size_t page) const
{
    const QRectF& area = pages_.area;
    painter.setPen(kFaint);
    if (page > 0) {
        const QString text = pages_.body.metrics.elidedText(quote_.runningHead, Qt::ElideRight, area.width());
        WrappedText(text, pages_.body, area.width(), begin()).draw(painter, area.topLeft(), 0, 1);
    }
    const QString number = quote_.texts.page.arg(page + 1).arg(pages_.pages.size());
    WrappedText(number, pages_.body, area.width(), end())
        .draw(painter, {area.left(), area.bottom() - pages_.body.lineHeight}, 0, 1);
}

void QuotePainter::paintBlock(QPainter& painter, const PlacedBlock& block)
{
    const auto key = std::pair(block.kind, block.index);
    if (block.firstText == 0 || key != partedBlock_) {
        parted_ = piecesOf(block);
        partedBlock_ = key;
    }
    if (block.kind == BlockKind::letterhead && block.firstText == 0 && !pages_.logo.isEmpty()) {
        painter.drawImage(pages_.logo, quote_.logo);
    }
    const double top = block.top + (block.firstText == 0 ? block.texts.above : 0);
    for (const Piece& piece : parted_) {
        const std::size_t first = std::max(block.firstText, piece.firstLine);
        const std::size_t end = std::min(block.endText, piece.firstLine + piece.text.lines());
        if (first < end) {
            painter.setPen(piece.faint ? kFaint : kInk);
            const double y = top + block.texts.offset(first) - block.texts.offset(block.firstText);
            piece.text.draw(painter, {piece.left, y}, first - piece.firstLine, end - piece.firstLine);
        }
    }
    const QRectF& area = pages_.area;
    if (block.kind == BlockKind::line && block.endText == block.texts.lines) {
        rule(painter, block.top + block.height, kThin, area.left(), area.right());
    } else if (block.kind == BlockKind::totals && block.endText == block.texts.lines) {
        const double y = top + block.texts.offset(block.endText - 1) - block.texts.offset(block.firstText);
        const double width = totalsWidth();
        const double left = quote_.rightToLeft ? area.left() : area.right() - width;
        rule(painter, y - pages_.kPadding / 2, kThick, left, left + width);
    }
}

QuotePainter::Pieces QuotePainter::piecesOf(const PlacedBlock& block) const
{
    Pieces pieces;
    switch (block.kind) {
    case BlockKind::letterhead: addLetterhead(pieces); break;
    case BlockKind::facts: addFacts(pieces); break;
    case BlockKind::line: addLine(pieces, quote_.lines[block.index]); break;
    case BlockKind::totals: addTotals(pieces); break;
    case BlockKind::note:
        pieces.push_back({{quote_.note, pages_.body, pages_.area.width(), end()}, pages_.area.left(), 0, true});
        break;
    case BlockKind::closing:
        pieces.push_back({{quote_.closingText, pages_.body, pages_.area.width(), begin()}, pages_.area.left()});
        break;
    }
    return pieces;
}

void QuotePainter::addLetterhead(Pieces& pieces) const
{
    const double beside = pages_.logo.isEmpty() ? 0 : pages_.logo.width() + pages_.kBlockGap;
    const double width = pages_.area.width() - beside;
    const double left = pages_.area.left() + (quote_.rightToLeft ? beside : 0);
    pieces.push_back({{quote_.sellerName, pages_.seller, width, begin()}, left});
    const std::size_t lines = pieces.back().text.lines();
    pieces.push_back({{quote_.sellerAddress, pages_.body, width, begin()}, left, lines});
}

void QuotePainter::addFacts(Pieces& pieces) const
{
    const QRectF& area = pages_.area;
    const double width = area.width() - pages_.labelWidth;
    const double labelLeft = quote_.rightToLeft ? area.right() - pages_.labelWidth : area.left();
    const double textLeft = quote_.rightToLeft ? area.left() : area.left() + pages_.labelWidth;
    pieces.push_back({{quote_.texts.quote, pages_.title, area.width(), begin()}, area.left()});
    std::size_t at = 1;
    for (const PrintedPair& fact : quote_.facts) {
        pieces.push_back({{fact.label, pages_.body, pages_.labelWidth, begin()}, labelLeft, at, true});
        pieces.push_back({{fact.text, pages_.body, width, begin()}, textLeft, at});
        at += pieces.back().text.lines();
    }
}

void QuotePainter::addLine(Pieces& pieces, const PrintedLine& line) const
{
    for (std::size_t i = 0; i < quote_.columns.size(); ++i) {
        const ColumnPlace& place = pages_.columns[i];
        const TextSide side = quote_.columns[i].isNumber ? TextSide::right : begin();
        pieces.push_back({{line.cells[i], pages_.table, place.width, side}, place.left});
        if (quote_.columns[i].kind == PrintColumn::name && !line.note.isEmpty()) {
            const std::size_t lines = pieces.back().text.lines();
            pieces.push_back({{line.note, pages_.table, place.width, side}, place.left, lines, true});
        }
    }
}

double QuotePainter::totalsWidth() const
{
    double label = 0, amount = 0;
    for (const PrintedPair& total : quote_.totals) {
        label = std::max(label, pages_.strong.metrics.horizontalAdvance(total.label));
        amount = std::max(amount, pages_.strong.metrics.horizontalAdvance(total.text));
    }
    return std::min(label + amount + 3 * pages_.kGap, pages_.area.width());
}

void QuotePainter::addTotals(Pieces& pieces) const
{
    const double width = totalsWidth();
    const double left = quote_.rightToLeft ? pages_.area.left() : pages_.area.right() - width;
    std::size_t at = 0;
    for (const PrintedPair& total : quote_.totals) {
        const bool last = at + 1 == quote_.totals.size();
        const PrintFont& font = last ? pages_.strong : pages_.body;
        // The amounts stand at the end of the lines: below the prices.
        const double amount = font.metrics.horizontalAdvance(total.text) + pages_.kGap;
        const double amountLeft = quote_.rightToLeft ? left : left + width - amount;
        pieces.push_back({{total.label, font, width, begin()}, left, at});
        pieces.push_back({{total.text, font, amount, end()}, amountLeft, at});
        ++at;
    }
}

bool paintPages(QPagedPaintDevice& device, const PrintedQuote& quote, const QuotePages& pages, PageRange range)
{
    const auto count = static_cast<int>(pages.pages.size());
    const int first = std::clamp(range.first, 1, count);
    const int last = range.last > 0 ? std::clamp(range.last, first, count) : count;
    QPainter painter;
    if (!painter.begin(&device)) {
        return false;
    }
    QuotePainter quotePainter(quote, pages);
    for (int page = first; page <= last; ++page) {
        if (page > first && !device.newPage()) {
            return false;
        }
        quotePainter.paint(painter, static_cast<std::size_t>(page) - 1);
    }
    return painter.end();
}

} // namespace orvan::desk

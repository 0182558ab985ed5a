// QuotePainter: paints the pages of a printed quote. Thread: the user-interface thread.
#pragma once

#include "QuotePages.h"

#include <QPagedPaintDevice>

#include <functional>
#include <utility>
#include <vector>

class QPainter;

namespace orvan::desk {

class QuotePainter {
public:
    /// Both must outlive the painter.
    QuotePainter(const PrintedQuote& quote, const QuotePages& pages) : quote_(quote), pages_(pages) {}

    /// Paints a page (0 is the first) on a device whose origin is the paper's upper left corner.
    void paint(QPainter& painter, std::size_t page);

private:
    /// A text of a block, and where it stands in it.
    struct Piece {
        WrappedText text;
        double left = 0;
        std::size_t firstLine = 0; ///< The block's line of text where it begins.
        bool faint = false;
    };
    using Pieces = std::vector<Piece>;

    /// Texts are aligned where the writing begins or where it ends; numbers are aligned right in both directions.
    TextSide begin() const { return quote_.rightToLeft ? TextSide::right : TextSide::left; }
    TextSide end() const { return quote_.rightToLeft ? TextSide::left : TextSide::right; }

    void paintHeads(QPainter& painter, double top) const;
    void paintBlock(QPainter& painter, const PlacedBlock& block);
    void paintEnds(QPainter& painter, std::size_t page) const;
    void rule(QPainter& painter, double y, double width, double left, double right) const;
    Pieces piecesOf(const PlacedBlock& block) const;
    void addLetterhead(Pieces& pieces) const;
    void addFacts(Pieces& pieces) const;
    void addLine(Pieces& pieces, const PrintedLine& line) const;
    void addTotals(Pieces& pieces) const;
    double totalsWidth() const;

    const PrintedQuote& quote_;
    const QuotePages& pages_;
    /// The laid out texts of a split block, kept for the next page, because laying out a long text takes long.
    Pieces parted_;
    std::pair<BlockKind, std::size_t> partedBlock_;
};

/// Pages counted from 1, the last one included; 0 stands for the first or the last page of the quote.
struct PageRange {
    int first = 0, last = 0;
};

/// Paints pages on a device that is in full-page mode. Returns false if the device failed.
[[nodiscard]] bool paintPages(QPagedPaintDevice& device, const PrintedQuote& quote, const QuotePages& pages,
                              PageRange range);

} // namespace orvan::desk

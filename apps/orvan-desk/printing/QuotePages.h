// QuotePages: where everything of a printed quote stands, page by page. Nothing is painted here.
//
// A page shows blocks one below the other. Each page with lines of the quote repeats the heads of the columns, and each
// page but the first has a running head. A line of the quote that does not fit on the rest of a page goes to the next
// page. Only a line that is taller than a whole page is split, between two lines of its text. Lengths are in units of
// 1/1200 inch (WrappedText.h), measured from the upper left corner of the paper. Thread: the user-interface thread.
#pragma once

#include "PrintedQuote.h"
#include "WrappedText.h"

#include <QRectF>

#include <vector>

namespace orvan::desk {

enum class BlockKind { letterhead, facts, line, totals, note, closing };

/// The lines of text of a block, one below the other. The first lines may be taller than the others.
struct TextStack {
    std::size_t headLines = 0;
    double headHeight = 0;
    std::size_t lines = 0; ///< The number of all lines.
    double lineHeight = 0;
    double above = 0; ///< Space above the first line, which belongs to it.

    /// The distance from the top of the first line to the top of another line.
    double offset(std::size_t line) const;
};

/// A block, or the part of a split block that stands on this page.
struct PlacedBlock {
    BlockKind kind = BlockKind::line;
    std::size_t index = 0; ///< The position of the line of the quote, counted from 0.
    double top = 0, height = 0;
    TextStack texts;
    std::size_t firstText = 0,
                endText = 0; ///< The lines of text on this page, counted from 0; `endText` is the one after the last.
};

struct QuotePage {
    double headsTop = -1; ///< The top of the column heads; negative on a page without lines of the quote.
    std::vector<PlacedBlock> blocks;
};

struct ColumnPlace {
    double left = 0, width = 0; ///< The place of the texts, without the space around them.
};

struct QuotePages {
    QSizeF paper;
    QRectF area; ///< The page without its margins.
    PrintFont table{9, false}, tableHead{9, true}, body{9, false}, strong{9, true}, title{17, true}, seller{12, true};
    std::vector<ColumnPlace> columns;
    QRectF logo;              ///< The place of the logo; empty if there is none.
    double labelWidth = 0;    ///< The width of the labels of the facts.
    double headsHeight = 0;   ///< The height of the column heads.
    double footHeight = 0;    ///< The height of the page number, at the end of the area.
    double runningHeight = 0; ///< The height of the running head, at the top of the area.
    std::vector<QuotePage> pages;

    /// Space above and below the texts of a line of the quote.
    static constexpr double kPadding = 0.03 * kUnitsPerInch;
    /// Space between two columns, and between two blocks.
    static constexpr double kGap = 0.1 * kUnitsPerInch;
    static constexpr double kBlockGap = 0.25 * kUnitsPerInch;
};

[[nodiscard]] QuotePages layOut(const PrintedQuote& quote, const QPageLayout& page);

} // namespace orvan::desk

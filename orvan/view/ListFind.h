// ListFind: finds a row of the list view by what the user types in it.
//
// The search finds a row whose name begins with the text. If there is none, it finds a row whose part number begins
// with the text, and then one whose name contains it. Upper and lower case count as the same. The search begins at the
// current row; at the end of the list it goes on from the top. It reads what the grid shows, so it calls no manager and
// leaves no trace.
//
// Ownership: ListCommands; the grid and the locale service outlive it. Thread: the user-interface thread.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvan {

namespace ui {
class Grid;
class LocaleService;
struct KeyStroke;
} // namespace ui

class ListFind {
public:
    ListFind(ui::Grid& grid, ui::LocaleService& locale) : grid_(grid), locale_(locale) {}

    /// Whether the key types or changes the text that is searched for.
    [[nodiscard]] bool takes(const ui::KeyStroke& key) const;
    /// Takes the key, searches, and shows the text. Returns true if another row has become the current one.
    bool press(const ui::KeyStroke& key);
    /// Goes on to the next row (+1) or back to the previous one (-1) that fits the last text.
    bool next(std::int32_t step);
    /// Stops showing the text. It stays the last one for next().
    void end();
    [[nodiscard]] bool hasText() const { return !text_.empty(); }

private:
    bool find(std::int32_t from, std::int32_t step);
    /// The row that fits best and comes first, from `from` on; 0 if there is none.
    [[nodiscard]] std::int32_t search(std::int32_t from, std::int32_t step) const;
    /// Whether the text begins at this byte of the cell, or somewhere in the cell.
    [[nodiscard]] bool fitsAt(std::string_view cell, std::size_t at) const;
    [[nodiscard]] bool isWithin(std::string_view cell) const;

    ui::Grid& grid_;
    ui::LocaleService& locale_;
    std::string text_;
    std::u32string folded_;            ///< The text without the difference between upper and lower case.
    std::array<bool, 256> mayBegin_{}; ///< By its first byte: whether a place in a cell is worth comparing.
    bool shown_ = false;
};

} // namespace orvan

#include "orvan/view/ListFind.h"

#include "orvan/base/Text.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/LocaleService.h"
#include "orvan/view/ProductColumnTable.h"

#include <optional>
#include <span>
#include <string_view>

namespace orvan {

namespace {

/// What LocaleService::foldCase does with these characters, without its call: a long list has millions of them.
constexpr char32_t foldAscii(char32_t character)
{
    return character >= U'A' && character <= U'Z' ? character + (U'a' - U'A') : character;
}

} // namespace

bool ListFind::takes(const ui::KeyStroke& key) const
{
    if (key.control || key.alt) {
        return false;
    }
    if (key.key == ui::Key::character) {
        return key.character > U' ' || shown_; // a text does not begin with a blank
    }
    return shown_ && (key.key == ui::Key::backspace || key.key == ui::Key::escape);
}

bool ListFind::press(const ui::KeyStroke& key)
{
    if (key.key == ui::Key::escape) {
        end();
        return false;
    }
    if (!shown_) {
        text_.clear();
    }
    if (key.key == ui::Key::character) {
        text_ += toUtf8(key.character);
    } else {
        text_.resize(firstCharacters(text_, characterCount(text_) - 1).size());
    }
    if (text_.empty()) {
        end();
        return false;
    }
    shown_ = true;
    return find(grid_.currentRow(), 1);
}

bool ListFind::next(std::int32_t step)
{
    shown_ = true;
    return find(grid_.currentRow() + step, step);
}

void ListFind::end()
{
    shown_ = false;
    grid_.setSearchText({});
}

bool ListFind::find(std::int32_t from, std::int32_t step)
{
    folded_.clear();
    for (std::size_t at = 0; at < text_.size(); at += characterSize(text_, at)) {
        folded_ += locale_.foldCase(characterAt(text_, at));
    }
    for (std::size_t byte = 0; byte < mayBegin_.size(); ++byte) {
        // No ASCII letter folds to another kind of letter. Of other characters only the first byte begins one.
        mayBegin_[byte] = byte < 0x80 ? foldAscii(static_cast<char32_t>(byte)) == folded_.front() : byte >= 0xC0;
    }
    const std::int32_t row = search(from, step);
    grid_.setSearchText(row > 0 ? UserText(text_) : userText("%1: not found", text_));
    const bool moves = row > 0 && row != grid_.currentRow();
    if (row > 0) {
        grid_.setCurrentRow(row);
    }
    return moves;
}

// One pass over the list, because reading it is what takes long: a row that fits less well is remembered while better
// ones are looked for.
std::int32_t ListFind::search(std::int32_t from, std::int32_t step) const
{
    const std::int32_t first = grid_.fixedRows();
    const std::int32_t rows = grid_.rowCount() - first;
    const std::int32_t names = grid_.columnIndex(kColumns[kNameColumn].key);
    const std::int32_t partNumbers = grid_.columnIndex(kColumns[kPartNumColumn].key);
    if (rows < 1 || names < 0 || partNumbers < 0) {
        return 0;
    }
    const std::span<const ui::GridCell> nameCells = grid_.cells(names);
    const std::span<const ui::GridCell> partNumberCells = grid_.cells(partNumbers);
    std::int32_t byPartNumber = 0;
    std::int32_t within = 0;
    std::int32_t row = first + ((from - first) % rows + rows) % rows;
    for (std::int32_t i = 0; i < rows; ++i) {
        const auto at = static_cast<std::size_t>(row);
        const std::optional<std::string_view> name = nameCells[at].text();
        if (name && fitsAt(*name, 0)) {
            return row;
        }
        const std::optional<std::string_view> partNumber = byPartNumber > 0 ? std::nullopt : partNumberCells[at].text();
        if (partNumber && fitsAt(*partNumber, 0)) {
            byPartNumber = row;
        }
        if (byPartNumber == 0 && within == 0 && name && isWithin(*name)) {
            within = row;
        }
        row += step;
        row = row < first ? first + rows - 1 : row >= first + rows ? first : row;
    }
    return byPartNumber > 0 ? byPartNumber : within;
}

bool ListFind::isWithin(std::string_view cell) const
{
    for (std::size_t at = 0; at < cell.size(); ++at) {
        if (mayBegin_[static_cast<unsigned char>(cell[at])] && fitsAt(cell, at)) {
            return true;
        }
    }
    return false;
}

bool ListFind::fitsAt(std::string_view cell, std::size_t at) const
{
    for (const char32_t wanted : folded_) {
        if (at >= cell.size()) {
            return false;
        }
        const auto byte = static_cast<unsigned char>(cell[at]);
        if (byte < 0x80 ? foldAscii(byte) != wanted : locale_.foldCase(characterAt(cell, at)) != wanted) {
            return false;
        }
        at += byte < 0x80 ? 1 : characterSize(cell, at);
    }
    return true;
}

} // namespace orvan

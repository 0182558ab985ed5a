#include "orvan/view/ListFind.h"

#include "orvan/base/Text.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/LocaleService.h"
#include "orvan/view/ProductColumnTable.h"

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
    std::int32_t row = 0;
    for (const Rule rule : {Rule::nameBegins, Rule::partNumberBegins, Rule::nameContains}) {
        row = row > 0 ? row : search(rule, from, step);
    }
    grid_.setSearchText(row > 0 ? UserText(text_) : userText("%1: not found", text_));
    const bool moves = row > 0 && row != grid_.currentRow();
    if (row > 0) {
        grid_.setCurrentRow(row);
    }
    return moves;
}

std::int32_t ListFind::search(Rule rule, std::int32_t from, std::int32_t step) const
{
    const std::int32_t rows = grid_.rowCount() - grid_.fixedRows();
    const std::size_t field = rule == Rule::partNumberBegins ? kPartNumColumn : kNameColumn;
    const std::int32_t column = grid_.columnIndex(kColumns[field].key);
    if (rows < 1 || column < 0) {
        return 0;
    }
    const std::int32_t begin = ((from - grid_.fixedRows()) % rows + rows) % rows;
    for (std::int32_t i = 0; i < rows; ++i) {
        const std::int32_t row = grid_.fixedRows() + ((begin + step * i) % rows + rows) % rows;
        const auto* cell = std::get_if<std::string>(&grid_.value(row, column));
        if (cell && fits(rule, *cell)) {
            return row;
        }
    }
    return 0;
}

bool ListFind::fits(Rule rule, const std::string& cell) const
{
    const auto fold = [this](char32_t character) {
        return character < 0x80 ? foldAscii(character) : locale_.foldCase(character);
    };
    std::size_t start = 0;
    while (start < cell.size()) {
        std::size_t at = start;
        std::size_t matched = 0;
        while (matched < folded_.size() && at < cell.size() && fold(characterAt(cell, at)) == folded_[matched]) {
            at += characterSize(cell, at);
            ++matched;
        }
        if (matched == folded_.size()) {
            return true;
        }
        if (rule != Rule::nameContains) {
            return false;
        }
        start += characterSize(cell, start);
    }
    return false;
}

} // namespace orvan

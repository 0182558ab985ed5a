// orvan-grid: a host without a window. Reads a products string and prints the list view's grid.

#include <orvan/core/ProductMgr.h>
#include <orvan/hosting/HeadlessProductView.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Rows = std::vector<std::vector<std::string>>;

/// The number of characters of a UTF-8 text: every byte begins a character, except those that continue one.
std::size_t characterCount(std::string_view text)
{
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

Rows gridRows(const orvan::headless::GridDriver& grid)
{
    Rows rows;
    for (std::int32_t row = 0; row < grid.rowCount(); ++row) {
        rows.push_back(grid.visibleTexts(row));
    }
    return rows;
}

/// Prints the rows as a table. The name stands at the left edge of its column, all other texts at the right edge.
void print(const Rows& rows)
{
    std::vector<std::size_t> widths(rows.front().size());
    for (const auto& row : rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            widths[column] = std::max(widths[column], characterCount(row[column]));
        }
    }
    for (const auto& row : rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            const std::string blanks(widths[column] - characterCount(row[column]), ' ');
            std::cout << (column == 1 ? row[column] + blanks : blanks + row[column])
                      << (column + 1 < row.size() ? "  " : "\n");
        }
    }
}

std::string readAll(std::istream& input)
{
    std::ostringstream content;
    content << input.rdbuf();
    if (!input || input.bad()) {
        throw orvan::RuntimeError(orvan::ErrorNumber::pathFileAccess, {}, "the input is empty or cannot be read");
    }
    std::string text = content.str();
    text.erase(text.find_last_not_of('\n') + 1); // text editors add a last line break, which is not part of the list
    return text;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc > 2 || (argc > 1 && std::string_view(argv[1]).starts_with("--"))) {
        std::cerr << "usage: orvan-grid [file]\nReads a products string from the file or from standard input and "
                     "prints it as a grid.\n";
        return 1;
    }
    try {
        std::ifstream file;
        if (argc > 1) {
            file.open(argv[1]);
            if (!file) {
                std::cerr << "orvan-grid: cannot open " << argv[1] << '\n';
                return 1;
            }
        }
        const std::string products = readAll(argc > 1 ? file : std::cin);
        orvan::HeadlessHost host;
        orvan::HeadlessProductView view(host.platform());
        // view.Show reports an error as a number alone. So the string is first given to a separate product manager,
        // which reports the reason.
        orvan::ui::createComponent<orvan::ProductMgr>(host.components(), orvan::kProductMgrClassName)
            ->SetProductsString(products, orvan::kRecordSeparator, orvan::kFieldSeparator, false);
        view.Show(products);
        print(gridRows(view.flexGrid()));
        std::cout << "Total  " << view.txtTotal().text() << '\n';
        return 0;
    } catch (const orvan::RuntimeError& error) {
        std::cerr << "orvan-grid: " << error.what() << " (error " << error.number() << ")\n";
        return 1;
    }
}

// orvan-grid: a host without a window. Reads a products string and prints the list view's grid, or how its amounts came
// about.

#include "Explained.h"

#include <orvan/core/ProductMgr.h>
#include <orvan/hosting/HeadlessProductView.h>
#include <orvan/hosting/Version.h>

#include <shared/TerminalText.h>

#include <algorithm>
#include <iostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr const char* kHelp = R"(usage: orvan-grid [--explain] [file]
       orvan-grid --help | --version

Reads a products string from the file or from standard input and prints it as a grid.

  --explain   prints how each price and the total came about instead: each step with its exact value

Exit status: 0 the products were printed; 1 the command line or the input is wrong.
)";

/// The number of characters of a UTF-8 text: every byte begins a character, except those that continue one.
std::size_t characterCount(std::string_view text)
{
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

Rows gridRows(const orvan::headless::GridDriver& grid)
{
    Rows rows;
    for (std::int32_t row = 0; row < grid.rowCount(); ++row) {
        auto& texts = rows.emplace_back();
        for (const std::string& text : grid.visibleTexts(row)) {
            texts.push_back(orvan::shared::terminalText(text));
        }
    }
    return rows;
}

/// Prints the rows as a table. The texts of the columns `left` stand at the left edge, all others at the right edge.
void print(const Rows& rows, const std::set<std::size_t>& left)
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
            const bool last = column + 1 == row.size();
            std::cout << (!left.contains(column) ? blanks + row[column]
                          : last                 ? row[column]
                                                 : row[column] + blanks)
                      << (last ? "\n" : "  ");
        }
    }
}

[[noreturn]] void fail(const std::string& problem)
{
    throw orvan::RuntimeError(orvan::ErrorNumber::pathFileAccess, {}, problem);
}

/// Opens a file. A pipe or a device is refused, because reading it might never end; the kind of file is tested after
/// it has been opened, so that nothing else can take its place in between. O_NONBLOCK: opening a pipe would otherwise
/// wait for a writer.
int openFile(const char* name)
{
    const int file = ::open(name, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    struct stat status = {};
    if (file < 0 || ::fstat(file, &status) != 0) {
        fail(std::string("cannot open ") + name);
    }
    if (!S_ISREG(status.st_mode)) {
        fail(std::string(name) + " is not a file; a pipe can be read from the standard input");
    }
    return file;
}

std::string readAll(int input)
{
    std::string text;
    char part[65536];
    ssize_t got = 0;
    while ((got = ::read(input, part, sizeof part)) > 0) {
        text.append(part, static_cast<std::size_t>(got));
    }
    if (got < 0 || text.empty()) {
        fail("the input is empty or cannot be read");
    }
    text.erase(text.find_last_not_of('\n') + 1); // text editors add a last line break, which is not part of the list
    return text;
}

} // namespace

int main(int argc, char** argv)
{
    const std::string_view option = argc > 1 ? argv[1] : "";
    if (option == "--version") {
        std::cout << "orvan-grid " << orvan::libraryVersion() << '\n';
        return 0;
    }
    const bool explains = option == "--explain";
    const int fileAt = explains ? 2 : 1;
    const char* const file = argc > fileAt ? argv[fileAt] : nullptr;
    if (option == "--help" || argc > fileAt + 1 || (file && std::string_view(file).starts_with("--"))) {
        (option == "--help" ? std::cout : std::cerr) << kHelp;
        return option == "--help" ? 0 : 1;
    }
    try {
        const std::string products = readAll(file ? openFile(file) : STDIN_FILENO);
        orvan::HeadlessHost host;
        orvan::HeadlessProductView view(host.platform());
        // view.Show reports an error as a number alone. So the string is first given to a separate product manager,
        // which reports the reason.
        const auto manager =
            orvan::ui::createComponent<orvan::ProductMgr>(host.components(), orvan::kProductMgrClassName);
        manager->SetProductsString(products, orvan::kRecordSeparator, orvan::kFieldSeparator, false);
        if (explains) {
            const Explained explanation = explained(*manager);
            print(explanation.table, {1, 4});
            for (const std::string& sentence : explanation.sentences) {
                std::cout << sentence << '\n';
            }
            return 0;
        }
        view.Show(products);
        print(gridRows(view.flexGrid()), {1});
        std::cout << "Total  " << orvan::shared::terminalText(view.txtTotal().text()) << '\n';
        return 0;
    } catch (const orvan::RuntimeError& error) {
        std::cerr << "orvan-grid: " << orvan::shared::terminalText(error.what()) << " (error " << error.number()
                  << ")\n";
        return 1;
    }
}

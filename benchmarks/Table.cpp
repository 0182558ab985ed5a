#include "benchmarks/Table.h"

#include <cmath>
#include <iomanip>
#include <sstream>

namespace orvan::bench {

Table::Table(std::ostream& out, const std::vector<std::string>& heads, std::size_t firstWidth)
    : out_(out), firstWidth_(firstWidth)
{
    print(heads);
    print(std::vector<std::string>(heads.size(), "---"));
}

void Table::print(const std::vector<std::string>& cells)
{
    for (std::size_t i = 0; i < cells.size(); ++i) {
        out_ << "| " << std::left << std::setw(i == 0 ? static_cast<int>(firstWidth_) : 0) << cells[i] << ' ';
    }
    out_ << '|' << std::endl; // flushes, so that a row appears as soon as it is measured
}

std::string plainNumber(double number)
{
    std::ostringstream text;
    if (std::abs(number) >= 100) {
        text << std::fixed << std::setprecision(0) << number;
    } else {
        text << std::setprecision(3) << number;
    }
    return text.str();
}

std::string figureText(double figure, Unit unit)
{
    static constexpr const char* kUnits[][4] = {
        {" ns", " us", " ms", " s"}, {" bytes", " kB", " MB", " GB"}, {"", " thousand", " million", " billion"}};
    std::size_t scale = 0;
    while (std::abs(figure) >= 999.5 && scale < 3) {
        figure /= 1000;
        ++scale;
    }
    return plainNumber(figure) + kUnits[static_cast<std::size_t>(unit)][scale];
}

std::string groupedNumber(std::size_t number)
{
    std::string text = std::to_string(number);
    for (std::size_t at = text.size(); at > 3; at -= 3) {
        text.insert(at - 3, 1, ',');
    }
    return text;
}

} // namespace orvan::bench

#include "benchmarks/Table.h"

#include <cmath>
#include <iomanip>
#include <sstream>

namespace orvan::bench {

namespace {

struct Scale {
    const char* name;
    double size;
};

/// The scale in which the figure is easiest to read.
Scale easyScale(double figure, Unit unit)
{
    static constexpr const char* kNames[][4] = {
        {" ns", " us", " ms", " s"}, {" bytes", " kB", " MB", " GB"}, {"", " thousand", " million", " billion"}};
    std::size_t step = 0;
    double size = 1;
    for (; std::abs(figure) / size >= 999.5 && step < 3; size *= 1000) {
        ++step;
    }
    return {kNames[static_cast<std::size_t>(unit)][step], size};
}

} // namespace

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
    const Scale scale = easyScale(figure, unit);
    return plainNumber(figure / scale.size) + scale.name;
}

std::string spreadText(const Spread& spread, Unit unit)
{
    std::string text = figureText(spread.median, unit);
    if (spread.lower != spread.upper) {
        const double size = easyScale(spread.median, unit).size;
        text.append(" (").append(plainNumber(spread.lower / size));
        text.append(" to ").append(plainNumber(spread.upper / size)).append(")");
    }
    return text;
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

#include "benchmarks/Options.h"

#include <algorithm>
#include <iostream>
#include <stdexcept>

namespace orvan::bench {

bool takeOption(std::vector<std::string>& arguments, const std::string& option)
{
    return std::erase(arguments, option) > 0;
}

std::optional<std::string> takeValue(std::vector<std::string>& arguments, const std::string& option)
{
    const auto at = std::find(arguments.begin(), arguments.end(), option);
    if (at == arguments.end()) {
        return std::nullopt;
    }
    if (at + 1 == arguments.end()) {
        throw std::runtime_error(option + " needs a file");
    }
    std::string value = at[1];
    arguments.erase(at, at + 2);
    return value;
}

std::optional<std::string> unknownOption(const std::vector<std::string>& arguments)
{
    const auto found = std::find_if(arguments.begin(), arguments.end(),
                                    [](const std::string& argument) { return argument.starts_with("-"); });
    return found == arguments.end() ? std::nullopt : std::optional(*found);
}

bool beginsWithAny(const std::string& name, const std::vector<std::string>& beginnings)
{
    return beginnings.empty() || std::any_of(beginnings.begin(), beginnings.end(),
                                             [&](const std::string& each) { return name.starts_with(each); });
}

ResultFiles::ResultFiles(std::vector<std::string>& arguments) : json_(takeValue(arguments, "--json"))
{
    if (const std::optional<std::string> file = takeValue(arguments, "--compare")) {
        earlier_ = readResults(*file);
    }
}

void ResultFiles::finish(const Results& results) const
{
    if (json_) {
        writeResults(*json_, results);
    }
    if (earlier_) {
        std::cout << '\n';
        printComparison(std::cout, *earlier_, results);
    }
}

int exitCode(const std::vector<std::string>& failed)
{
    for (const std::string& name : failed) {
        std::cerr << "Fails: " << name << '\n';
    }
    return failed.empty() ? 0 : 1;
}

} // namespace orvan::bench

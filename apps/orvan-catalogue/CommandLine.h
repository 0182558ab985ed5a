// CommandLine: the words of a command of orvan-catalogue, and its exit statuses.
#pragma once

#include <string>
#include <vector>

namespace orvan::tool {

constexpr int kDone = 0, kNothing = 1, kFailed = 2, kCancelled = 130;

struct WrongUse {
    std::string problem;
};

/// Returns the words of the command line that are not options. Passes each option to `take`, with a function that
/// returns the option's value.
template <class Take>
std::vector<std::string> positional(const std::vector<std::string>& words, Take&& take)
{
    std::vector<std::string> rest;
    bool options = true;
    for (std::size_t at = 0; at < words.size(); ++at) {
        if (options && words[at] == "--") {
            options = false; // the words after "--" are not options, even if they begin with "--"
        } else if (options && words[at].starts_with("--")) {
            const std::string& option = words[at];
            take(option, [&]() -> const std::string& {
                if (++at == words.size()) {
                    throw WrongUse{option + " needs a value"};
                }
                return words[at];
            });
        } else {
            rest.push_back(words[at]);
        }
    }
    return rest;
}

} // namespace orvan::tool

// Options: what the programs that measure read from their arguments, and the files that these name.
//
// Errors: std::runtime_error for an option without its value, and for a file that cannot be read or written.
#pragma once

#include "benchmarks/Results.h"

#include <optional>
#include <string>
#include <vector>

namespace orvan::bench {

/// Takes the option out of the arguments; returns whether it was there.
bool takeOption(std::vector<std::string>& arguments, const std::string& option);
/// Takes the option and the value after it out of the arguments.
std::optional<std::string> takeValue(std::vector<std::string>& arguments, const std::string& option);
/// The first of the arguments that looks like an option: an unknown one, once all others are taken out.
std::optional<std::string> unknownOption(const std::vector<std::string>& arguments);
/// Whether the name begins with one of these texts; true if there are no texts.
bool beginsWithAny(const std::string& name, const std::vector<std::string>& beginnings);

/// The options --json FILE and --compare FILE.
class ResultFiles {
public:
    /// Takes the options out of the arguments. Reads the earlier run at once, so that a file that cannot be read is
    /// noticed before minutes of measuring.
    explicit ResultFiles(std::vector<std::string>& arguments);

    /// Writes the results into the file and prints the comparison, as far as these were asked for.
    void finish(const Results& results) const;

private:
    std::optional<std::string> json_;
    std::optional<Results> earlier_;
};

/// Names the rows that fail on the error stream, and returns the program's exit code.
int exitCode(const std::vector<std::string>& failed);

} // namespace orvan::bench

#include "tests/support/RecordingTrace.h"

#include <gmock/gmock.h>

#include <sstream>

namespace orvan::test {
namespace {

using ::testing::ElementsAreArray;

/// "+A" enters A, "-A" leaves it, "!" records a declared error 13, "?" one that is not declared.
std::vector<std::string> unpairedAfter(const std::string& calls)
{
    RecordingTrace trace;
    std::istringstream words(calls);
    for (std::string word; words >> word;) {
        if (word[0] == '+') {
            trace.TraceEnter(word.substr(1));
        } else if (word[0] == '-') {
            trace.TraceExit(word.substr(1));
        } else {
            trace.declareError(13, word == "!" ? 1 : 0);
            try {
                throw RuntimeError(13);
            } catch (...) {
                trace.TraceError("");
            }
        }
    }
    return trace.unpaired();
}

TEST(RecordingTrace, FindsWhatDoesNotPairUp)
{
    struct Row {
        const char* calls;
        std::vector<std::string> found;
    };
    for (const Row& row :
         std::initializer_list<Row>{{"+A +B -B +A -A -A", {}},
                                    {"+A +B ! ! +A -A", {}}, // both ended by their error
                                    {"+A ! +B ! ! -A", {}},  // A resumed twice
                                    {"+A +B ! -A", {}},      // A recovered from B in some other way
                                    {"+A", {"enter without exit: A"}},
                                    {"-A", {"exit without enter: A"}},
                                    {"+A -A -A", {"exit without enter: A"}},
                                    {"+A +B -A", {"enter without exit: B"}},
                                    {"+A ! +B -A", {"enter without exit: B"}}, // an error from before B did not end it
                                    {"+A +B !", {"enter without exit: A"}},    // one error ends one procedure
                                    {"+A ?", {"error not declared: 13 Type mismatch"}}}) {
        EXPECT_THAT(unpairedAfter(row.calls), ElementsAreArray(row.found)) << row.calls;
    }
    RecordingTrace trace;
    trace.declareError(91);
    trace.failAt(TraceCall::show, 2, 70);
    trace.ShowLastError(1);
    EXPECT_THAT(trace.unpaired(), ElementsAreArray({"declared error not recorded: 91", "failure not reached: 70"}));
}

} // namespace
} // namespace orvan::test

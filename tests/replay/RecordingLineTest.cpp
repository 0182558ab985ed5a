// Lines of recordings, and what is no line.

#include "orvan/replay/RecordedLines.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"

#include <gtest/gtest.h>

namespace orvan::recording {
namespace {

struct Row {
    const char* name;
    const char* text;
};

TEST(RecordingLineTest, IsWrittenAsItWasRead)
{
    test::forEachRow(
        std::vector<Row>{
            {"event", "+12 3 txtQty key 53 0 \"\""},
            {"consequence", "~0 1 - fitted 0 0 \"\""},
            {"text", "+0 1 cboPartNum typed 2 1 \"a \\\"b\\\" \\\\ \\n\\r\\t\\x00\\x7F \xC3\xA9\""},
            {"values", "  call x.y 1 -5 0.0000 -922337203685477.5808 d-0.1 d1e+300 null \"\" = 12.3456 \"t\""},
            {"no answer", "  call x.y"},
            {"empty answer", "  call x.y ="},
            {"error", "  call x.y 1 ! 91 \"Object variable not set\" \"source\""},
            {"done", "  done = 6"},
            {"question", "  know locale.appendCurrency 1.0000 2 = \"$1.00\""},
            {"enter", "  enter KTVOrvanProduct.ProductView::Show"},
            {"trace error", "  error -2147220991 \"a\\nb\""},
            {"form", "  form 2"},
            {"closed", "  closed"},
            {"measure", "  measure page 12"},
            {"returns", "  returns = \"3~\""},
            {"raises", "  returns ! 14 \"Out of string space\" \"\""},
        },
        [](const Row& row) { EXPECT_EQ(lineText(lineOfText(row.text)), row.text); });
}

TEST(RecordingLineTest, RefusesWhatIsNoRecording)
{
    const std::string heading = headingText({.libraryVersion = "2.1", .maxDataSize = 5}) + "\n";
    struct Bad {
        const char* name;
        std::string text;
        const char* why;
    };
    test::forEachRow(
        std::vector<Bad>{
            {"empty", "", "The recording is empty"},
            {"another file", "hello\n", "Line 1: this is no recording"},
            {"later version", "orvan-recording 2 \"3\"\n",
             "Line 1: this is a recording of version 2, and only version 1 is known"},
            {"unknown line", heading + "  closed\n  hop 1\n", "Line 3: a line does not begin with \"hop\""},
            {"unknown event", heading + "+1 1 - jumped 0 0 \"\"\n", "Line 2: there is no event \"jumped\""},
            {"no number", heading + "+x 1 - created 0 0 \"\"\n", "Line 2: \"x\" is no number"},
            {"too long", heading + "  closed 1\n", "Line 2: nothing was expected at \"1\""},
            {"cut text", heading + "  call a \"b\n", "Line 2: a quotation mark is missing"},
            {"bad escape", heading + "  call a \"\\q\"\n", "Line 2: a backslash stands before nothing that it changes"},
            {"bad amount", heading + "  call a 1.5\n", "Line 2: the amount \"1.5\" has not four decimals"},
        },
        [](const Bad& row) {
            const auto error = test::raisedBy([&] { replay::RecordedLines{row.text}; });
            EXPECT_EQ(error.number, 321);
            EXPECT_EQ(error.description, row.why);
        });
    EXPECT_EQ(replay::RecordedLines(heading + "  closed\n  call a \"b").size(), 1U) << "a line that a crash has cut";
}

} // namespace
} // namespace orvan::recording

// A recording that begins while the user has a list before them.

#include "tests/support/QtEnvironment.h"
#include "tests/support/TemporaryFolder.h"

#include <orvan/hosting/ProductViewWidget.h>
#include <orvan/hosting/QtHost.h>
#include <orvan/recording/Recording.h>

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace {

TEST(ShownRecording, BeginsWithTheListAsItIs)
{
    const orvan::test::TemporaryFolder folder;
    const std::filesystem::path file = folder.path() / "quote.recording";
    orvan::ProductViewWidget view;
    ASSERT_TRUE(view.load("1~Desk lamp:::74.95:1:0:74.95:~"));
    //! [start]
    orvan::startRecording(orvan::qtHost().platform(), {.file = file, .report = [](const orvan::UserText& why) {
                                                           qWarning("%s", why.english().c_str());
                                                       }});
    view.renew(); // the list stays as it is, and is recorded from now on
    //! [start]
    EXPECT_EQ(view.totalText(), "$74.95");
    EXPECT_TRUE(view.load("1~Chair:::49.5:1:0:49.5:~"));
    //! [stop]
    orvan::stopRecording(orvan::qtHost().platform());
    view.renew(); // the list no longer goes through the recording
    //! [stop]
    EXPECT_EQ(view.totalText(), "$49.50");
    std::ifstream stream(file);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_THAT(text, testing::StartsWith("orvan-recording 1 "));
    EXPECT_THAT(text, testing::HasSubstr("show 0 0 \"1~Desk lamp:::74.95:1:0:74.95:~\"\n"));
    EXPECT_THAT(text, testing::HasSubstr("show 0 0 \"1~Chair:::49.5:1:0:49.5:~\"\n"));
}

} // namespace

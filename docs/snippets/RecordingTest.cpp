// A recording of what a user does, from the start of a program.

#include "HeadlessEnvironment.h"

#include <orvan/hosting/HeadlessProductView.h>
#include <orvan/recording/Recording.h>

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace {

TEST(Recording, FromTheStartHasWhatTheUserDid)
{
    const orvan::test::TemporaryFolder folder;
    const std::filesystem::path file = folder.path() / "quote.recording";
    {
        //! [from the start]
        orvan::HostOptions options;
        options.recording.file = file; // must not exist
        orvan::HeadlessHost host(options);
        //! [from the start]
        orvan::HeadlessProductView view(host.platform());
        view.Show("1~Desk lamp:::74.95:1:0:74.95:~");
        host.platform().drive([](orvan::headless::FormDriver& editor) {
            editor.focus("txtQty");
            editor.textBox("txtQty").type("2");
            editor.button("cmdSaveClose").click();
        });
        view.flexGrid().doubleClick(1);
        EXPECT_EQ(view.txtTotal().text(), "$149.90");
        EXPECT_TRUE(orvan::isRecording(host.platform()));
    }
    std::ifstream stream(file);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_THAT(text, testing::StartsWith("orvan-recording 1 "));
    EXPECT_THAT(text, testing::HasSubstr(" txtQty typed 0 1 \"2\"\n")); // what the user did
    EXPECT_THAT(text, testing::HasSubstr("  enter KTVOrvanProduct.frmProduct::cmdSaveClose_Click\n"));
    EXPECT_THAT(text, testing::HasSubstr("know locale.appendCurrency 149.9000 2 = \"$149.90\"\n"));
    EXPECT_THAT(text, testing::EndsWith("exit KTVOrvanProduct.ProductView::UserControl_Terminate\n"));
}

} // namespace

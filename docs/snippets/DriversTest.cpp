// A program that plays the user: how a host tests itself without a window.

#include "HeadlessEnvironment.h"

#include <orvan/hosting/HeadlessProductView.h>

#include <gtest/gtest.h>

namespace {

TEST(Drivers, EditAQuantity)
{
    //! [view]
    orvan::HeadlessHost host;
    orvan::HeadlessProductView view(host.platform());
    view.Show("1~Desk lamp:::74.95:1:0:74.95:~");
    //! [view]
    //! [drive]
    host.platform().drive([](orvan::headless::FormDriver& editor) { // for the next form that opens
        editor.focus("txtQty");
        editor.textBox("txtQty").type("2");
        editor.button("cmdSaveClose").click();
    });
    host.platform().messageBox().answer(orvan::ui::MessageResult::yes); // to the question whether to save
    view.flexGrid().doubleClick(1);                                     // opens the editor on the first product
    std::string total = view.txtTotal().text();
    //! [drive]
    EXPECT_EQ(total, "$149.90");
    EXPECT_EQ(host.platform().unusedDrivers(), 0U);
    EXPECT_EQ(host.platform().messageBox().unusedAnswers(), 0U);
}

} // namespace

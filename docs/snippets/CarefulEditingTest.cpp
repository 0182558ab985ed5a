// The careful way of editing beside the classic one.

#include "HeadlessEnvironment.h"

#include <orvan/hosting/HeadlessProductView.h>

#include <gtest/gtest.h>

namespace {

const std::string kScrew = "1~Screw:::0.0125:1000:0:12.5:~";

/// The products after a user has opened the editor on the first one and cancelled it.
std::string afterLooking(const orvan::HostOptions& options)
{
    orvan::HeadlessHost host(options);
    orvan::HeadlessProductView view(host.platform());
    view.Show(kScrew);
    host.platform().drive([](orvan::headless::FormDriver& editor) { editor.pressEscape(); });
    view.flexGrid().doubleClick(1);
    return view.Products();
}

TEST(CarefulEditing, LookingAtAProductChangesNothing)
{
    //! [options]
    orvan::HostOptions options;
    options.editing = orvan::ui::EditingWay::careful;
    //! [options]
    EXPECT_EQ(afterLooking(options), kScrew);
}

TEST(CarefulEditing, TheClassicWayRoundsAnOpenedPrice)
{
    EXPECT_EQ(afterLooking({}), "1~Screw:::0.01:1000:0:12.5:~") << "the guide tells this";
}

} // namespace

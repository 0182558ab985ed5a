#include "hosting/Version.h"

#include <gtest/gtest.h>

namespace orvan {
namespace {

TEST(Version, TextsHaveTheirPublishedForms)
{
    EXPECT_EQ(libraryVersion(), "2.1.30");
    EXPECT_EQ(fileVersion(), "2.01.0030");
    EXPECT_EQ(libraryDescription(), "Orvan Desk Product View Library 2.1");
}

} // namespace
} // namespace orvan

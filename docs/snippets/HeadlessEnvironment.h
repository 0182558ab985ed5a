// The surroundings of a snippet without a window: the user's locale, and folders of the test's own, so that a snippet
// can be shown as a host writes it and neither depends on the tester's settings nor leaves anything behind.
#pragma once

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

class HeadlessEnvironment final : public testing::Environment {
public:
    void SetUp() override
    {
        ::setenv("LC_ALL", "en_US.UTF-8", 1);
        ::setenv("XDG_STATE_HOME", folder_.path().c_str(), 1); // where the trace is written
    }

private:
    orvan::test::TemporaryFolder folder_;
};

inline testing::Environment* const kHeadlessEnvironment = testing::AddGlobalTestEnvironment(new HeadlessEnvironment);

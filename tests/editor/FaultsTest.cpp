#include "tests/support/EditorFixture.h"
#include "tests/support/Raised.h"

namespace orvan::test {
namespace {

using headless::FormDriver;

class FaultsTest : public EditorFixture {
public:
    FaultsTest()
    {
        // A person who says yes to everything.
        platform.messageBox().onWaiting = [this](const ui::Message& message) {
            platform.messageBox().answer(message.buttons == ui::MessageButtons::ok ? ui::MessageResult::ok
                                                                                   : ui::MessageResult::yes);
        };
    }
};

// In each way of editing, each call of GetProduct in turn returns no record.
TEST_F(FaultsTest, AManagerThatReturnsNoRecordEndsTheSessionWithError91)
{
    for (const auto way : {ui::EditingWay::classic, ui::EditingWay::careful}) {
        platform.editing = way;
        int nothing = 0;
        for (bool reached = true; reached;) {
            SCOPED_TRACE(testing::Message() << (way == ui::EditingWay::classic ? "classic " : "careful ") << nothing);
            load(kThreeProducts);
            const ScopedTrace own;
            allowEntriesOfLoading(*own.trace());
            faults.nothingAtGetProduct = nothing + 1;
            bool shown = false;
            platform.drive([&](FormDriver& form) {
                shown = true;
                wholeSession(form);
            });
            const std::int32_t raised = errorOf([&] { dialog.Show(manager, 2); });
            reached = faults.nothingAtGetProduct == 0;
            const std::vector<std::int32_t> recorded = own.trace()->numbersSince(0);
            own.trace()->declareError(ErrorNumber::objectNotSet, static_cast<int>(recorded.size()));
            EXPECT_EQ(recorded.empty(), !reached);
            EXPECT_EQ(raised, shown ? 0 : ErrorNumber::objectNotSet);
            if (!shown) {
                platform.dropDriver();
            }
            faults.nothingAtGetProduct = 0;
            nothing += reached ? 1 : 0;
        }
        EXPECT_GT(nothing, 8);
    }
}

} // namespace
} // namespace orvan::test

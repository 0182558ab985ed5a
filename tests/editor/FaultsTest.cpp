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

TEST_F(FaultsTest, AManagerThatFailsAtAnyOfItsCallsEndsTheSessionInOrder)
{
    int failures = 0;
    for (int call = 1;; ++call) {
        SCOPED_TRACE(call);
        load(kThreeProducts);
        const ScopedTrace own;
        allowEntriesOfLoading(*own.trace());
        const std::size_t prompt = platform.messageBox().shown().size();
        faults.failAtCall = call;
        bool shown = false;
        platform.drive([&](FormDriver& form) {
            shown = true;
            wholeSession(form);
        });
        const std::int32_t raised = errorOf([&] { dialog.Show(manager, 2); });
        const std::vector<std::int32_t> recorded = own.trace()->numbersSince(0);
        for (const std::int32_t number : recorded) {
            EXPECT_TRUE(number == 1000 || number == ErrorNumber::objectNotSet); // in what goes on once the form is gone
            own.trace()->declareError(number);
        }
        if (!shown) { // an error of the set-up is the caller's, and nobody saw the dialog
            EXPECT_EQ(raised, 1000);
            platform.dropDriver();
        } else {
            EXPECT_EQ(raised, 0);
        }
        if (faults.failAtCall > 0) { // no call left to fail
            EXPECT_EQ(recorded.size(), 0U);
            faults.failAtCall = 0;
            break;
        }
        ++failures;
        EXPECT_GT(recorded.size(), 0U);
        // Somebody is told: by raising, by a message, or, where closing itself failed, by the trace alone.
        const std::string told = prompts(prompt);
        EXPECT_TRUE(!shown || told.ends_with('m') || told.find_first_of("esc") != std::string::npos) << told;

        std::vector<std::weak_ptr<ProductRecord>> records;
        for (std::int32_t i = 1; i <= manager->GetProductCount(); ++i) {
            records.push_back(manager->GetProduct(i));
        }
        const std::string left = products();
        manager.reset();
        EXPECT_EQ(faults.managersAlive, 0);
        for (const auto& record : records) {
            EXPECT_TRUE(record.expired()) << "the form has kept a record";
        }
        load(left); // whatever happened, the list is one that can be read
    }
    EXPECT_GT(failures, 40);
}

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

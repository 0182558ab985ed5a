// What happens when the host acts while the editor is open: in a call to the manager or to a record, while a message
// box waits, or in an event of the form.

#include "orvan/ui/headless/HeadlessForm.h"
#include "tests/support/EditorFixture.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"

namespace orvan::test {
namespace {

using headless::HeadlessForm;

class HostActsTest : public EditorFixture {
public:
    HostActsTest()
    {
        platform.messageBox().onWaiting = [this](const ui::Message& message) {
            if (whileWaiting) {
                std::exchange(whileWaiting, nullptr)();
            }
            platform.messageBox().answer(message.buttons == ui::MessageButtons::ok ? ui::MessageResult::ok
                                                                                   : ui::MessageResult::yes);
        };
        faults.recordsCount = true;
    }
    ~HostActsTest() override { EXPECT_EQ(faults.goneInACall, 0) << "objects destroyed while they were called"; }

    /// Opens the editor on the second product, and does everything there that a person can do.
    void session()
    {
        other = std::make_unique<ProductDlg>(platform);
        bool shown = false;
        platform.drive([&](headless::FormDriver& form) {
            shown = true;
            open = &dynamic_cast<HeadlessForm&>(form);
            wholeSession(form);
        });
        static_cast<void>(errorOf([&] { other->Show(manager, 2); }));
        open = nullptr;
        if (!shown) {
            platform.dropDriver();
        }
    }

    /// If the session's form is open, the host shows the dialog again, on the first product, whose quantity is changed.
    void showAgain()
    {
        if (!open) {
            return;
        }
        bool shown = false;
        platform.drive([&](headless::FormDriver& form) {
            shown = true;
            form.textBox("txtQty").type("7");
            form.clickCloseBox();
            form.clickCloseBox();
        });
        static_cast<void>(errorOf([&] { other->Show(manager, 1); }));
        if (!shown) {
            platform.dropDriver();
        }
    }

    std::unique_ptr<ProductDlg> other; ///< On the heap, where a sanitizer sees what is used after its end.
    HeadlessForm* open = nullptr;      ///< The session's form.
    std::function<void()> whileWaiting;
};

TEST_F(HostActsTest, ManagerAndRecordLiveThroughEachCallToThem)
{
    struct Row {
        const char* name;
        std::function<void()> act;
    };
    const Row rows[] = {
        {"the host lets go of everything",
         [&] {
             other.reset();
             manager.reset();
             if (open) {
                 open->unload(ui::UnloadMode::session);
             }
         }},
        {"the host shows the dialog again", [&] { showAgain(); }},
    };
    for (const auto way : {ui::EditingWay::classic, ui::EditingWay::careful}) {
        platform.editing = way;
        forEachRow(rows, [&](const Row& row) {
            int calls = 0;
            for (bool reached = true; reached; ++calls) {
                const ScopedTrace own;
                allowEntriesOfLoading(*own.trace());
                load(kThreeProducts);
                faults.act = row.act;
                faults.failAtCall = calls + 1;
                session();
                reached = std::exchange(faults.failAtCall, 0) == 0;
                for (const std::int32_t number : own.trace()->numbersSince(0)) {
                    // 91: a procedure goes on after the form has closed. 9: two sessions work on one list, and one of
                    // them asks for a position that the list does not have any more.
                    EXPECT_TRUE(number == ErrorNumber::objectNotSet || number == ErrorNumber::subscriptOutOfRange)
                        << number;
                    own.trace()->declareError(number);
                }
                EXPECT_EQ(faults.goneInACall, 0) << "in call " << calls + 1;
                manager.reset();
                ASSERT_EQ(faults.managersAlive, 0);
            }
            EXPECT_GT(calls, 30);
        });
    }
}

TEST_F(HostActsTest, TheDialogMayBeDestroyedWhileItWaits)
{
    struct Row {
        const char* name;
        bool inAMessageBox;
    };
    const Row rows[] = {{"in an event of the form", false}, {"in a message box", true}};
    forEachRow(rows, [&](const Row& row) {
        load(kThreeProducts);
        other = std::make_unique<ProductDlg>(platform);
        const auto destroy = [&] { other.reset(); };
        platform.drive([&](headless::FormDriver& form) {
            form.textBox("txtQty").type("4");
            if (row.inAMessageBox) {
                whileWaiting = destroy;
            } else {
                destroy();
            }
            form.clickCloseBox();
        });
        other->Show(manager, 2);
        EXPECT_FALSE(other);
        EXPECT_EQ(manager->GetProduct(2)->Qty().toText(), "4") << "the session goes on to its end";
    });
}

TEST_F(HostActsTest, ADialogThatIsShownAgainTellsOfTheSessionThatEndedLast)
{
    load(kThreeProducts);
    other = std::make_unique<ProductDlg>(platform);
    platform.drive([&](headless::FormDriver& form) {
        open = &dynamic_cast<HeadlessForm&>(form);
        showAgain();
        EXPECT_TRUE(other->Dirty());
        form.clickCloseBox();
    });
    other->Show(manager, 2);
    EXPECT_FALSE(other->Dirty()) << "nothing was changed in the outer session";
    EXPECT_EQ(manager->GetProduct(1)->Qty().toText(), "7");
}

} // namespace
} // namespace orvan::test

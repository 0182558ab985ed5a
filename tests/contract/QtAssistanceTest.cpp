// Answers by keys, and what assistive technology learns, on the Qt platform. What it hears while somebody types is
// tested with at-spi2 (tests/desk/accessible_walk.py), because Qt tells it nothing on the platform of these tests.
#include "QtDriver.h"

#include "orvan/ui/qt/MessageKeys.h"

#include <QAccessible>
#include <QLineEdit>
#include <QPushButton>

namespace orvan::contract {
namespace {

using namespace qt;
using ui::ControlKind;

// clang-format off
constexpr ui::ControlDesign kSpoken[] = {
    {.name = "grid", .kind = ControlKind::grid, .width = 6000, .height = 3000, .tabIndex = 0, .gridColumns = 3},
    {.name = "label", .kind = ControlKind::label, .top = 3000, .width = 900, .height = 375, .caption = "Part && name"},
    {.name = "combo", .kind = ControlKind::comboBox, .left = 900, .top = 3000, .width = 1500, .height = 375,
     .tabIndex = 1},
};
// clang-format on

class QtAssistanceTest : public QtTest {
protected:
    QtAssistanceTest() { surface = driver.load(kSpokenDesign); }

    ui::Grid& grid() { return surface->control<ui::Grid>("grid"); }

    static constexpr ui::FormDesign kSpokenDesign{.name = "Spoken", .width = 6000, .height = 3600, .controls = kSpoken};
};

TEST_F(QtAssistanceTest, ALookUpBoxHasItsLabelAsItsName)
{
    auto& combo = surface->control<ui::ComboBox>("combo");
    combo.addItem("row");
    combo.setText("typed");
    QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&driver.widget("combo"));
    EXPECT_EQ(spoken.text(QAccessible::Name), QStringLiteral("Part & name"));
    EXPECT_EQ(spoken.text(QAccessible::Value), QStringLiteral("typed"));
    ASSERT_EQ(spoken.childCount(), 2);
    EXPECT_EQ(spoken.child(1)->text(QAccessible::Name), QStringLiteral("Part & name"));
    EXPECT_EQ(spoken.child(1)->text(QAccessible::Value), QStringLiteral("typed"));
    spoken.actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(spoken.state().expanded);
    EXPECT_EQ(spoken.child(0)->child(0)->text(QAccessible::Name), QStringLiteral("row"));
    spoken.actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_FALSE(spoken.state().expanded);
}

TEST_F(QtAssistanceTest, AListThatDropsDownReadsItsColumns)
{
    auto& combo = surface->control<ui::ComboBox>("combo");
    combo.addItem("A-1");
    int asked = 0;
    combo.onShowColumns = [&](std::int32_t /*row*/, std::vector<std::string>& columns) {
        ++asked;
        columns = {"A-1", "A very long name of a very ordinary thing that nobody can read at once", "$1.00"};
    };
    auto& widget = driver.widget<QComboBox>("combo");
    widget.showPopup();
    QApplication::processEvents();
    const QModelIndex row = widget.model()->index(0, 0);
    EXPECT_EQ(row.data(Qt::DisplayRole), QStringLiteral("A-1")) << "what goes into the box";
    EXPECT_TRUE(row.data(Qt::AccessibleTextRole).toString().endsWith(QStringLiteral("$1.00")));
    EXPECT_GT(widget.view()->width(), widget.width());
    EXPECT_EQ(asked, 1);
    widget.hidePopup();
}

TEST_F(QtAssistanceTest, ARemarkKeepsClearOfTheText)
{
    auto& combo = surface->control<ui::ComboBox>("combo");
    QLineEdit& line = *driver.widget<QComboBox>("combo").lineEdit();
    combo.setRemark("12 match");
    EXPECT_GE(line.textMargins().right(), line.fontMetrics().horizontalAdvance(QStringLiteral("12 match")));
    EXPECT_EQ(line.accessibleDescription(), QStringLiteral("12 match"));
    combo.setRemark({});
    EXPECT_EQ(line.textMargins(), QMargins());
}

TEST_F(QtAssistanceTest, EveryButtonOfAMessageBoxHasAMnemonicOfItsOwn)
{
    struct Row {
        const char* name;
        std::vector<const char*> texts;
        std::vector<const char*> shown;
    };
    const Row rows[] = {
        {"English", {"&Yes", "&No", "Cancel"}, {"&Yes", "&No", "&Cancel"}},
        {"the first letter is taken", {"Sí", "No", "S&ubir"}, {"&Sí", "&No", "S&ubir"}},
        {"two have the same", {"&Ja", "&Jein", "Abbrechen"}, {"&Ja", "J&ein", "&Abbrechen"}},
        {"Arabic", {"نعم", "لا", "إلغاء"}, {"&نعم", "&لا", "&إلغاء"}},
        {"no letter has a key", {"はい", "いいえ", "取消"}, {"はい (&Y)", "いいえ (&N)", "取消 (&C)"}},
    };
    forEachRow(rows, [](const Row& row) {
        QMessageBox box;
        constexpr QMessageBox::StandardButton kButtons[] = {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
        for (std::size_t i = 0; i < row.texts.size(); ++i) {
            box.addButton(kButtons[i])->setText(qString(row.texts[i]));
        }
        giveMnemonics(box);
        for (std::size_t i = 0; i < row.shown.size(); ++i) {
            EXPECT_EQ(box.button(kButtons[i])->text().toStdString(), row.shown[i]);
        }
    });
}

TEST_F(QtAssistanceTest, KeysTypedBeforeAQuestionWasSeenDoNotAnswerIt)
{
    for (const bool ignores : {false, true}) {
        const ui::Message question{.text = "x", .buttons = ui::MessageButtons::yesNo, .ignoresTypeAhead = ignores};
        int keys = 0;
        whenModal([&](QWidget& window) {
            for (; keys < 5 && window.isVisible(); ++keys) {
                QTest::keyClick(window.windowHandle(), Qt::Key_Return); // Yes is the default
                QTest::qWait(100);
            }
            QTest::qWait(400);
            if (window.isVisible()) {
                QTest::keyClick(window.windowHandle(), Qt::Key_Escape);
            }
        });
        const ui::MessageResult answer = driver.platform().messageBox().show(question);
        EXPECT_EQ(answer, ignores ? ui::MessageResult::no : ui::MessageResult::yes);
        EXPECT_EQ(keys, ignores ? 5 : 1);
    }
}

TEST_F(QtAssistanceTest, AssistiveTechnologyReadsWholeRowsAndNoHiddenColumn)
{
    grid().setFixedRows(1);
    grid().setRowCount(3);
    grid().setColumnCount(3);
    const std::string texts[3][3] = {{"Name", "Secret", "Qty"}, {"Desk", "s", "2"}, {"Lamp", "s", ""}};
    for (std::int32_t row = 0; row < 3; ++row) {
        for (std::int32_t column = 0; column < 3; ++column) {
            grid().setValue(row, column, texts[row][column]);
        }
    }
    grid().setValue(1, 2, 2);
    grid().setColumnHidden(1, true);
    QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&driver.table());
    const auto name = [](QAccessibleInterface* part) {
        return part ? part->text(QAccessible::Name).toStdString() : std::string("none");
    };
    ASSERT_EQ(spoken.childCount(), 4) << "two headers, two rows";
    EXPECT_EQ(name(spoken.child(1)), "Qty");
    EXPECT_EQ(name(spoken.child(2)), "Desk, Qty 2");
    EXPECT_EQ(name(spoken.child(3)), "Lamp") << "an empty cell is not read";
    QAccessibleInterface& desk = *spoken.child(2);
    EXPECT_EQ(desk.childCount(), 2);
    EXPECT_EQ(name(desk.child(1)), "2");
    EXPECT_EQ(spoken.tableInterface()->cellAt(0, 1), desk.child(1));
    EXPECT_EQ(spoken.indexOfChild(&desk), 2);
    std::int32_t edited = -1;
    grid().onDblClick = [&] { edited = grid().mouseRow(); };
    ASSERT_EQ(desk.child(1)->actionInterface()->actionNames(), QStringList(QStringLiteral("edit")));
    desk.child(1)->actionInterface()->doAction(QStringLiteral("edit"));
    EXPECT_EQ(edited, -1) << "not while the assistive technology waits";
    QApplication::processEvents();
    EXPECT_EQ(edited, 1);
    grid().setRowCount(1);
    EXPECT_FALSE(desk.isValid()) << "its row is gone";
    EXPECT_EQ(spoken.childCount(), 2);
}

} // namespace
} // namespace orvan::contract

// What only the Qt boxes can get wrong: input methods, drops, menus, shortcuts, the list's own habits.
#include "QtDriver.h"

#include <QAccessible>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QWheelEvent>

namespace orvan::contract {
namespace {

class QtEntryTest : public QtTest {
protected:
    QtEntryTest() { surface = driver.load(kEntryDesign); }

    ui::TextEntry& entry(const char* name) { return surface->control<ui::TextEntry>(name); }
    ui::ComboBox& combo() { return surface->control<ui::ComboBox>("combo"); }
    QComboBox& comboWidget() { return driver.widget<QComboBox>("combo"); }
    /// The widget that takes a mouse's events.
    QWidget& part(const char* name)
    {
        QWidget& whole = driver.widget(name);
        if (auto* note = qobject_cast<QPlainTextEdit*>(&whole)) {
            return *note->viewport();
        }
        auto* box = qobject_cast<QComboBox*>(&whole);
        return box ? *box->lineEdit() : whole;
    }
    void fill(int rows)
    {
        combo().clear();
        for (int row = 0; row < rows; ++row) {
            combo().addItem("row " + std::to_string(row));
        }
    }
};

void compose(QWidget& widget, const char* proposed, const char* written)
{
    QInputMethodEvent event(QString::fromUtf8(proposed), {});
    event.setCommitString(QString::fromUtf8(written));
    QApplication::sendEvent(&widget, &event);
}

void drop(QWidget& widget, const char* text)
{
    QMimeData data;
    data.setText(QString::fromUtf8(text));
    QDragEnterEvent enter({2, 8}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&widget, &enter);
    QDragMoveEvent move({2, 8}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&widget, &move);
    QDropEvent event({2, 8}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&widget, &event);
}

void pasteByMenu(QWidget& widget, const char* text)
{
    QApplication::clipboard()->setText(QString::fromUtf8(text));
    QContextMenuEvent ask(QContextMenuEvent::Mouse, {2, 8}, widget.mapToGlobal(QPoint(2, 8)));
    QApplication::sendEvent(&widget, &ask);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    for (QAction* action : menu->actions()) {
        if (action->text().startsWith(QStringLiteral("&Paste"))) {
            action->trigger();
        }
    }
    menu->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// What a widget shows for a text of the library: one line end, one replacement for each stray byte.
QString shownFor(std::string text)
{
    for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos;) {
        text.replace(at, 2, "\n");
    }
    return QString::fromStdString(text);
}

TEST_F(QtEntryTest, ALongNoteIsWhatTheUserSeesAfterAnyEdit)
{
    const std::pair<const char*, std::string> lines[] = {{"plain", "eight ch\n"},
                                                         {"of Windows", "zwölf Zeichen\r\n"},
                                                         {"two units", "a\U0001F600b\n"},
                                                         {"stray", "a\xFF\n"}};
    auto& widget = driver.widget<QPlainTextEdit>("note");
    ui::TextEntry& note = entry("note");
    for (const auto& [name, line] : lines) {
        SCOPED_TRACE(name);
        std::string text;
        for (int count = 0; count < 60; ++count) {
            text += line;
        }
        note.setMaxLength(2000);
        note.setText(text);
        QtDriver::focus(note);
        unsigned random = 7;
        const auto below = [&](int limit) {
            random = random * 1'664'525U + 1'013'904'223U;
            return static_cast<int>((random >> 8U) % static_cast<unsigned>(limit));
        };
        const char* const typed[] = {"x", "ü", "\n", "\b", "\x7F", "\U0001F601"};
        for (int edit = 0; edit < 200; ++edit) {
            QTextCursor cursor = widget.textCursor();
            const int at = below(widget.document()->characterCount());
            cursor.setPosition(widget.document()->characterAt(at).isLowSurrogate() ? at - 1 : at);
            if (below(4) == 0) {
                cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor, below(30));
            }
            widget.setTextCursor(cursor);
            const int kind = below(9);
            kind < 6    ? driver.type(note, typed[kind])
            : kind == 6 ? driver.paste(note, "p\nq")
                        : driver.pressControl(note, kind == 7 ? 'Z' : 'X');
            ASSERT_EQ(widget.toPlainText().toStdString(), shownFor(note.text()).toStdString()) << edit;
            const QString before = shownFor(note.text()).left(widget.textCursor().selectionStart());
            const qsizetype ends = note.text().find("\r\n") == std::string::npos ? 0 : before.count(u'\n');
            ASSERT_EQ(note.selectionStart(), before.toUcs4().size() + ends) << edit;
        }
    }
}

TEST_F(QtEntryTest, EveryWayIntoABoxKeepsItsFilterAndItsLimit)
{
    for (const char* name : {"line", "combo", "note"}) {
        ui::TextEntry& box = entry(name);
        QWidget& widget = QtDriver::focus(box);
        int changes = 0;
        box.onChange = [&] { ++changes; };
        box.onKeyPress = [](std::int16_t& keyAscii) {
            if (keyAscii == 'x') {
                keyAscii = 0;
            }
        };
        compose(widget, "^x", "");
        EXPECT_EQ(changes, 0) << "a proposal is no text yet";
        box.setMaxLength(4);
        compose(widget, "", "axb\U0001F600\U0001F601z");
        EXPECT_EQ(box.text(), "ab\U0001F600\U0001F601") << name;
        compose(widget, "", "q");
        driver.type(box, "q");
        for (const auto way : {drop, pasteByMenu}) {
            box.setText("\U0001F600\U0001F601");
            way(part(name), "xx\U0001F602");
            EXPECT_EQ(box.text(), "xx\U0001F600\U0001F601") << name;
        }
        box.setText("ab");
        box.setSelectionStart(2);
        driver.paste(box, "cdefg");
        driver.pressControl(box, 'Z');
        EXPECT_EQ(box.text(), "ab") << name << ", undone";
        box.onChange = nullptr;
    }
    entry("line").setMaxLength(3);
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&driver.widget("line"));
    spoken->setText(QAccessible::Value, QStringLiteral("12345"));
    EXPECT_EQ(entry("line").text(), "123") << "spoken to the computer";
}

TEST_F(QtEntryTest, AFilteredKeyGoesNowhereElse)
{
    using K = Qt::KeyboardModifier;
    struct Row {
        const char* name;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        const char* text;
        int offered; // the code that the filter sees; 0: it is not asked
    };
    const Row rows[] = {
        {"Ctrl+S", Qt::Key_S, K::ControlModifier, "\x13", 19},
        {"keypad Enter", Qt::Key_Enter, K::KeypadModifier, "\r", 13},
        {"Shift+Return", Qt::Key_Return, K::ShiftModifier, "\r", 13},
        {"Ctrl+Backspace", Qt::Key_Backspace, K::ControlModifier, "\x7F", 8},
        {"Ctrl+H", Qt::Key_H, K::ControlModifier, "\b", 8},
        {"keypad 5", Qt::Key_5, K::KeypadModifier, "5", '5'},
        {"AltGr+Q", Qt::Key_Q, K::ControlModifier | K::AltModifier, "@", '@'},
        {"Tab", Qt::Key_Tab, {}, "\t", 0},
        {"Escape", Qt::Key_Escape, {}, "\x1B", 0},
        {"Delete", Qt::Key_Delete, {}, "\x7F", 0},
        {"Home", Qt::Key_Home, {}, "", 0},
        {"Ctrl+Space", Qt::Key_Space, K::ControlModifier, " ", 0},
    };
    int pressed = 0;
    QShortcut shortcut(QKeySequence(QStringLiteral("Ctrl+S")), &driver.host(), [&] { ++pressed; });
    for (const char* name : {"line", "combo", "note"}) {
        ui::TextEntry& box = entry(name);
        QWidget& widget = QtDriver::focus(box);
        QTest::keyClick(&widget, Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(std::exchange(pressed, 0), 1) << name << " has no filter";
        int seen = 0;
        box.onKeyPress = [&](std::int16_t& keyAscii) { seen = std::exchange(keyAscii, std::int16_t{0}); };
        forEachRow(rows, [&](const Row& row) {
            seen = 0;
            QKeyEvent press(QEvent::KeyPress, row.key, row.modifiers, QString::fromLatin1(row.text));
            QApplication::sendEvent(&widget, &press);
            EXPECT_EQ(seen, row.offered) << name;
            EXPECT_TRUE(press.isAccepted() || row.offered == 0) << name;
            widget.setFocus();
        });
        QTest::keyClick(&widget, Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(pressed, 0) << name;
        box.onKeyPress = nullptr;
    }
}

TEST_F(QtEntryTest, AClosedListIsSteppedByArrowsAndByNothingElse)
{
    fill(3);
    std::vector<std::int32_t> chosen;
    combo().onClick = [&] { chosen.push_back(combo().listIndex()); };
    QWidget& widget = QtDriver::focus(combo());
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up,
                              Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End}) {
        QTest::keyClick(&widget, key);
    }
    EXPECT_EQ(chosen, (std::vector<std::int32_t>{0, 1, 2, 1}));
    QWheelEvent wheel({5, 5}, widget.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&part("combo"), &wheel);
    EXPECT_EQ(combo().text(), "row 1");
}

TEST_F(QtEntryTest, AnOpenListLeavesTextAndFocusAndFollowsTheRows)
{
    fill(3);
    int left = 0;
    int changes = 0;
    combo().onLostFocus = [&] { ++left; };
    driver.type(combo(), "ro-completed");
    driver.select(combo(), 2, 10);
    combo().onChange = [&] { ++changes; };
    QTest::keyClick(&comboWidget(), Qt::Key_Down, Qt::AltModifier);
    QAbstractItemView& list = *comboWidget().view();
    ASSERT_TRUE(list.isVisible());
    QTest::keyClick(&list, Qt::Key_W);
    EXPECT_EQ(combo().text(), "row") << "what is typed replaces what was selected";
    QTest::keyClick(&list, Qt::Key_Backspace);
    EXPECT_EQ(std::exchange(changes, 0), 2);
    fill(2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return list.model()->rowCount() == 2; }));
    EXPECT_TRUE(list.isVisible());
    fill(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !list.isVisible(); }));
    fill(30);
    QTest::mouseClick(&comboWidget(), Qt::LeftButton, {}, {comboWidget().width() - 5, 8});
    ASSERT_TRUE(list.isVisible());
    QTest::keyClick(&list, Qt::Key_Escape);
    EXPECT_FALSE(list.isVisible());
    EXPECT_EQ(combo().text(), "ro");
    EXPECT_EQ(combo().selectionStart(), 2);
    EXPECT_EQ(changes, 0);
    driver.type(combo(), "w");
    EXPECT_EQ(combo().text(), "row") << "typed right after Escape";
    comboWidget().showPopup();
    QTest::qWait(QApplication::doubleClickInterval() + 50); // a release sooner belongs to the press that opened it
    QTest::mouseMove(list.viewport(), list.visualRect(list.model()->index(4, 0)).center());
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(4, 0)).center());
    EXPECT_EQ(combo().listIndex(), 4);
    EXPECT_EQ(changes, 1) << "choosing is no typing";
    EXPECT_EQ(left, 0);
}

} // namespace
} // namespace orvan::contract

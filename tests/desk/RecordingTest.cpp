// What a user records in the desk replays in memory.

#include "MainWindow.h"

#include "orvan/files/Descriptor.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "orvan/hosting/QtHost.h"
#include "orvan/replay/Replay.h"
#include "tests/support/QtEnvironment.h"
#include "undo/QuoteHistory.h"

#include <QAbstractButton>
#include <QAction>
#include <QDir>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTableView>
#include <QTest>

namespace orvan::desk {
namespace {

class RecordingTest : public testing::Test {
protected:
    RecordingTest()
    {
        window.show();
        window.openSample(QStringLiteral("coffee-bar"));
        // A person who presses the first button that agrees.
        agrees.setInterval(0);
        QObject::connect(&agrees, &QTimer::timeout, [] {
            if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                for (QAbstractButton* const button : box->buttons()) {
                    const auto role = box->buttonRole(button);
                    if (role == QMessageBox::YesRole || role == QMessageBox::AcceptRole) {
                        button->click();
                        return;
                    }
                }
            }
        });
        agrees.start();
        settle();
    }
    ~RecordingTest() override
    {
        window.onProblem = [](const QString&) {};
    }

    static void settle() { QTest::qWait(1); } // lets what is deleted later go, too
    QAction* entry() const
    {
        const QList<QAction*> all = window.findChildren<QAction*>();
        const auto found = std::find_if(all.begin(), all.end(), [](const QAction* action) {
            return action->text() == QStringLiteral("&Record What I Do");
        });
        return found == all.end() ? nullptr : *found;
    }
    void run(Command command)
    {
        settle(); // actions are enabled from the event loop
        list().action(command)->trigger();
        settle();
    }
    ProductViewWidget& list() { return *window.findChild<ProductViewWidget*>(); }
    static QString folder() { return qEnvironmentVariable("XDG_STATE_HOME") + QStringLiteral("/orvan/recordings"); }

    MainWindow window;
    QTimer agrees;
};

TEST_F(RecordingTest, OfTheDeskReplaysInMemoryWithEditsUndoAndTheEditor)
{
    list().setCurrentProduct(2);
    run(Command::duplicate); // so that the list has been edited before
    const int current = list().currentProduct();
    const std::string before = list().Products();
    entry()->trigger();
    settle();
    ASSERT_TRUE(entry()->isChecked());
    EXPECT_NE(window.findChild<QLabel*>(QStringLiteral("recordingSign")), nullptr);
    EXPECT_EQ(list().Products(), before);
    EXPECT_EQ(list().currentProduct(), current);
    EXPECT_TRUE(list().Dirty());
    ASSERT_EQ(list().findChildren<QTableView*>(QStringLiteral("flexGrid")).size(), 1);
    EXPECT_TRUE(list().findChild<QTableView*>(QStringLiteral("flexGrid"))->isVisible());

    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    for (const QWidget* const part : list().findChildren<QWidget*>()) {
        EXPECT_FALSE(part->isWindow() && part->isVisible()) << part->objectName().toStdString();
    }

    run(Command::moveUp);
    auto* const history = window.findChild<QuoteHistory*>();
    history->stack().undo();
    settle();
    history->stack().undo(); // what was done before the recording
    settle();
    run(Command::remove);
    settle();
    test::whenModal([](QWidget& editor) {
        QTest::keyClicks(editor.focusWidget(), QStringLiteral("Gr"));
        auto* const quantity = editor.findChild<QWidget*>(QStringLiteral("txtQty"));
        quantity->setFocus();
        QTest::keyClicks(quantity, QStringLiteral("7"));
        editor.findChild<QAbstractButton*>(QStringLiteral("cmdNext"))->click();
        editor.findChild<QAbstractButton*>(QStringLiteral("cmdSaveClose"))->click();
    });
    list().action(Command::edit)->trigger();
    const std::string products = list().Products();
    entry()->trigger();
    settle();
    EXPECT_FALSE(entry()->isChecked());
    EXPECT_FALSE(isRecording(qtHost().platform()));
    EXPECT_EQ(list().Products(), products);

    const QStringList files = QDir(folder()).entryList({QStringLiteral("*.recording")}, QDir::Files);
    ASSERT_EQ(files.size(), 1);
    const std::string file = (folder() + u'/' + files[0]).toStdString();
    EXPECT_EQ(std::filesystem::status(file).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    const replay::ReplayResult result =
        replay::replayInMemory(replay::RecordedLines(files::Descriptor::openRegular(file).readAll()));
    EXPECT_EQ(result.end, replay::ReplayResult::End::same)
        << "line " << result.line << "\n recorded " << result.recorded << "\n replayed " << result.replayed;
    EXPECT_EQ(result.products, products);
    EXPECT_GT(result.events, 20U);
}

} // namespace
} // namespace orvan::desk

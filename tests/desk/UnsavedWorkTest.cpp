// What a quote's file and the desk's unsaved work survive: other programs, other desks, and the desk's own end.

#include "MainWindow.h"
#include "OpenQuote.h"
#include "StatusLine.h"
#include "WatchedProducts.h"

#include "orvan/files/ProcessIdentity.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "tests/support/QtEnvironment.h"
#include "tests/support/Rows.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAction>
#include <QDateEdit>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QMessageBox>
#include <QMetaMethod>
#include <QStatusBar>
#include <QTest>

#include <chrono>
#include <future>

namespace orvan::desk {
namespace {

using test::forEachRow;
using testing::HasSubstr;

const QByteArray kQuote = R"({"format": "orvan-desk-quote", "version": 1, "customer": "c", "number": "n",
 "date": "2026-11-20", "products": "1~Lamp:::5:1:0:5:~", "approval": {"by": "anna"}})";

class UnsavedWorkTest : public testing::Test {
protected:
    /// The windows of other tests may have left copies there.
    UnsavedWorkTest() { QDir(defaultRecoveryFolder()).removeRecursively(); }

    QString path(const char* name = "own.quote.json") const { return QDir(qFolder()).filePath(QLatin1String(name)); }
    QString qFolder() const { return QString::fromStdString(folder.path().string()); }

    static void write(const QString& file, const QByteArray& bytes)
    {
        QFile written(file);
        ASSERT_TRUE(written.open(QIODevice::WriteOnly));
        written.write(bytes);
    }
    static QByteArray read(const QString& file)
    {
        QFile opened(file);
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray("no such file");
    }

    /// The recovery copy that is kept; empty while there is none.
    static std::string keptCopy()
    {
        const QDir copies(defaultRecoveryFolder());
        const QStringList names = copies.entryList({QStringLiteral("*.recovery.json")}, QDir::Files);
        return names.isEmpty() ? "" : read(copies.filePath(names.constFirst())).toStdString();
    }

    /// Presses the button of the next message box that has this text, and keeps the box's own text.
    void answerNext(const char* button)
    {
        test::whenModal([this, button](QWidget& window) {
            auto& box = dynamic_cast<QMessageBox&>(window);
            asked = box.text().toStdString();
            for (QAbstractButton* const each : box.buttons()) {
                if (each->text().remove(u'&') == QLatin1String(button)) {
                    QTest::mouseClick(each, Qt::LeftButton);
                    return;
                }
            }
            ADD_FAILURE() << "no button " << button;
            box.reject();
        });
    }
    static void type(MainWindow& window, const char* text)
    {
        QTest::keyClicks(window.findChild<QLineEdit*>(), QLatin1String(text));
    }
    static void save(MainWindow& window)
    {
        for (QAction* const action : window.findChildren<QAction*>()) {
            if (action->shortcut() == QKeySequence(QKeySequence::Save)) {
                action->trigger();
            }
        }
    }

    test::TemporaryFolder folder;
    std::string asked;
};

TEST_F(UnsavedWorkTest, WhatSomebodyElseDidToTheFileIsAskedAbout)
{
    struct Row {
        const char* name;
        std::function<void(const QString& file)> change;
        const char* answer;
        const char* question;
        bool saved;
    };
    const auto rewrite = [](const QString& file) { write(file, QByteArray(kQuote).replace("\"c\"", "\"other\"")); };
    const auto remove = [](const QString& file) { QFile::remove(file); };
    const Row rows[] = {
        {"the same bytes again", [](const QString& file) { write(file, kQuote); }, nullptr, "", true},
        {"changed, overwritten", rewrite, "Overwrite", "Another program has changed", true},
        {"changed, kept", rewrite, "Cancel", "Another program has changed", false},
        {"deleted, saved again", remove, "Save There Again", "has been deleted or moved", true},
        {"deleted, left so", remove, "Cancel", "has been deleted or moved", false},
    };
    forEachRow(rows, [&](const Row& row) {
        write(path(), kQuote);
        MainWindow window;
        window.show();
        ASSERT_TRUE(window.open(path()));
        type(window, "!");
        row.change(path());
        const QByteArray changed = read(path());
        asked.clear();
        if (row.answer) {
            answerNext(row.answer);
        }
        save(window);
        EXPECT_THAT(asked, HasSubstr(row.question));
        EXPECT_EQ(read(path()).contains("c!"), row.saved);
        EXPECT_EQ(read(path()) == changed, !row.saved);
        EXPECT_EQ(QTest::qWaitFor([&] { return !window.isWindowModified(); }, row.saved ? 2000 : 200), row.saved);
        window.onProblem = [](const QString&) {};
    });
}

TEST_F(UnsavedWorkTest, AQuoteThatIsOpenElsewhereIsToldAndCanBeRead)
{
    write(path(), kQuote);
    MainWindow first;
    first.show();
    ASSERT_TRUE(first.open(path()));
    ASSERT_TRUE(first.open(path())) << "again, as its own lock is no other desk's";
    MainWindow second;
    second.show();
    answerNext("Cancel");
    EXPECT_FALSE(second.open(path()));
    EXPECT_THAT(asked, HasSubstr("is open elsewhere"));
    answerNext("Open to Read");
    EXPECT_TRUE(second.open(path()));
    EXPECT_THAT(second.windowTitle().toStdString(), testing::Not(HasSubstr("own.quote.json"))) << "saving asks where";
    EXPECT_THAT(second.windowTitle().toStdString(), HasSubstr("(read only)"));
    const auto takesInput = [](const MainWindow& window) {
        std::string what;
        for (auto* const field : window.findChildren<QLineEdit*>()) {
            what += field->isReadOnly() || field->objectName() == QStringLiteral("txtTotal") ? "" : "field ";
        }
        what += window.findChild<QDateEdit*>()->isReadOnly() ? "" : "date ";
        what += window.findChild<ProductViewWidget*>()->isReadOnly() ? "" : "list ";
        for (auto* const action : window.findChildren<QAction*>()) {
            const bool changes = action->text() == QStringLiteral("&Import Lines…") ||
                                 action->text() == QStringLiteral("Quote Curre&ncy…");
            what += changes && action->isEnabled() ? "action " : "";
        }
        return what;
    };
    QCoreApplication::processEvents(); // actions are enabled from the event loop
    EXPECT_EQ(takesInput(second), "");
    EXPECT_TRUE(second.openSample(QStringLiteral("coffee-bar")));
    QCoreApplication::processEvents();
    EXPECT_EQ(takesInput(second), "field field field date list action action ") << "another quote";
}

TEST_F(UnsavedWorkTest, ADeadDesksLockIsToldAndTakenOver)
{
    write(path(), kQuote);
    const auto lock = QString::fromStdString(files::EditLock::pathFor(path().toStdString()));
    const QByteArray host = QByteArray::fromStdString(files::hostName());
    write(lock, "orvan-lock 1\nanna\n" + host + "\n1\na computer that was started another time\n1700000000\n");
    MainWindow window;
    window.show();
    ASSERT_TRUE(window.open(path()));
    EXPECT_THAT(window.statusBar()->currentMessage().toStdString(),
                HasSubstr("Another desk ended without closing this quote: anna on " + host.toStdString()));
    EXPECT_FALSE(read(lock).contains("anna")) << "the lock is this desk's own now";
}

TEST_F(UnsavedWorkTest, SavingAsAQuoteThatIsOpenElsewhereIsAskedAbout)
{
    write(path(), kQuote);
    const files::EditLock other(path().toStdString());
    OpenQuote quote;
    QString warning;
    answerNext("Cancel");
    EXPECT_EQ(quote.save(path(), {}, nullptr, warning), OpenQuote::Saving::cancelled);
    EXPECT_THAT(asked, HasSubstr("is open elsewhere"));
    EXPECT_EQ(read(path()), kQuote);
}

TEST_F(UnsavedWorkTest, MembersOfTheFileThatTheDeskDoesNotKnowAreKept)
{
    write(path(), kQuote);
    MainWindow window;
    window.show();
    ASSERT_TRUE(window.open(path()));
    type(window, "!");
    save(window);
    const QJsonObject saved = QJsonDocument::fromJson(read(path())).object();
    EXPECT_EQ(saved[u"customer"].toString(), "c!");
    EXPECT_EQ(saved[u"approval"].toObject()[u"by"].toString(), "anna");
}

TEST_F(UnsavedWorkTest, TextsOfAFileAreKeptRefusedOrCutButNeverChanged)
{
    const QByteArray longName(40'000, 'x');
    write(path(), QByteArray(kQuote).replace("\"c\"", '"' + longName + '"'));
    MainWindow window;
    window.show();
    ASSERT_TRUE(window.open(path()));
    EXPECT_EQ(window.findChild<QLineEdit*>()->text().size(), longName.size());

    std::string problem;
    window.onProblem = [&](const QString& text) { problem = text.toStdString(); };
    write(path("half.quote.json"), QByteArray(kQuote).replace("Lamp", "\\ud800"));
    EXPECT_FALSE(window.open(path("half.quote.json")));
    EXPECT_THAT(problem, HasSubstr("\"products\" holds half a character"));
    write(path("date.quote.json"), QByteArray(kQuote).replace("2026-11-20", QByteArray(50'000, '9')));
    EXPECT_FALSE(window.open(path("date.quote.json")));
    EXPECT_LT(problem.size(), 300U) << "a message box, and not a page";
}

TEST_F(UnsavedWorkTest, ARecoveryCopyIsKeptUntilTheWorkIsSaved)
{
    write(path(), kQuote);
    const QString copies = defaultRecoveryFolder();
    const auto count = [&] { return QDir(copies).entryList({QStringLiteral("*.recovery.json")}, QDir::Files).size(); };
    const auto countOnceIdle = count();
    MainWindow window;
    window.show();
    ASSERT_TRUE(window.open(path()));
    type(window, "!");
    EXPECT_TRUE(QTest::qWaitFor([&] { return count() == countOnceIdle + 1; }, 3000));
    std::vector<QString> unreadable;
    EXPECT_TRUE(claimAbandonedWork(copies, unreadable).empty()) << "its desk still runs";
    save(window);
    EXPECT_TRUE(QTest::qWaitFor([&] { return count() == countOnceIdle; }, 3000));
    type(window, "?");
    EXPECT_TRUE(QTest::qWaitFor([&] { return count() == countOnceIdle + 1; }, 3000));
    answerNext("Discard");
    EXPECT_TRUE(window.close());
    EXPECT_TRUE(QTest::qWaitFor([&] { return count() == countOnceIdle; }, 3000)) << "discarded";
}

TEST_F(UnsavedWorkTest, AnOpenEditorsWorkIsKeptAsFarAsItHasReachedTheList)
{
    write(path(), kQuote);
    MainWindow window;
    window.show();
    ASSERT_TRUE(window.open(path()));
    auto* const list = window.findChild<ProductViewWidget*>();
    list->setCurrentProduct(1);
    QCoreApplication::processEvents(); // actions are enabled from the event loop
    test::whenModal([&](QWidget& editor) {
        auto* const quantity = editor.findChild<QLineEdit*>(QStringLiteral("txtQty"));
        quantity->setFocus();
        // The second key comes when no copy is due any more because the quote has been opened.
        for (const char key : {'7', '3'}) {
            QTest::keyClick(quantity, key);
            const std::string record = "Lamp:::5:" + quantity->text().toStdString() + ":";
            const auto isKept = [&] { return keptCopy().find(record) != std::string::npos; };
            EXPECT_TRUE(QTest::qWaitFor(isKept, 3000)) << record << keptCopy();
        }
        answerNext("No");
        QTest::keyClick(quantity, Qt::Key_Escape);
    });
    list->action(Command::edit)->trigger();
    EXPECT_EQ(list->Products(), "1~Lamp:::5:1:0:5:~") << "the editor was cancelled";
}

TEST_F(UnsavedWorkTest, ALogOutKeepsWhatIsUnsavedAtOnce)
{
    write(path(), kQuote);
    MainWindow window;
    window.show();
    ASSERT_TRUE(window.open(path()));
    type(window, "!");
    // This sends the signal that Qt sends when a user logs out. Its argument, the session's manager, is null here,
    // because only Qt can make one, and no slot of the desk uses it.
    void* arguments[] = {nullptr, nullptr};
    const QMetaObject& application = QGuiApplication::staticMetaObject;
    const int signal = QMetaMethod::fromSignal(&QGuiApplication::commitDataRequest).methodIndex();
    QMetaObject::activate(qApp, &application, signal - application.methodOffset(), arguments);
    EXPECT_THAT(keptCopy(), HasSubstr("c!"));
}

TEST_F(UnsavedWorkTest, DiscardingDoesNotWaitForADiskThatStillWrites)
{
    write(path("file"), "in the way of a folder");
    std::promise<void> writes, mayEnd;
    RecoveryKeeper keeper(path("file"), [&](const UserText&) { // called by the thread that writes
        writes.set_value();
        mayEnd.get_future().wait();
    });
    keeper.keep({.quote = {}, .path = path()});
    writes.get_future().wait();
    const auto discarding = std::async(std::launch::async, [&] { keeper.discard(); });
    EXPECT_EQ(discarding.wait_for(std::chrono::seconds(5)), std::future_status::ready);
    mayEnd.set_value();
}

TEST_F(UnsavedWorkTest, WhatADeadDeskHasLeftIsOfferedWithWhatDiffers)
{
    write(path(), kQuote);
    const QString copies = defaultRecoveryFolder();
    const QDateTime since(QDate(2020, 1, 2), QTime(3, 4));
    QString copy;
    {
        RecoveryKeeper keeper(copies, [](const UserText& problem) { FAIL() << problem.english(); });
        Quote quote = readQuote(path(), [](const std::string&) {}).quote;
        quote.customer += u'?';
        quote.products = "2~Lamp:::5:1:0:5:~Desk:::9:1:0:9:~";
        keeper.keep({.quote = quote, .path = path(), .unsavedSince = since});
        ASSERT_TRUE(keeper.finish());
        copy = QDir(copies).filePath(
            QDir(copies).entryList({QStringLiteral("*.recovery.json")}, QDir::Files).constFirst());
    }
    QJsonObject object = QJsonDocument::fromJson(read(copy)).object();
    object[u"processIdentity"] = QStringLiteral("a computer that was started another time");
    write(copy, QJsonDocument(object).toJson());

    MainWindow window;
    window.show();
    answerNext("Later");
    window.offerAbandonedWork();
    EXPECT_THAT(asked, HasSubstr("own.quote.json"));
    EXPECT_THAT(asked, HasSubstr("Changed: the customer, 1 product."));
    answerNext("Recover");
    window.offerAbandonedWork();
    EXPECT_EQ(window.findChild<QLineEdit*>()->text(), "c?");
    EXPECT_TRUE(window.isWindowModified());
    auto& status = *window.findChild<StatusLine*>();
    status.lookAgain();
    EXPECT_THAT(status.toolTip().toStdString(), HasSubstr(("Unsaved since " + timeText(since)).toStdString()));
    save(window);
    EXPECT_TRUE(read(path()).contains("Desk"));
    asked.clear();
    window.offerAbandonedWork();
    EXPECT_EQ(asked, "");
}

} // namespace
} // namespace orvan::desk

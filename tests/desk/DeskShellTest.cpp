// What stands around the quote in the desk's window: recent files and the window's place.

#include "DeskSettings.h"
#include "MainWindow.h"
#include "RecentFiles.h"
#include "WindowIcon.h"
#include "WindowPlace.h"

#include "tests/desk/QuoteFolder.h"
#include "tests/support/QtEnvironment.h"
#include "tests/support/Rows.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QMessageBox>
#include <QScreen>

namespace orvan::desk {
namespace {

using test::forEachRow;
using testing::ElementsAre;
using testing::HasSubstr;

class DeskShellTest : public test::QuoteFolder {
protected:
    DeskShellTest() { keepText("RecentFiles", {}); }

    static std::vector<std::string> captions(RecentFiles& menu)
    {
        emit menu.aboutToShow();
        std::vector<std::string> found;
        for (const QAction* const action : menu.actions()) {
            if (action->text().startsWith(u'&') && action->text()[1].isDigit()) {
                found.push_back(action->text().toStdString());
            }
        }
        return found;
    }
    static void choose(RecentFiles& menu, int at)
    {
        emit menu.aboutToShow();
        menu.actions().at(at)->trigger();
    }
    void answerNext(const char* button)
    {
        test::whenModal([this, button](QWidget& window) {
            asked = dynamic_cast<QMessageBox&>(window).text().toStdString();
            for (auto* const each : window.findChildren<QAbstractButton*>()) {
                if (each->text().remove(u'&') == QLatin1String(button)) {
                    each->click();
                }
            }
        });
    }

    std::string asked;
};

TEST_F(DeskShellTest, TheRecentFilesAreNumberedAndEachStandsThereOnce)
{
    for (const char* const name : {"a", "b", "R&D", "x/a", "line\nend"}) {
        write(name);
    }
    QFile::link(path("a"), path("link"));
    const std::string here = folder.path().string();
    struct Row {
        const char* name;
        QStringList noted;
        std::vector<std::string> captions;
    };
    QStringList many;
    for (const int number : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}) {
        many << write(std::to_string(number));
    }
    const Row rows[] = {
        {"none", {}, {}},
        {"the last one first", {path("a"), path("b")}, {"&1  b", "&2  a"}},
        {"again", {path("a"), path("b"), path("a")}, {"&1  a", "&2  b"}},
        {"by a link", {path("a"), path("b"), path("link")}, {"&1  a", "&2  b"}},
        {"by a longer path", {path("a"), path("x/../a")}, {"&1  a"}},
        {"by a relative path", {path("a"), QDir::current().relativeFilePath(path("a"))}, {"&1  a"}},
        {"an ampersand", {path("R&D")}, {"&1  R&&D"}},
        {"a line break",
         {path("line\nend")},
         {"&1  line\uFFFD"
          "end"}},
        {"no more than digits",
         many,
         {"&1  10", "&2  9", "&3  8", "&4  7", "&5  6", "&6  5", "&7  4", "&8  3", "&9  2"}},
    };
    forEachRow(rows, [&](const Row& row) {
        keepText("RecentFiles", {});
        RecentFiles menu(nullptr, {});
        for (const QString& file : row.noted) {
            menu.note(file);
        }
        EXPECT_EQ(captions(menu), row.captions);
    });
    keepText("RecentFiles", {});
    RecentFiles menu(nullptr, {});
    menu.note(path("a"));
    menu.note(path("x/a"));
    EXPECT_THAT(captions(menu), ElementsAre(testing::StartsWith("&1  a in "), testing::StartsWith("&2  a in ")));
    EXPECT_NE(captions(menu)[0].substr(3), captions(menu)[1].substr(3)) << "files of one name are told apart";
    EXPECT_EQ(lastFolder(kQuoteFolder), path("x"));
    QDir(path("x")).removeRecursively();
    EXPECT_TRUE(QFileInfo(lastFolder(kQuoteFolder)).isDir()) << "a dialog does not begin in a folder that is gone";
    for (const char* const damaged : {"[\"/a\", 7, \"relative\", {", "{}", "[[\"/a\"], 7, \"relative\"]"}) {
        keepText("RecentFiles", QString::fromUtf8(damaged));
        EXPECT_THAT(captions(menu), ElementsAre()) << damaged;
    }
}

TEST_F(DeskShellTest, TheDeskListsWhatItOpensAndSaves)
{
    MainWindow window;
    window.show();
    auto& menu = *window.findChild<RecentFiles*>();
    const QString own = write("own.quote.json");
    ASSERT_TRUE(window.open(QDir::current().relativeFilePath(own)));
    ASSERT_TRUE(window.openSample(QStringLiteral("coffee-bar")));
    answerNext("OK");
    EXPECT_FALSE(window.open(write("damaged.quote.json", "{")));
    EXPECT_THAT(captions(menu), ElementsAre("&1  own.quote.json")) << "no sample, and nothing that did not open";

    ASSERT_TRUE(window.open(QDir::current().relativeFilePath(own)));
    asked.clear();
    QTimer::singleShot(0, &window, [this] {
        if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            asked = box->text().toStdString();
            box->reject();
        }
    });
    choose(menu, 0); // another path to the open quote; it is not "open elsewhere"
    QApplication::processEvents();
    EXPECT_EQ(asked, "");
    EXPECT_EQ(window.windowTitle().toStdString(), "own.quote.json[*] – Orvan Desk");

    QFile::remove(own);
    answerNext("Keep");
    choose(menu, 0);
    EXPECT_THAT(asked, HasSubstr("“own.quote.json” is not in"));
    EXPECT_EQ(captions(menu).size(), 1U);
    answerNext("Remove from the List");
    choose(menu, 0);
    EXPECT_THAT(captions(menu), ElementsAre());

    menu.note(write("other.quote.json"));
    emit menu.aboutToShow();
    menu.actions().constLast()->trigger(); // Clear This List
    EXPECT_THAT(captions(menu), ElementsAre());
}

/// The screens: a notebook's, one to the right of it, and one above the main one.
TEST_F(DeskShellTest, TheWindowComesBackWithItsWholeTitleBarOnAScreen)
{
    const auto screen = [](const char* name, QRect whole) {
        return ScreenArea{QString::fromLatin1(name), whole, whole.adjusted(0, 24, 0, 0)}; // a bar at the top
    };
    const ScreenArea notebook = screen("N", {0, 0, 1280, 800}), small = screen("N", {0, 0, 640, 480});
    const ScreenArea right = screen("R", {1280, 0, 1920, 1080}), above = screen("A", {-300, -1080, 1920, 1080});
    const auto kept = [](const ScreenArea& on, QRect place, bool maximized = false) {
        return WindowPlace{on.name, on.whole.size(), place, maximized};
    };
    struct Row {
        const char* name;
        std::vector<WindowPlace> kept;
        std::vector<ScreenArea> screens;
        QRect place;
        bool maximized = false;
    };
    const QRect place(100, 200, 780, 560);
    const Row rows[] = {
        {"nothing kept: in the middle", {}, {notebook, right}, {242, 108, 780, 560}},
        {"nothing kept, a small screen", {}, {small}, {0, 24, 624, 408}},
        {"as it was", {kept(notebook, {100, 100, 780, 560})}, {notebook}, {100, 100, 780, 560}},
        {"on the screen where it was last",
         {kept(right, place), kept(notebook, place)},
         {notebook, right},
         {1380, 200, 780, 560}},
        {"that screen has gone",
         {kept(right, place), kept(notebook, {9, 90, 600, 500})},
         {notebook},
         {9, 90, 600, 500}},
        {"all kept screens have gone", {kept(right, place)}, {notebook}, {242, 108, 780, 560}},
        {"that screen stands elsewhere", {kept(above, place)}, {notebook, above}, {-200, -880, 780, 560}},
        {"that screen is smaller now", {kept(notebook, {400, 300, 780, 460})}, {small}, {0, 24, 624, 408}},
        {"that screen has the size of before",
         {kept(notebook, place), kept(small, {9, 30, 500, 400})},
         {small},
         {9, 30, 500, 400}},
        {"beyond the right and lower edge", {kept(notebook, {1200, 790, 780, 560})}, {notebook}, {484, 192, 780, 560}},
        {"beyond the left and upper edge", {kept(notebook, {-700, -90, 780, 560})}, {notebook}, {0, 24, 780, 560}},
        {"maximized", {kept(notebook, {100, 100, 780, 560}, true)}, {notebook}, {100, 100, 780, 560}, true},
    };
    forEachRow(rows, [](const Row& row) {
        const WindowPlace found = placeOnScreens(row.kept, row.screens, QSize(780, 560));
        const QRect at = found.place;
        EXPECT_TRUE(at == row.place) << at.x() << ' ' << at.y() << ' ' << at.width() << ' ' << at.height();
        EXPECT_EQ(found.maximized, row.maximized);
    });
}

TEST_F(DeskShellTest, ThePlaceIsKeptFromWindowToWindow)
{
    const auto shown = [](const std::function<void(QWidget&)>& use) {
        QWidget window;
        window.resize(300, 200);
        window.setMinimumSize(150, 120);
        const WindowPlaceKeeper keeper(window);
        window.show();
        use(window);
        QApplication::processEvents();
    };
    const QRect place(QPoint(40, 60) + QGuiApplication::primaryScreen()->availableGeometry().topLeft(),
                      QSize(420, 330));
    keepText("WindowPlaces", {});
    shown([&](QWidget& window) { window.setGeometry(place); });
    shown([&](QWidget& window) {
        EXPECT_EQ(window.normalGeometry(), place);
        EXPECT_FALSE(window.isMaximized());
        window.showMaximized();
    });
    shown([&](QWidget& window) {
        EXPECT_TRUE(window.isMaximized());
        window.showNormal();
        EXPECT_EQ(window.size(), place.size());
    });
    for (const char* const damaged : {"7", "[1, {}]", R"([{"screen": "", "place": [0, 0, -5, 1e300]}])"}) {
        keepText("WindowPlaces", QString::fromLatin1(damaged));
        shown([&](QWidget& window) { EXPECT_EQ(window.size(), QSize(300, 200)) << damaged; });
    }
}

TEST_F(DeskShellTest, EveryButtonCanBeReachedOnASmallScreen)
{
    MainWindow window;
    window.resize(window.minimumSize());
    window.show();
    window.open(write("own.quote.json"));
    ASSERT_LE(window.width(), 640 - 16);
    ASSERT_LE(window.height(), 480 - 48);
    const QWidget* const total = window.findChild<QWidget*>(QStringLiteral("txtTotal"));
    ASSERT_TRUE(total);
    int seen = 0;
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        if (widget->focusPolicy() != Qt::NoFocus && widget->isVisible() && widget->objectName().startsWith(u"cmd")) {
            const QRect place(widget->mapTo(&window, QPoint()), widget->size());
            EXPECT_TRUE(window.rect().contains(place)) << widget->objectName().toStdString();
            EXPECT_EQ(window.childAt(place.center()), widget) << widget->objectName().toStdString();
            EXPECT_FALSE(QRect(total->mapTo(&window, QPoint()), total->size()).intersects(place));
            ++seen;
        }
    }
    EXPECT_EQ(seen, 4);
}

TEST_F(DeskShellTest, TheWindowsIconIsTheDesktopsIcon)
{
    constexpr int kMostDifference = 3; // of a channel, on average: two programs blend the edges differently
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        const QString file = QFileInfo(QStringLiteral(ORVAN_README)).path() +
                             QStringLiteral("/apps/orvan-desk/desktop/icons/%1.png").arg(size);
        const QImage kept = QImage(file).convertToFormat(QImage::Format_ARGB32_Premultiplied);
        const QImage drawn = windowIcon().pixmap(size).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
        ASSERT_EQ(drawn.size(), kept.size()) << size;
        std::int64_t difference = 0;
        for (int y = 0; y < size; ++y) {
            for (int byte = 0; byte < 4 * size; ++byte) {
                difference += std::abs(drawn.constScanLine(y)[byte] - kept.constScanLine(y)[byte]);
            }
        }
        EXPECT_LE(difference, std::int64_t{kMostDifference} * 4 * size * size) << size;
    }
}

} // namespace
} // namespace orvan::desk

// What only a form in a real window can get wrong: its keys, its closing, its size.
#include "QtDriver.h"

#include "orvan/ui/qt/FieldCard.h"
#include "orvan/ui/qt/QtForm.h"
#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/Twips.h"

#include <QAbstractScrollArea>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QTranslator>
#include <QWindow>

namespace orvan::contract {
namespace {

using namespace qt;
using ui::UnloadMode;

class QtFormTest : public QtTest {
protected:
    QtFormTest() { load(kFormDesign); }

    void load(const ui::FormDesign& design)
    {
        form = driver.platform().loadForm(design, 0);
        for (const char* name : {"a", "b", "c", "cancel"}) {
            form->control<ui::Button>(name).onClick = [this, name] { log += std::string(name) + ' '; };
        }
        form->onQueryUnload = [this](UnloadMode mode) {
            log += std::to_string(static_cast<int>(mode)) + ' ';
            return stays;
        };
    }
    void show(const std::function<void()>& user)
    {
        driver.showModal(*form, [this, user] {
            user();
            form->unload();
        });
    }
    std::string taken() { return std::exchange(log, {}); }
    QWidget& window() { return *windowOf(form->window()); }
    QWidget& widget(std::string_view name) { return *widgetOf(form->control<ui::Control>(name)); }
    void press(Qt::Key key, Qt::KeyboardModifiers with = {}, bool held = false)
    {
        QKeyEvent event(QEvent::KeyPress, key, with, key == Qt::Key_Space ? QStringLiteral(" ") : QString(), held);
        QApplication::sendEvent(QApplication::focusWidget(), &event);
    }

    std::unique_ptr<ui::Form> form;
    std::string log;
    bool stays = false;
};

TEST_F(QtFormTest, EnterGoesToTheFocusedControlAndEscapeToTheCancelButton)
{
    show([&] {
        struct Row {
            const char *name, *at;
            Qt::Key key;
            bool held;
            const char* events;
        };
        const Row rows[] = {
            {"Return in a box", "one", Qt::Key_Return, false, ""},
            {"Escape in a box", "one", Qt::Key_Escape, false, "cancel "},
            {"Return on a button", "a", Qt::Key_Return, false, "a "},
            {"Enter on a button", "a", Qt::Key_Enter, false, "a "},
            {"Return held on a button", "a", Qt::Key_Return, true, ""},
            {"Escape on a button", "a", Qt::Key_Escape, false, "cancel "},
            {"Escape held in a box", "two", Qt::Key_Escape, true, ""},
        };
        forEachRow(rows, [&](const Row& row) {
            form->control<ui::Control>(row.at).setFocus();
            press(row.key, {}, row.held);
            EXPECT_EQ(taken(), row.events);
        });
        form->control<ui::Control>("c").setFocus();
        QTest::keyClick(&widget("c"), Qt::Key_Space);
        EXPECT_EQ(taken(), "c ");
        for (QPushButton* button : window().findChildren<QPushButton*>()) {
            EXPECT_FALSE(button->autoDefault() || button->isDefault());
        }
    });
}

TEST_F(QtFormTest, TheTitleIsTheWholeCaption)
{
    show([this] {
        form->setCaption("Pipe [*] (1/2)"); // Qt has a use of its own for "[*]"
        EXPECT_EQ(window().windowHandle()->title(), QStringLiteral("Pipe [*] (1/2)"));
    });
}

TEST_F(QtFormTest, MnemonicsReachBoxesButtonsAndMenus)
{
    struct Row {
        const char* text;
        char mnemonic;
        const char* marked;
    };
    const Row rows[] = {
        {"Save && Close", 'C', "Save && &Close"},
        {"Part#", 'a', "P&art#"},
        {"Nnn", 'n', "N&nn"},
        {"Part#", 'x', "Part#"},
        {"A && B", '\0', "A && B"},
    };
    forEachRow(rows,
               [](const Row& row) { EXPECT_EQ(markedCaption(row.text, row.mnemonic).toStdString(), row.marked); });
    EXPECT_EQ(dynamic_cast<QLabel&>(widget("heading")).text(), QStringLiteral("All of it"));
    EXPECT_EQ(widget("one").accessibleName(), QStringLiteral("Bone & one"));
    show([&] {
        QTest::keyClick(&window(), Qt::Key_T, Qt::AltModifier);
        EXPECT_EQ(form->focused()->name(), "two");
        QTest::keyClick(&window(), Qt::Key_O, Qt::AltModifier);
        EXPECT_EQ(form->focused()->name(), "one");
        QTest::keyClick(&window(), Qt::Key_C, Qt::AltModifier);
        QTest::qWait(150); // the button is seen to go down
        EXPECT_EQ(taken(), "cancel ");
    });
}

TEST_F(QtFormTest, AMenuGivesTheFocusBack)
{
    auto& one = form->control<ui::Control>("one");
    one.onLostFocus = [&] { log += "left "; };
    form->control<ui::ToolBar>("bar").onToolClick = [&](std::string_view id) {
        log += std::string(id) + ' ';
        form->control<ui::Control>("c").setFocus();
    };
    show([&] {
        auto& bar = dynamic_cast<QMenuBar&>(widget("bar"));
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(bar.actions().front()).center());
        ASSERT_TRUE(QApplication::activePopupWidget());
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        EXPECT_FALSE(QApplication::activePopupWidget());
        QTest::keyClick(&window(), Qt::Key_M, Qt::AltModifier);
        EXPECT_EQ(taken(), "") << "opened and closed, the box is not left";
        ASSERT_TRUE(QApplication::activePopupWidget());
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_N);
        EXPECT_EQ(taken(), "new left ");
        EXPECT_EQ(QApplication::focusWidget(), &widget("c")) << "the menu bar takes nothing back";
    });
}

TEST_F(QtFormTest, TheWindowStandsAloneAboveTheActiveOne)
{
    surface = driver.load(kDesign);
    driver.host().move(100, 50);
    driver.host().activateWindow();
    QTest::qWait(20);
    auto& one = form->control<ui::TextBox>("one");
    one.setText("text");
    show([&] {
        EXPECT_EQ(one.selectionLength(), 4) << "what is typed right away takes its place";
        EXPECT_TRUE(window().isModal() && !window().parentWidget());
        EXPECT_EQ(window().windowHandle()->transientParent(), driver.host().windowHandle());
        stays = true;
        window().close();
        EXPECT_TRUE(window().isVisible());
        EXPECT_EQ(taken(), "0 ");
        driver.answer(ui::MessageResult::ok,
                      [&] { EXPECT_EQ(QApplication::activeModalWidget()->parentWidget(), &window()); });
        driver.platform().messageBox().show({.ownerWindow = form->window()});
        driver.destroyHost();
        QTest::qWait(5);
        EXPECT_TRUE(window().isVisible()) << "a host that goes takes no form along";
        EXPECT_EQ(form->focused()->name(), "one");
        stays = false;
    });
}

TEST_F(QtFormTest, QuittingAsksTheFormAndExitingEndsIt)
{
    for (const bool quits : {true, false}) {
        load(kFormDesign);
        stays = quits;
        QTimer::singleShot(0, qApp, [&] {
            driver.showModal(*form, [&] {
                quits ? QApplication::quit() : QApplication::exit();
                if (quits) {
                    EXPECT_TRUE(form->loaded() && window().isVisible()) << "refused";
                    stays = false;
                    QApplication::quit();
                }
            });
        });
        QApplication::exec();
        EXPECT_FALSE(form->loaded());
        EXPECT_EQ(taken(), quits ? "2 2 " : "2 ");
    }
}

TEST_F(QtFormTest, NothingOverlapsOrIsCutWhateverTheFont)
{
    const QFont font = QApplication::font();
    for (const int points : {7, 9, 14, 20}) {
        QApplication::setFont(QFont(font.family(), points));
        load(kFormDesign);
        show([&] {
            const QRect screen = window().screen()->availableGeometry();
            EXPECT_TRUE(screen.contains(window().frameGeometry())) << points;
            EXPECT_GE(form->innerWidth(), std::min(kFormDesign.width, toTwips(screen.width() - 16)));
            const std::vector<const char*> apart = {"bar", "fields", "steps", "cancel"};
            for (std::size_t i = 0; i < apart.size(); ++i) {
                const QRect place = widget(apart[i]).geometry();
                EXPECT_TRUE(window().rect().contains(place)) << apart[i] << ' ' << points;
                for (std::size_t j = i + 1; j < apart.size(); ++j) {
                    EXPECT_FALSE(place.intersects(widget(apart[j]).geometry())) << apart[i] << apart[j] << points;
                }
            }
            for (const char* name : {"heading", "lblOne", "lblTwo", "cancel", "bar"}) {
                EXPECT_GE(widget(name).height(), widget(name).sizeHint().height()) << name << ' ' << points;
                EXPECT_GE(widget(name).width(), widget(name).sizeHint().width()) << name << ' ' << points;
            }
            EXPECT_EQ(toPixels(form->control<ui::Control>("cancel").width()), widget("cancel").width());
            auto& card = dynamic_cast<FieldCard&>(widget("fields"));
            auto& area = *card.findChild<QAbstractScrollArea*>();
            EXPECT_GE(area.viewport()->height(), card.content()->minimumSizeHint().height()) << points;
            form->control<ui::Control>("fields").move(240, 465, 2400, 900);
            press(Qt::Key_Tab);
            const QPoint corner = widget("two").mapTo(area.viewport(), QPoint());
            EXPECT_TRUE(area.viewport()->rect().contains(corner)) << "Tab scrolls, " << points;
            window().resize(700, 600);
            EXPECT_EQ(widget("bar").width(), 700);
        });
        taken();
    }
    QApplication::setFont(font);
}

TEST_F(QtFormTest, ButtonsLoseTheirPicturesWhereTheScreenIsTooNarrow)
{
    constexpr float kWiderThanTheScreen = 30'000;
    for (const float width : {3'000.0F, kWiderThanTheScreen}) {
        // clang-format off
        const ui::ControlDesign controls[] = {
            {.name = "save", .kind = ui::ControlKind::button, .left = width - 2'000, .width = 1'900, .height = 375,
             .caption = "Save", .picture = "save", .tabIndex = 0},
        };
        // clang-format on
        const ui::FormDesign design{.name = "Wide", .width = width, .height = 600, .controls = controls};
        const auto wide = driver.platform().loadForm(design, 0);
        auto& button = wide->control<ui::Button>("save");
        const bool squeezed = width == kWiderThanTheScreen;
        EXPECT_EQ(dynamic_cast<QPushButton*>(widgetOf(button))->icon().isNull(), squeezed);
        EXPECT_EQ(button.width() < 1'900, squeezed);
        EXPECT_LE(wide->innerWidth(), toTwips(QApplication::primaryScreen()->availableSize().width()));
    }
}

TEST_F(QtFormTest, AFormIsMadeInAdvanceAndTakenWhereANewOneWouldBeTheSame)
{
    struct Row {
        const char* text;
        std::function<void()> change, changeBack;
        bool taken;
    };
    const auto inPoints = [](int points) {
        QFont font = QApplication::font();
        font.setPointSize(points);
        QApplication::setFont(font);
    };
    const int points = QApplication::font().pointSize();
    class : public QTranslator {
        bool isEmpty() const override { return false; }
    } translator;
    const Row rows[] = {
        {"nothing has changed", [] {}, [] {}, true},
        {"another font", [&] { inPoints(points + 5); }, [&] { inPoints(points); }, false},
        {"another font for boxes alone", [] { QApplication::setFont(QFont(QStringLiteral("Serif"), 20), "QLineEdit"); },
         [] { QApplication::setFont(QApplication::font(), "QLineEdit"); }, false},
        {"another language", [&] { QCoreApplication::installTranslator(&translator); },
         [&] { QCoreApplication::removeTranslator(&translator); }, false},
        {"another direction", [] { QApplication::setLayoutDirection(Qt::RightToLeft); },
         [] { QApplication::setLayoutDirection(Qt::LeftToRight); }, false},
        {"other number formats", [&] { driver.locale.decimal = ";"; }, [&] { driver.locale.decimal = "."; }, false},
    };
    static const ui::FormDesign design = [] {
        ui::FormDesign again = kFormDesign;
        again.openedAgain = true;
        return again;
    }();
    const auto windows = [] {
        QWidgetList found = QApplication::topLevelWidgets();
        found.removeIf([](const QWidget* widget) { return widget->parentWidget() != nullptr; });
        return found;
    };
    forEachRow(rows, [&](const Row& row) {
        load(design);
        form.reset();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const QWidgetList before = windows();
        QTest::qWait(200);
        QWidgetList made = windows();
        made.removeIf([&](QWidget* widget) { return before.contains(widget); });
        ASSERT_EQ(made.size(), 1);
        const QPointer<QWidget> inAdvance = made.front();
        EXPECT_FALSE(inAdvance->isVisible());
        row.change();
        load(design);
        EXPECT_EQ(widget("one").window() == inAdvance, row.taken);
        row.changeBack();
        std::string first;
        show([&] { first = form->focused()->name(); });
        EXPECT_EQ(first, "one");
    });
}

} // namespace
} // namespace orvan::contract

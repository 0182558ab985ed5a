// What only the Qt platform can get wrong: painting, the toolkit's own habits, lifetimes.
#include "QtDriver.h"

#include "orvan/ui/qt/GridPaint.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>
#include <QWindow>

namespace orvan::contract {
namespace {

using namespace qt;

std::unique_ptr<Driver> make()
{
    return std::make_unique<QtDriver>();
}
INSTANTIATE_TEST_SUITE_P(Qt, PlatformContract, testing::Values(make));
INSTANTIATE_TEST_SUITE_P(Qt, FormContract, testing::Values(make));
INSTANTIATE_TEST_SUITE_P(Qt, GridContract, testing::Values(make));
INSTANTIATE_TEST_SUITE_P(Qt, EntryContract, testing::Values(make));

class QtPlatformTest : public QtTest {
protected:
    QtPlatformTest() { surface = driver.load(kDesign); }

    ui::Grid& grid() { return surface->control<ui::Grid>("grid"); }
    QTableView& table() { return driver.table(); }

    void fill(std::int32_t rows)
    {
        grid().setRedraw(false);
        grid().setRowCount(rows + 1);
        for (std::int32_t row = 1; row <= rows; ++row) {
            grid().setValue(row, 0, row);
            grid().setValue(row, 1, "row " + std::to_string(row));
        }
        grid().setRedraw(true);
        QApplication::processEvents();
    }
};

class PaintCounter final : public QObject {
public:
    explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int paints = 0;
};

TEST_F(QtPlatformTest, ARedrawCycleIsPaintedOnceWhateverChanged)
{
    fill(100);
    QTest::qWait(50); // the window has become active
    struct Row {
        const char* name;
        std::function<void(ui::Grid&)> change;
    };
    const Row rows[] = {
        {"nothing", [](ui::Grid&) {}},
        {"cells", [](ui::Grid& grid) { grid.setValue(1, 0, 5), grid.setValue(2, 0, 6); }},
        {"more rows", [](ui::Grid& grid) { grid.setRowCount(150); }},
        {"fewer rows", [](ui::Grid& grid) { grid.setRowCount(3), grid.setRowCount(120); }},
        {"columns",
         [](ui::Grid& grid) { grid.moveColumn(4, 0), grid.setColumnHidden(2, true), grid.setColumnCount(6); }},
        {"all", [](ui::Grid& grid) { grid.setRowCount(40), grid.setColumnWidth(0, 30), grid.setCurrentRow(39); }},
    };
    forEachRow(rows, [&](const Row& row) {
        PaintCounter cells(table().viewport());
        PaintCounter header(table().horizontalHeader()->viewport());
        grid().setRedraw(false);
        row.change(grid());
        QTest::qWait(5);
        EXPECT_EQ(cells.paints, 0) << "redraw off";
        grid().setRedraw(true);
        QTest::qWait(20);
        EXPECT_EQ(cells.paints, 1);
        EXPECT_EQ(header.paints, 1);
    });
}

TEST_F(QtPlatformTest, WidgetsStandOnTheNearestPixel)
{
    auto& box = surface->control<ui::TextBox>("box");
    const std::pair<float, int> lengths[] = {{0, 0}, {7, 0}, {8, 1}, {22, 1}, {250, 17}, {2500, 167}};
    for (const auto& [twips, pixel] : lengths) {
        box.move(twips, twips, twips, twips);
        EXPECT_EQ(driver.widget("box").geometry(), QRect(pixel, pixel, pixel, pixel)) << twips;
        grid().setColumnWidth(3, static_cast<std::int32_t>(twips));
        EXPECT_EQ(table().columnWidth(3), pixel) << twips;
    }
}

TEST_F(QtPlatformTest, NumbersStandAtTheRightAndTheirHeaderWithThem)
{
    grid().setRowCount(2);
    struct Row {
        const char* name;
        ui::GridType type;
        ui::GridValue value;
        Qt::AlignmentFlag side;
    };
    const Row rows[] = {
        {"string", ui::GridType::string, 5, Qt::AlignLeft},
        {"int32", ui::GridType::int32, std::string("x"), Qt::AlignRight},
        {"currency", ui::GridType::currency, {}, Qt::AlignRight},
        {"decimal", ui::GridType::decimal, {}, Qt::AlignRight},
        {"float64", ui::GridType::float64, {}, Qt::AlignRight},
        {"no type, an amount", ui::GridType::none, Currency(), Qt::AlignRight},
        {"no type, a text", ui::GridType::none, std::string("1"), Qt::AlignLeft},
    };
    forEachRow(rows, [&](const Row& row) {
        grid().setColumnType(0, row.type);
        grid().setValue(1, 0, row.value);
        const auto cell = table().model()->index(0, 0).data(Qt::TextAlignmentRole).value<Qt::Alignment>();
        const QVariant header = table().model()->headerData(0, Qt::Horizontal, Qt::TextAlignmentRole);
        EXPECT_TRUE(cell.testFlag(row.side));
        EXPECT_EQ(header.value<Qt::Alignment>(), cell);
    });
}

TEST_F(QtPlatformTest, ACutAmountShowsThatItIsCutAndItsToolTipTheWhole)
{
    const QFontMetrics metrics = table().fontMetrics();
    EXPECT_EQ(fitText(metrics, QStringLiteral("30"), 17).text, QStringLiteral("30"));
    const QString amount = QStringLiteral("$1,234,567.89");
    for (int width = metrics.horizontalAdvance(amount) - 1; width > 0; --width) {
        const FittedText fitted = fitText(metrics, amount, width);
        EXPECT_TRUE(fitted.cut && fitted.text.endsWith(QChar(0x2026))) << width << ": " << fitted.text.toStdString();
    }
    grid().setRowCount(2);
    grid().setColumnWidth(1, 3000);
    grid().setValue(1, 1, std::string("<b>long</b> text"));
    const QModelIndex cell = table().model()->index(0, 1);
    EXPECT_FALSE(cell.data(Qt::ToolTipRole).isValid());
    grid().setColumnWidth(1, 300);
    EXPECT_EQ(cell.data(Qt::ToolTipRole).toString(), QStringLiteral("<p>&lt;b&gt;long&lt;/b&gt; text</p>"));
    auto& total = surface->control<ui::TextBox>("box");
    for (const char* text : {"$1.00", "$922,337,203,685,477.58"}) {
        total.setText(text);
        QHelpEvent ask(QEvent::ToolTip, {1, 1}, {1, 1});
        QApplication::sendEvent(&driver.widget("box"), &ask);
        EXPECT_EQ(QToolTip::text().toStdString(), std::string_view(text).size() > 9 ? text : "");
    }
}

TEST_F(QtPlatformTest, OnlyTheUserChoosesRowsAndOnlyWithTheLeftButtonOrArrows)
{
    fill(60);
    QWidget& viewport = *table().viewport();
    const auto at = [&](int row) { return table().visualRect(table().model()->index(row - 1, 1)).center(); };
    driver.widget("button").setFocus();
    table().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(grid().currentRow(), 0) << "coming in by Tab chooses nothing";
    EXPECT_FALSE(table().currentIndex().isValid());
    QTest::mouseClick(&viewport, Qt::RightButton, {}, at(2));
    EXPECT_EQ(grid().currentRow(), 0);
    QTest::mouseClick(&viewport, Qt::LeftButton, Qt::ControlModifier, at(2));
    QTest::mouseClick(&viewport, Qt::LeftButton, Qt::ControlModifier, at(2));
    EXPECT_EQ(grid().currentRow(), 2);
    EXPECT_EQ(table().selectionModel()->selectedRows().size(), 1) << "the current row is always selected";
    QTest::keyClick(&table(), Qt::Key_Right);
    QTest::keyClicks(&table(), "6");
    EXPECT_EQ(grid().currentRow(), 2);
    grid().setCurrentRow(0);
    EXPECT_TRUE(table().selectionModel()->selection().isEmpty());
}

TEST_F(QtPlatformTest, TheScrollPositionOutlastsARefresh)
{
    fill(200);
    grid().setColumnWidth(0, 9000);
    driver.chooseRow(grid(), 2);
    table().verticalScrollBar()->setValue(120);
    table().horizontalScrollBar()->setValue(50);
    fill(201);
    EXPECT_EQ(table().verticalScrollBar()->value(), 120);
    EXPECT_EQ(table().horizontalScrollBar()->value(), 50);
    grid().setCurrentRow(3);
    EXPECT_LE(table().verticalScrollBar()->value(), 2) << "the program's choice comes into view";
    EXPECT_EQ(table().horizontalScrollBar()->value(), 50) << "but not sideways";
    grid().setRedraw(false);
    grid().setRowCount(2);
    const QModelIndex gone = table().model()->index(150, 1);
    EXPECT_TRUE(gone.isValid() && !gone.data().isValid()) << "between change and publishing";
    QTest::keyClick(&table(), Qt::Key_End, Qt::ControlModifier);
    EXPECT_LT(grid().currentRow(), 2);
    grid().setRedraw(true);
}

TEST_F(QtPlatformTest, AnEdgeIsDraggedOrFittedOnlyWhereAllowed)
{
    int reports = 0;
    grid().onAfterUserResize = [&] { ++reports; };
    grid().setColumnWidth(1, 1007);
    driver.dragColumn(grid(), 1, 1500);
    EXPECT_EQ(grid().columnWidth(1), 1007) << "not allowed";
    grid().setUserResizing(true);
    driver.dragColumn(grid(), 1, 67 * 15);
    EXPECT_EQ(grid().columnWidth(1), 1007) << "a click on the edge that moves nothing";
    EXPECT_EQ(reports, 0);
    fill(3);
    QHeaderView& header = *table().horizontalHeader();
    const QPoint edge(header.sectionViewportPosition(1) + header.sectionSize(1) - 1, header.height() / 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, edge);
    QTest::mouseDClick(header.viewport(), Qt::LeftButton, {}, edge);
    EXPECT_EQ(reports, 1);
    EXPECT_EQ(grid().columnWidth(1), table().columnWidth(1) * 15);
    EXPECT_NE(grid().columnWidth(1), 1007);
}

TEST_F(QtPlatformTest, KeysAndNamesServeThoseWhoUseNoMouse)
{
    driver.widget("box").setFocus();
    for (const char* next : {"button", "grid", "box"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), next);
    }
    EXPECT_EQ(driver.widget("button").accessibleName(), QStringLiteral("Add <one>"));
    EXPECT_EQ(driver.widget("button").toolTip(), QStringLiteral("Add <one>"));
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    fill(2);
    driver.chooseRow(grid(), 1);
    QApplication::sendEvent(&table(), &enter);
    EXPECT_FALSE(enter.isAccepted()) << "Enter belongs to the window";
}

TEST_F(QtPlatformTest, AMenuIsOperatedByKeysAndAKeyOpensNone)
{
    auto& menu = surface->control<ui::PopupMenu>("menu");
    std::string log;
    menu.onToolClick = [&](std::string_view id) { log.append(id).append(" "); };
    menu.setToolEnabled("three", false);
    QMenu& shown = driver.menuOf(menu);
    struct Row {
        const char* name;
        std::vector<Qt::Key> keys;
        const char* chosen;
    };
    const Row rows[] = {
        {"Down", {Qt::Key_Down, Qt::Key_Return}, "one "},
        {"Down twice", {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}, "two "},
        {"Up twice, past the disabled one", {Qt::Key_Up, Qt::Key_Up, Qt::Key_Return}, "one "},
        {"mnemonic", {Qt::Key_S}, "two "},
        {"Escape", {Qt::Key_Down, Qt::Key_Escape}, ""},
    };
    forEachRow(rows, [&](const Row& row) {
        log.clear();
        menu.popUp();
        EXPECT_EQ(shown.pos(), QCursor::pos());
        for (const Qt::Key key : row.keys) {
            QTest::keyClick(&shown, key);
        }
        EXPECT_EQ(log, row.chosen);
        EXPECT_FALSE(driver.isUp(menu));
    });
    grid().onRightClick = [] { ADD_FAILURE() << "a key, and no column is current"; };
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, {5, 5}, {5, 5});
    QApplication::sendEvent(table().viewport(), &asked);
    EXPECT_FALSE(asked.isAccepted()) << "it belongs to the window";
    menu.popUp();
    surface.reset();
    EXPECT_FALSE(QApplication::activePopupWidget()) << "a menu goes with its surface";
}

TEST_F(QtPlatformTest, SurfaceAndHostGoInEitherOrder)
{
    fill(5);
    driver.destroyHost();
    grid().setRedraw(false);
    grid().setRowCount(9);
    grid().setRedraw(true);
    grid().setCurrentRow(4);
    surface->control<ui::Button>("button").move(1, 1);
    surface->control<ui::TextBox>("box").setText("x");
    EXPECT_EQ(grid().currentRow(), 4) << "state outlives the widgets";
    surface = driver.load(kDesign);
    fill(5);
    surface->onResize = [&] { surface.reset(); };
    driver.resize(*surface, 3000, 3000);
    EXPECT_FALSE(surface);
    surface = driver.load(kDesign);
    grid().setUserResizing(true);
    grid().onAfterUserResize = [&] { surface.reset(); };
    driver.dragColumn(grid(), 0, 1500);
    EXPECT_FALSE(surface);
    QTest::mouseClick(&driver.widget("button"), Qt::LeftButton); // no more than pixels by now
    driver.host().resize(300, 300);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(driver.host().children().isEmpty()) << "the widgets went with their surface";
}

TEST_F(QtPlatformTest, AMessageBoxClosesAsItsButtonsAllow)
{
    struct Row {
        const char* name;
        ui::MessageButtons buttons;
        ui::MessageResult closed;
    };
    const Row rows[] = {
        {"OK", ui::MessageButtons::ok, ui::MessageResult::ok},
        {"Yes, No", ui::MessageButtons::yesNo, ui::MessageResult::no},
        {"Yes, No, Cancel", ui::MessageButtons::yesNoCancel, ui::MessageResult::cancel},
    };
    forEachRow(rows, [&](const Row& row) {
        QWidget parent;
        const ui::Message message{
            .text = "<b>x</b>", .title = "Orvan", .buttons = row.buttons, .ownerWindow = windowHandle(&parent)};
        whenModal([&](QWidget& window) {
            EXPECT_EQ(window.parentWidget(), &parent);
            EXPECT_EQ(dynamic_cast<QMessageBox&>(window).textFormat(), Qt::PlainText);
            QTest::keyClick(&window, Qt::Key_Escape);
        });
        EXPECT_EQ(driver.platform().messageBox().show(message), row.closed);
        whenModal([](QWidget& window) { window.close(); });
        EXPECT_EQ(driver.platform().messageBox().show(message), row.closed);
    });
    auto owner = std::make_unique<QWidget>();
    whenModal([&](QWidget&) { owner.reset(); });
    const std::int32_t handle = windowHandle(owner.get());
    const ui::Message told{.text = "x", .title = {}, .ownerWindow = handle};
    EXPECT_EQ(driver.platform().messageBox().show(told), ui::MessageResult::ok);
    EXPECT_EQ(windowOf(handle), nullptr);
    EXPECT_GT(windowHandle(&driver.host()), handle) << "a number is never used again";
    EXPECT_EQ(windowHandle(&driver.host()), windowHandle(&driver.host()));
    EXPECT_EQ(windowHandle(nullptr), 0);
}

TEST_F(QtPlatformTest, TextsOfAnyLengthKeepBoxesAndToolTipsSmall)
{
    struct Row {
        const char *name, *piece;
    };
    const Row rows[] = {{"one word", "x"}, {"words", "word "}, {"lines", "x\n"}, {"pairs", "\xF0\x9D\x84\x9E"}};
    forEachRow(rows, [&](const Row& row) {
        const std::string text = QString::fromUtf8(row.piece).repeated(200'000).toStdString();
        whenModal([](QWidget& window) {
            EXPECT_LT(window.height(), 750);
            EXPECT_LT(window.width(), 1200);
            EXPECT_TRUE(dynamic_cast<QMessageBox&>(window).text().isValidUtf16());
            EXPECT_EQ(window.windowHandle()->title(), QStringLiteral("a[*]b"));
            window.close();
        });
        driver.platform().messageBox().show({.text = text, .title = "a[*]b"});
        surface->control<ui::TextBox>("box").setText(text);
        QHelpEvent ask(QEvent::ToolTip, {1, 1}, {1, 1});
        QApplication::sendEvent(&driver.widget("box"), &ask);
        EXPECT_LT(QToolTip::text().size(), 2000);
    });
}

TEST_F(QtPlatformTest, AnAmountStandsAtTheRightEdgeInEveryScript)
{
    const char* const amounts[] = {"5", "\u200F5", "\u061C5", "\u0665"};
    forEachRow(amounts, [&](const char* amount) {
        surface->control<ui::TextBox>("box").setText(amount);
        const QImage image = driver.widget("box").grab().toImage();
        const int border = 4, middle = image.width() / 2;
        const QRgb ground = image.pixel(middle, image.height() / 2);
        const auto isInked = [&](int from, int to) {
            bool inked = false;
            for (int x = from; x < to; ++x) {
                for (int y = border; y < image.height() - border; ++y) {
                    inked = inked || image.pixel(x, y) != ground;
                }
            }
            return inked;
        };
        EXPECT_FALSE(isInked(border, middle));
        EXPECT_TRUE(isInked(middle, image.width() - border));
    });
}

TEST_F(QtPlatformTest, AnErrorThatNobodyTookIsShownOnce)
{
    auto& button = surface->control<ui::Button>("button");
    button.onClick = [] { throw RuntimeError(9); };
    driver.platform().onUnhandledError = showError;
    int boxes = 0;
    whenModal([&](QWidget& window) {
        ++boxes;
        EXPECT_EQ(dynamic_cast<QMessageBox&>(window).text(), QStringLiteral("Error 9: Subscript out of range"));
        driver.platform().dispatch([] { throw RuntimeError(5); }); // while the first is being shown
        EXPECT_EQ(QApplication::activeModalWidget(), &window);
        window.close();
    });
    driver.click(button);
    EXPECT_EQ(boxes, 1);
}

} // namespace
} // namespace orvan::contract

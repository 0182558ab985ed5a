// How the list view uses its space, fits its fonts, mirrors, and follows a host's style sheet.
#include "orvan/hosting/ProductViewWidget.h"
#include "orvan/hosting/QtHost.h"
#include "orvan/ui/qt/Colours.h"
#include "tests/support/QtEnvironment.h"
#include "tests/support/Rows.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStyle>
#include <QTableView>
#include <QTest>

#include <algorithm>

namespace orvan::test {
namespace {

constexpr int kName = 1;
constexpr int kQty = 2;
constexpr int kPrice = 3;
constexpr const char* kList = "2~Espresso machine, two groups, with a frother and a grinder::A1:4645.5:1:0:4645.5:~"
                              "Cups::B2:12345678.25:42.5:0:524691325.63:~";

/// The greatest contrast of a picture to the colour of its corner.
double contrastIn(const QImage& image)
{
    double most = 1;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            most = std::max(most, qt::contrast(image.pixelColor(x, y), image.pixelColor(1, 1)));
        }
    }
    return most;
}

class ListLookTest : public testing::Test {
protected:
    ListLookTest() { make(); }
    ~ListLookTest() override { QApplication::setFont(font_); }

    /// A new view, as after a start of the program.
    void make()
    {
        view = std::make_unique<ProductViewWidget>();
        view->setHostTypeName(formName_);
        view->Show(kList);
        resize(view->sizeHint().width() * 2);
    }
    void resize(int width)
    {
        view->resize(width, view->sizeHint().height() * 2);
        view->show();
        QCoreApplication::processEvents();
    }
    void useFont(int points)
    {
        QFont font = font_;
        font.setPointSize(points);
        QApplication::setFont(font);
        QCoreApplication::processEvents();
    }
    void storeWidths(const std::string& widths)
    {
        qtHost().platform().settings().set(kApplication, kSection, key(), "4~1~" + widths);
        make();
    }
    [[nodiscard]] QStringList storedWidths() const
    {
        const std::string stored = qtHost().platform().settings().get(kApplication, kSection, key());
        return QString::fromStdString(stored).section(u'~', 2).split(u'^');
    }
    [[nodiscard]] QTableView& table() const { return *view->findChild<QTableView*>(); }
    [[nodiscard]] QHeaderView& header() const { return *table().horizontalHeader(); }
    template <class T>
    [[nodiscard]] T& child(const char* name) const
    {
        return *view->findChild<T*>(QString::fromLatin1(name));
    }
    [[nodiscard]] QRect place(const char* name) const
    {
        const auto& widget = child<QWidget>(name);
        return {widget.mapTo(view.get(), QPoint()), widget.size()};
    }
    [[nodiscard]] QPoint edgeOf(int column) const
    {
        const int end = view->isRightToLeft() ? 0 : header().sectionSize(column) - 1;
        return {header().sectionViewportPosition(column) + end, header().height() / 2};
    }
    void dragEdge(int column, int by) const
    {
        const QPoint from = edgeOf(column);
        const QPoint to = from + QPoint(by, 0);
        QWidget* const area = header().viewport();
        QTest::mousePress(area, Qt::LeftButton, {}, from);
        for (const QPoint at : {(from + to) / 2, to}) {
            QMouseEvent move(QEvent::MouseMove, at, area->mapToGlobal(QPointF(at)), Qt::NoButton, Qt::LeftButton, {});
            QApplication::sendEvent(area, &move);
        }
        QTest::mouseRelease(area, Qt::LeftButton, {}, to);
        QCoreApplication::processEvents();
    }
    void doubleClickEdge(int column) const
    {
        QTest::mouseClick(header().viewport(), Qt::LeftButton, {}, edgeOf(column));
        QTest::mouseDClick(header().viewport(), Qt::LeftButton, {}, edgeOf(column));
        QTest::mouseRelease(header().viewport(), Qt::LeftButton, {}, edgeOf(column));
        QCoreApplication::processEvents();
    }
    /// The texts of the column that end in an ellipsis, header included: those have a tool tip with the whole text.
    [[nodiscard]] QStringList cutTexts(int column) const
    {
        const auto& model = *table().model();
        QStringList cut;
        for (int row = 0; row < model.rowCount(); ++row) {
            cut << model.index(row, column).data(Qt::ToolTipRole).toString();
        }
        const QString caption = model.headerData(column, Qt::Horizontal).toString();
        cut << (model.headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString().startsWith(caption) ? caption
                                                                                                         : QString());
        cut.removeAll(QString());
        return cut;
    }
    [[nodiscard]] bool fills() const { return header().length() == table().viewport()->width(); }

    std::unique_ptr<ProductViewWidget> view;

private:
    [[nodiscard]] std::string key() const { return "ViewSettings_" + formName_.toStdString(); }

    static constexpr const char* kApplication = "Orvan";
    static constexpr const char* kSection = "KTVOrvanProduct_ProductView_Prefs";
    const QFont font_ = QApplication::font();
    /// Gives each test preferences of its own.
    const QString formName_ = QString::fromLatin1(testing::UnitTest::GetInstance()->current_test_info()->name());
};

TEST_F(ListLookTest, TheNameTakesFreeWidthAndGivesItBack)
{
    storeWidths("600^7500^1500^2250");
    const auto width = [&] { return table().columnWidth(kName); };
    const int wide = width();
    EXPECT_TRUE(fills());
    EXPECT_GT(wide, 7500 / 15);
    resize(view->width() + 100);
    EXPECT_EQ(width(), wide + 100);
    EXPECT_TRUE(fills());
    resize(view->sizeHint().width());
    EXPECT_LT(width(), 7500 / 15);
    EXPECT_TRUE(fills()) << "all columns are in sight";
    EXPECT_EQ(storedWidths(), QStringLiteral("600^7500^1500^2250").split(u'^')) << "nothing of this is kept";
    dragEdge(kQty, 15);
    EXPECT_EQ(storedWidths().value(kName), QStringLiteral("7500")) << "nor by a drag of another column";
    dragEdge(kName, 200);
    EXPECT_GT(header().length(), table().viewport()->width()) << "the user may want to scroll";
    resize(view->width() - 1);
    EXPECT_TRUE(fills());
}

TEST_F(ListLookTest, ADragKeepsWhatTheUserSees)
{
    struct Row {
        const char* name;
        int column, by;
    };
    const Row rows[] = {
        {"the stretched name narrower", kName, -100},
        {"the stretched name wider", kName, 60},
        {"an amount wider", kPrice, 40},
        {"an amount narrower than its texts", kPrice, -500},
        {"the quantity narrower", kQty, -10},
    };
    forEachRow(rows, [&](const Row& row) {
        storeWidths("250^960^1500^2250");
        QStringList stored = storedWidths();
        const int before = table().columnWidth(row.column);
        dragEdge(row.column, row.by);
        const int seen = table().columnWidth(row.column);
        EXPECT_TRUE(cutTexts(kQty).isEmpty() && cutTexts(kPrice).isEmpty()) << "amounts stay whole";
        if (row.by > -500) {
            EXPECT_EQ(seen, before + row.by);
        }
        while (stored.size() < storedWidths().size()) {
            stored << QStringLiteral("960"); // columns of which nothing was stored
        }
        stored[row.column] = QString::number(seen * 15);
        EXPECT_EQ(storedWidths(), stored) << "its own width alone";
    });
}

TEST_F(ListLookTest, ADoubleClickOnAnEdgeShowsEveryTextWhole)
{
    std::string products = "60~";
    for (int i = 1; i < 60; ++i) {
        products += "Cup::B:1:1:0:1:~";
    }
    view->Show(products + std::string(90, 'W') + "::A:1:1:0:1234567.5:~"); // far below what is in sight
    for (const int column : {kQty, kPrice, kName}) {
        doubleClickEdge(column);
        EXPECT_EQ(cutTexts(column), QStringList()) << column;
        EXPECT_EQ(storedWidths().value(column).toInt(), table().columnWidth(column) * 15) << column;
    }
    view->Show(kList);
    const int longest = table().columnWidth(kName);
    doubleClickEdge(kName);
    EXPECT_LT(table().columnWidth(kName), longest) << "narrower, too, even where there is space";
    EXPECT_FALSE(fills());
}

TEST_F(ListLookTest, AmountsAndTheirHeadersAreWholeInEveryFontAndWidth)
{
    for (const int points : {6, 10, 20, 32}) {
        useFont(points);
        for (const char* widths : {"0^0^0^0", "250^960^700^700"}) {
            storeWidths(widths);
            for (const int width : {0, view->sizeHint().width(), 1500}) {
                SCOPED_TRACE(testing::Message() << points << " pt, " << widths << ", " << width);
                resize(width);
                for (const int column : {0, kQty, kPrice}) {
                    EXPECT_EQ(cutTexts(column), QStringList()) << column;
                }
            }
        }
    }
    useFont(40);
    EXPECT_EQ(cutTexts(kPrice), QStringList()) << "after a change of the font";
}

TEST_F(ListLookTest, TheBandFitsItsFontsAndItsTotal)
{
    for (const int points : {10, 20, 32}) {
        SCOPED_TRACE(points);
        useFont(points);
        make();
        resize(0); // as narrow as a layout makes it
        view->resize(view->minimumSizeHint());
        QCoreApplication::processEvents();
        const auto& total = child<QLineEdit>("txtTotal");
        EXPECT_EQ(total.text(), QStringLiteral("$524,695,971.13"));
        const QStyle& style = *total.style();
        EXPECT_GT(total.width(), total.fontMetrics().horizontalAdvance(total.text()) +
                                     2 * style.pixelMetric(QStyle::PM_DefaultFrameWidth));
        EXPECT_GE(total.height(), total.fontMetrics().height());
        const auto& label = child<QLabel>("lblTotal");
        EXPECT_GE(label.width(), label.sizeHint().width());
        QRegion taken;
        for (const char* name :
             {"flexGrid", "lblTotal", "txtTotal", "cmdNew", "cmdDelete", "cmdMoveUp", "cmdMoveDown"}) {
            EXPECT_TRUE(view->rect().contains(place(name))) << name;
            EXPECT_FALSE(taken.intersects(place(name))) << name;
            taken += place(name);
        }
        EXPECT_GE(child<QPushButton>("cmdNew").iconSize().height(), view->fontMetrics().height());
        EXPECT_GE(table().viewport()->height(), table().rowHeight(0));
    }
    const int before = child<QLineEdit>("txtTotal").width();
    view->Show("1~n::p:1:1:0:922337203685477:~");
    EXPECT_GT(child<QLineEdit>("txtTotal").width(), before) << "as the total grows";
}

TEST_F(ListLookTest, FromRightToLeftEverythingIsMirrored)
{
    constexpr const char* kWidgets[] = {"flexGrid", "lblTotal", "txtTotal", "cmdNew", "cmdDelete", "cmdMoveDown"};
    std::vector<QRect> expected;
    for (const char* name : kWidgets) {
        QRect mirrored = place(name);
        mirrored.moveLeft(view->width() - mirrored.x() - mirrored.width());
        expected.push_back(mirrored);
    }
    view->setLayoutDirection(Qt::RightToLeft);
    for (std::size_t i = 0; i < std::size(kWidgets); ++i) {
        EXPECT_EQ(place(kWidgets[i]), expected[i]) << kWidgets[i];
    }
    resize(view->width() + 90);
    EXPECT_EQ(place("fraBottomLeft").right(), view->width() - 1);
    EXPECT_EQ(place("fraBottomRight").left(), 0);
    EXPECT_GT(header().sectionViewportPosition(kName), header().sectionViewportPosition(kPrice));
    EXPECT_TRUE(fills());
    dragEdge(kQty, -30);
    EXPECT_EQ(storedWidths().value(kQty).toInt(), table().columnWidth(kQty) * 15);
}

TEST_F(ListLookTest, TheFocusOfTheWidgetIsTheGrids)
{
    child<QPushButton>("cmdNew").setFocus();
    view->activateWindow();
    view->setFocus();
    EXPECT_EQ(view->window()->focusWidget(), &table());
}

TEST_F(ListLookTest, TheHeadersOfTheChosenColumnsOpenTheirMenus)
{
    for (const int column : {0, kName, kQty, kPrice}) {
        const bool chosen = column >= kQty;
        const QPoint middle(header().sectionViewportPosition(column) + header().sectionSize(column) / 2, 5);
        EXPECT_EQ(table().model()->headerData(column, Qt::Horizontal, Qt::ToolTipRole).isValid(), chosen) << column;
        QTest::mouseClick(header().viewport(), Qt::LeftButton, {}, middle);
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_EQ(menu != nullptr, chosen) << column;
        if (menu) {
            menu->close();
        }
    }
    dragEdge(kQty, 20);
    QTest::mouseClick(header().viewport(), Qt::LeftButton, {}, edgeOf(kQty));
    EXPECT_FALSE(QApplication::activePopupWidget()) << "an edge is for dragging";
}

TEST_F(ListLookTest, StyleSheetsOfTheHostColourHeaderAndLines)
{
    const auto has = [](const QImage& image, QRgb colour) {
        for (int y = 0; y < image.height(); ++y) {
            const auto* const line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
            if (std::find(line, line + image.width(), colour) != line + image.width()) {
                return true;
            }
        }
        return false;
    };
    child<QPushButton>("cmdNew").setFocus(); // the ring of the focus would cover the border
    const QRgb section = QColor(0x12, 0xab, 0x34).rgb();
    const QRgb line = QColor(0xcd, 0x12, 0x9a).rgb();
    const QRgb border = QColor(0x1f, 0x3d, 0xe5).rgb();
    struct Row {
        const char* sheet;
        bool section, line, border;
    };
    const Row rows[] = {
        {"QPushButton { border: 2px solid #1f3de5 }", false, false, false},
        {"QHeaderView::section { background-color: #12ab34; border: none }", true, false, false},
        {"QTableView { gridline-color: #cd129a }", false, true, false},
        {"QTableView { border: 2px solid #1f3de5 }", false, false, true},
        {"", false, false, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.sheet);
        view->setStyleSheet(QString::fromLatin1(row.sheet));
        QCoreApplication::processEvents();
        EXPECT_EQ(has(header().grab().toImage(), section), row.section);
        EXPECT_EQ(has(table().viewport()->grab().toImage(), line), row.line);
        EXPECT_EQ(has(table().grab().toImage(), border), row.border);
    }
}

TEST_F(ListLookTest, EdgesAndTextsAreSeenInLightAndDark)
{
    struct Row {
        const char* name;
        QColor window, base, text, highlight, highlightedText;
    };
    const Row rows[] = {
        {"light", "#efefef", "#ffffff", "#000000", "#308cc6", "#ffffff"},
        {"dark", "#353535", "#232323", "#ffffff", "#2a82da", "#000000"},
        {"pale", "#ffffff", "#ffffff", "#404040", "#cfe0ff", "#404040"},
    };
    forEachRow(rows, [&](const Row& row) {
        QPalette palette(row.window);
        palette.setColor(QPalette::Base, row.base);
        palette.setColor(QPalette::Text, row.text);
        palette.setColor(QPalette::Highlight, row.highlight);
        palette.setColor(QPalette::HighlightedText, row.highlightedText);
        view->setPalette(palette);
        view->activateWindow();
        for (const bool focused : {false, true}) {
            focused ? view->setFocus() : child<QPushButton>("cmdNew").setFocus();
            ASSERT_TRUE(!focused || QTest::qWaitFor([&] { return table().hasFocus(); }));
            const QImage image = table().grab().toImage();
            const int right = image.width() - 1, bottom = image.height() - 1;
            for (const QPoint at :
                 {QPoint(0, bottom / 2), QPoint(right, bottom / 2), QPoint(right / 2, 0), QPoint(right / 2, bottom)}) {
                EXPECT_GE(qt::contrast(image.pixelColor(at), row.window), 3) << at.x() << ' ' << at.y();
                EXPECT_GE(qt::contrast(image.pixelColor(at), row.base), 3) << at.x() << ' ' << at.y();
            }
        }
        view->setCurrentProduct(2);
        const QImage selected =
            table().viewport()->grab(table().visualRect(table().model()->index(1, kName))).toImage();
        EXPECT_GE(contrastIn(selected), 4.4) << "the text of the selected row"; // rounded to eight bits
    });
}

TEST_F(ListLookTest, AnEmptyListSaysHowToBegin)
{
    const QImage filled = table().viewport()->grab().toImage();
    EXPECT_EQ(table().accessibleDescription(), QString());
    view->Show("");
    EXPECT_TRUE(table().accessibleDescription().startsWith(QStringLiteral("No products yet.")));
    const QImage empty = table().viewport()->grab().toImage();
    EXPECT_GE(contrastIn(empty), 4.4) << "painted, and readable";
    view->Show(kList);
    EXPECT_EQ(table().viewport()->grab().toImage(), filled);
}

} // namespace
} // namespace orvan::test

// QtDriver: the Qt platform under the contract, driven with the events of mouse and keyboard.
#pragma once

#include "orvan/base/Text.h"
#include "orvan/ui/qt/QtPlatform.h"
#include "orvan/ui/qt/QtSettingsStore.h"
#include "orvan/ui/qt/QtSurface.h"
#include "orvan/ui/qt/SurfaceWidgets.h"
#include "orvan/ui/qt/WindowHandles.h"
#include "tests/contract/ContractDriver.h"
#include "tests/support/QtEnvironment.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QMenu>
#include <QMessageBox>
#include <QTableView>
#include <QTest>

#include <chrono>

namespace orvan::contract {

using test::whenModal;

inline QString qString(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

class QtDriver final : public Driver {
public:
    ui::Platform& platform() override { return platform_; }
    std::unique_ptr<ui::Surface> load(const ui::FormDesign& design) override
    {
        hosts_.push_back(std::make_unique<QWidget>());
        host().resize(400, 240);
        auto surface = std::make_unique<qt::QtSurface>(design, platform_, &host());
        host().show();
        host().activateWindow();
        QApplication::processEvents();
        return surface;
    }
    void resize(ui::Surface& /*surface*/, int widthTwips, int heightTwips) override
    {
        host().resize(widthTwips / 15, heightTwips / 15);
        QApplication::processEvents();
    }
    void click(ui::Button& button) override
    {
        QTest::mouseClick(qt::widgetOf(button), Qt::LeftButton);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void dragColumn(ui::Grid& grid, std::int32_t column, std::int32_t twips) override
    {
        QHeaderView& header = *viewOf(grid).horizontalHeader();
        const int edge = header.sectionViewportPosition(column) + header.sectionSize(column) - 1;
        const int way = twips / 15 - header.sectionSize(column);
        const int middle = header.height() / 2;
        QTest::mousePress(header.viewport(), Qt::LeftButton, {}, {edge, middle});
        for (const int step : {way / 2, way + 20, way}) {
            const QPointF to(edge + step, middle);
            QMouseEvent move(QEvent::MouseMove, to, header.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                             {});
            QApplication::sendEvent(header.viewport(), &move);
        }
        QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, {edge + way, middle});
    }
    void chooseRow(ui::Grid& grid, std::int32_t row, ui::RowChoice choice = ui::RowChoice::only) override
    {
        const Qt::KeyboardModifiers held = choice == ui::RowChoice::upTo     ? Qt::ShiftModifier
                                           : choice == ui::RowChoice::toggle ? Qt::ControlModifier
                                                                             : Qt::NoModifier;
        QTest::mouseClick(viewOf(grid).viewport(), Qt::LeftButton, held, middleOf(grid, row));
    }
    void dragRows(ui::Grid& grid, std::int32_t from, std::int32_t before) override
    {
        QTableView& view = viewOf(grid);
        const QPoint start = middleOf(grid, from);
        const bool atEnd = before == grid.rowCount();
        QPoint end = middleOf(grid, atEnd ? before - 1 : before);
        end.ry() += (atEnd ? 1 : -1) * view.rowHeight(0) / 3;
        QTest::mousePress(view.viewport(), Qt::LeftButton, {}, start);
        for (const QPoint to : {(start + end) / 2, end}) {
            QMouseEvent move(QEvent::MouseMove, to, view.viewport()->mapToGlobal(QPointF(to)), Qt::NoButton,
                             Qt::LeftButton, {});
            QApplication::sendEvent(view.viewport(), &move);
        }
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, end);
    }
    void pressKey(ui::Control& control, std::string_view key) override
    {
        const QKeySequence sequence(qString(key));
        const auto combined = sequence[0];
        QWidget* widget = qt::widgetOf(control);
        const bool typed = key.size() == 1;
        typed ? QTest::keyClicks(widget, qString(key))
              : QTest::keyClick(widget, combined.key(), combined.keyboardModifiers());
    }
    std::vector<std::int32_t> selectedRows(ui::Grid& grid) override
    {
        std::vector<std::int32_t> rows;
        for (const QModelIndex& row : viewOf(grid).selectionModel()->selectedRows()) {
            rows.push_back(row.row() + grid.fixedRows());
        }
        std::sort(rows.begin(), rows.end());
        return rows;
    }
    void doubleClick(ui::Grid& grid, std::int32_t row) override
    {
        const auto [place, at] = placeOf(grid, row, 0);
        QTest::mouseClick(place, Qt::LeftButton, {}, at);
        QTest::mouseDClick(place, Qt::LeftButton, {}, at);
    }
    void rightClick(ui::Grid& grid, std::int32_t row, std::int32_t column) override
    {
        const auto [place, at] = placeOf(grid, row, column);
        // The press goes to the window, as from a window system: Qt then makes the event that asks for a menu.
        QWidget* window = place->window();
        QTest::mouseClick(window->windowHandle(), Qt::RightButton, {}, place->mapTo(window, at));
    }
    void choose(ui::PopupMenu& menu, std::string_view tool) override
    {
        QMenu& shown = menuOf(menu);
        if (auto* action = shown.findChild<QAction*>(qString(tool)); action && !tool.empty()) {
            QTest::mouseClick(&shown, Qt::LeftButton, {}, shown.actionGeometry(action).center());
        } else {
            QTest::keyClick(&shown, Qt::Key_Escape);
        }
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    bool isUp(ui::PopupMenu& menu) override { return QApplication::activePopupWidget() == &menuOf(menu); }
    std::vector<std::string> shown(ui::Grid& grid, std::int32_t row) override
    {
        QTableView& view = viewOf(grid);
        std::vector<std::string> texts;
        for (int column = 0; column < view.model()->columnCount(); ++column) {
            if (!view.isColumnHidden(column)) {
                const QVariant text = row < grid.fixedRows()
                                          ? view.model()->headerData(column, Qt::Horizontal)
                                          : view.model()->index(row - grid.fixedRows(), column).data();
                texts.push_back(text.toString().toStdString());
            }
        }
        return texts;
    }
    void answer(ui::MessageResult result, std::function<void()> meanwhile) override
    {
        whenModal([result, meanwhile = std::move(meanwhile)](QWidget& window) {
            meanwhile();
            const auto button = result == ui::MessageResult::yes      ? QMessageBox::Yes
                                : result == ui::MessageResult::no     ? QMessageBox::No
                                : result == ui::MessageResult::cancel ? QMessageBox::Cancel
                                                                      : QMessageBox::Ok;
            QTest::mouseClick(dynamic_cast<QMessageBox&>(window).button(button), Qt::LeftButton);
        });
    }

    void type(ui::TextEntry& box, std::string_view text) override
    {
        QWidget& widget = focus(box);
        for (; !text.empty(); text.remove_prefix(characterSize(text, 0))) {
            const std::string_view character = text.substr(0, characterSize(text, 0));
            const auto key = character == "\n"     ? Qt::Key_Return
                             : character == "\b"   ? Qt::Key_Backspace
                             : character == "\x7F" ? Qt::Key_Delete
                                                   : Qt::Key_unknown;
            if (key != Qt::Key_unknown) {
                QTest::keyClick(&widget, key);
            } else { // as a dead key, a keyboard of another script or AltGr makes it: text, no key of that name
                QTest::sendKeyEvent(QTest::Press, &widget, key, qString(character), {});
            }
        }
    }
    void pressControl(ui::TextEntry& box, char letter) override
    {
        QTest::keyClick(&focus(box), static_cast<Qt::Key>(letter), Qt::ControlModifier);
    }
    void pressKeypadDecimal(ui::TextEntry& box) override
    {
        QTest::keyClick(&focus(box), Qt::Key_Period, Qt::KeypadModifier);
    }
    void paste(ui::TextEntry& box, std::string_view text) override
    {
        QApplication::clipboard()->setText(qString(text));
        QTest::keyClick(&focus(box), Qt::Key_Insert, Qt::ShiftModifier);
    }
    void select(ui::TextEntry& box, std::int32_t start, std::int32_t length) override
    {
        QTest::keyClick(&focus(box), Qt::Key_Home, Qt::ControlModifier); // which only a note knows
        QTest::keyClick(&focus(box), Qt::Key_Home);
        for (std::int32_t step = 0; step < start + length; ++step) {
            QTest::keyClick(&focus(box), Qt::Key_Right, step < start ? Qt::NoModifier : Qt::ShiftModifier);
        }
    }
    void chooseRow(ui::ComboBox& box, std::int32_t row) override
    {
        auto& combo = dynamic_cast<QComboBox&>(focus(box));
        QTest::keyClick(&combo, Qt::Key_F4);
        QAbstractItemView& list = *combo.view();
        EXPECT_TRUE(list.isVisible());
        list.setCurrentIndex(list.model()->index(row, 0));
        QTest::keyClick(&list, Qt::Key_Return);
    }

    void whenShown(ui::Form& form, std::function<void()> user) override
    {
        shown_ = std::make_unique<QObject>();
        QTimer::singleShot(0, shown_.get(), [&form, user = std::move(user)] {
            awaitActive(form);
            user();
        });
    }
    void forgetShown() override { shown_.reset(); }
    void goTo(ui::Form& form, std::string_view box) override
    {
        awaitActive(form);
        QTest::mouseClick(qt::widgetOf(form.control<ui::Control>(box)), Qt::LeftButton);
    }
    void choose(ui::ToolBar& bar, std::string_view tool) override
    {
        if (auto* action = qt::widgetOf(bar)->findChild<QAction*>(qString(tool))) { // else a menu, which opens
            action->trigger();
        }
    }
    void pressEscape(ui::Form& form) override
    {
        QTest::keyClick(qt::windowOf(form.window())->focusWidget(), Qt::Key_Escape);
    }
    void clickCloseBox(ui::Form& form) override { qt::windowOf(form.window())->close(); }
    void wait(std::int64_t milliseconds) override { QTest::qWait(static_cast<int>(milliseconds)); }
    std::int64_t now() override
    {
        using namespace std::chrono;
        return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
    }

    /// The window of the surface that was loaded last.
    QWidget& host() { return *hosts_.back(); }
    template <class T = QWidget>
    T& widget(const char* name)
    {
        return *hosts_.back()->findChild<T*>(QString::fromLatin1(name));
    }
    QMenu& menuOf(ui::PopupMenu& menu) { return widget<QMenu>(menu.name().c_str()); }
    QTableView& table() { return widget<QTableView>("grid"); }
    void destroyHost() { hosts_.pop_back(); }
    std::string settingsPath() const { return folder_.filePath(QStringLiteral("new/settings.ini")).toStdString(); }
    /// Gives the focus to the box and returns its widget.
    static QWidget& focus(ui::TextEntry& box)
    {
        if (!box.hasFocus()) {
            box.setFocus();
        }
        return *qt::widgetOf(box);
    }

private:
    static QPoint middleOf(ui::Grid& grid, std::int32_t row)
    {
        QTableView& view = viewOf(grid);
        return view.visualRect(view.model()->index(row - grid.fixedRows(), 1)).center();
    }
    static QTableView& viewOf(ui::Grid& grid) { return dynamic_cast<QTableView&>(*qt::widgetOf(grid)); }
    /// Where a cell or header is clicked; -1: below all rows, beside all columns.
    static std::pair<QWidget*, QPoint> placeOf(ui::Grid& grid, std::int32_t row, std::int32_t column)
    {
        QTableView& view = viewOf(grid);
        const bool header = row >= 0 && row < grid.fixedRows();
        const int below = view.rowViewportPosition(view.model()->rowCount() - 1) + 2 * view.rowHeight(0);
        const int x = column < 0 ? view.horizontalHeader()->length() : view.columnViewportPosition(column);
        const int y = header ? 3 : row < 0 ? below : view.rowViewportPosition(row - grid.fixedRows());
        return {header ? view.horizontalHeader()->viewport() : view.viewport(), QPoint(x + 20, y + 2)};
    }
    /// A user acts only once the window is active. Off screen no window manager activates it, so it is asked for here.
    static void awaitActive(ui::Form& form)
    {
        QWidget* window = qt::windowOf(form.window());
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([window] { return QApplication::activeWindow() == window; }));
    }

    QTemporaryDir folder_;
    qt::QtPlatform platform_{locale, components, settingsPath()};
    std::vector<std::unique_ptr<QWidget>> hosts_;
    std::unique_ptr<QObject> shown_; ///< The timer of whenShown fires only while this exists.
};

/// What only the Qt platform can get wrong.
class QtTest : public testing::Test {
protected:
    QtTest()
    {
        showError = std::exchange(driver.platform().onUnhandledError,
                                  [](const RuntimeError& error) { ADD_FAILURE() << error.number() << error.text(); });
    }

    QtDriver driver;
    std::unique_ptr<ui::Surface> surface;
    std::function<void(const RuntimeError&)> showError; ///< The platform's own way.
};

} // namespace orvan::contract

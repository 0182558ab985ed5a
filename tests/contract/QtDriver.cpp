#include "QtDriver.h"

#include "ui/qt/QtControls.h"

#include <QHeaderView>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

namespace orvan::contract {
namespace {

QTableView& viewOf(ui::Grid& grid)
{
    return dynamic_cast<QTableView&>(*dynamic_cast<qt::QtWidgetHolder&>(grid).widget());
}

INSTANTIATE_TEST_SUITE_P(Qt, PlatformContract,
                         testing::Values([]() -> std::unique_ptr<Driver> { return std::make_unique<QtDriver>(); }));

} // namespace

std::unique_ptr<ui::Surface> QtDriver::load(const ui::FormDesign& design)
{
    hosts_.push_back(std::make_unique<QWidget>());
    host().resize(400, 240);
    auto surface = std::make_unique<qt::QtSurface>(design, platform_, &host());
    host().show();
    host().activateWindow();
    QApplication::processEvents();
    return surface;
}

void QtDriver::resize(ui::Surface& /*surface*/, int widthTwips, int heightTwips)
{
    host().resize(widthTwips / 15, heightTwips / 15);
    QApplication::processEvents();
}

void QtDriver::click(ui::Button& button)
{
    QTest::mouseClick(dynamic_cast<qt::QtWidgetHolder&>(button).widget(), Qt::LeftButton);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void QtDriver::dragColumn(ui::Grid& grid, std::int32_t column, std::int32_t twips)
{
    QHeaderView& header = *viewOf(grid).horizontalHeader();
    const int edge = header.sectionViewportPosition(column) + header.sectionSize(column) - 1;
    const int way = twips / 15 - header.sectionSize(column);
    const int middle = header.height() / 2;
    QTest::mousePress(header.viewport(), Qt::LeftButton, {}, {edge, middle});
    for (const int step : {way / 2, way + 20, way}) {
        const QPointF to(edge + step, middle);
        QMouseEvent move(QEvent::MouseMove, to, header.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(header.viewport(), &move);
    }
    QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, {edge + way, middle});
}

void QtDriver::chooseRow(ui::Grid& grid, std::int32_t row)
{
    QTableView& view = viewOf(grid);
    const QModelIndex index = view.model()->index(row - grid.fixedRows(), 1);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
}

std::vector<std::string> QtDriver::shown(ui::Grid& grid, std::int32_t row)
{
    QTableView& view = viewOf(grid);
    std::vector<std::string> texts;
    for (int column = 0; column < view.model()->columnCount(); ++column) {
        if (!view.isColumnHidden(column)) {
            const QVariant text = row < grid.fixedRows() ? view.model()->headerData(column, Qt::Horizontal)
                                                         : view.model()->index(row - grid.fixedRows(), column).data();
            texts.push_back(text.toString().toStdString());
        }
    }
    return texts;
}

void QtDriver::answer(ui::MessageResult result)
{
    whenModal([result](QWidget& window) {
        const auto button = result == ui::MessageResult::yes      ? QMessageBox::Yes
                            : result == ui::MessageResult::no     ? QMessageBox::No
                            : result == ui::MessageResult::cancel ? QMessageBox::Cancel
                                                                  : QMessageBox::Ok;
        QTest::mouseClick(dynamic_cast<QMessageBox&>(window).button(button), Qt::LeftButton);
    });
}

} // namespace orvan::contract

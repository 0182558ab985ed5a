// A and B: the list in its window. A reads the products string and fills the grid; B paints the grid.

#include "benchmarks/Allocations.h"
#include "benchmarks/Comparison.h"
#include "benchmarks/Samples.h"
#include "benchmarks/Subjects.h"
#include "benchmarks/Table.h"
#include "benchmarks/Windows.h"
#include "orvan/hosting/ProductViewWidget.h"

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QLocale>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTableWidget>

#include <cmath>
#include <memory>
#include <stdexcept>
#include <vector>

namespace orvan::bench {

namespace {

constexpr QSize kWindow(900, 700);

template <class Widget>
void showEmpty(Widget& widget)
{
    widget.resize(kWindow);
    widget.show();
    QApplication::processEvents();
}

std::unique_ptr<ProductViewWidget> listView()
{
    auto view = std::make_unique<ProductViewWidget>(windowHost().platform());
    view->setHostTypeName(QStringLiteral("bench"));
    showEmpty(*view);
    return view;
}

// --- A ----------------------------------------------------------------------------------------------

/// A parsed product as a host that uses Qt would hold it; the cells share the memory of its texts.
struct QtProduct {
    QString name, key, partNum, note;
    double unitPrice, qty, discPrcnt, extPrice;
};

std::vector<QtProduct> qtProducts(std::size_t count)
{
    std::vector<QtProduct> products;
    products.reserve(count);
    for (const ProductValues& fields : sampleProducts(count)) {
        // The extended price is rounded to two decimals.
        products.push_back({QString::fromStdString(fields.name), QString::fromStdString(fields.key),
                            QString::fromStdString(fields.partNum), QString::fromStdString(fields.note),
                            fields.unitPrice.toDouble(), fields.qty.toDouble(), fields.discPrcnt.toDouble(),
                            std::round(static_cast<double>(fields.extPrice.scaled()) / 100) / 100});
    }
    return products;
}

/// Aligns amounts at the right edge, so that the items need not store an alignment.
class AlignedByColumn final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const bool text = index.column() >= 1 && index.column() <= 4;
        option->displayAlignment = (text ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter;
    }
};

/// The nine columns of the list view's grid, four of which are shown.
constexpr const char* kColumns[] = {"#", "Product", "Key", "Part#", "Note", "Disc%", "Unit Price", "Qty", "Ext Price"};
constexpr int kHidden[] = {2, 3, 4, 5, 6};

std::unique_ptr<QTableWidget> table()
{
    auto widget = std::make_unique<QTableWidget>(0, static_cast<int>(std::size(kColumns)));
    QStringList heads;
    for (const char* head : kColumns) {
        heads << QString::fromLatin1(head);
    }
    widget->setHorizontalHeaderLabels(heads);
    widget->setItemDelegate(new AlignedByColumn(widget.get()));
    widget->verticalHeader()->hide();
    widget->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    widget->setSelectionBehavior(QAbstractItemView::SelectRows);
    widget->setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (const int column : kHidden) {
        widget->setColumnHidden(column, true);
    }
    showEmpty(*widget);
    return widget;
}

void fill(QTableWidget& widget, const std::vector<QtProduct>& products)
{
    const QLocale locale(QLocale::English, QLocale::UnitedStates);
    const auto money = [&](double amount) { return u'$' + locale.toString(amount, 'f', 2); };
    const auto number = [&](double amount) { return QString::number(amount, 'g', 15); };
    widget.setUpdatesEnabled(false);
    widget.setRowCount(static_cast<int>(products.size()));
    for (int row = 0; const QtProduct& product : products) {
        int column = 0;
        for (const QString& text :
             {QString::number(row + 1), product.name, product.key, product.partNum, product.note,
              number(product.discPrcnt), money(product.unitPrice), number(product.qty), money(product.extPrice)}) {
            widget.setItem(row, column++, new QTableWidgetItem(text));
        }
        ++row;
    }
    widget.setUpdatesEnabled(true);
}

Side show(std::size_t products)
{
    const std::string text = productsString(sampleProducts(products));
    return timed(
        "",
        [text](benchmark::State& state) {
            for ([[maybe_unused]] auto _ : state) {
                const auto view = listView();
                timePart(state, [&] { view->Show(text); });
            }
        },
        Timing::parts);
}

Side tableFilled(std::size_t products)
{
    return timed(
        "QTableWidget",
        [records = qtProducts(products)](benchmark::State& state) {
            for ([[maybe_unused]] auto _ : state) {
                const auto widget = table();
                timePart(state, [&] { fill(*widget, records); });
            }
        },
        Timing::parts);
}

/// Throws unless the list view and the table have as many rows and show the same texts in a sample of the rows.
void requireSameCells(std::size_t products)
{
    const auto view = listView();
    view->Show(productsString(sampleProducts(products)));
    const auto* const grid = view->findChild<QTableView*>();
    const auto widget = table();
    fill(*widget, qtProducts(products));
    const auto shown = [](const QTableView& each, int row) {
        QStringList texts;
        for (int place = 0; place < each.model()->columnCount(); ++place) {
            const int column = each.horizontalHeader()->logicalIndex(place);
            if (!each.isColumnHidden(column)) {
                texts << each.model()->index(row, column).data().toString();
            }
        }
        return texts.join(u'|').toStdString();
    };
    requireSame(grid->model()->rowCount(), widget->rowCount(), "rows");
    for (int row = 0; row < widget->rowCount(); row += widget->rowCount() / 100) {
        requireSame(shown(*grid, row), shown(*widget, row), "a row's texts");
    }
}

Sides showBesideTable(std::size_t products)
{
    requireSameCells(1'000);
    return {show(products), tableFilled(products)};
}

/// The number of bytes of the heap that the result of `make` needs.
template <class Make>
double heapOf(Make&& make)
{
    const std::size_t before = heapInUse();
    [[maybe_unused]] const auto made = make();
    return static_cast<double>(heapInUse() - before);
}

/// The heap that a filled list view needs in addition to the manager's records.
Side heapOfView(std::size_t products)
{
    return {"", [text = productsString(sampleProducts(products))] {
                const double records = heapOf([&] {
                    auto manager = ui::createComponent<ProductMgr>(windowHost().components(), kProductMgrClassName);
                    manager->SetProductsString(text, kRecordSeparator, kFieldSeparator, false);
                    return manager;
                });
                const auto view = listView();
                return heapOf([&] {
                           view->Show(text);
                           return 0;
                       }) -
                       records;
            }};
}

Side heapOfTable(std::size_t products)
{
    return {"QTableWidget", [records = qtProducts(products)] {
                const auto widget = table();
                return heapOf([&] {
                    fill(*widget, records);
                    return 0;
                });
            }};
}

// --- B ----------------------------------------------------------------------------------------------

/// The grid of a list view, and an image of the same size to paint it into.
struct Painted {
    std::unique_ptr<ProductViewWidget> view = listView();
    QTableView& grid = *view->findChild<QTableView*>();
    QImage image{grid.size(), QImage::Format_ARGB32_Premultiplied};

    void paint() { grid.render(&image); }
};

Side firstPaint(const std::string& name, std::size_t products)
{
    const std::string text = productsString(sampleProducts(products));
    return timed(
        name,
        [text](benchmark::State& state) {
            for ([[maybe_unused]] auto _ : state) {
                Painted painted;
                painted.view->Show(text);
                timePart(state, [&] { painted.paint(); });
            }
        },
        Timing::parts);
}

Side repaint(const std::string& name, std::size_t products)
{
    const auto painted = std::make_shared<Painted>();
    painted->view->Show(productsString(sampleProducts(products)));
    return timed(name, [painted](benchmark::State& state) {
        for ([[maybe_unused]] auto _ : state) {
            painted->paint();
        }
    });
}

struct PlacedText {
    QRect place;
    int alignment;
    QString text;
};

/// The texts of the cells and headers that the grid shows.
std::vector<PlacedText> shownTexts(const QTableView& grid)
{
    std::vector<PlacedText> texts;
    const auto add = [&](const QRect& place, const QVariant& text, const QVariant& alignment) {
        texts.push_back(
            {place, static_cast<int>(alignment.value<Qt::Alignment>().toInt()) | Qt::TextSingleLine, text.toString()});
    };
    const QAbstractItemModel& model = *grid.model();
    const QPoint cells = grid.viewport()->pos();
    for (int column = 0; column < model.columnCount(); ++column) {
        if (grid.isColumnHidden(column)) {
            continue;
        }
        const QRect head(grid.columnViewportPosition(column) + cells.x(), 0, grid.columnWidth(column), cells.y());
        add(head, model.headerData(column, Qt::Horizontal),
            model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole));
        for (int row = 0; row < model.rowCount(); ++row) {
            const QModelIndex index = model.index(row, column);
            const QRect place = grid.visualRect(index).translated(cells);
            if (place.top() > grid.height()) {
                break;
            }
            add(place, index.data(), index.data(Qt::TextAlignmentRole));
        }
    }
    return texts;
}

Sides repaintBesideBareTexts(std::size_t products)
{
    Painted painted;
    painted.view->Show(productsString(sampleProducts(products)));
    const auto texts = std::make_shared<std::vector<PlacedText>>(shownTexts(painted.grid));
    if (texts->size() < 80) {
        throw std::runtime_error("the window shows less than twenty rows");
    }
    const auto image = std::make_shared<QImage>(painted.image);
    return {repaint("", products), timed("texts bare", [=, font = painted.grid.font()](benchmark::State& state) {
                for ([[maybe_unused]] auto _ : state) {
                    QPainter painter(image.get());
                    painter.setFont(font);
                    for (const PlacedText& each : *texts) {
                        painter.drawText(each.place, each.alignment, each.text);
                    }
                }
            })};
}

} // namespace

void addQtGrid(Suite& suite)
{
    for (const std::size_t products : {10'000U, 100'000U}) {
        suite.add(Row{"A Show in the window, " + groupedNumber(products), atLeastTimesFaster(8),
                      [=] { return showBesideTable(products); }, Unit::nanoseconds, 5});
    }
    suite.add(Row{"A heap beyond the records, 100,000", atMostTimes(0.25),
                  [] {
                      return Sides{heapOfView(100'000), heapOfTable(100'000)};
                  },
                  Unit::bytes, 1});
    suite.add(Row{"B first paint, 100,000 beside 1,000", atMostTimes(1.3),
                  [] {
                      return Sides{firstPaint("", 100'000), firstPaint("1,000", 1'000)};
                  },
                  Unit::nanoseconds, 5});
    suite.add(Row{"B repaint, 100,000 beside 1,000", atMostTimes(1.3), [] {
                      return Sides{repaint("", 100'000), repaint("1,000", 1'000)};
                  }});
    suite.add(
        Row{"B repaint beside its texts, 100,000", atMostTimes(4.5), [] { return repaintBesideBareTexts(100'000); }});
    suite.add(Growth{"A Show in the window", show});
    suite.add(Growth{"A heap beyond the records", heapOfView, {1'000, 10'000, 100'000}, Unit::bytes, 1});
    suite.add(Growth{"B first paint", [](std::size_t size) { return firstPaint("", size); }});
    suite.add(Growth{"B repaint", [](std::size_t size) { return repaint("", size); }});
}

} // namespace orvan::bench

#include "orvan/hosting/ProductViewWidget.h"

#include "orvan/hosting/QtHost.h"
#include "orvan/ui/ContainerSite.h"
#include "orvan/ui/Frame.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/qt/FormFit.h"
#include "orvan/ui/qt/QtPlatform.h"
#include "orvan/ui/qt/QtSurface.h"
#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/Twips.h"
#include "orvan/ui/qt/WindowHandles.h"
#include "orvan/view/ProductView.h"
#include "orvan/view/ProductViewDesign.h"

#include <QAction>
#include <QKeySequence>
#include <QLineEdit>
#include <QPointer>
#include <QShowEvent>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace orvan {

namespace {

constexpr int kBandGap = 8; ///< Pixels between the total and the buttons.
constexpr int kLeastLines = 6;

} // namespace

/// The container that the list view is embedded in, with the list view's surface and the view itself. The surface is
/// declared before the view, because it has to be destroyed after it.
class ProductViewWidget::Site final : public ui::ContainerSite {
public:
    Site(qt::QtPlatform& platform, ProductViewWidget& widget)
        : widget_(widget), surface_(kProductViewDesign, platform, &widget), view_(platform, surface_, *this)
    {
        view_.events = {.changed = [this] { note(&ProductViewWidget::changed); },
                        .refreshed = [this] { note(nullptr); },
                        .editorOpened = [this] { note(&ProductViewWidget::editorOpened); },
                        .editorClosed = [this] { note(&ProductViewWidget::editorClosed); }};
        widget.setFocusProxy(qt::widgetOf(surface_.control<ui::Grid>("flexGrid")));
        if (auto* total = widget.findChild<QLineEdit*>(QStringLiteral("txtTotal"))) {
            QObject::connect(total, &QLineEdit::textChanged, &widget, [this] { fit(); }); // a long total needs more
        }
        fit();
    }

    /// Makes the band below the grid as large as its fonts and texts need.
    void fit()
    {
        qt::fitBand(surface_);
        runHandler(surface_.onResize);
        widget_.updateGeometry();
    }
    /// The least size that shows the whole band and some rows, in pixels.
    [[nodiscard]] QSize leastSize() const
    {
        const auto& left = surface_.control<ui::Frame>("fraBottomLeft");
        const auto& right = surface_.control<ui::Frame>("fraBottomRight");
        const int rows = kLeastLines * widget_.fontMetrics().lineSpacing();
        return {qt::toPixels(left.width() + right.width()) + kBandGap,
                qt::toPixels(std::max(left.height(), right.height())) + kBandGap + rows};
    }

    std::string parentTypeName() override
    {
        return hostTypeName_.isEmpty() ? widget_.window()->metaObject()->className() : hostTypeName_.toStdString();
    }
    std::int32_t parentWindow() override { return qt::windowHandle(widget_.window()); }
    void propertyChanged(std::string_view /*property*/) override {} // a widget has no properties to save

    void setHostTypeName(const QString& name) { hostTypeName_ = name; }

    void readPropertiesOnce()
    {
        if (!std::exchange(propertiesRead_, true)) {
            view_.UserControl_ReadProperties();
        }
    }

    ProductView& view() { return view_; }

    QAction* action(Command command)
    {
        QAction*& action = actions_[static_cast<std::size_t>(command)];
        if (!action) {
            const CommandRow& row = rowOf(command);
            action = new QAction(qt::plainCaption(row.text), &widget_);
            action->setShortcut(QKeySequence(qt::toQt(row.key)));
            action->setShortcutContext(Qt::WidgetShortcut); // shown only: the list handles its keys itself
            QObject::connect(action, &QAction::triggered, &widget_, [this, command] { view_.run(command); });
            action->setEnabled(view_.enabled(command));
        }
        return action;
    }

private:
    using Signal = void (ProductViewWidget::*)();

    /// Has a signal sent from the event loop, once however often it is noted until then; null: only looks what has
    /// changed in the view.
    void note(Signal signal)
    {
        if (signal && std::find(noted_.begin(), noted_.end(), signal) == noted_.end()) {
            noted_.push_back(signal);
        }
        if (!std::exchange(tells_, true)) {
            QMetaObject::invokeMethod(
                &widget_, [this] { tell(); }, Qt::QueuedConnection);
        }
    }

    void tell()
    {
        tells_ = false;
        for (const CommandRow& row : kCommands) {
            if (QAction* const action = actions_[static_cast<std::size_t>(row.command)]) {
                action->setEnabled(view_.enabled(row.command));
            }
        }
        const std::vector<Signal> noted = std::exchange(noted_, {});
        const bool total = std::exchange(total_, view_.totalText()) != view_.totalText();
        const std::int32_t current = view_.currentProduct();
        const bool moved = std::exchange(current_, current) != current;
        const QPointer<ProductViewWidget> widget(&widget_); // a slot may destroy it, and this object with it
        for (const Signal signal : noted) {
            if (widget) {
                (widget->*signal)();
            }
        }
        if (widget && total) {
            Q_EMIT widget->totalChanged();
        }
        if (widget && moved) {
            Q_EMIT widget->currentProductChanged(current);
        }
    }

    ProductViewWidget& widget_;
    std::array<QAction*, kCommands.size()> actions_{}; ///< Null until somebody asks for them. The widget owns them.
    std::vector<Signal> noted_;
    bool tells_ = false;       ///< tell() is going to run.
    std::string total_;        ///< As last told.
    std::int32_t current_ = 0; ///< As last told.
    QString hostTypeName_;
    bool propertiesRead_ = false;
    qt::QtSurface surface_;
    ProductView view_;
};

ProductViewWidget::ProductViewWidget(QWidget* parent) : ProductViewWidget(qtHost().platform(), parent) {}

ProductViewWidget::ProductViewWidget(qt::QtPlatform& platform, QWidget* parent)
try : QWidget(parent), site_(std::make_unique<Site>(platform, *this)) {
} catch (...) {
    raiseCurrentError();
}

ProductViewWidget::~ProductViewWidget() = default;

void ProductViewWidget::setHostTypeName(const QString& name)
{
    site_->setHostTypeName(name);
}

void ProductViewWidget::Show(std::string_view sProducts)
{
    site_->view().Show(sProducts);
}

std::string ProductViewWidget::Products() const
{
    return site_->view().Products();
}

Currency ProductViewWidget::TotalValue() const
{
    return site_->view().TotalValue();
}

bool ProductViewWidget::Dirty() const
{
    return site_->view().Dirty();
}

void ProductViewWidget::refresh()
{
    site_->view().refresh();
}

int ProductViewWidget::currentProduct() const
{
    return site_->view().currentProduct();
}

void ProductViewWidget::setCurrentProduct(int position)
{
    site_->view().setCurrentProduct(position);
}

QAction* ProductViewWidget::action(Command command)
{
    return site_->action(command);
}

QSize ProductViewWidget::sizeHint() const
{
    return QSize(qt::toPixels(kProductViewDesign.width), qt::toPixels(kProductViewDesign.height))
        .expandedTo(site_->leastSize());
}

QSize ProductViewWidget::minimumSizeHint() const
{
    return (sizeHint() / 2).expandedTo(site_->leastSize());
}

void ProductViewWidget::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (site_ && (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)) {
        // Later, when the widgets in it have the new font, too.
        QMetaObject::invokeMethod(
            this, [this] { site_->fit(); }, Qt::QueuedConnection);
    }
}

void ProductViewWidget::showEvent(QShowEvent* event)
{
    site_->readPropertiesOnce();
    site_->fit(); // with the style sheets that apply by now
    QWidget::showEvent(event);
}

} // namespace orvan

#include "orvan/hosting/ProductViewWidget.h"

#include "orvan/core/modInit.h"
#include "orvan/hosting/HostedView.h"
#include "orvan/hosting/QtHost.h"
#include "orvan/ui/ContainerSite.h"
#include "orvan/ui/Frame.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/qt/FormFit.h"
#include "orvan/ui/qt/QtPlatform.h"
#include "orvan/ui/qt/QtSurface.h"
#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/Translation.h"
#include "orvan/ui/qt/Twips.h"
#include "orvan/ui/qt/WindowHandles.h"
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

/// Runs the body for a caller that no exception may reach. Returns whether it ended; otherwise `reason` says why it did
/// not, to a person.
template <class Body>
bool withoutRaising(QString* reason, const Body& body) noexcept
{
    try {
        forgetErrorText();
        body();
        return true;
    } catch (...) {
        const RuntimeError error = currentErrorWithText();
        try {
            if (reason) {
                *reason = qt::boundedText(qt::translated(error));
            }
        } catch (...) {
            *reason = QStringLiteral("Out of memory"); // takes none
        }
    }
    return false;
}

} // namespace

/// The container that the list view is embedded in, with the list view's surface and the view itself. The surface is
/// declared before the view, because it has to be destroyed after it.
class ProductViewWidget::Site final : public ui::ContainerSite {
public:
    Site(qt::QtPlatform& platform, ProductViewWidget& widget)
        : widget_(widget), surface_(kProductViewDesign, platform, &widget), view_(platform, surface_, *this)
    {
        view_.view().events = {.changed = [this] { note(&ProductViewWidget::changed); },
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
        view_.layOut();
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

    void setHostTypeName(const QString& name)
    {
        hostTypeName_ = name;
        note(nullptr);
    }
    const QString& hostTypeName() const { return hostTypeName_; }

    void setReadOnly(bool readOnly)
    {
        view_.setReadOnly(readOnly); // has it noted
        for (const CommandRow& row : kCommands) {
            QAction* const action = actions_[static_cast<std::size_t>(row.command)];
            if (action && !row.readOnlyText.empty()) { // the others keep a text that the host may have given them
                action->setText(qt::plainCaption(textOf(row, readOnly)));
            }
        }
        enableActions();
    }

    void readPropertiesOnce()
    {
        if (!std::exchange(propertiesRead_, true)) {
            view_.placed();
        }
    }

    HostedView& view() { return view_; }
    const ProductView& shown() const { return view_.view(); }

    QAction* action(Command command)
    {
        QAction*& action = actions_[static_cast<std::size_t>(command)];
        if (!action) {
            const CommandRow& row = rowOf(command);
            action = new QAction(qt::plainCaption(textOf(row, view_.view().readOnly())), &widget_);
            action->setShortcut(QKeySequence(qt::toQt(row.key)));
            action->setShortcutContext(Qt::WidgetShortcut); // shown only: the list handles its keys itself
            QObject::connect(action, &QAction::triggered, &widget_, [this, command] { view_.run(command); });
            action->setEnabled(view_.view().enabled(command));
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

    void enableActions()
    {
        for (const CommandRow& row : kCommands) {
            if (QAction* const action = actions_[static_cast<std::size_t>(row.command)]) {
                action->setEnabled(view_.view().enabled(row.command));
            }
        }
    }

    /// Stores the present value in `told`, and returns whether it differs from the one that was told before.
    template <class Value>
    static bool becomes(Value& told, const Value& now)
    {
        return std::exchange(told, now) != now;
    }

    void tell()
    {
        tells_ = false;
        enableActions();
        const std::vector<Signal> noted = std::exchange(noted_, {});
        const bool total = becomes(total_, view_.view().totalText());
        const std::int32_t current = view_.view().currentProduct();
        const bool moved = becomes(current_, current);
        const bool dirty = becomes(dirty_, view_.view().Dirty());
        const bool readOnly = view_.view().readOnly();
        const bool switched = becomes(readOnly_, readOnly);
        const QString name = hostTypeName_;
        const bool renamed = becomes(toldName_, name);
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
        if (widget && dirty) {
            Q_EMIT widget->dirtyChanged(true);
        }
        if (widget && switched) {
            Q_EMIT widget->readOnlyChanged(readOnly);
        }
        if (widget && renamed) {
            Q_EMIT widget->hostTypeNameChanged(name);
        }
    }

    ProductViewWidget& widget_;
    std::array<QAction*, kCommands.size()> actions_{}; ///< Null until somebody asks for them. The widget owns them.
    std::vector<Signal> noted_;
    bool tells_ = false; ///< tell() is going to run.
    // The values that the signals have told most recently. A signal is sent only when its value differs from the one
    // that stands here.
    std::string total_;
    std::int32_t current_ = 0;
    bool dirty_ = false;
    bool readOnly_ = false;
    QString toldName_;
    QString hostTypeName_;
    bool propertiesRead_ = false;
    qt::QtSurface surface_;
    HostedView view_;
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

QString ProductViewWidget::hostTypeName() const
{
    return site_->hostTypeName();
}

bool ProductViewWidget::load(const QString& products, QString* reason) noexcept
{
    return withoutRaising(reason, [&] {
        if (!products.isValidUtf16()) {
            throw RuntimeError(ErrorNumber::invalidFileFormat, {},
                               userText("The products hold half a character, which is no text."));
        }
        Show(qt::fromQt(products));
    });
}

std::optional<QString> ProductViewWidget::products(QString* reason) const noexcept
{
    std::optional<QString> result;
    withoutRaising(reason, [&] {
        const std::string bytes = Products();
        QString text = qt::toQt(bytes);
        if (qt::fromQt(text) != bytes) { // to save the replacement characters would lose what stands there
            throw RuntimeError(ErrorNumber::invalidFileFormat, {},
                               userText("The products hold bytes that are no text (UTF-8)."));
        }
        result = std::move(text);
    });
    return result;
}

std::optional<Currency> ProductViewWidget::total(QString* reason) const noexcept
{
    std::optional<Currency> result;
    withoutRaising(reason, [&] { result = TotalValue(); });
    return result;
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
    return site_->shown().Dirty();
}

QString ProductViewWidget::totalText() const
{
    return qt::toQt(site_->shown().totalText());
}

bool ProductViewWidget::isReadOnly() const
{
    return site_->shown().readOnly();
}

void ProductViewWidget::setReadOnly(bool readOnly)
{
    site_->setReadOnly(readOnly);
}

void ProductViewWidget::refresh()
{
    site_->view().refresh();
}

int ProductViewWidget::currentProduct() const
{
    return site_->shown().currentProduct();
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

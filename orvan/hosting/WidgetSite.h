// The container that a ProductViewWidget is for its list view. Part of ProductViewWidget.cpp.
//
// Ownership: the widget. Thread: the user-interface thread.
#pragma once

#include "orvan/hosting/HostedView.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "orvan/ui/ContainerSite.h"
#include "orvan/ui/Frame.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/TextEntry.h"
#include "orvan/ui/qt/FormFit.h"
#include "orvan/ui/qt/QtPlatform.h"
#include "orvan/ui/qt/QtSurface.h"
#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/Twips.h"
#include "orvan/ui/qt/WindowHandles.h"
#include "orvan/view/ProductViewDesign.h"

#include <QAction>
#include <QApplication>
#include <QKeySequence>
#include <QLineEdit>
#include <QPointer>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace orvan {

/// The container that the list view is embedded in, with the list view's surface and the view itself. The surface is
/// declared before the view, because it has to be destroyed after it.
class ProductViewWidget::Site final : public ui::ContainerSite {
public:
    Site(qt::QtPlatform& platform, ProductViewWidget& widget) : platform_(platform), widget_(widget) { build(); }

    /// Makes the view again, as it is.
    void renew()
    {
        const std::string products = view_->Products();
        const std::int32_t current = shown().currentProduct();
        const bool readOnly = shown().readOnly();
        const bool focused = widget_.isAncestorOf(QApplication::focusWidget());
        const auto former = widget_.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
        dirtyBefore_ = dirty();
        view_.reset();
        surface_.reset();
        build();
        for (QWidget* const child : widget_.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            // Widgets that are made in a visible one are not shown with it.
            const bool hides = child->isHidden() && child->testAttribute(Qt::WA_WState_ExplicitShowHide);
            if (!former.contains(child) && !child->isWindow() && !hides) { // a menu is a window
                child->show();
            }
        }
        if (propertiesRead_) {
            view_->placed();
        }
        view_->setReadOnly(readOnly);
        view_->Show(products);
        if (current > 0) {
            view_->setCurrentProduct(current);
        }
        if (focused) {
            widget_.setFocus();
        }
    }

    /// Makes the band below the grid as large as its fonts and texts need.
    void fit()
    {
        qt::fitBand(*surface_);
        view_->layOut();
        widget_.updateGeometry();
    }
    /// The least size that shows the whole band and some rows, in pixels.
    [[nodiscard]] QSize leastSize() const
    {
        const auto& left = surface_->control<ui::Frame>("fraBottomLeft");
        const auto& right = surface_->control<ui::Frame>("fraBottomRight");
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
        view_->setReadOnly(readOnly); // has it noted
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
            view_->placed();
        }
    }

    HostedView& view() { return *view_; }
    const ProductView& shown() const { return view_->view(); }
    /// Also of a view that has been made anew since.
    bool dirty() const { return dirtyBefore_ || shown().Dirty(); }

    QAction* action(Command command)
    {
        QAction*& action = actions_[static_cast<std::size_t>(command)];
        if (!action) {
            const CommandRow& row = rowOf(command);
            action = new QAction(qt::plainCaption(textOf(row, view_->view().readOnly())), &widget_);
            action->setShortcut(QKeySequence(qt::toQt(row.key)));
            action->setShortcutContext(Qt::WidgetShortcut); // shown only: the list handles its keys itself
            QObject::connect(action, &QAction::triggered, &widget_, [this, command] { view_->run(command); });
            action->setEnabled(view_->view().enabled(command));
        }
        return action;
    }

private:
    static constexpr int kBandGap = 8; ///< Pixels between the total and the buttons.
    static constexpr int kLeastLines = 6;
    using Signal = void (ProductViewWidget::*)();

    void build()
    {
        surface_.emplace(kProductViewDesign, platform_, &widget_);
        view_.emplace(platform_, *surface_, *this);
        view_->view().events = {.changed = [this] { note(&ProductViewWidget::changed); },
                                .refreshed = [this] { note(nullptr); },
                                .editorOpened = [this] { note(&ProductViewWidget::editorOpened); },
                                .editorClosed = [this] { note(&ProductViewWidget::editorClosed); }};
        widget_.setFocusProxy(qt::widgetOf(surface_->control<ui::Grid>("flexGrid")));
        if (auto* total = qobject_cast<QLineEdit*>(qt::widgetOf(surface_->control<ui::TextBox>("txtTotal")))) {
            QObject::connect(total, &QLineEdit::textChanged, total, [this] { fit(); }); // a long total needs more
        }
        fit();
    }

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
                action->setEnabled(view_->view().enabled(row.command));
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
        const bool total = becomes(total_, view_->view().totalText());
        const std::int32_t current = view_->view().currentProduct();
        const bool moved = becomes(current_, current);
        const bool edited = becomes(dirty_, dirty());
        const bool readOnly = view_->view().readOnly();
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
        if (widget && edited) {
            Q_EMIT widget->dirtyChanged(true);
        }
        if (widget && switched) {
            Q_EMIT widget->readOnlyChanged(readOnly);
        }
        if (widget && renamed) {
            Q_EMIT widget->hostTypeNameChanged(name);
        }
    }

    qt::QtPlatform& platform_;
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
    bool dirtyBefore_ = false;
    std::optional<qt::QtSurface> surface_;
    std::optional<HostedView> view_;
};

} // namespace orvan

#include "ui/qt/QtSurface.h"

#include "ui/Platform.h"
#include "ui/qt/QtControls.h"
#include "ui/qt/QtGrid.h"
#include "ui/qt/QtText.h"
#include "ui/qt/Twips.h"

#include <QEvent>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace orvan::qt {

namespace {

QWidget* widgetOf(ui::Control& control)
{
    auto* holder = dynamic_cast<QtWidgetHolder*>(&control);
    return holder ? holder->widget() : nullptr;
}

bool takesFocus(ui::ControlKind kind)
{
    return kind != ui::ControlKind::frame && kind != ui::ControlKind::label;
}

} // namespace

/// Sees the host's resizes for the surface.
class QtSurface::ResizeWatcher final : public QObject {
public:
    explicit ResizeWatcher(QtSurface& surface) : surface_(surface) {}

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Resize) {
            report(*static_cast<QWidget*>(watched)); // may end the surface, and this
        }
        return false;
    }

    void report(const QWidget& host)
    {
        surface_.platform_.dispatch([&] { surface_.setInnerSize(toTwips(host.width()), toTwips(host.height())); });
    }

private:
    QtSurface& surface_;
};

QtSurface::QtSurface(const ui::FormDesign& design, ui::Platform& platform, QWidget* host)
    : Surface(design), platform_(platform), host_(host), watcher_(std::make_unique<ResizeWatcher>(*this))
{
    buildControls();
    orderTabs();
    host->installEventFilter(watcher_.get());
    if (host->testAttribute(Qt::WA_Resized) || host->isVisible()) {
        watcher_->report(*host); // no event tells of a size that stands already
    }
}

QtSurface::~QtSurface() = default;

std::unique_ptr<ui::Control> QtSurface::make(const ui::ControlDesign& design, ui::Control* parent)
{
    auto control = makeControl(design, parent ? widgetOf(*parent) : host_.data());
    QWidget* widget = widgetOf(*control);
    if (takesFocus(design.kind)) {
        widget->setFocusPolicy(design.tabIndex >= 0 ? Qt::StrongFocus : Qt::ClickFocus);
        nameForAssistance(design, widget);
    }
    labelBefore_ = dynamic_cast<QtLabel*>(control.get());
    captionBefore_ = design.caption;
    return control;
}

std::unique_ptr<ui::Control> QtSurface::makeControl(const ui::ControlDesign& design, QWidget* parent)
{
    switch (design.kind) {
    case ui::ControlKind::button: return std::make_unique<QtButton>(design, parent, platform_);
    case ui::ControlKind::frame: return std::make_unique<QtFrame>(design, parent);
    case ui::ControlKind::grid: return std::make_unique<QtGrid>(design, parent, platform_);
    case ui::ControlKind::label: return std::make_unique<QtLabel>(design, parent);
    case ui::ControlKind::textBox: return std::make_unique<QtTextBox>(design, parent);
    }
    throw RuntimeError(ErrorNumber::internalError, {}, "a control of no known kind");
}

/// What a screen reader calls it: its own caption, else its label's, else its tool tip.
void QtSurface::nameForAssistance(const ui::ControlDesign& design, QWidget* widget)
{
    if (!design.caption.empty()) {
        widget->setAccessibleName(withoutMnemonic(design.caption));
    } else if (labelBefore_) {
        labelBefore_->nameFor(widget);
        widget->setAccessibleName(withoutMnemonic(captionBefore_));
    } else {
        widget->setAccessibleName(toQt(design.toolTip));
    }
    if (!design.toolTip.empty()) {
        widget->setAccessibleDescription(toQt(design.toolTip));
    }
}

void QtSurface::orderTabs()
{
    std::vector<std::pair<std::int32_t, QWidget*>> stops;
    for (const ui::ControlDesign& row : design().controls) {
        if (takesFocus(row.kind) && row.tabIndex >= 0) {
            stops.emplace_back(row.tabIndex, widgetOf(control<ui::Control>(row.name)));
        }
    }
    std::stable_sort(stops.begin(), stops.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (std::size_t next = 1; next < stops.size(); ++next) {
        QWidget::setTabOrder(stops[next - 1].second, stops[next].second);
    }
}

} // namespace orvan::qt

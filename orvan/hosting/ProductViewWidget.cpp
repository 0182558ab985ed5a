#include "orvan/hosting/ProductViewWidget.h"

#include "orvan/hosting/QtHost.h"
#include "orvan/ui/ContainerSite.h"
#include "orvan/ui/qt/QtPlatform.h"
#include "orvan/ui/qt/QtSurface.h"
#include "orvan/ui/qt/Twips.h"
#include "orvan/ui/qt/WindowHandles.h"
#include "orvan/view/ProductView.h"
#include "orvan/view/ProductViewDesign.h"

#include <QShowEvent>

#include <utility>

namespace orvan {

/// The container that the list view is embedded in, with the list view's surface and the view itself. The surface is
/// declared before the view, because it has to be destroyed after it.
class ProductViewWidget::Site final : public ui::ContainerSite {
public:
    Site(qt::QtPlatform& platform, QWidget& widget)
        : widget_(widget), surface_(kProductViewDesign, platform, &widget), view_(platform, surface_, *this)
    {
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

private:
    QWidget& widget_;
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

QSize ProductViewWidget::sizeHint() const
{
    return QSize(qt::toPixels(kProductViewDesign.width), qt::toPixels(kProductViewDesign.height));
}

QSize ProductViewWidget::minimumSizeHint() const
{
    return sizeHint() / 2;
}

void ProductViewWidget::showEvent(QShowEvent* event)
{
    site_->readPropertiesOnce();
    QWidget::showEvent(event);
}

} // namespace orvan

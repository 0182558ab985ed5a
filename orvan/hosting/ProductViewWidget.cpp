#include "orvan/hosting/ProductViewWidget.h"

#include "orvan/core/modInit.h"
#include "orvan/hosting/QtHost.h"
#include "orvan/hosting/WidgetSite.h"
#include "orvan/ui/qt/QtPlatform.h"
#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/Translation.h"
#include "orvan/ui/qt/Twips.h"
#include "orvan/view/ProductViewDesign.h"

#include <QShowEvent>

#include <utility>

namespace orvan {

namespace {

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
    return site_->dirty();
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

void ProductViewWidget::renew()
{
    site_->renew();
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

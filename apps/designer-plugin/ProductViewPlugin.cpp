#include "ProductViewPlugin.h"

#include <orvan/hosting/ProductViewWidget.h>
#include <orvan/hosting/QtHost.h>
#include <orvan/ui/headless/HeadlessPlatform.h>

#include <QIcon>
#include <QPainter>
#include <QPixmap>

namespace orvan::designer {

namespace {

constexpr const char* kSample = "3~Espresso machine::EM-2:1849:1:0:1849:With two groups~"
                                "Grinder::GR-7:429.5:2:10:773.1:~"
                                "Service::SV-1:79:1.5:0:118.5:~";

/// A list of rows below a header, and a sum.
QIcon drawnIcon()
{
    QIcon icon;
    for (const int size : {22, 44, 88}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / 22.0, size / 22.0);
        painter.setPen(QPen(QColor(0x5f, 0x6b, 0x7a), 1));
        painter.setBrush(Qt::white);
        painter.drawRoundedRect(QRectF(2.5, 2.5, 17, 17), 2, 2);
        painter.fillRect(QRectF(3, 3, 16, 3.5), QColor(0x2f, 0x6f, 0xb5));
        for (const double top : {8.5, 11.5, 14.5}) {
            painter.fillRect(QRectF(4.5, top, 7, 1.4), QColor(0x9a, 0xa5, 0xb1));
            painter.fillRect(QRectF(13.5, top, 4, 1.4), QColor(0x5f, 0x6b, 0x7a));
        }
        painter.fillRect(QRectF(13.5, 17, 4, 1.4), QColor(0x2f, 0x6f, 0xb5));
        icon.addPixmap(picture);
    }
    return icon;
}

} // namespace

/// The services of the widgets in Designer. Nobody wants to find the columns of a form's preview in a program.
struct ProductViewPlugin::Designing {
    QtHost host{HostOptions{.settings = std::make_shared<headless::HeadlessSettingsStore>()}};
};

ProductViewPlugin::ProductViewPlugin(QObject* parent) : QObject(parent) {}

ProductViewPlugin::~ProductViewPlugin() = default;

QString ProductViewPlugin::name() const
{
    return QStringLiteral("orvan::ProductViewWidget");
}

QString ProductViewPlugin::group() const
{
    return QStringLiteral("Orvan");
}

QString ProductViewPlugin::toolTip() const
{
    return QStringLiteral("List of products with a total, which the user can edit");
}

QString ProductViewPlugin::whatsThis() const
{
    return QStringLiteral(
        "Shows the products of a quote or an order and their total. The user adds, edits, deletes and "
        "reorders them. The program loads the products with load() and reads them with products().");
}

QString ProductViewPlugin::includeFile() const
{
    return QStringLiteral("orvan/hosting/ProductViewWidget.h");
}

QIcon ProductViewPlugin::icon() const
{
    return drawnIcon();
}

QString ProductViewPlugin::domXml() const
{
    return QStringLiteral(R"(<ui language="c++" displayname="Product View">
 <widget class="orvan::ProductViewWidget" name="productView">
  <property name="geometry"><rect><x>0</x><y>0</y><width>480</width><height>320</height></rect></property>
 </widget>
 <customwidgets>
  <customwidget>
   <class>orvan::ProductViewWidget</class>
   <extends>QWidget</extends>
   <propertyspecifications>
    <stringpropertyspecification name="hostTypeName" notr="true" type="singleline"/>
    <tooltip name="hostTypeName">The name under which the user's choice of columns is kept</tooltip>
    <tooltip name="readOnly">Whether the user can only look at the list and copy from it</tooltip>
   </propertyspecifications>
  </customwidget>
 </customwidgets>
</ui>)");
}

QWidget* ProductViewPlugin::createWidget(QWidget* parent)
{
    try {
        if (!designing_) {
            return new ProductViewWidget(parent);
        }
        auto widget = std::make_unique<ProductViewWidget>(designing_->host.platform(), parent);
        widget->load(QString::fromUtf8(kSample));
        return widget.release();
    } catch (const std::exception& error) {
        qWarning("The product view cannot be made: %s", error.what());
        return nullptr;
    }
}

void ProductViewPlugin::initialize(QDesignerFormEditorInterface* /*editor*/)
{
    if (designing_) {
        return;
    }
    try {
        designing_ = std::make_unique<Designing>();
    } catch (const std::exception& error) {
        qWarning("The product view cannot be shown with a sample list: %s", error.what());
    }
}

} // namespace orvan::designer

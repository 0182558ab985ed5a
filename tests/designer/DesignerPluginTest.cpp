// The plug-in as a program and as Designer use it. The test does not link the library, as such a program need not.

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMetaProperty>
#include <QPluginLoader>
#include <QUiLoader>
#include <QWidget>
#include <QXmlStreamReader>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <gtest/gtest.h>

#include <memory>

namespace orvan::test {
namespace {

class DesignerPluginTest : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        static int count = 1;
        static char name[] = "test_designer";
        static char* arguments[] = {name, nullptr};
        static const QApplication application(count, arguments);
    }

    static std::unique_ptr<QWidget> loadForm(QUiLoader& loader)
    {
        loader.addPluginPath(QStringLiteral(ORVAN_PLUGINS));
        QFile file(QStringLiteral(ORVAN_FORM));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return std::unique_ptr<QWidget>(loader.load(&file));
    }

    static QDesignerCustomWidgetInterface* plugIn()
    {
        const QStringList files = QDir(QStringLiteral(ORVAN_PLUGINS)).entryList(QDir::Files);
        QPluginLoader loader(QDir(QStringLiteral(ORVAN_PLUGINS)).filePath(files.value(0)));
        auto* const found = qobject_cast<QDesignerCustomWidgetInterface*>(loader.instance());
        EXPECT_NE(found, nullptr) << loader.errorString().toStdString();
        return found;
    }
};

TEST_F(DesignerPluginTest, AProgramLoadsTheFormWithAnEmptyList)
{
    QUiLoader loader;
    const auto form = loadForm(loader);
    ASSERT_NE(form, nullptr) << loader.errorString().toStdString();
    auto* const view = form->findChild<QWidget*>(QStringLiteral("productView"));
    ASSERT_NE(view, nullptr);
    EXPECT_STREQ(view->metaObject()->className(), "orvan::ProductViewWidget");
    EXPECT_EQ(view->property("hostTypeName").toString(), QStringLiteral("QuoteForm"));
    EXPECT_TRUE(view->property("readOnly").toBool());
    form->show();
    EXPECT_EQ(view->property("total").toString(), QString()) << "the sample list is for Designer alone";
    EXPECT_EQ(view->property("currentRow").toInt(), 0);
}

TEST_F(DesignerPluginTest, DesignerShowsASampleList)
{
    auto* const plugin = plugIn();
    ASSERT_NE(plugin, nullptr);
    EXPECT_FALSE(plugin->isInitialized());
    plugin->initialize(nullptr); // Designer passes itself, and the plug-in does not ask it for anything
    EXPECT_TRUE(plugin->isInitialized());
    const std::unique_ptr<QWidget> view(plugin->createWidget(nullptr));
    ASSERT_NE(view, nullptr);
    view->show();
    EXPECT_NE(view->property("total").toString(), QString());
    EXPECT_FALSE(view->property("dirty").toBool());
}

TEST_F(DesignerPluginTest, DesignerListsTheWidget)
{
    auto* const plugin = plugIn();
    ASSERT_NE(plugin, nullptr);
    EXPECT_FALSE(plugin->icon().pixmap(22).isNull());
    EXPECT_NE(plugin->toolTip(), QString());
    QXmlStreamReader form(plugin->domXml());
    QStringList classes, tips;
    while (!form.atEnd()) {
        if (form.readNext() == QXmlStreamReader::StartElement) {
            classes += form.name() == QStringLiteral("widget")
                           ? form.attributes().value(QStringLiteral("class")).toString()
                           : QString();
            tips += form.name() == QStringLiteral("tooltip")
                        ? form.attributes().value(QStringLiteral("name")).toString()
                        : QString();
        }
    }
    EXPECT_FALSE(form.hasError()) << form.errorString().toStdString();
    EXPECT_TRUE(classes.contains(plugin->name()));

    // The property sheet has what a form can set, and each of these has its tip there.
    const std::unique_ptr<QWidget> view(plugin->createWidget(nullptr));
    ASSERT_NE(view, nullptr);
    const QMetaObject* const own = view->metaObject();
    for (int at = own->propertyOffset(); at < own->propertyCount(); ++at) {
        const QMetaProperty property = own->property(at);
        EXPECT_EQ(property.isDesignable(), tips.contains(QString::fromLatin1(property.name()))) << property.name();
        EXPECT_TRUE(property.isWritable() || !property.isDesignable()) << property.name();
    }
}

} // namespace
} // namespace orvan::test

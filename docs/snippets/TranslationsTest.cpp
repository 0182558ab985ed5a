// The library's texts in the language of the host's users.

#include "tests/support/QtEnvironment.h"

#include <orvan/base/UserText.h>
#include <orvan/hosting/ProductViewWidget.h>

#include <gmock/gmock.h>

#include <QLabel>
#include <QTranslator>

#include <algorithm>

namespace {

TEST(Translations, ComeFromATranslatorOfTheHost)
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const QString folder = QStringLiteral(TEXTS_FOLDER);
    //! [translator]
    QTranslator texts; // lives as long as the application
    if (texts.load(QLocale(), "acme", "_", folder)) {
        QCoreApplication::installTranslator(&texts); // before the first list is made
    }
    //! [translator]
    orvan::ProductViewWidget view;
    const QList<QLabel*> labels = view.findChildren<QLabel*>();
    const bool found =
        std::any_of(labels.begin(), labels.end(), [](QLabel* label) { return label->text() == "Summe"; });
    EXPECT_TRUE(found) << "no label of " << labels.size() << " is in German";
}

TEST(Translations, AHostWithoutAWindowTranslatesEachMessage)
{
    //! [user text]
    const orvan::UserText text = orvan::userText("The product manager counts %1 products", -3);
    const std::string german = text.in([](std::string_view english, std::optional<std::int64_t> /*count*/) {
        return english == "The product manager counts %1 products"
                   ? std::optional<std::string>("Der Produktverwalter zählt %1 Produkte")
                   : std::nullopt; // stays English
    });
    //! [user text]
    EXPECT_EQ(german, "Der Produktverwalter zählt -3 Produkte");
}

} // namespace

// Services of the host's own, which the library uses in place of those that it brings.

#include "tests/support/QtEnvironment.h"

#include <orvan/hosting/DefaultComponents.h>
#include <orvan/hosting/ProductViewWidget.h>
#include <orvan/hosting/QtHost.h>
#include <orvan/view/ProductViewPrefs.h>

#include <gmock/gmock.h>

#include <QAction>
#include <QTableView>

#include <map>

namespace {

//! [settings]
/// Keeps what users choose in the host's own place, here in memory.
class AcmeSettings final : public orvan::ui::SettingsStore {
public:
    std::string get(std::string_view application, std::string_view section, std::string_view key) override
    {
        return values_[{std::string(application), std::string(section), std::string(key)}];
    }
    void set(std::string_view application, std::string_view section, std::string_view key,
             std::string_view value) override
    {
        values_[{std::string(application), std::string(section), std::string(key)}] = value;
    }

private:
    std::map<std::tuple<std::string, std::string, std::string>, std::string> values_;
};
//! [settings]

//! [message box]
/// Asks and tells in the host's own way; this one, which is for a test, notes the texts and always answers No.
class AcmeMessages final : public orvan::ui::MessageBox {
public:
    orvan::ui::MessageResult show(const orvan::ui::Message& message) override
    {
        texts.push_back(message.text.english());
        return message.buttons == orvan::ui::MessageButtons::ok ? orvan::ui::MessageResult::ok
                                                                : orvan::ui::MessageResult::no;
    }

    std::vector<std::string> texts;
};
//! [message box]

TEST(OwnServices, AreUsed)
{
    const auto settings = std::make_shared<AcmeSettings>();
    const auto messages = std::make_shared<AcmeMessages>();
    const std::shared_ptr<orvan::ui::LocaleService> formats =
        orvan::makeLocaleService({.monetary = "en_GB", .numeric = "en_GB"});
    //! [options]
    orvan::HostOptions options;
    options.settings = settings;                  // an orvan::ui::SettingsStore: columns and their widths
    options.messageBox = messages;                // an orvan::ui::MessageBox: all questions and errors
    options.localeService = formats;              // an orvan::ui::LocaleService: numbers and money
    options.supportAddress = "help@acme.example"; // named where an error closes the editor
    orvan::setQtHostOptions(options);             // or orvan::HeadlessHost host(options);
    //! [options]
    orvan::seedProductViewPrefs(*settings, "Quote", "4~3~"); // quantity and unit price
    orvan::ProductViewWidget view;
    view.setHostTypeName("Quote");
    view.show();
    ASSERT_TRUE(view.load("1~Lamp:::74.95:1:0:74.95:~"));
    EXPECT_EQ(view.totalText(), "£74.95");
    EXPECT_EQ(view.findChild<QTableView*>()->model()->headerData(3, Qt::Horizontal), "Unit Price");
    view.setCurrentProduct(1);
    view.action(orvan::Command::remove)->trigger();
    EXPECT_THAT(messages->texts, testing::ElementsAre(testing::HasSubstr("delete")));
    EXPECT_EQ(view.products(), QStringLiteral("1~Lamp:::74.95:1:0:74.95:~")) << "the answer was No";
}

} // namespace

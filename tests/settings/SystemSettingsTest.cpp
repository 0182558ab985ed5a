// The settings of a computer, below those of its users.

#include "apps/orvan-desk/settings/LayeredSettings.h"

#include "orvan/ui/qt/QtSettingsStore.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include <unistd.h>

namespace orvan::desk {

namespace {

using ::testing::HasSubstr;

class SystemSettingsTest : public ::testing::Test {
protected:
    SystemSettingsTest() { folder = ::testing::TempDir() + "settings-" + std::to_string(::getpid()); }
    ~SystemSettingsTest() override { std::filesystem::remove_all(folder); }

    QString file(const std::string& name, const std::string& content)
    {
        std::filesystem::create_directories(folder);
        std::ofstream(folder + "/" + name, std::ios::binary) << content;
        return QString::fromStdString(folder + "/" + name);
    }

    std::string folder;
};

struct BadLine {
    const char* name;
    const char* content; ///< A good seller's name stands behind it.
    const char* problem;
};

class BadLineTest : public SystemSettingsTest, public ::testing::WithParamInterface<BadLine> {};

TEST_P(BadLineTest, IsNamedByFileAndLineAndTheOthersCount)
{
    const QString path = file("defaults.conf", "# ours\n" + std::string(GetParam().content) + "\nseller-name = Acme\n");
    const SystemSettings settings({path});
    ASSERT_EQ(settings.problems.size(), 1) << settings.problems.join(u'\n').toStdString();
    EXPECT_EQ(settings.problems[0].toStdString(), path.toStdString() + ":2: " + GetParam().problem);
    EXPECT_EQ(settings.choice("seller-name").value, QStringLiteral("Acme"));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BadLineTest,
    ::testing::Values(BadLine{"noForm", "language", "a line has the form name = value, not \"language\""},
                      BadLine{"unknown", "colour = red", "there is no setting \"colour\""},
                      BadLine{"unknownLock", "locked = colour, logo", "there is no setting \"colour\" to lock"},
                      BadLine{"noTheme", "theme = blue", "theme is one of light, dark, system, not \"blue\""},
                      BadLine{"noEditing", "editing = careless",
                              "editing is one of careful, classic, not \"careless\""},
                      BadLine{"relative", "catalogue = goods", "catalogue needs the whole path, not \"goods\""},
                      BadLine{"password", "catalogue = postgresql://u:secret@h/d",
                              "catalogue has a password, which others could read here"},
                      BadLine{"twoLines", "support-address = a\\nb", "support-address has one line only"},
                      BadLine{"escape", "closing-text = a\\tb",
                              "closing-text has a backslash that is followed by neither n nor a backslash"},
                      BadLine{"noText", "closing-text = \xFF", "the line is not text in UTF-8"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(SystemSettingsTest, ASecondLineOfTheSameNameIsRefused)
{
    const SystemSettings settings({file("defaults.conf", "logo = /a.png\nlogo = /b.png\n")});
    EXPECT_THAT(settings.problems.value(0).toStdString(), HasSubstr(":2: logo stands twice"));
    EXPECT_EQ(settings.choice("logo").value, QStringLiteral("/a.png"));
}

TEST_F(SystemSettingsTest, WhatIsNoFileIsTold)
{
    std::filesystem::create_directories(folder + "/defaults.conf");
    const SystemSettings settings({QString::fromStdString(folder + "/defaults.conf"), QStringLiteral("/no/such.conf")});
    ASSERT_EQ(settings.problems.size(), 1);
    EXPECT_THAT(settings.problems[0].toStdString(), HasSubstr("defaults.conf: "));
}

TEST_F(SystemSettingsTest, ReadsMarksEscapesAndBlanks)
{
    const SystemSettings settings(
        {file("defaults.conf", "\xEF\xBB\xBFseller-address =  1 Mill\\nC:\\\\x = y \r\n\n  theme=dark")});
    EXPECT_EQ(settings.problems, QStringList());
    EXPECT_EQ(settings.choice("seller-address").value, QStringLiteral("1 Mill\nC:\\x = y"));
    EXPECT_EQ(settings.choice("theme").value, QStringLiteral("dark"));
}

struct Layers {
    const char* name;
    const char* first; ///< The content of the file that counts most.
    const char* last;
    const char* user;
    const char* option;
    const char* value;
    const char* origin; ///< Its beginning.
    bool locked;
};

class LayersTest : public SystemSettingsTest, public ::testing::WithParamInterface<Layers> {};

TEST_P(LayersTest, TheValueAndItsOrigin)
{
    const Layers& row = GetParam();
    const SystemSettings system({file("first", row.first), file("last", row.last)});
    const auto user = std::make_shared<qt::QtSettingsStore>(folder + "/user.ini");
    user->set(ui::kSettingsApplication, "Desk", "Theme", row.user);
    for (const ListedSetting& setting : listSettings(
             *user, QStringLiteral("user.ini"), system,
             [&](const SettingRow& each) {
                 return each.name == "theme" && *row.option ? std::optional(QString::fromUtf8(row.option))
                                                            : std::nullopt;
             },
             [](const SettingRow&) { return QStringLiteral("system"); })) {
        if (setting.name == u"theme") {
            EXPECT_EQ(setting.value.toStdString(), row.value);
            EXPECT_EQ(QString(setting.origin).replace(QString::fromStdString(folder + "/"), QString()).toStdString(),
                      row.origin);
            EXPECT_EQ(setting.locked, row.locked);
        } else {
            EXPECT_EQ(setting.origin, QStringLiteral("built in")) << setting.name.toStdString();
        }
    }
    if (!*row.option) { // the store that the desk asks says the same, but has no values of the desk's own
        LayeredSettings layered(user, system);
        EXPECT_EQ(layered.get(ui::kSettingsApplication, "Desk", "Theme"),
                  std::string(row.origin) == "built in" ? "" : row.value);
        EXPECT_EQ(layered.get("Other", "Desk", "Theme"), "");
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, LayersTest,
    ::testing::Values(
        Layers{"nothing", "", "", "", "", "system", "built in", false},
        Layers{"firstFile", "theme = dark", "theme = light", "", "", "dark", "system file first", false},
        Layers{"lastFile", "", "theme = light", "", "", "light", "system file last", false},
        Layers{"emptyIsNotSet", "theme =", "theme = light", "", "", "light", "system file last", false},
        Layers{"user", "theme = dark", "", "light", "", "light", "user file user.ini", false},
        Layers{"commandLine", "theme = dark", "", "light", "system", "system", "command line", false},
        Layers{"locked", "theme = dark\nlocked = theme", "", "light", "light", "dark", "system file first", true},
        Layers{"lockBeforeValue", "locked = theme\ntheme = dark", "", "light", "", "dark", "system file first", true},
        Layers{"lockedWithoutValue", "locked = theme", "", "light", "light", "system", "built in", true},
        Layers{"lockedBelow", "theme = dark", "theme = light\nlocked=theme", "dark", "", "light", "system file last",
               true},
        Layers{"lockedAbove", "locked = theme", "theme = light", "dark", "", "light", "system file last", true}),
    [](const auto& row) { return std::string(row.param.name); });

struct Stored {
    const char* name;
    const char* system;
    const char* former;
    const char* value;
    const char* kept;
    const char* read; ///< What the desk then has.
};

class StoredTest : public SystemSettingsTest, public ::testing::WithParamInterface<Stored> {};

TEST_P(StoredTest, WhatTheUserKeeps)
{
    const SystemSettings system({file("defaults.conf", GetParam().system)});
    const auto user = std::make_shared<qt::QtSettingsStore>(folder + "/user.ini");
    user->set(ui::kSettingsApplication, "DeskPrint", "SellerName", GetParam().former);
    LayeredSettings layered(user, system);
    layered.set(ui::kSettingsApplication, "DeskPrint", "SellerName", GetParam().value);
    EXPECT_EQ(user->get(ui::kSettingsApplication, "DeskPrint", "SellerName"), GetParam().kept);
    EXPECT_EQ(layered.get(ui::kSettingsApplication, "DeskPrint", "SellerName"), GetParam().read);
    const auto none = [](const SettingRow&) { return std::optional<QString>(); };
    const auto nothing = [](const SettingRow&) { return QString(); };
    for (const ListedSetting& setting : listSettings(*user, QStringLiteral("user.ini"), system, none, nothing)) {
        if (setting.name == u"seller-name") {
            EXPECT_EQ(setting.value.toStdString(), GetParam().read) << "as --settings lists it";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, StoredTest,
    ::testing::Values(Stored{"own", "seller-name = Acme", "", "Mine", "Mine", "Mine"},
                      Stored{"sameAsTheComputers", "seller-name = Acme", "Mine", "Acme", "", "Acme"},
                      Stored{"locked", "seller-name = Acme\nlocked = seller-name", "Mine", "Acme", "Mine", "Acme"},
                      Stored{"emptied", "seller-name = Acme", "", "", " ", ""},
                      Stored{"emptiedAndLocked", "seller-name = Acme\nlocked = seller-name", " ", "", " ", "Acme"},
                      Stored{"takenBack", "seller-name = Acme", " ", "Acme", "", "Acme"},
                      Stored{"noFile", "", "Mine", "", "", ""}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(SystemSettingsTest, TheFilesAreThoseOfTheEnvironment)
{
    qputenv("XDG_CONFIG_DIRS", "/a:relative:/b/");
    EXPECT_EQ(SystemSettings::files(),
              QStringList({QStringLiteral("/a/orvan/defaults.conf"), QStringLiteral("/b/orvan/defaults.conf")}));
    qunsetenv("XDG_CONFIG_DIRS");
    EXPECT_EQ(SystemSettings::files(), QStringList(QStringLiteral("/etc/xdg/orvan/defaults.conf")));
}

} // namespace

} // namespace orvan::desk

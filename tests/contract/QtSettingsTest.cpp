// The settings file that programs of the Qt platform share.
#include "orvan/ui/qt/QtSettingsStore.h"
#include "tests/support/Raised.h"
#include "tests/support/Rows.h"
#include "tests/support/TemporaryFolder.h"

#include <QDir>
#include <QFile>

#include <thread>

#include <sys/stat.h>

namespace orvan::contract {
namespace {

using qt::QtSettingsStore;
using test::errorOf;
using test::forEachRow;

TEST(QtSettings, SettingsOfTwoProgramsLiveInOneFile)
{
    const test::TemporaryFolder folder;
    constexpr int kKeys = 60; // enough that the two meet: without the lock some are lost
    const auto program = [path = (folder / "new" / "settings.ini").string()](const char* section) {
        QtSettingsStore store(path);
        for (int key = 0; key < kKeys; ++key) {
            store.set("Orvan", section, std::to_string(key), section);
        }
    };
    std::thread other([&] { program("two"); });
    program("one");
    other.join();
    QtSettingsStore store(folder / "new" / "settings.ini");
    for (int key = 0; key < kKeys; ++key) {
        EXPECT_EQ(store.get("Orvan", "one", std::to_string(key)), "one") << key;
        EXPECT_EQ(store.get("Orvan", "two", std::to_string(key)), "two") << key;
    }
}

TEST(QtSettings, AStoreThatCannotBeUsedRaises75AndStaysAsItWas)
{
    struct Row {
        const char *name, *content;
        std::int32_t readError, writeError;
    };
    const Row rows[] = {
        {"folder", nullptr, 75, 75},
        {"garbage",
         "\x7F"
         "ELF\1\2\nx",
         75, 75},
        {"cut", "[Orvan/s]\nk=1\n[Orv", 75, 75},
        {"file/below", "", 0, 75},
        {"edited", "; mine\r\n[Orvan/s]\r\n k=old\r\n\r\n[Other]\r\nk=x\r\n", 0, 0},
    };
    forEachRow(rows, [&](const Row& row) {
        const test::TemporaryFolder temporary;
        QDir folder(QString::fromStdString(temporary.path()));
        const QString path = folder.filePath(QString::fromLatin1(row.name));
        const bool below = path.endsWith(QStringLiteral("below"));
        QFile file(below ? folder.filePath(QStringLiteral("file")) : path);
        if (!row.content) {
            folder.mkdir(path);
        } else if (file.open(QIODevice::WriteOnly)) {
            file.write(row.content);
            file.close();
        }
        QtSettingsStore store(path.toStdString());
        EXPECT_EQ(errorOf([&] { store.get("Orvan", "s", "k"); }), row.readError);
        EXPECT_EQ(errorOf([&] { store.set("Orvan", "s", "k", "new"); }), row.writeError);
        EXPECT_EQ(errorOf([&] { store.get("Orvan", "s", "k"); }), row.readError) << "again";
        if (row.content && file.open(QIODevice::ReadOnly)) {
            const QByteArray after = row.writeError == 0 ? "; mine\n[Orvan/s]\nk=new\n\n[Other]\nk=x\n" : row.content;
            EXPECT_EQ(file.readAll().toStdString(), after.toStdString());
        }
        EXPECT_FALSE(QFile::exists(path + QStringLiteral(".lock")));
    });
}

TEST(QtSettings, APipeIsRefusedAndNotWaitedFor)
{
    const test::TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    ASSERT_EQ(::mkfifo((folder / "new.ini.lock").c_str(), 0600), 0);
    QtSettingsStore pipe(folder / "pipe"), locked(folder / "new.ini");
    EXPECT_EQ(errorOf([&] { pipe.get("Orvan", "s", "k"); }), 75);
    EXPECT_EQ(errorOf([&] { pipe.set("Orvan", "s", "k", "v"); }), 75);
    EXPECT_EQ(errorOf([&] { locked.set("Orvan", "s", "k", "v"); }), 75);
}

} // namespace
} // namespace orvan::contract

// QtSettingsStore: the user's settings in one file.
//
// The file is an INI file; each pair of an application and a section has a section of its own there. It
// is read again for each call, so that several programs of one user see and keep each other's settings.
// A change is made under a lock and replaces the file in one step. Names and values are percent-encoded
// where needed, so that any text can be stored; upper and lower case make different names. Lines that
// the store did not write (comments, other sections) stay. Errors: see orvan/ui/SettingsStore.h; a
// damaged file cannot be read. Thread: any, but only one thread for each store.
#pragma once

#include "orvan/base/UserText.h"
#include "orvan/qt_export.h"
#include "orvan/ui/SettingsStore.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace orvan::qt {

class ORVAN_QT_INTERNAL QtSettingsStore : public ui::SettingsStore {
public:
    /// The file and its folder are made when a setting is first stored.
    explicit QtSettingsStore(const std::string& path = defaultPath());

    /// "Orvan/settings.ini" in the user's configuration folder.
    static std::string defaultPath();

    std::string get(std::string_view application, std::string_view section, std::string_view key) override;
    void set(std::string_view application, std::string_view section, std::string_view key,
             std::string_view value) override;

private:
    QList<QByteArray> readLines() const;
    void writeLines(const QList<QByteArray>& lines) const;
    enum class Doing { reading, writing };
    [[noreturn]] void raise(Doing what, const UserText& reason) const;

    QString path_;
};

} // namespace orvan::qt

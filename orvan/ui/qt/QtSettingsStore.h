// QtSettingsStore: the user's settings in one file.
//
// The file is an INI file, one section for each application and section, and is read anew for each
// call, so that several programs of one user see and keep each other's settings. A change is made
// under a lock and replaces the file in one step. Names and values are percent-encoded where they
// would not be plain text, so that any text can be stored, and differ in case. Lines that the store
// did not write (comments, other sections) stay. Errors: see orvan/ui/SettingsStore.h; a file that is
// damaged cannot be read. Thread: any, one thread a store.
#pragma once

#include "orvan/ui/SettingsStore.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace orvan::qt {

class QtSettingsStore : public ui::SettingsStore {
public:
    /// The file, and the folder it stands in, are made when they are first needed.
    explicit QtSettingsStore(const std::string& path = defaultPath());

    /// "Orvan/settings.ini" in the user's configuration folder.
    static std::string defaultPath();

    std::string get(std::string_view application, std::string_view section, std::string_view key) override;
    void set(std::string_view application, std::string_view section, std::string_view key,
             std::string_view value) override;

private:
    QList<QByteArray> readLines() const;
    void writeLines(const QList<QByteArray>& lines) const;
    [[noreturn]] void raise(const char* what, const QString& reason) const;

    QString path_;
};

} // namespace orvan::qt

// DeskSettings: what the desk keeps between its runs, in the user's settings. Where they cannot be read or written, the
// desk logs a warning and goes on without them. Thread: the user-interface thread.
#pragma once

#include "orvan/base/RuntimeError.h"
#include "orvan/hosting/QtHost.h"
#include "orvan/ui/SettingsStore.h"
#include "orvan/ui/qt/QtText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QString>

#include <string_view>

namespace orvan::desk {

inline constexpr std::string_view kSettingsSection = "Desk";
inline constexpr std::string_view kThemeKey = "Theme";

template <class Use>
void withSettings(Use&& use)
{
    try {
        use(qtHost().platform().settings());
    } catch (const RuntimeError& error) {
        qWarning("%s", error.what());
    }
}

/// The kept text; empty where there is none.
[[nodiscard]] inline QString keptText(std::string_view key)
{
    QString kept;
    withSettings([&](ui::SettingsStore& settings) {
        kept = qt::toQt(settings.get(ui::kSettingsApplication, kSettingsSection, key));
    });
    return kept;
}

inline void keepText(std::string_view key, const QString& text)
{
    withSettings([&](ui::SettingsStore& settings) {
        settings.set(ui::kSettingsApplication, kSettingsSection, key, qt::fromQt(text));
    });
}

/// A kept list; empty where there is none, or where somebody has damaged it.
[[nodiscard]] inline QJsonArray keptList(std::string_view key)
{
    return QJsonDocument::fromJson(keptText(key).toUtf8()).array();
}

inline void keepList(std::string_view key, const QJsonArray& list)
{
    keepText(key, QString::fromUtf8(QJsonDocument(list).toJson(QJsonDocument::Compact)));
}

} // namespace orvan::desk

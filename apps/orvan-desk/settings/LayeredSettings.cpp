#include "LayeredSettings.h"

#include "orvan/ui/qt/QtSettingsStore.h"

#include <algorithm>
#include <utility>

namespace orvan::desk {

namespace {

const SettingRow* rowAt(std::string_view application, std::string_view section, std::string_view key)
{
    const auto& rows = settingRows();
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const SettingRow& each) {
        return application == ui::kSettingsApplication && section == each.section && key == each.key;
    });
    return row == rows.end() ? nullptr : &*row;
}

} // namespace

LayeredSettings::LayeredSettings(std::shared_ptr<ui::SettingsStore> user, const SystemSettings& system)
    : user_(std::move(user)), system_(system)
{
}

std::string LayeredSettings::get(std::string_view application, std::string_view section, std::string_view key)
{
    const SettingRow* const row = rowAt(application, section, key);
    if (!row) {
        return user_->get(application, section, key);
    }
    const std::optional<std::string> own =
        system_.locks(row->name) ? std::nullopt : ownValue(*row, user_->get(application, section, key));
    return own ? *own : system_.choice(row->name).value.value_or(QString()).toStdString();
}

void LayeredSettings::set(std::string_view application, std::string_view section, std::string_view key,
                          std::string_view value)
{
    const SettingRow* const row = rowAt(application, section, key);
    if (!row) {
        user_->set(application, section, key, value);
    } else if (!system_.locks(row->name)) {
        const std::optional<QString>& preset = system_.choice(row->name).value;
        const bool blanks = preset && value.empty() && row->mayBeBlank;
        user_->set(application, section, key,
                   blanks                                     ? kBlank
                   : preset && preset->toStdString() == value ? std::string_view()
                                                              : value);
    }
}

std::optional<std::string> ownValue(const SettingRow& row, std::string stored)
{
    return stored.empty()                       ? std::nullopt
           : row.mayBeBlank && stored == kBlank ? std::optional(std::string())
                                                : std::optional(std::move(stored));
}

std::shared_ptr<ui::SettingsStore> deskSettings()
{
    static const std::shared_ptr<ui::SettingsStore> settings =
        std::make_shared<LayeredSettings>(std::make_shared<qt::QtSettingsStore>(), systemSettings());
    return settings;
}

} // namespace orvan::desk

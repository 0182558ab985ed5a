#include "orvan/outside/WatchedPlatform.h"

#include "orvan/outside/Watched.h"
#include "orvan/ui/Form.h"
#include "orvan/ui/ScreenPointer.h"
#include "orvan/ui/Timer.h"

#include <algorithm>
#include <utility>

namespace orvan::outside {

namespace {

class WatchedMessageBox final : public ui::MessageBox, Watched<ui::MessageBox*> {
public:
    using Watched::Watched;

    ui::MessageResult show(const ui::Message& message) override
    {
        const std::string text = watch().keepsAnswers() ? message.text.english() : std::string(); // which takes memory
        return ask<ui::MessageResult>("box.show", {text, message.title, message.buttons, message.icon},
                                      [&] { return inner().show(message); });
    }
};

class WatchedSettings final : public ui::SettingsStore, Watched<ui::SettingsStore*> {
public:
    using Watched::Watched;

    std::string get(std::string_view application, std::string_view section, std::string_view key) override
    {
        return ask<std::string>("settings.get", {application, section, key},
                                [&] { return inner().get(application, section, key); });
    }
    void set(std::string_view application, std::string_view section, std::string_view key,
             std::string_view value) override
    {
        tell("settings.set", {application, section, key, value},
             [&] { inner().set(application, section, key, value); });
    }
};

class WatchedLocale final : public ui::LocaleService, Watched<ui::LocaleService*> {
public:
    using Watched::Watched;

    std::int32_t getLocaleInfo(std::int32_t localeId, ui::LocaleItem item, std::span<char> buffer) override
    {
        using Item = std::pair<std::int32_t, std::string_view>;
        const auto sized = [&](std::int32_t size) {
            return Item(size, {buffer.data(), std::min(static_cast<std::size_t>(std::max(size, 0)), buffer.size())});
        };
        return call(
                   "locale.getLocaleInfo", {localeId, item, buffer.size()},
                   [&] { return sized(inner().getLocaleInfo(localeId, item, buffer)); },
                   [](const Item& result) { return callValues(result.first, result.second); },
                   [&](const CallValues& answer) {
                       const auto text = partOf<std::string>(answer, 1);
                       std::copy_n(text.begin(), std::min(text.size(), buffer.size()), buffer.begin());
                       return sized(partOf<std::int32_t>(answer));
                   })
            .first;
    }
    void appendCurrency(std::string& text, Currency value, int digits) override
    {
        text += ask<std::string>("locale.appendCurrency", {value, digits},
                                 [&] { return inner().formatCurrency(value, digits); });
    }
    void appendNumber(std::string& text, Currency value, int digits) override
    {
        text += ask<std::string>("locale.appendNumber", {value, digits},
                                 [&] { return inner().formatNumber(value, digits); });
    }
    Currency textToCurrency(std::string_view text) override
    {
        return ask<Currency>("locale.textToCurrency", {text}, [&] { return inner().textToCurrency(text); });
    }
    char32_t foldCase(char32_t character) override
    {
        return ask<char32_t>("locale.foldCase", {character}, [&] { return inner().foldCase(character); });
    }
};

class WatchedPointer final : public ui::ScreenPointer, Watched<ui::ScreenPointer*> {
public:
    using Watched::Watched;

    ui::PointerCode code() const override
    {
        return ask<ui::PointerCode>("pointer.code", {}, [&] { return inner().code(); });
    }
    void setCode(ui::PointerCode code) override
    {
        tell("pointer.setCode", {code}, [&] { inner().setCode(code); });
    }
};

class WatchedClipboard final : public ui::Clipboard, Watched<ui::Clipboard*> {
public:
    using Watched::Watched;

    std::string text() override
    {
        return ask<std::string>("clipboard.text", {}, [&] { return inner().text(); });
    }
    void setText(std::string_view text) override
    {
        tell("clipboard.setText", {text}, [&] { inner().setText(text); });
    }
};

} // namespace

struct WatchedPlatform::Services {
    Services(ui::Platform& inner, const Own& own, CallWatch& watch)
        : messageBox(&own.messageBox, watch), settings(&inner.settings(), watch), locale(&own.locale, watch),
          components(own.components, watch, own.unwatchedClass), pointer(&inner.pointer(), watch),
          clipboard(&inner.clipboard(), watch)
    {
    }

    WatchedMessageBox messageBox;
    WatchedSettings settings;
    WatchedLocale locale;
    WatchedFactory components;
    WatchedPointer pointer;
    WatchedClipboard clipboard;
};

WatchedPlatform::WatchedPlatform(ui::Platform& inner, const Own& own, CallWatch& watch)
    : inner_(inner), watch_(watch), services_(std::make_unique<Services>(inner, own, watch))
{
    editing = inner.editing;
    supportAddress = inner.supportAddress;
    onUnhandledError = [&inner](const RuntimeError& error) {
        if (inner.onUnhandledError) {
            inner.onUnhandledError(error);
        }
    };
}

WatchedPlatform::WatchedPlatform(ui::Platform& inner, CallWatch& watch)
    : WatchedPlatform(
          inner, {.components = inner.components(), .messageBox = inner.messageBox(), .locale = inner.locale()}, watch)
{
}

WatchedPlatform::~WatchedPlatform() = default;

ui::MessageBox& WatchedPlatform::messageBox()
{
    return services_->messageBox;
}

ui::SettingsStore& WatchedPlatform::settings()
{
    return services_->settings;
}

ui::LocaleService& WatchedPlatform::locale()
{
    return services_->locale;
}

ui::ComponentFactory& WatchedPlatform::components()
{
    return services_->components;
}

ui::Clipboard& WatchedPlatform::clipboard()
{
    return services_->clipboard;
}

ui::ScreenPointer& WatchedPlatform::pointer()
{
    return services_->pointer;
}

std::unique_ptr<ui::Form> WatchedPlatform::loadForm(const ui::FormDesign& design, std::int32_t ownerWindow)
{
    std::unique_ptr<ui::Form> form;
    watchedCall(watch_, "platform.loadForm", {design.name}, [&] { form = inner_.loadForm(design, ownerWindow); });
    for (const ui::ControlDesign& control : design.controls) {
        if (control.kind == ui::ControlKind::timer) {
            auto& timer = form->control<ui::Timer>(control.name);
            timer.beforeSchedule = [this, &timer] {
                watchedCall(watch_, "timer.schedule", {timer.name(), timer.enabled(), timer.interval()}, [] {});
            };
        }
    }
    if (onFormLoaded) {
        onFormLoaded(*form);
    }
    return form;
}

} // namespace orvan::outside

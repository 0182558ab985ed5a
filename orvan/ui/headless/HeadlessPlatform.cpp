#include "orvan/ui/headless/HeadlessPlatform.h"

#include "orvan/ui/headless/HeadlessForm.h"

#include <iostream>
#include <utility>

namespace orvan::headless {

namespace {

bool offers(ui::MessageButtons buttons, ui::MessageResult result)
{
    switch (result) {
    case ui::MessageResult::ok: return buttons == ui::MessageButtons::ok;
    case ui::MessageResult::cancel: return buttons == ui::MessageButtons::yesNoCancel;
    case ui::MessageResult::yes:
    case ui::MessageResult::no: return buttons != ui::MessageButtons::ok;
    }
    return false;
}

} // namespace

ui::MessageResult HeadlessMessageBox::show(const ui::Message& message)
{
    shown_.push_back(message);
    if (onWaiting) {
        onWaiting(message);
    }
    if (const auto box = hostBox) { // held, because the user of that box may take it away meanwhile
        return box->show(message);
    }
    if (answers_.empty() || !offers(message.buttons, answers_.front())) {
        ++unanswered_;
        throw RuntimeError(ErrorNumber::internalError, {},
                           "No answer to the message box \"" + message.text.english() + "\"");
    }
    const ui::MessageResult result = answers_.front();
    answers_.pop_front();
    return result;
}

std::string HeadlessSettingsStore::get(std::string_view application, std::string_view section, std::string_view key)
{
    if (hostStore) {
        return hostStore->get(application, section, key);
    }
    const auto found = values_.find({std::string(application), std::string(section), std::string(key)});
    return found == values_.end() ? std::string() : found->second;
}

void HeadlessSettingsStore::set(std::string_view application, std::string_view section, std::string_view key,
                                std::string_view value)
{
    if (hostStore) {
        hostStore->set(application, section, key, value);
        return;
    }
    values_[{std::string(application), std::string(section), std::string(key)}] = value;
}

HeadlessPlatform::HeadlessPlatform(ui::LocaleService& locale, ui::ComponentFactory& components)
    : locale_(locale), components_(components)
{
    onUnhandledError = [](const RuntimeError& error) {
        std::cerr << "Error " << error.number() << ": " << error.text() << '\n';
    };
}

std::unique_ptr<ui::Form> HeadlessPlatform::loadForm(const ui::FormDesign& design, std::int32_t ownerWindow)
{
    return std::make_unique<HeadlessForm>(design, *this, ownerWindow);
}

void HeadlessPlatform::useServices(ui::HostServices services)
{
    settings_.hostStore = std::move(services.settings);
    messageBox_.hostBox = std::move(services.messageBox);
}

HeadlessPlatform::Driver HeadlessPlatform::nextDriver()
{
    if (drivers_.empty()) {
        return {};
    }
    Driver next = std::move(drivers_.front());
    drivers_.pop_front();
    return next;
}

} // namespace orvan::headless

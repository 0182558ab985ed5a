// HeadlessPlatform: the library's platform without a toolkit.
//
// For hosts without a window (servers, converters, tests): the same logic runs on controls in
// memory, a person's answers to message boxes are given in advance, and settings live as long as
// the platform. Thread: the thread that made it.
#pragma once

#include "ui/Platform.h"

#include <deque>
#include <map>
#include <tuple>
#include <vector>

namespace orvan::headless {

/// A message box answered from a queue.
class HeadlessMessageBox final : public ui::MessageBox {
public:
    /// Answers the next message box that nobody has answered yet.
    void answer(ui::MessageResult result) { answers_.push_back(result); }

    /// Runs while a message box waits for its answer: what else happens in the program meanwhile.
    std::function<void(const ui::Message& message)> onWaiting;

    /// Raises 51 for a message box without an answer in the queue, or with one that its buttons do
    /// not offer; either way it counts as shown.
    ui::MessageResult show(const ui::Message& message) override;

    /// Every message box so far, oldest first.
    const std::vector<ui::Message>& shown() const { return shown_; }
    /// Answers that no message box has asked for yet.
    std::size_t unusedAnswers() const { return answers_.size(); }
    /// Message boxes that found no fitting answer.
    int unanswered() const { return unanswered_; }

private:
    std::deque<ui::MessageResult> answers_;
    std::vector<ui::Message> shown_;
    int unanswered_ = 0;
};

class HeadlessSettingsStore final : public ui::SettingsStore {
public:
    std::string get(std::string_view application, std::string_view section, std::string_view key) override;
    void set(std::string_view application, std::string_view section, std::string_view key,
             std::string_view value) override;

private:
    std::map<std::tuple<std::string, std::string, std::string>, std::string> values_;
};

class HeadlessPlatform final : public ui::Platform {
public:
    /// Both must outlive the platform. An error that no handler took is written to std::cerr until
    /// the host sets onUnhandledError.
    HeadlessPlatform(ui::LocaleService& locale, ui::ComponentFactory& components);

    HeadlessMessageBox& messageBox() override { return messageBox_; }
    HeadlessSettingsStore& settings() override { return settings_; }
    ui::LocaleService& locale() override { return locale_; }
    ui::ComponentFactory& components() override { return components_; }

private:
    ui::LocaleService& locale_;
    ui::ComponentFactory& components_;
    HeadlessMessageBox messageBox_;
    HeadlessSettingsStore settings_;
};

} // namespace orvan::headless

// MessageBoxConformance: the requirements on a message box (orvan/ui/MessageBox.h), as tests. See Conformance.h.
#pragma once

#include "orvan/testing/Conformance.h"
#include "orvan/ui/MessageBox.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace orvan::conformance {

/// A message box, and functions that play its user. Each is called before the box is shown, and arranges what the user
/// does as soon as it is.
struct MessageBoxSubject {
    std::function<std::shared_ptr<ui::MessageBox>()> make;
    /// The user presses this button.
    std::function<void(ui::MessageBox& box, ui::MessageResult button)> press;
    /// The user closes the box without an answer; if it is empty, that cannot be done, and its rows are skipped.
    std::function<void(ui::MessageBox& box)> close = {};
    /// What the last box showed as its text; if it is empty, the rows about texts are skipped.
    std::function<std::string()> shownText = {};
};

namespace boxes {

using Subject = MessageBoxSubject;
using ui::MessageButtons;
using ui::MessageResult;

inline ui::Message question(MessageButtons buttons)
{
    return {.text = "Are you sure?", .buttons = buttons, .icon = ui::MessageIcon::question};
}

inline MessageResult pressed(const Subject& subject, const ui::Message& message, MessageResult button)
{
    const auto box = subject.make();
    subject.press(*box, button);
    return box->show(message);
}

inline void expectClosedAs(const Subject& subject, MessageButtons buttons, MessageResult expected)
{
    if (!subject.close) {
        GTEST_SKIP() << "MessageBoxSubject::close is empty";
    }
    const auto box = subject.make();
    subject.close(*box);
    EXPECT_EQ(box->show(question(buttons)), expected);
}

inline constexpr Row<Subject> kRows[] = {
    {"OkIsTold",
     [](const Subject& subject) {
         EXPECT_EQ(pressed(subject, question(MessageButtons::ok), MessageResult::ok), MessageResult::ok);
     }},
    {"YesIsTold",
     [](const Subject& subject) {
         EXPECT_EQ(pressed(subject, question(MessageButtons::yesNo), MessageResult::yes), MessageResult::yes);
     }},
    {"NoIsTold",
     [](const Subject& subject) {
         EXPECT_EQ(pressed(subject, question(MessageButtons::yesNo), MessageResult::no), MessageResult::no);
     }},
    {"EachOfThreeButtonsIsTold",
     [](const Subject& subject) {
         for (const MessageResult button : {MessageResult::yes, MessageResult::no, MessageResult::cancel}) {
             EXPECT_EQ(pressed(subject, question(MessageButtons::yesNoCancel), button), button);
         }
     }},
    {"ClosedOkIsOk", [](const Subject& subject) { expectClosedAs(subject, MessageButtons::ok, MessageResult::ok); }},
    {"ClosedYesNoIsNo",
     [](const Subject& subject) { expectClosedAs(subject, MessageButtons::yesNo, MessageResult::no); }},
    {"ClosedYesNoCancelIsCancel",
     [](const Subject& subject) { expectClosedAs(subject, MessageButtons::yesNoCancel, MessageResult::cancel); }},
    {"AsksAgain",
     [](const Subject& subject) {
         const auto box = subject.make();
         for (const MessageResult button : {MessageResult::yes, MessageResult::no}) {
             subject.press(*box, button);
             EXPECT_EQ(box->show(question(MessageButtons::yesNoCancel)), button);
         }
     }},
    {"MissingOwnerCountsAsNone",
     [](const Subject& subject) {
         ui::Message message = question(MessageButtons::ok);
         message.ownerWindow = 0x7FFFFFFF;
         EXPECT_EQ(errorOf([&] { pressed(subject, message, MessageResult::ok); }), 0);
     }},
    {"TextIsNoMarkup",
     [](const Subject& subject) {
         if (!subject.shownText) {
             GTEST_SKIP() << "MessageBoxSubject::shownText is empty";
         }
         ui::Message message = question(MessageButtons::ok);
         message.text = "Bolts & <b>nuts</b>";
         static_cast<void>(pressed(subject, message, MessageResult::ok));
         EXPECT_EQ(subject.shownText(), "Bolts & <b>nuts</b>");
     }},
    {"LongTextIsShown",
     [](const Subject& subject) {
         ui::Message message = question(MessageButtons::ok);
         message.text = std::string(100'000, 'l');
         EXPECT_EQ(errorOf([&] { pressed(subject, message, MessageResult::ok); }), 0);
     }},
};

} // namespace boxes

/// Makes the tests "<name>MessageBox.<row>".
inline std::size_t addMessageBoxTests(const std::string& name, const MessageBoxSubject& subject)
{
    return addTests<MessageBoxSubject>(name + "MessageBox", boxes::kRows, subject);
}

} // namespace orvan::conformance

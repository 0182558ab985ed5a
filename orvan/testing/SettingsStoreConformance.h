// SettingsStoreConformance: the requirements on a settings store (orvan/ui/SettingsStore.h), as tests. See
// Conformance.h.
#pragma once

#include "orvan/testing/Conformance.h"
#include "orvan/ui/SettingsStore.h"

#include <functional>
#include <memory>
#include <string>

namespace orvan::conformance {

struct SettingsStoreSubject {
    /// Makes a store without settings of the sections that begin with "Conformance".
    std::function<std::shared_ptr<ui::SettingsStore>()> makeEmpty;
    /// Makes another store on the settings of the last one, as a program does that is started again; if it is empty,
    /// the settings end with their store, and the row about that is skipped.
    std::function<std::shared_ptr<ui::SettingsStore>()> makeAgain = {};
};

namespace settings {

using Subject = SettingsStoreSubject;

inline constexpr std::string_view kSection = "Conformance_Prefs";

inline std::string get(ui::SettingsStore& store, std::string_view key)
{
    return store.get(ui::kSettingsApplication, kSection, key);
}

inline void set(ui::SettingsStore& store, std::string_view key, std::string_view value)
{
    store.set(ui::kSettingsApplication, kSection, key, value);
}

inline constexpr Row<Subject> kRows[] = {
    {"MissingKeyReadsAsNothing", [](const Subject& subject) { EXPECT_EQ(get(*subject.makeEmpty(), "missing"), ""); }},
    {"ValueIsKept",
     [](const Subject& subject) {
         const auto store = subject.makeEmpty();
         set(*store, "key", "4~1~250^2500^700");
         EXPECT_EQ(get(*store, "key"), "4~1~250^2500^700");
     }},
    {"LaterValueReplacesTheFormer",
     [](const Subject& subject) {
         const auto store = subject.makeEmpty();
         set(*store, "key", "a long former value");
         set(*store, "key", "short");
         EXPECT_EQ(get(*store, "key"), "short");
     }},
    {"EmptyValueReplacesTheFormer",
     [](const Subject& subject) {
         const auto store = subject.makeEmpty();
         set(*store, "key", "former");
         set(*store, "key", "");
         EXPECT_EQ(get(*store, "key"), "");
     }},
    {"AnyValueIsKept",
     [](const Subject& subject) {
         const auto store = subject.makeEmpty();
         for (const std::string& value :
              {std::string(" blanks at both ends "), std::string("two\nlines\r\n\tmore"),
               std::string("[a]=b;c#d%20\\\"e'"), std::string("Straße €"), std::string(100'000, 'v')}) {
             const std::string key = "key" + std::to_string(value.size());
             set(*store, key, value);
             EXPECT_EQ(get(*store, key), value);
         }
     }},
    {"AnyKeyIsKept",
     [](const Subject& subject) {
         const auto store = subject.makeEmpty();
         for (const char* const key : {"ViewSettings_Main Form", "a=b", "[x]", "Präfix/\\%41", ""}) {
             set(*store, key, key);
             EXPECT_EQ(get(*store, key), key);
         }
     }},
    {"KeysAreApart",
     [](const Subject& subject) {
         const auto store = subject.makeEmpty();
         set(*store, "key", "one");
         set(*store, "key2", "other");
         EXPECT_EQ(get(*store, "key"), "one");
     }},
    {"SectionsAreApart",
     [](const Subject& subject) {
         const auto store = subject.makeEmpty();
         store->set(ui::kSettingsApplication, "ConformanceOne", "key", "one");
         store->set(ui::kSettingsApplication, "ConformanceTwo", "key", "other");
         EXPECT_EQ(store->get(ui::kSettingsApplication, "ConformanceOne", "key"), "one");
     }},
    {"ApplicationsAreApart",
     [](const Subject& subject) {
         const auto store = subject.makeEmpty();
         store->set("ConformanceOne", kSection, "key", "one");
         store->set("ConformanceTwo", kSection, "key", "other");
         EXPECT_EQ(store->get("ConformanceOne", kSection, "key"), "one");
     }},
    {"ValueOutlivesTheStore",
     [](const Subject& subject) {
         if (!subject.makeAgain) {
             GTEST_SKIP() << "SettingsStoreSubject::makeAgain is empty";
         }
         set(*subject.makeEmpty(), "key", "kept between runs");
         EXPECT_EQ(get(*subject.makeAgain(), "key"), "kept between runs");
     }},
};

} // namespace settings

/// Makes the tests "<name>SettingsStore.<row>".
inline std::size_t addSettingsStoreTests(const std::string& name, const SettingsStoreSubject& subject)
{
    return addTests<SettingsStoreSubject>(name + "SettingsStore", settings::kRows, subject);
}

} // namespace orvan::conformance

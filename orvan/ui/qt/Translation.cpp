#include "orvan/ui/qt/Translation.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/ui/qt/QtText.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>

namespace orvan::qt {

namespace {

/// Nothing where no translator has the text.
std::optional<QString> findTranslation(std::string_view english, std::optional<std::int64_t> count)
{
    const std::string source(english);
    const int number = static_cast<int>(std::min<std::int64_t>(count.value_or(-1), std::numeric_limits<int>::max()));
    const QString found = QCoreApplication::translate("orvan", source.c_str(), nullptr, number);
    const QString same = count ? toQt(english).replace(QStringLiteral("%n"), QString::number(number)) : toQt(english);
    return found == same ? std::nullopt : std::optional(found);
}

} // namespace

QString translatedSentence(std::string_view english)
{
    return english.empty() ? QString() : findTranslation(english, {}).value_or(toQt(english));
}

QString translated(const UserText& text)
{
    return toQt(text.in([](std::string_view english, std::optional<std::int64_t> count) {
        const std::optional<QString> found = findTranslation(english, count);
        return found ? std::optional(fromQt(*found)) : std::nullopt;
    }));
}

QString translated(const std::exception& error)
{
    const auto* known = dynamic_cast<const RuntimeError*>(&error);
    return known ? translated(known->userText()) : QString::fromUtf8(error.what());
}

} // namespace orvan::qt

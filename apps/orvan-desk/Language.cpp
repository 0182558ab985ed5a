#include "Language.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QTranslator>

#include <algorithm>

namespace orvan::desk {

namespace {

const QString kFolder = QStringLiteral(":/translations");
const QString kPrefix = QStringLiteral("orvan-desk_");
const QString kEnglish = QStringLiteral("en"); // has no file: the texts in the sources are English

/// The application owns the translator.
void install(const QString& name, const QString& folder)
{
    auto* translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(name, folder)) {
        QCoreApplication::installTranslator(translator);
    } else {
        delete translator; // Qt's own texts are not installed; they stay English
    }
}

QString& used()
{
    static QString language = kEnglish;
    return language;
}

} // namespace

QStringList languages()
{
    // Asked for several times at each start. No wildcards: Qt would compile them for each question.
    static const QStringList known = [] {
        QStringList names{kEnglish};
        for (const QString& file : QDir(kFolder).entryList()) {
            if (file.startsWith(kPrefix)) {
                names << file.mid(kPrefix.size()).section(u'.', 0, 0);
            }
        }
        names.sort();
        return names;
    }();
    return known;
}

void useLanguage(const QStringList& wanted)
{
    const QStringList known = languages();
    for (const QString& name : wanted) {
        const auto* const end =
            std::find_if(name.begin(), name.end(), [](QChar c) { return QStringLiteral("-_.@").contains(c); });
        const QString language = name.left(end - name.begin()).toLower();
        if (known.contains(language)) {
            used() = language;
            if (language != kEnglish) {
                install(QStringLiteral("qtbase_") + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
                install(kPrefix + language, kFolder);
            }
            return;
        }
    }
}

QString usedLanguage()
{
    return used();
}

} // namespace orvan::desk

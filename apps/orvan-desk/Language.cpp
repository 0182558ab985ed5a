#include "Language.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <QTranslator>

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
    QStringList names{kEnglish};
    for (const QString& file : QDir(kFolder).entryList({kPrefix + u'*'})) {
        names << file.mid(kPrefix.size()).section(u'.', 0, 0);
    }
    names.sort();
    return names;
}

void useLanguage(const QStringList& wanted)
{
    const QStringList known = languages();
    for (const QString& name : wanted) {
        const QString language = name.section(QRegularExpression(QStringLiteral("[-_.@]")), 0, 0).toLower();
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

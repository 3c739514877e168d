#include <vxcore/vxlanguage.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>
#include <QtCore/QTranslator>
#include <algorithm>
#include <iterator>

namespace {

QString sourceLanguage()
{
    return QStringLiteral("en");
}

QString &currentLanguage()
{
    static QString code = sourceLanguage();
    return code;
}

/** The files of all languages. */
QStringList translationFiles()
{
    const QDir folder(QStringLiteral(":/translations"));
    QStringList files;
    for (const QString &name : folder.entryList()) {
        if (name.endsWith(QLatin1String(".qm")))
            files.append(folder.filePath(name));
    }
    return files;
}

QStringList translationFiles(const QString &language)
{
    const QStringList all = translationFiles();
    const QString ending = QLatin1Char('_') + language + QLatin1String(".qm");
    QStringList files;
    std::copy_if(all.begin(), all.end(), std::back_inserter(files),
                 [&ending](const QString &file) { return file.endsWith(ending); });
    return files;
}

QString languageOf(const QString &file)
{
    return file.section(QLatin1Char('_'), -1).section(QLatin1Char('.'), 0, 0);
}

/** The toolkit's own texts. */
QString toolkitFile(const QString &language)
{
    return QDir(QLibraryInfo::location(QLibraryInfo::TranslationsPath))
        .filePath(QStringLiteral("qtbase_%1.qm").arg(language));
}

/** Installed translators belong to the application and are named as their files. */
QList<QTranslator *> installedTranslators()
{
    QList<QTranslator *> translators = QCoreApplication::instance()->findChildren<QTranslator *>(
        QString(), Qt::FindDirectChildrenOnly);
    const auto isForeign = [](const QTranslator *translator) {
        return !translator->objectName().endsWith(QLatin1String(".qm"));
    };
    translators.erase(std::remove_if(translators.begin(), translators.end(), isForeign),
                      translators.end());
    return translators;
}

void install(const QString &file)
{
    for (const QTranslator *translator : installedTranslators()) {
        if (translator->objectName() == file)
            return;
    }
    auto *translator = new QTranslator(QCoreApplication::instance());
    translator->setObjectName(file);
    if (translator->load(file))
        QCoreApplication::installTranslator(translator);
    else
        delete translator;
}

void installLanguage(const QString &language)
{
    for (const QString &file : translationFiles(language))
        install(file);
}

/** Without a language of its own the system has plain numbers, without groups of digits. */
QLocale systemNumbers()
{
    const QLocale system = QLocale::system();
    return system.language() == QLocale::C ? QLocale::c() : system;
}

void setNumberLocale(const QString &language)
{
    const QLocale system = systemNumbers();
    const QLocale chosen(language);
    const bool isSystems = language.isEmpty() || chosen.language() == system.language();
    QLocale::setDefault(isSystems ? system : chosen);
}

void startLanguage()
{
    currentLanguage() = sourceLanguage();
    QLocale::setDefault(systemNumbers());
    installLanguage(sourceLanguage());
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(startLanguage)

QStringList VxLanguage::available()
{
    QStringList codes{sourceLanguage()};
    for (const QString &file : translationFiles())
        codes.append(languageOf(file));
    codes.sort();
    codes.removeDuplicates();
    return codes;
}

QString VxLanguage::nativeName(const QString &code)
{
    // The locale's own name for it is "American English".
    return code == sourceLanguage() ? QLocale::languageToString(QLocale::English)
                                    : QLocale(code).nativeLanguageName();
}

QString VxLanguage::system()
{
    const QStringList codes = available();
    for (QString name : QLocale::system().uiLanguages()) {
        name.replace(QLatin1Char('-'), QLatin1Char('_'));
        for (const QString &code : {name, name.section(QLatin1Char('_'), 0, 0)}) {
            if (codes.contains(code))
                return code;
        }
    }
    return sourceLanguage();
}

QString VxLanguage::current()
{
    return currentLanguage();
}

bool VxLanguage::setCurrent(const QString &code)
{
    const QString language = code.isEmpty() ? system() : code;
    if (!available().contains(language))
        return false;
    for (QTranslator *translator : installedTranslators()) {
        if (languageOf(translator->objectName()) != sourceLanguage())
            delete translator; // which removes it
    }
    currentLanguage() = language;
    if (language != sourceLanguage())
        install(toolkitFile(language));
    addNewResources();
    setNumberLocale(code);
    return true;
}

void VxLanguage::addNewResources()
{
    if (!QCoreApplication::instance())
        return;
    installLanguage(sourceLanguage());
    if (currentLanguage() != sourceLanguage())
        installLanguage(currentLanguage());
}

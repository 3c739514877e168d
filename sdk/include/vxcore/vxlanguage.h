#ifndef VXLANGUAGE_H
#define VXLANGUAGE_H

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <vxcore/vxcoreglobal.h>

/// The language of all texts.
///
/// Translations are resources named ":/translations/COMPONENT_LANGUAGE.qm"; program, library and
/// plug-ins each bring their own. The texts in the sources are English, and the English files have
/// their plural forms: they are installed when the application object is made, and VxPluginMgr adds
/// those of a module that it loads. A text without a translation is shown in English.
class VXCORE_EXPORT VxLanguage
{
public:
    /// The codes of all languages found, sorted, such as "de" and "en".
    static QStringList available();
    /// The name of a language in itself, such as "Deutsch".
    static QString nativeName(const QString &code);
    /// The available language that the user prefers by the settings of the system; "en" for none.
    static QString system();

    /// The language in use, "en" before setCurrent().
    static QString current();
    /// Makes an available language current. QLocale() gets the numbers of the language, unless the
    /// system's numbers are of the same language. Empty: the system's language and numbers. False,
    /// and without effect, when the language is not available. Texts that are already shown do not
    /// change.
    static bool setCurrent(const QString &code);

    /// Installs translations of resources that were added since the last call.
    static void addNewResources();
};

#endif

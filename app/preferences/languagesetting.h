#ifndef LANGUAGESETTING_H
#define LANGUAGESETTING_H

#include <QString>

class VxSettings;

/// The language in the program's settings: a code of VxLanguage::available(), or empty for the
/// system's language. A change takes effect at the next start.
class LanguageSetting
{
public:
    /// Empty also for a stored language that is not available any more.
    static QString code(const VxSettings &settings);
    static void setCode(VxSettings *settings, const QString &code);
};

#endif

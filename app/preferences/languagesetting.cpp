#include "preferences/languagesetting.h"

#include <vxcore/vxlanguage.h>
#include <vxcore/vxsettings.h>

namespace {

QString languageKey()
{
    return QStringLiteral("Language");
}

} // namespace

QString LanguageSetting::code(const VxSettings &settings)
{
    const QString code = settings.getStringValue(languageKey());
    return VxLanguage::available().contains(code) ? code : QString();
}

void LanguageSetting::setCode(VxSettings *settings, const QString &code)
{
    settings->setStringValue(languageKey(), code);
}

#include "preferences/appearance.h"

#include <QMetaEnum>
#include <vxcore/vxsettings.h>

namespace {

const QString PaletteKey = QStringLiteral("Palette");
const QString TextSizeKey = QStringLiteral("TextSize");
const QString CurveColorsKey = QStringLiteral("CurveColors");
const QString SafeText = QStringLiteral("safe");

} // namespace

QStringList Appearance::paletteNames()
{
    const QMetaEnum schemes = QMetaEnum::fromType<VxStyle::ColorScheme>();
    QStringList names;
    for (int i = 0; i < schemes.keyCount(); ++i)
        names += QString::fromLatin1(schemes.key(i)).toLower();
    return names;
}

QString Appearance::paletteName(VxStyle::ColorScheme scheme)
{
    return paletteNames().value(static_cast<int>(scheme));
}

VxStyle::ColorScheme Appearance::paletteOf(const QString &name)
{
    return static_cast<VxStyle::ColorScheme>(qMax(0, paletteNames().indexOf(name)));
}

void Appearance::restore(const VxSettings &settings, VxStyle *style)
{
    style->setColorScheme(paletteOf(settings.getStringValue(PaletteKey)));
    style->setTextSize(settings.getIntValue(TextSizeKey, 0));
    style->setCurveColors(settings.getStringValue(CurveColorsKey) == SafeText
                              ? VxStyle::CurveColors::Safe
                              : VxStyle::CurveColors::Standard);
}

void Appearance::store(const VxStyle &style, VxSettings *settings)
{
    settings->setStringValue(PaletteKey, paletteName(style.colorScheme()));
    settings->setIntValue(TextSizeKey, style.textSize());
    const bool isSafe = style.curveColors() == VxStyle::CurveColors::Safe;
    settings->setStringValue(CurveColorsKey, isSafe ? SafeText : QStringLiteral("standard"));
}

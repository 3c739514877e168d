#ifndef APPEARANCE_H
#define APPEARANCE_H

#include <QString>
#include <QStringList>
#include <vxcore/vxstyle.h>

class VxSettings;

/// Palette, text size and curve colours by the names that settings and command line have for them.
namespace Appearance {

/// "dark", "light" and "contrast".
QStringList paletteNames();
QString paletteName(VxStyle::ColorScheme scheme);
/// Dark for an unknown name.
VxStyle::ColorScheme paletteOf(const QString &name);

/// Sets the stored look on a style; what is not stored gets its default.
void restore(const VxSettings &settings, VxStyle *style);
/// Stores the style's look.
void store(const VxStyle &style, VxSettings *settings);

} // namespace Appearance

#endif

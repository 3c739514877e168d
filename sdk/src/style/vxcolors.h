#ifndef VXCOLORS_H
#define VXCOLORS_H

#include <QtGui/QColor>
#include <QtGui/QPalette>
#include <vxcore/vxstyle.h>

/// The colours of all schemes: the palettes, and the named colours.
namespace VxColors {

QPalette palette(VxStyle::ColorScheme scheme);

/// Invalid when there is no colour of that name.
QColor interfaceColor(VxStyle::ColorScheme scheme, const QString &name);

/// An axis' colour of the set that people with a dichromacy can distinguish; invalid for other
/// names.
QColor safeCurveColor(VxStyle::ColorScheme scheme, const QString &name);

/// The scheme that contrasts with the palette's base colour. Painting follows the palette in use,
/// so that a widget with its own palette stays readable.
VxStyle::ColorScheme schemeFor(const QPalette &palette);

/// The colour between two others; amount 0 gives the first, 1 the second.
QColor mix(const QColor &first, const QColor &second, qreal amount);

} // namespace VxColors

#endif

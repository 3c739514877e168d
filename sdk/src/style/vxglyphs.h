#ifndef VXGLYPHS_H
#define VXGLYPHS_H

#include <QtGui/QColor>

#include <vxcore/vxstyle.h>

class QPainter;

// The colours of an icon: ink for lines and bodies, accent for emphasis, soft for the background.
struct VxGlyphColors
{
    QColor ink, accent, soft;
};

// Draws one icon on a field of 16 by 16 units. The painter has anti-aliasing on, no pen and brush,
// and a scale that fits the field to the icon's square.
using VxGlyph = void (*)(QPainter &painter, const VxGlyphColors &colors);

// One table for each family; null when the family does not have the icon.
VxGlyph vxTransportGlyph(VxStyle::StandardIconId id);
VxGlyph vxKeyGlyph(VxStyle::StandardIconId id);
VxGlyph vxSceneGlyph(VxStyle::StandardIconId id);
VxGlyph vxToolGlyph(VxStyle::StandardIconId id);
// The icons of message boxes, by the toolkit's numbers: the toolkit's own are small bitmaps, which
// are blurred on high resolution screens.
VxGlyph vxMessageGlyph(VxStyle::StandardIconId id);

// Searches all families; null when no icon has that number.
VxGlyph vxFindGlyph(VxStyle::StandardIconId id);

#endif

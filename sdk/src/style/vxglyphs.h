#ifndef VXGLYPHS_H
#define VXGLYPHS_H

#include <QtGui/QColor>

#include <vxcore/vxstyle.h>

class QPainter;

// The colours an icon is drawn in: ink for lines and bodies, accent for what is to be noticed,
// soft for what stays in the background.
struct VxGlyphColors
{
    QColor ink, accent, soft;
};

// Draws one icon on a field of 16 by 16 units. The painter comes with anti-aliasing on, without
// pen and brush, and scaled so that the field fills the icon's square.
using VxGlyph = void (*)(QPainter &painter, const VxGlyphColors &colors);

// One table for each family; null when the family does not know the icon.
VxGlyph vxTransportGlyph(VxStyle::StandardIconId id);
VxGlyph vxKeyGlyph(VxStyle::StandardIconId id);
VxGlyph vxSceneGlyph(VxStyle::StandardIconId id);
VxGlyph vxToolGlyph(VxStyle::StandardIconId id);
// The toolkit's own signs of message boxes, by the toolkit's numbers: it has them as small pictures
// only, which are blurred on fine screens.
VxGlyph vxMessageGlyph(VxStyle::StandardIconId id);

// Looks in all families; null when no icon has that number.
VxGlyph vxFindGlyph(VxStyle::StandardIconId id);

#endif

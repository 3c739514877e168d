#include "style/vxglyphs.h"

VxGlyph vxFindGlyph(VxStyle::StandardIconId id)
{
    for (const auto family :
         {vxTransportGlyph, vxKeyGlyph, vxSceneGlyph, vxToolGlyph, vxMessageGlyph}) {
        if (const VxGlyph glyph = family(id))
            return glyph;
    }
    return nullptr;
}

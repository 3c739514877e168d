// The key commands of the dope sheet view.

#include "vxtimeline/dopesheet/vxdopesheetview.h"

bool VxDopeSheetView::hasCopiedKeys() const
{
    return false;
}

void VxDopeSheetView::copyKeys()
{
    Q_EMIT copyContextChanged(hasCopiedKeys());
}

void VxDopeSheetView::pasteKeys() {}

void VxDopeSheetView::deleteKeys() {}

void VxDopeSheetView::setInterpType(int type)
{
    Q_UNUSED(type)
}

void VxDopeSheetView::setTCB(float t, float c, float b)
{
    Q_UNUSED(t)
    Q_UNUSED(c)
    Q_UNUSED(b)
}

void VxDopeSheetView::skipToPreviousKey() {}

void VxDopeSheetView::skipToNextKey() {}

// Key selection and the key commands of the dope sheet view.

#include "vxtimeline/dopesheet/vxdopesheetview.h"

bool VxDopeSheetView::hasCopiedKeys() const
{
    return false;
}

bool VxDopeSheetView::getCommonTension(float *tension) const
{
    Q_UNUSED(tension)
    return false;
}

bool VxDopeSheetView::getCommonContinuity(float *continuity) const
{
    Q_UNUSED(continuity)
    return false;
}

bool VxDopeSheetView::getCommonBias(float *bias) const
{
    Q_UNUSED(bias)
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

void VxDopeSheetView::clearSelectedKeys() {}

void VxDopeSheetView::setKeySelection(bool yesNo, QModelIndex startIndex, QModelIndex endIndex,
                                      VxTime startTime, VxTime endTime)
{
    Q_UNUSED(yesNo)
    Q_UNUSED(startIndex)
    Q_UNUSED(endIndex)
    Q_UNUSED(startTime)
    Q_UNUSED(endTime)
    Q_EMIT keySelectionChanged();
    viewport()->update();
}

void VxDopeSheetView::timerKick() {}

void VxDopeSheetView::handleKeyMessage(const VxKeyMessage &message)
{
    Q_UNUSED(message)
    viewport()->update();
}

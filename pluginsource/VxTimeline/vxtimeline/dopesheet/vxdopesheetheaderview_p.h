#ifndef VXDOPESHEETHEADERVIEW_P_H
#define VXDOPESHEETHEADERVIEW_P_H

#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <QtCore/QPointer>
#include <QtGui/QRegion>

/// All state of the header.
class VxGestureGuard;

class VxDopeSheetHeaderView::Private
{
public:
    bool markerDragged = false; // the time follows the mouse
    bool basePressed = false;   // the base class has received the press but not yet its release
    VxTime timeAtPress = 0;
    VxGestureGuard *guard = nullptr; // of the viewport
    QPointer<VxDopeSheetItem> keySource;
    QRegion paintedRegion; // of the current paint event; empty outside of one
};

#endif

#ifndef VXTIMEPANEVIEWACTIONS_H
#define VXTIMEPANEVIEWACTIONS_H

#include "vxtimelineactions/vxanimationaction.h"

// The commands that rebuild or fit the pane's views.

/// Rebuilds the rows of the dope sheet.
class VxTimePaneRefreshDopesheetAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneRefreshDopesheetAction();
};

/// Fits the key graph to its keys.
class VxTimePaneFrameGraphKeysAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneFrameGraphKeysAction();
};

#endif

#ifndef VXTIMEPANEEXPANDACTIONS_H
#define VXTIMEPANEEXPANDACTIONS_H

#include "vxtimelineactions/vxanimationaction.h"

// The commands that open and close rows of the dope sheet: all of them, or those below the row of
// its context menu.

/// Opens every row.
class VxTimePaneExpandAllItemsAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneExpandAllItemsAction();
};

/// Opens the row.
class VxTimePaneExpandItemAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneExpandItemAction();
};

/// Opens the row and all below it.
class VxTimePaneExpandFromItemAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneExpandFromItemAction();
};

/// Opens the row and those below it that have keys.
class VxTimePaneExpandKeyedFromItemAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneExpandKeyedFromItemAction();
};

/// Closes every row.
class VxTimePaneCollapseAllItemsAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneCollapseAllItemsAction();
};

/// Closes the row.
class VxTimePaneCollapseItemAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneCollapseItemAction();
};

/// Closes the row and all below it.
class VxTimePaneCollapseFromItemAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneCollapseFromItemAction();
};

/// Closes the rows without keys, from the row on.
class VxTimePaneCollapseNonKeyedFromItemAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneCollapseNonKeyedFromItemAction();
};

#endif

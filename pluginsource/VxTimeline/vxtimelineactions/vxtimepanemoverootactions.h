#ifndef VXTIMEPANEMOVEROOTACTIONS_H
#define VXTIMEPANEMOVEROOTACTIONS_H

#include "vxtimelineactions/vxanimationaction.h"

/// Base of the four commands that move a root node, the one above the current row, in the list of
/// root rows.
class VxTimePaneMoveRootNodeAction : public VxAnimationAction
{
    Q_OBJECT
protected:
    using VxAnimationAction::VxAnimationAction;
};

/// To the top of the list.
class VxTimePaneMoveRootNodeToTopAction : public VxTimePaneMoveRootNodeAction
{
    Q_OBJECT
public:
    VxTimePaneMoveRootNodeToTopAction();
};

/// One row up.
class VxTimePaneMoveRootNodeUpAction : public VxTimePaneMoveRootNodeAction
{
    Q_OBJECT
public:
    VxTimePaneMoveRootNodeUpAction();
};

/// One row down.
class VxTimePaneMoveRootNodeDownAction : public VxTimePaneMoveRootNodeAction
{
    Q_OBJECT
public:
    VxTimePaneMoveRootNodeDownAction();
};

/// To the bottom of the list.
class VxTimePaneMoveRootNodeToBottomAction : public VxTimePaneMoveRootNodeAction
{
    Q_OBJECT
public:
    VxTimePaneMoveRootNodeToBottomAction();
};

#endif

#ifndef VXTIMEPANEMOVEROOTACTIONS_H
#define VXTIMEPANEMOVEROOTACTIONS_H

#include "vxtimelineactions/vxanimationaction.h"

// Base of the four commands that move a root node, the one above the current row, in the list of
// root rows.
class VxTimePaneMoveRootNodeAction : public VxAnimationAction
{
    Q_OBJECT
public:
    ~VxTimePaneMoveRootNodeAction() override;

    void init() override;

protected:
    VxTimePaneMoveRootNodeAction(const QString &text, const QString &description);
};

// To the top of the list.
class VxTimePaneMoveRootNodeToTopAction : public VxTimePaneMoveRootNodeAction
{
    Q_OBJECT
public:
    VxTimePaneMoveRootNodeToTopAction();

protected:
    void executeAction() override;
};

// One row up.
class VxTimePaneMoveRootNodeUpAction : public VxTimePaneMoveRootNodeAction
{
    Q_OBJECT
public:
    VxTimePaneMoveRootNodeUpAction();

protected:
    void executeAction() override;
};

// One row down.
class VxTimePaneMoveRootNodeDownAction : public VxTimePaneMoveRootNodeAction
{
    Q_OBJECT
public:
    VxTimePaneMoveRootNodeDownAction();

protected:
    void executeAction() override;
};

// To the bottom of the list.
class VxTimePaneMoveRootNodeToBottomAction : public VxTimePaneMoveRootNodeAction
{
    Q_OBJECT
public:
    VxTimePaneMoveRootNodeToBottomAction();

protected:
    void executeAction() override;
};

#endif

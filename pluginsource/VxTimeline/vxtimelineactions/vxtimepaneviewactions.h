#ifndef VXTIMEPANEVIEWACTIONS_H
#define VXTIMEPANEVIEWACTIONS_H

#include "vxtimelineactions/vxanimationaction.h"

// The commands that renew or fit what the pane shows.

// Builds the rows of the dope sheet anew.
class VxTimePaneRefreshDopesheetAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneRefreshDopesheetAction();

protected:
    void executeAction() override;
};

// Fits the key graph to its keys.
class VxTimePaneFrameGraphKeysAction : public VxAnimationAction
{
    Q_OBJECT
public:
    VxTimePaneFrameGraphKeysAction();
    QString getDefaultAccel() const override;

protected:
    void executeAction() override;
};

#endif

#ifndef VXTIMEPANEITEMKEYSACTIONS_H
#define VXTIMEPANEITEMKEYSACTIONS_H

#include <vxcore/vxtimerange.h>

#include "vxtimelineactions/vxanimationaction.h"

// Base of the four commands that select or deselect the keys of the selected rows.
//
// The four differ only in direction and time range, so the work is done here.
// Selecting replaces the key selection unless Ctrl is held; deselecting always keeps the rest.
class VxTimePaneItemKeysSelectionAction : public VxAnimationAction
{
    Q_OBJECT
public:
    ~VxTimePaneItemKeysSelectionAction() override;

    void init() override;
    QString getActionGroup() const override;

protected:
    VxTimePaneItemKeysSelectionAction(const QString &text, const QString &description);
    void executeAction() override;

    virtual bool selectsKeys() const = 0;
    // Both ends included.
    virtual VxTimeRange getKeyRange() const = 0;
};

// Selects the keys within the play range.
class VxTimePaneSelectItemPlayRangeKeysAction : public VxTimePaneItemKeysSelectionAction
{
    Q_OBJECT
public:
    VxTimePaneSelectItemPlayRangeKeysAction();

protected:
    bool selectsKeys() const override;
    VxTimeRange getKeyRange() const override;
};

// Selects the keys at all times.
class VxTimePaneSelectItemAnimRangeKeysAction : public VxTimePaneItemKeysSelectionAction
{
    Q_OBJECT
public:
    VxTimePaneSelectItemAnimRangeKeysAction();

protected:
    bool selectsKeys() const override;
    VxTimeRange getKeyRange() const override;
};

// Deselects the keys within the play range.
class VxTimePaneDeselectItemPlayRangeKeysAction : public VxTimePaneItemKeysSelectionAction
{
    Q_OBJECT
public:
    VxTimePaneDeselectItemPlayRangeKeysAction();

protected:
    bool selectsKeys() const override;
    VxTimeRange getKeyRange() const override;
};

// Deselects the keys at all times.
class VxTimePaneDeselectItemAnimRangeKeysAction : public VxTimePaneItemKeysSelectionAction
{
    Q_OBJECT
public:
    VxTimePaneDeselectItemAnimRangeKeysAction();

protected:
    bool selectsKeys() const override;
    VxTimeRange getKeyRange() const override;
};

#endif

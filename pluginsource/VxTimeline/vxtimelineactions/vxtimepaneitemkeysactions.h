#ifndef VXTIMEPANEITEMKEYSACTIONS_H
#define VXTIMEPANEITEMKEYSACTIONS_H

#include "vxtimelineactions/vxanimationaction.h"

/// Base of the four commands that select or deselect the keys of the selected rows.
///
/// The four differ only in direction and time range, so the work is done here.
/// Selecting replaces the key selection unless Ctrl is held; deselecting always keeps the rest.
class VxTimePaneItemKeysSelectionAction : public VxAnimationAction
{
    Q_OBJECT
public:
    QString getActionGroup() const override;

protected:
    enum Direction { Select, Deselect };
    enum Range { PlayRange, AllTimes };

    VxTimePaneItemKeysSelectionAction(Direction direction, Range range, const QString &text,
                                      const QString &description);
    void executeAction() override;

private:
    const Direction m_direction;
    const Range m_range;
};

/// Selects the keys within the play range.
class VxTimePaneSelectItemPlayRangeKeysAction : public VxTimePaneItemKeysSelectionAction
{
    Q_OBJECT
public:
    VxTimePaneSelectItemPlayRangeKeysAction();
};

/// Selects the keys at all times.
class VxTimePaneSelectItemAnimRangeKeysAction : public VxTimePaneItemKeysSelectionAction
{
    Q_OBJECT
public:
    VxTimePaneSelectItemAnimRangeKeysAction();
};

/// Deselects the keys within the play range.
class VxTimePaneDeselectItemPlayRangeKeysAction : public VxTimePaneItemKeysSelectionAction
{
    Q_OBJECT
public:
    VxTimePaneDeselectItemPlayRangeKeysAction();
};

/// Deselects the keys at all times.
class VxTimePaneDeselectItemAnimRangeKeysAction : public VxTimePaneItemKeysSelectionAction
{
    Q_OBJECT
public:
    VxTimePaneDeselectItemAnimRangeKeysAction();
};

#endif

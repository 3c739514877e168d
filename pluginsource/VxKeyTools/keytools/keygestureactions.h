#ifndef KEYGESTUREACTIONS_H
#define KEYGESTUREACTIONS_H

#include "keytools/keygestureamount.h"
#include "keytools/keysmenuaction.h"

/// Base of the actions that begin a KeyGesture in the timeline. Its shortcut works while the mouse
/// is over the views of the timeline or one of them has the focus; elsewhere the key has no effect.
class KeyGestureAction : public KeysMenuAction
{
    Q_OBJECT
public:
    int getMenuOrder() const override;

    bool event(QEvent *event) override;

protected:
    KeyGestureAction(const QString &text, const QString &description, const char *shortcut,
                     KeyGestureKind kind, int pivot = 0);
    void executeAction() override;

private:
    KeyGestureKind m_kind;
    int m_pivot;
};

class VxKeyToolsMoveGestureAction : public KeyGestureAction
{
    Q_OBJECT
public:
    VxKeyToolsMoveGestureAction();
};

class VxKeyToolsDuplicateGestureAction : public KeyGestureAction
{
    Q_OBJECT
public:
    VxKeyToolsDuplicateGestureAction();
};

class VxKeyToolsScaleTimesGestureAction : public KeyGestureAction
{
    Q_OBJECT
public:
    VxKeyToolsScaleTimesGestureAction();
};

class VxKeyToolsScaleTimesInSelectionGestureAction : public KeyGestureAction
{
    Q_OBJECT
public:
    VxKeyToolsScaleTimesInSelectionGestureAction();
};

class VxKeyToolsMoveValuesGestureAction : public KeyGestureAction
{
    Q_OBJECT
public:
    VxKeyToolsMoveValuesGestureAction();
};

class VxKeyToolsScaleValuesGestureAction : public KeyGestureAction
{
    Q_OBJECT
public:
    VxKeyToolsScaleValuesGestureAction();
};

#endif

#ifndef KEYTOOLACTIONS_H
#define KEYTOOLACTIONS_H

#include "keytools/keysmenuaction.h"

struct KeyTool;

/// Base of the actions of the key tools: an action without parameters runs its tool, one with
/// parameters opens the pane with it. Without a window the tool runs with its defaults.
class KeyToolAction : public KeysMenuAction
{
    Q_OBJECT
public:
    int getMenuOrder() const override;

protected:
    explicit KeyToolAction(const KeyTool &tool);
    void executeAction() override;

    /// The tool that a class of actions is named after: "move" of VxKeyToolsMoveAction.
    static const KeyTool &toolOf(const QMetaObject &actionClass);

private:
    const KeyTool &m_tool;
};

/// Base of the one action of a tool.
template <class Action> class NamedToolAction : public KeyToolAction
{
public:
    NamedToolAction()
        : KeyToolAction(toolOf(Action::staticMetaObject))
    {
    }
};

class VxKeyToolsSelectFramesAction : public NamedToolAction<VxKeyToolsSelectFramesAction>
{
    Q_OBJECT
};

class VxKeyToolsSelectBeforeAction : public NamedToolAction<VxKeyToolsSelectBeforeAction>
{
    Q_OBJECT
};

class VxKeyToolsSelectAfterAction : public NamedToolAction<VxKeyToolsSelectAfterAction>
{
    Q_OBJECT
};

class VxKeyToolsSelectSameFramesAction : public NamedToolAction<VxKeyToolsSelectSameFramesAction>
{
    Q_OBJECT
};

class VxKeyToolsSelectEveryAction : public NamedToolAction<VxKeyToolsSelectEveryAction>
{
    Q_OBJECT
};

class VxKeyToolsSelectInverseAction : public NamedToolAction<VxKeyToolsSelectInverseAction>
{
    Q_OBJECT
};

class VxKeyToolsSelectTypeAction : public NamedToolAction<VxKeyToolsSelectTypeAction>
{
    Q_OBJECT
};

class VxKeyToolsSelectValuesAction : public NamedToolAction<VxKeyToolsSelectValuesAction>
{
    Q_OBJECT
};

class VxKeyToolsMoveAction : public NamedToolAction<VxKeyToolsMoveAction>
{
    Q_OBJECT
};

class VxKeyToolsScaleTimesAction : public NamedToolAction<VxKeyToolsScaleTimesAction>
{
    Q_OBJECT
};

class VxKeyToolsRetimeAction : public NamedToolAction<VxKeyToolsRetimeAction>
{
    Q_OBJECT
};

class VxKeyToolsInsertFramesAction : public NamedToolAction<VxKeyToolsInsertFramesAction>
{
    Q_OBJECT
};

class VxKeyToolsRemoveFramesAction : public NamedToolAction<VxKeyToolsRemoveFramesAction>
{
    Q_OBJECT
};

class VxKeyToolsSnapAction : public NamedToolAction<VxKeyToolsSnapAction>
{
    Q_OBJECT
};

class VxKeyToolsSpaceEvenlyAction : public NamedToolAction<VxKeyToolsSpaceEvenlyAction>
{
    Q_OBJECT
};

class VxKeyToolsReverseAction : public NamedToolAction<VxKeyToolsReverseAction>
{
    Q_OBJECT
};

class VxKeyToolsDuplicateAction : public NamedToolAction<VxKeyToolsDuplicateAction>
{
    Q_OBJECT
};

class VxKeyToolsPasteAction : public NamedToolAction<VxKeyToolsPasteAction>
{
    Q_OBJECT
};

class VxKeyToolsPasteMirroredAction : public NamedToolAction<VxKeyToolsPasteMirroredAction>
{
    Q_OBJECT
};

class VxKeyToolsSetValuesAction : public NamedToolAction<VxKeyToolsSetValuesAction>
{
    Q_OBJECT
};

class VxKeyToolsScaleValuesAction : public NamedToolAction<VxKeyToolsScaleValuesAction>
{
    Q_OBJECT
};

class VxKeyToolsMirrorValuesAction : public NamedToolAction<VxKeyToolsMirrorValuesAction>
{
    Q_OBJECT
};

class VxKeyToolsOffsetAction : public NamedToolAction<VxKeyToolsOffsetAction>
{
    Q_OBJECT
};

class VxKeyToolsEulerFilterAction : public NamedToolAction<VxKeyToolsEulerFilterAction>
{
    Q_OBJECT
};

class VxKeyToolsSmoothGaussianAction : public NamedToolAction<VxKeyToolsSmoothGaussianAction>
{
    Q_OBJECT
};

class VxKeyToolsSmoothButterworthAction : public NamedToolAction<VxKeyToolsSmoothButterworthAction>
{
    Q_OBJECT
};

class VxKeyToolsRemoveSpikesAction : public NamedToolAction<VxKeyToolsRemoveSpikesAction>
{
    Q_OBJECT
};

class VxKeyToolsReduceAction : public NamedToolAction<VxKeyToolsReduceAction>
{
    Q_OBJECT
};

class VxKeyToolsRemoveFlatAction : public NamedToolAction<VxKeyToolsRemoveFlatAction>
{
    Q_OBJECT
};

class VxKeyToolsBakeAction : public NamedToolAction<VxKeyToolsBakeAction>
{
    Q_OBJECT
};

class VxKeyToolsConvertAction : public NamedToolAction<VxKeyToolsConvertAction>
{
    Q_OBJECT
};

class VxKeyToolsPinAction : public NamedToolAction<VxKeyToolsPinAction>
{
    Q_OBJECT
};

#endif

#ifndef KEYTOOLS_KEYTOOLACTIONS_H
#define KEYTOOLS_KEYTOOLACTIONS_H

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
    /// `tool` is the tool's name.
    explicit KeyToolAction(const char *tool);
    void executeAction() override;

private:
    explicit KeyToolAction(const KeyTool &tool);

    const KeyTool &m_tool;
};

class VxKeyToolsSelectFramesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSelectFramesAction()
        : KeyToolAction("selectFrames")
    {
    }
};

class VxKeyToolsSelectBeforeAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSelectBeforeAction()
        : KeyToolAction("selectBefore")
    {
    }
};

class VxKeyToolsSelectAfterAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSelectAfterAction()
        : KeyToolAction("selectAfter")
    {
    }
};

class VxKeyToolsSelectSameFramesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSelectSameFramesAction()
        : KeyToolAction("selectSameFrames")
    {
    }
};

class VxKeyToolsSelectEveryAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSelectEveryAction()
        : KeyToolAction("selectEvery")
    {
    }
};

class VxKeyToolsSelectInverseAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSelectInverseAction()
        : KeyToolAction("selectInverse")
    {
    }
};

class VxKeyToolsSelectTypeAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSelectTypeAction()
        : KeyToolAction("selectType")
    {
    }
};

class VxKeyToolsSelectValuesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSelectValuesAction()
        : KeyToolAction("selectValues")
    {
    }
};

class VxKeyToolsMoveAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsMoveAction()
        : KeyToolAction("move")
    {
    }
};

class VxKeyToolsScaleTimesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsScaleTimesAction()
        : KeyToolAction("scaleTimes")
    {
    }
};

class VxKeyToolsRetimeAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsRetimeAction()
        : KeyToolAction("retime")
    {
    }
};

class VxKeyToolsInsertFramesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsInsertFramesAction()
        : KeyToolAction("insertFrames")
    {
    }
};

class VxKeyToolsRemoveFramesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsRemoveFramesAction()
        : KeyToolAction("removeFrames")
    {
    }
};

class VxKeyToolsSnapAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSnapAction()
        : KeyToolAction("snap")
    {
    }
};

class VxKeyToolsSpaceEvenlyAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSpaceEvenlyAction()
        : KeyToolAction("spaceEvenly")
    {
    }
};

class VxKeyToolsReverseAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsReverseAction()
        : KeyToolAction("reverse")
    {
    }
};

class VxKeyToolsDuplicateAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsDuplicateAction()
        : KeyToolAction("duplicate")
    {
    }
};

class VxKeyToolsPasteAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsPasteAction()
        : KeyToolAction("paste")
    {
    }
};

class VxKeyToolsPasteMirroredAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsPasteMirroredAction()
        : KeyToolAction("pasteMirrored")
    {
    }
};

class VxKeyToolsSetValuesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSetValuesAction()
        : KeyToolAction("setValues")
    {
    }
};

class VxKeyToolsScaleValuesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsScaleValuesAction()
        : KeyToolAction("scaleValues")
    {
    }
};

class VxKeyToolsMirrorValuesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsMirrorValuesAction()
        : KeyToolAction("mirrorValues")
    {
    }
};

class VxKeyToolsOffsetAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsOffsetAction()
        : KeyToolAction("offset")
    {
    }
};

class VxKeyToolsEulerFilterAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsEulerFilterAction()
        : KeyToolAction("eulerFilter")
    {
    }
};

class VxKeyToolsSmoothGaussianAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSmoothGaussianAction()
        : KeyToolAction("smoothGaussian")
    {
    }
};

class VxKeyToolsSmoothButterworthAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSmoothButterworthAction()
        : KeyToolAction("smoothButterworth")
    {
    }
};

class VxKeyToolsRemoveSpikesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsRemoveSpikesAction()
        : KeyToolAction("removeSpikes")
    {
    }
};

class VxKeyToolsReduceAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsReduceAction()
        : KeyToolAction("reduce")
    {
    }
};

class VxKeyToolsRemoveFlatAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsRemoveFlatAction()
        : KeyToolAction("removeFlat")
    {
    }
};

class VxKeyToolsBakeAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsBakeAction()
        : KeyToolAction("bake")
    {
    }
};

class VxKeyToolsConvertAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsConvertAction()
        : KeyToolAction("convert")
    {
    }
};

class VxKeyToolsPinAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsPinAction()
        : KeyToolAction("pin")
    {
    }
};

#endif

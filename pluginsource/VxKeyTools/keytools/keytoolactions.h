#ifndef KEYTOOLS_KEYTOOLACTIONS_H
#define KEYTOOLS_KEYTOOLACTIONS_H

#include <vxcore/vxaction.h>

/// Base of the actions of the key tools: an action without parameters runs its tool, one with
/// parameters opens the pane with it. Without a window the tool runs with its defaults.
class KeyToolAction : public VxAction
{
    Q_OBJECT
public:
    QString getDefaultMenuPath() const override;
    QString getActionGroup() const override;
    int getMenuOrder() const override;
    QString getMenuFolder() const override;

protected:
    /// `tool` is the tool's name.
    explicit KeyToolAction(const char *tool);
    void executeAction() override;

private:
    QString m_tool;
};

class VxKeyToolsSelectFramesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSelectFramesAction();
};

class VxKeyToolsSelectBeforeAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSelectBeforeAction();
};

class VxKeyToolsSelectAfterAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSelectAfterAction();
};

class VxKeyToolsSelectSameFramesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSelectSameFramesAction();
};

class VxKeyToolsSelectEveryAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSelectEveryAction();
};

class VxKeyToolsSelectInverseAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSelectInverseAction();
};

class VxKeyToolsSelectTypeAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSelectTypeAction();
};

class VxKeyToolsSelectValuesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSelectValuesAction();
};

class VxKeyToolsMoveAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsMoveAction();
};

class VxKeyToolsScaleTimesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsScaleTimesAction();
};

class VxKeyToolsRetimeAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsRetimeAction();
};

class VxKeyToolsInsertFramesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsInsertFramesAction();
};

class VxKeyToolsRemoveFramesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsRemoveFramesAction();
};

class VxKeyToolsSnapAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSnapAction();
};

class VxKeyToolsSpaceEvenlyAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSpaceEvenlyAction();
};

class VxKeyToolsReverseAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsReverseAction();
};

class VxKeyToolsDuplicateAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsDuplicateAction();
};

class VxKeyToolsPasteAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsPasteAction();
};

class VxKeyToolsPasteMirroredAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsPasteMirroredAction();
};

class VxKeyToolsSetValuesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSetValuesAction();
};

class VxKeyToolsScaleValuesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsScaleValuesAction();
};

class VxKeyToolsMirrorValuesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsMirrorValuesAction();
};

class VxKeyToolsOffsetAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsOffsetAction();
};

class VxKeyToolsEulerFilterAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsEulerFilterAction();
};

class VxKeyToolsSmoothGaussianAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSmoothGaussianAction();
};

class VxKeyToolsSmoothButterworthAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsSmoothButterworthAction();
};

class VxKeyToolsRemoveSpikesAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsRemoveSpikesAction();
};

class VxKeyToolsReduceAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsReduceAction();
};

class VxKeyToolsRemoveFlatAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsRemoveFlatAction();
};

class VxKeyToolsBakeAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsBakeAction();
};

class VxKeyToolsConvertAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsConvertAction();
};

class VxKeyToolsPinAction : public KeyToolAction
{
    Q_OBJECT
public:
    VxKeyToolsPinAction();
};

#endif

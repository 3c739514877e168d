#ifndef VXCLEARKEYSACTIONS_H
#define VXCLEARKEYSACTIONS_H

#include <vxcore/vxaction.h>

/// Base of the six commands that remove whole animations: which nodes (the selected ones, or the
/// figures they belong to) times which of their properties (all, transforms, the others). Each run
/// is one undo entry with the action's text; a run that removes no key makes none.
class VXCORE_EXPORT VxClearKeysAction : public VxAction
{
    Q_OBJECT
public:
    enum class Nodes { Selected, Figures };
    enum class Properties { All, Pose, Shape };
    ~VxClearKeysAction() override;

    QString getDefaultMenuPath() const override;
    QString getActionGroup() const override;

protected:
    VxClearKeysAction(const QString &text, const QString &description, Nodes nodes,
                      Properties properties);
    void executeAction() override;

private:
    Nodes m_nodes;
    Properties m_properties;
};

class VXCORE_EXPORT VxClearKeysFigureAction : public VxClearKeysAction
{
    Q_OBJECT
public:
    VxClearKeysFigureAction();
};

class VXCORE_EXPORT VxClearKeysFigurePoseAction : public VxClearKeysAction
{
    Q_OBJECT
public:
    VxClearKeysFigurePoseAction();
};

class VXCORE_EXPORT VxClearKeysFigureShapeAction : public VxClearKeysAction
{
    Q_OBJECT
public:
    VxClearKeysFigureShapeAction();
};

class VXCORE_EXPORT VxClearKeysSelectedItemsAction : public VxClearKeysAction
{
    Q_OBJECT
public:
    VxClearKeysSelectedItemsAction();
};

class VXCORE_EXPORT VxClearKeysPoseAction : public VxClearKeysAction
{
    Q_OBJECT
public:
    VxClearKeysPoseAction();
};

class VXCORE_EXPORT VxClearKeysShapeAction : public VxClearKeysAction
{
    Q_OBJECT
public:
    VxClearKeysShapeAction();
};

#endif

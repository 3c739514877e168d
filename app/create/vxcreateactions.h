#ifndef VXCREATEACTIONS_H
#define VXCREATEACTIONS_H

#include <vxcore/vxaction.h>

struct CreateResult;
class VxScene;

/// Base of the commands of the menu Create. They act on the scene and its selection; the status
/// line reports what could not be done.
class VxCreateAction : public VxAction
{
    Q_OBJECT
public:
    ~VxCreateAction() override;

    QString getDefaultAccel() const override;
    QString getDefaultMenuPath() const override;
    QString getActionGroup() const override;

protected:
    VxCreateAction(const QString &text, const QString &description, const char *accel,
                   const char *group);
    void executeAction() override;

private:
    virtual CreateResult create(VxScene *scene) const = 0;

    const char *const m_accel;
    const char *const m_group;
};

class VxCreateNodeAction : public VxCreateAction
{
    Q_OBJECT
public:
    VxCreateNodeAction();

private:
    CreateResult create(VxScene *scene) const override;
};

class VxCreateSkeletonAction : public VxCreateAction
{
    Q_OBJECT
public:
    VxCreateSkeletonAction();

private:
    CreateResult create(VxScene *scene) const override;
};

class VxCreateBoneAction : public VxCreateAction
{
    Q_OBJECT
public:
    VxCreateBoneAction();

private:
    CreateResult create(VxScene *scene) const override;
};

class VxCreateFigureAction : public VxCreateAction
{
    Q_OBJECT
public:
    VxCreateFigureAction();

private:
    CreateResult create(VxScene *scene) const override;
};

class VxDuplicateNodesAction : public VxCreateAction
{
    Q_OBJECT
public:
    VxDuplicateNodesAction();

private:
    CreateResult create(VxScene *scene) const override;
};

class VxGroupNodesAction : public VxCreateAction
{
    Q_OBJECT
public:
    VxGroupNodesAction();

private:
    CreateResult create(VxScene *scene) const override;
};

#endif

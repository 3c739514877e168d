#ifndef VXCREATEACTIONS_H
#define VXCREATEACTIONS_H

#include "widgets/vxsceneaction.h"

class VxCreateNodeAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxCreateNodeAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxCreateSkeletonAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxCreateSkeletonAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxCreateBoneAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxCreateBoneAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxCreateFigureAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxCreateFigureAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxEditBoneAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxEditBoneAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxDuplicateNodesAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxDuplicateNodesAction();

private:
    QString perform(VxScene *scene) const override;
};

class VxGroupNodesAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxGroupNodesAction();

private:
    QString perform(VxScene *scene) const override;
};

#endif

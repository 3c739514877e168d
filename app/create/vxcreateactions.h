#ifndef VXCREATEACTIONS_H
#define VXCREATEACTIONS_H

#include "widgets/vxsceneaction.h"

class VxCreateNodeAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxCreateNodeAction();
};

class VxCreateSkeletonAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxCreateSkeletonAction();
};

class VxCreateBoneAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxCreateBoneAction();
};

class VxCreateFigureAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxCreateFigureAction();
};

class VxEditBoneAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxEditBoneAction();
};

class VxDuplicateNodesAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxDuplicateNodesAction();
};

class VxGroupNodesAction : public VxSceneAction
{
    Q_OBJECT
public:
    VxGroupNodesAction();
};

#endif

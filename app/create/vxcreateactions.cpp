#include "create/vxcreateactions.h"

#include "create/bonedialog.h"
#include "create/createedits.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>

VxCreateNodeAction::VxCreateNodeAction()
    : VxSceneAction("Create", tr("Node"),
                    tr("Creates a node below the primary selection, or at the top level without a "
                       "selection."),
                    "Ctrl+Alt+N", "Nodes")
{
}

QString VxCreateNodeAction::perform(VxScene *scene) const
{
    return CreateEdits::addNode(scene, scene->getPrimarySelection()).message;
}

VxCreateSkeletonAction::VxCreateSkeletonAction()
    : VxSceneAction("Create", tr("Skeleton"), tr("Creates a skeleton, the root of a figure."),
                    "Ctrl+Alt+S", "Nodes")
{
}

QString VxCreateSkeletonAction::perform(VxScene *scene) const
{
    return CreateEdits::addSkeleton(scene).message;
}

VxCreateBoneAction::VxCreateBoneAction()
    : VxSceneAction("Create", tr("Bone"),
                    tr("Creates a bone below the primary selection, at the end of the bone that is "
                       "selected."),
                    "Ctrl+Alt+B", "Nodes")
{
}

QString VxCreateBoneAction::perform(VxScene *scene) const
{
    return CreateEdits::addBone(scene, scene->getPrimarySelection()).message;
}

VxCreateFigureAction::VxCreateFigureAction()
    : VxSceneAction("Create", tr("Figure"),
                    tr("Creates a human figure of 21 bones in a T pose, with joint limits."),
                    "Ctrl+Alt+F", "Nodes")
{
}

QString VxCreateFigureAction::perform(VxScene *scene) const
{
    return CreateEdits::addFigure(scene).message;
}

VxEditBoneAction::VxEditBoneAction()
    : VxSceneAction("Create", tr("Edit Bone..."),
                    tr("Sets the length, the position and the rest pose of the primary selection."),
                    "Ctrl+Alt+E", "Nodes")
{
}

QString VxEditBoneAction::perform(VxScene *scene) const
{
    VxNode *node = scene->getPrimarySelection();
    if (!node)
        return tr("Select the bone to edit.");
    BoneDialog(node, vxApp->getInterface()).exec();
    return {};
}

VxDuplicateNodesAction::VxDuplicateNodesAction()
    : VxSceneAction("Create", tr("Duplicate"),
                    tr("Copies the selected nodes with their keys and everything below them."),
                    "Ctrl+D", "Copies")
{
}

QString VxDuplicateNodesAction::perform(VxScene *scene) const
{
    return CreateEdits::duplicate(scene, scene->getSelectedNodes()).message;
}

VxGroupNodesAction::VxGroupNodesAction()
    : VxSceneAction("Create", tr("Group"),
                    tr("Puts the selected nodes below a new node; they keep their world "
                       "positions."),
                    "Ctrl+G", "Copies")
{
}

QString VxGroupNodesAction::perform(VxScene *scene) const
{
    return CreateEdits::group(scene, scene->getSelectedNodes()).message;
}

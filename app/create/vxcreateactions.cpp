#include "create/vxcreateactions.h"

#include "create/bonedialog.h"
#include "create/createedits.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>

namespace {

QString editBone(VxScene *scene)
{
    VxNode *node = scene->getPrimarySelection();
    if (!node)
        return VxEditBoneAction::tr("Select the bone to edit.");
    BoneDialog(node, vxApp->getInterface()).exec();
    return {};
}

} // namespace

VxCreateNodeAction::VxCreateNodeAction()
    : VxSceneAction("Create", tr("Node"),
                    tr("Creates a node below the primary selection, or at the top level without a "
                       "selection."),
                    "Ctrl+Alt+N", "Nodes", [](VxScene *scene) {
                        return CreateEdits::addNode(scene, scene->getPrimarySelection()).message;
                    })
{
}

VxCreateSkeletonAction::VxCreateSkeletonAction()
    : VxSceneAction("Create", tr("Skeleton"), tr("Creates a skeleton, the root of a figure."),
                    "Ctrl+Alt+S", "Nodes",
                    [](VxScene *scene) { return CreateEdits::addSkeleton(scene).message; })
{
}

VxCreateBoneAction::VxCreateBoneAction()
    : VxSceneAction("Create", tr("Bone"),
                    tr("Creates a bone below the primary selection, at the end of the bone that is "
                       "selected."),
                    "Ctrl+Alt+B", "Nodes", [](VxScene *scene) {
                        return CreateEdits::addBone(scene, scene->getPrimarySelection()).message;
                    })
{
}

VxCreateFigureAction::VxCreateFigureAction()
    : VxSceneAction("Create", tr("Figure"),
                    tr("Creates a human figure of 21 bones in a T pose, with joint limits."),
                    "Ctrl+Alt+F", "Nodes",
                    [](VxScene *scene) { return CreateEdits::addFigure(scene).message; })
{
}

VxEditBoneAction::VxEditBoneAction()
    : VxSceneAction("Create", tr("Edit Bone..."),
                    tr("Sets the length, the position and the rest pose of the primary selection."),
                    "Ctrl+Alt+E", "Nodes", &editBone)
{
}

VxDuplicateNodesAction::VxDuplicateNodesAction()
    : VxSceneAction("Create", tr("Duplicate"),
                    tr("Copies the selected nodes with their keys and everything below them."),
                    "Ctrl+D", "Copies", [](VxScene *scene) {
                        return CreateEdits::duplicate(scene, scene->getSelectedNodes()).message;
                    })
{
}

VxGroupNodesAction::VxGroupNodesAction()
    : VxSceneAction("Create", tr("Group"),
                    tr("Puts the selected nodes below a new node; they keep their world "
                       "positions."),
                    "Ctrl+G", "Copies", [](VxScene *scene) {
                        return CreateEdits::group(scene, scene->getSelectedNodes()).message;
                    })
{
}

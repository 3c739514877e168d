#include "create/vxcreateactions.h"

#include "create/createedits.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>

VxCreateAction::VxCreateAction(const QString &text, const QString &description, const char *accel,
                               const char *group)
    : VxAction(text, description)
    , m_accel(accel)
    , m_group(group)
{
}

VxCreateAction::~VxCreateAction() = default;

QString VxCreateAction::getDefaultAccel() const
{
    return QLatin1String(m_accel);
}

QString VxCreateAction::getDefaultMenuPath() const
{
    return QStringLiteral("Create");
}

QString VxCreateAction::getActionGroup() const
{
    return QLatin1String(m_group);
}

void VxCreateAction::executeAction()
{
    if (!vxScene)
        return;
    const CreateResult result = create(vxScene);
    VxMainWindow *window = vxApp->getInterface();
    if (window && !result.message.isEmpty())
        window->showStatusMessage(result.message);
}

VxCreateNodeAction::VxCreateNodeAction()
    : VxCreateAction(tr("Node"),
                     tr("Creates a node below the primary selection, or at the top level without a "
                        "selection."),
                     "Ctrl+Alt+N", "Nodes")
{
}

CreateResult VxCreateNodeAction::create(VxScene *scene) const
{
    return CreateEdits::addNode(scene, scene->getPrimarySelection());
}

VxCreateSkeletonAction::VxCreateSkeletonAction()
    : VxCreateAction(tr("Skeleton"), tr("Creates a skeleton, the root of a figure."), "Ctrl+Alt+S",
                     "Nodes")
{
}

CreateResult VxCreateSkeletonAction::create(VxScene *scene) const
{
    return CreateEdits::addSkeleton(scene);
}

VxCreateBoneAction::VxCreateBoneAction()
    : VxCreateAction(
          tr("Bone"),
          tr("Creates a bone below the primary selection, at the end of the bone that is "
             "selected."),
          "Ctrl+Alt+B", "Nodes")
{
}

CreateResult VxCreateBoneAction::create(VxScene *scene) const
{
    return CreateEdits::addBone(scene, scene->getPrimarySelection());
}

VxCreateFigureAction::VxCreateFigureAction()
    : VxCreateAction(tr("Figure"),
                     tr("Creates a human figure of 21 bones in a T pose, with joint limits."),
                     "Ctrl+Alt+F", "Nodes")
{
}

CreateResult VxCreateFigureAction::create(VxScene *scene) const
{
    return CreateEdits::addFigure(scene);
}

VxDuplicateNodesAction::VxDuplicateNodesAction()
    : VxCreateAction(tr("Duplicate"),
                     tr("Copies the selected nodes with their keys and everything below them."),
                     "Ctrl+D", "Copies")
{
}

CreateResult VxDuplicateNodesAction::create(VxScene *scene) const
{
    return CreateEdits::duplicate(scene, scene->getSelectedNodes());
}

VxGroupNodesAction::VxGroupNodesAction()
    : VxCreateAction(tr("Group"),
                     tr("Puts the selected nodes below a new node; they keep their world "
                        "positions."),
                     "Ctrl+G", "Copies")
{
}

CreateResult VxGroupNodesAction::create(VxScene *scene) const
{
    return CreateEdits::group(scene, scene->getSelectedNodes());
}

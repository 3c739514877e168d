#include "pose/vxposeactions.h"

#include "pose/breakdowndialog.h"
#include "pose/cycledialog.h"
#include "pose/inbetween.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>

VxPoseAction::VxPoseAction(const QString &text, const QString &description, const char *accel,
                           const char *group)
    : VxAction(text, description)
    , m_accel(accel)
    , m_group(group)
{
}

VxPoseAction::~VxPoseAction() = default;

QString VxPoseAction::getDefaultAccel() const
{
    return QLatin1String(m_accel);
}

QString VxPoseAction::getDefaultMenuPath() const
{
    return QStringLiteral("Pose");
}

QString VxPoseAction::getActionGroup() const
{
    return QLatin1String(m_group);
}

void VxPoseAction::executeAction()
{
    if (!vxScene)
        return;
    const PoseResult result = perform(vxScene);
    VxMainWindow *window = vxApp->getInterface();
    if (window && !result.message.isEmpty())
        window->showStatusMessage(result.message);
}

VxCopyPoseAction::VxCopyPoseAction()
    : VxPoseAction(tr("Copy Pose"),
                   tr("Copies the pose of the selected nodes and everything below them at the "
                      "current time."),
                   "Ctrl+Shift+C", "Poses")
{
}

PoseResult VxCopyPoseAction::perform(VxScene *scene) const
{
    return PoseCommands::copy(scene);
}

VxPastePoseAction::VxPastePoseAction()
    : VxPoseAction(
          tr("Paste Pose"),
          tr("Pastes the copied pose to the nodes of the same names in the selected figure."),
          "Ctrl+Shift+V", "Poses")
{
}

PoseResult VxPastePoseAction::perform(VxScene *scene) const
{
    return PoseCommands::paste(scene, false);
}

VxPastePoseMirroredAction::VxPastePoseMirroredAction()
    : VxPoseAction(tr("Paste Pose Mirrored"),
                   tr("Pastes the mirror image of the copied pose: left becomes right."),
                   "Ctrl+Shift+M", "Poses")
{
}

PoseResult VxPastePoseMirroredAction::perform(VxScene *scene) const
{
    return PoseCommands::paste(scene, true);
}

VxMirrorPoseAction::VxMirrorPoseAction()
    : VxPoseAction(tr("Mirror Selected to Other Side"),
                   tr("Gives the pose of the selected nodes and everything below them to the other "
                      "side. When both sides are selected they are swapped."),
                   "Ctrl+M", "Poses")
{
}

PoseResult VxMirrorPoseAction::perform(VxScene *scene) const
{
    return PoseCommands::mirrorSelected(scene);
}

VxResetPoseAction::VxResetPoseAction()
    : VxPoseAction(
          tr("Reset to Rest"),
          tr("Sets the selected nodes to the rest pose; a skeleton includes all its nodes."),
          "Ctrl+Shift+R", "Poses")
{
}

PoseResult VxResetPoseAction::perform(VxScene *scene) const
{
    return PoseCommands::resetToRest(scene);
}

VxSelectMirrorAction::VxSelectMirrorAction()
    : VxPoseAction(tr("Select Mirror"),
                   tr("Selects the nodes of the other side instead of the selected ones."),
                   "Ctrl+Alt+M", "Selection")
{
}

PoseResult VxSelectMirrorAction::perform(VxScene *scene) const
{
    return PoseCommands::selectMirror(scene);
}

VxSelectChildrenAction::VxSelectChildrenAction()
    : VxPoseAction(tr("Select Children"),
                   tr("Adds everything below the selected nodes to the selection."),
                   "Ctrl+Shift+Down", "Selection")
{
}

PoseResult VxSelectChildrenAction::perform(VxScene *scene) const
{
    return PoseCommands::selectChildren(scene);
}

VxSelectParentsAction::VxSelectParentsAction()
    : VxPoseAction(tr("Select Parents"),
                   tr("Selects the parents of the selected nodes instead of them."),
                   "Ctrl+Shift+Up", "Selection")
{
}

PoseResult VxSelectParentsAction::perform(VxScene *scene) const
{
    return PoseCommands::selectParents(scene);
}

VxBreakdownAction::VxBreakdownAction()
    : VxPoseAction(tr("Breakdown..."),
                   tr("Sets the selected nodes to a pose between the previous and the next one."),
                   "Ctrl+B", "Keys")
{
}

PoseResult VxBreakdownAction::perform(VxScene *scene) const
{
    const QVector<VxNode *> nodes = PoseCommands::selectedJoints(scene);
    if (nodes.isEmpty())
        return InBetween::breakdown(scene, 0, Breakdown::Toward::Neighbours);
    BreakdownDialog(scene, nodes, vxApp->getInterface()).exec();
    return {};
}

VxHoldPoseAction::VxHoldPoseAction()
    : VxPoseAction(tr("Hold"),
                   tr("Holds the pose of the keys before the playhead until the playhead."),
                   "Ctrl+H", "Keys")
{
}

PoseResult VxHoldPoseAction::perform(VxScene *scene) const
{
    return InBetween::hold(scene);
}

VxCyclePosesAction::VxCyclePosesAction()
    : VxPoseAction(tr("Cycle..."),
                   tr("Repeats the keys of the play range, with or without an offset of the root."),
                   "Ctrl+L", "Keys")
{
}

PoseResult VxCyclePosesAction::perform(VxScene *scene) const
{
    if (scene->getNumSelectedNodes() == 0)
        return InBetween::cycle(scene, 2, false);
    CycleDialog dialog(vxApp->getInterface());
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return InBetween::cycle(scene, dialog.count(), dialog.hasOffset());
}

VxMatchEndsAction::VxMatchEndsAction()
    : VxPoseAction(tr("Match First and Last Pose"),
                   tr("Sets the pose at the end of the play range to the one at its start."),
                   "Ctrl+Shift+L", "Keys")
{
}

PoseResult VxMatchEndsAction::perform(VxScene *scene) const
{
    return InBetween::matchEnds(scene);
}

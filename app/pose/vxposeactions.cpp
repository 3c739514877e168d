#include "pose/vxposeactions.h"

#include "pose/breakdowndialog.h"
#include "pose/cycledialog.h"
#include "pose/inbetween.h"
#include "pose/posecommands.h"
#include "viewport/viewportwidget.h"
#include "widgets/dialogcorner.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>

namespace {

QString showBreakdown(VxScene *scene)
{
    const QVector<VxNode *> nodes = PoseCommands::selectedJoints(scene);
    if (nodes.isEmpty())
        return InBetween::breakdown(scene, 0, Breakdown::Toward::Neighbours).message;
    BreakdownDialog dialog(scene, nodes, vxApp->getInterface());
    if (const auto *view = ViewportWidget::current())
        placeInCorner(&dialog, view);
    dialog.exec();
    return {};
}

QString cyclePoses(VxScene *scene)
{
    if (scene->getNumSelectedNodes() == 0)
        return InBetween::cycle(scene, 2, false).message;
    CycleDialog dialog(vxApp->getInterface());
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return InBetween::cycle(scene, dialog.count(), dialog.hasOffset()).message;
}

} // namespace

VxCopyPoseAction::VxCopyPoseAction()
    : VxSceneAction("Pose", tr("Copy Pose"),
                    tr("Copies the pose of the selected nodes and everything below them at the "
                       "current time."),
                    "Ctrl+Shift+C", "Poses",
                    [](VxScene *scene) { return PoseCommands::copy(scene).message; })
{
}

VxPastePoseAction::VxPastePoseAction()
    : VxSceneAction(
          "Pose", tr("Paste Pose"),
          tr("Pastes the copied pose to the nodes of the same names in the selected figure."),
          "Ctrl+Shift+V", "Poses",
          [](VxScene *scene) { return PoseCommands::paste(scene, false).message; })
{
}

VxPastePoseMirroredAction::VxPastePoseMirroredAction()
    : VxSceneAction("Pose", tr("Paste Pose Mirrored"),
                    tr("Pastes the mirror image of the copied pose: left becomes right."),
                    "Ctrl+Shift+M", "Poses",
                    [](VxScene *scene) { return PoseCommands::paste(scene, true).message; })
{
}

VxMirrorPoseAction::VxMirrorPoseAction()
    : VxSceneAction(
          "Pose", tr("Mirror Selected to Other Side"),
          tr("Gives the pose of the selected nodes and everything below them to the other "
             "side. When both sides are selected they are swapped."),
          "Ctrl+M", "Poses",
          [](VxScene *scene) { return PoseCommands::mirrorSelected(scene).message; })
{
}

VxResetPoseAction::VxResetPoseAction()
    : VxSceneAction(
          "Pose", tr("Reset to Rest"),
          tr("Sets the selected nodes to the rest pose; a skeleton includes all its nodes."),
          "Ctrl+Shift+R", "Poses",
          [](VxScene *scene) { return PoseCommands::resetToRest(scene).message; })
{
}

VxSetRestPoseAction::VxSetRestPoseAction()
    : VxSceneAction("Pose", tr("Set Rest Pose"),
                    tr("Makes the present pose the rest pose of the selected nodes; a skeleton "
                       "includes all its nodes."),
                    "", "Poses",
                    [](VxScene *scene) { return PoseCommands::setRest(scene).message; })
{
}

VxSelectMirrorAction::VxSelectMirrorAction()
    : VxSceneAction("Pose", tr("Select Mirror"),
                    tr("Selects the nodes of the other side instead of the selected ones."),
                    "Ctrl+Alt+M", "Selection",
                    [](VxScene *scene) { return PoseCommands::selectMirror(scene).message; })
{
}

VxSelectChildrenAction::VxSelectChildrenAction()
    : VxSceneAction("Pose", tr("Select Children"),
                    tr("Adds everything below the selected nodes to the selection."),
                    "Ctrl+Shift+Down", "Selection",
                    [](VxScene *scene) { return PoseCommands::selectChildren(scene).message; })
{
}

VxSelectParentsAction::VxSelectParentsAction()
    : VxSceneAction("Pose", tr("Select Parents"),
                    tr("Selects the parents of the selected nodes instead of them."),
                    "Ctrl+Shift+Up", "Selection",
                    [](VxScene *scene) { return PoseCommands::selectParents(scene).message; })
{
}

VxBreakdownAction::VxBreakdownAction()
    : VxSceneAction("Pose", tr("Breakdown..."),
                    tr("Sets the selected nodes to a pose between the previous and the next one."),
                    "Ctrl+B", "Keys", &showBreakdown)
{
}

VxHoldPoseAction::VxHoldPoseAction()
    : VxSceneAction("Pose", tr("Hold"),
                    tr("Holds the pose of the keys before the playhead until the playhead."),
                    "Ctrl+H", "Keys", [](VxScene *scene) { return InBetween::hold(scene).message; })
{
}

VxCyclePosesAction::VxCyclePosesAction()
    : VxSceneAction(
          "Pose", tr("Cycle..."),
          tr("Repeats the keys of the play range, with or without an offset of the root."),
          "Ctrl+L", "Keys", &cyclePoses)
{
}

VxMatchEndsAction::VxMatchEndsAction()
    : VxSceneAction("Pose", tr("Match First and Last Pose"),
                    tr("Sets the pose at the end of the play range to the one at its start."),
                    "Ctrl+Shift+L", "Keys",
                    [](VxScene *scene) { return InBetween::matchEnds(scene).message; })
{
}

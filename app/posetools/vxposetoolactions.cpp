#include "posetools/vxposetoolactions.h"

#include "posetools/posetoolbar.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

namespace {

bool isCommon(const PoseTools &tools)
{
    return tools.settings()->pivot() == PoseToolSettings::Pivot::Common;
}

} // namespace

VxPoseToolAction::VxPoseToolAction(const QString &text, const QString &description,
                                   const char *accel, const char *folder, const Question &isCurrent,
                                   const Choice &choose)
    : VxViewportAction("Pose", text, description, accel, "Tools", folder)
    , m_isCurrent(isCurrent)
    , m_choose(choose)
{
}

void VxPoseToolAction::init()
{
    VxViewportAction::init();
    PoseTools *tools = PoseTools::current();
    if (!tools)
        return;
    const auto show = [this, tools] { setChecked(m_isCurrent(*tools)); };
    if (!m_isConnected) {
        m_isConnected = true;
        connect(tools, &PoseTools::activeToolChanged, this, show);
        connect(tools->settings(), &PoseToolSettings::changed, this, show);
        connect(vxScene, &VxScene::animatingChanged, this, show);
        connect(vxScene, &VxScene::nodeSelectionListChanged, this, show);
        connect(vxApp->getUndoStack(), &VxUndoStack::indexChanged, this, show);
    }
    show();
}

void VxPoseToolAction::executeAction()
{
    PoseTools *tools = PoseTools::current();
    if (!tools)
        return;
    const QString message = m_choose(tools);
    setChecked(m_isCurrent(*tools));
    if (!message.isEmpty())
        vxShowStatusMessage(message);
}

VxToolAction::VxToolAction(PoseTools::Tool tool, const QString &description, const char *accel)
    : VxPoseToolAction(
          tr("%1 Tool").arg(PoseTools::title(tool)), description, accel, "",
          [tool](const PoseTools &tools) { return tools.activeTool() == tool; },
          [tool](PoseTools *tools) {
              tools->activate(tool);
              return QString();
          })
{
}

VxSelectToolAction::VxSelectToolAction()
    : VxToolAction(PoseTools::Select, tr("Selects nodes in the viewport, without a gizmo."), "Q")
{
}

VxMoveToolAction::VxMoveToolAction()
    : VxToolAction(PoseTools::Move,
                   tr("Moves the selected nodes. Shift snaps to the grid, Ctrl drags finely, typed "
                      "numbers are exact."),
                   "W")
{
}

VxRotateToolAction::VxRotateToolAction()
    : VxToolAction(PoseTools::Rotate,
                   tr("Rotates the selected nodes. Shift snaps to 15 degrees, Ctrl drags finely, "
                      "typed angles are exact."),
                   "E")
{
}

VxScaleToolAction::VxScaleToolAction()
    : VxToolAction(PoseTools::Scale,
                   tr("Scales the selected nodes along their own axes, or along all of them."), "R")
{
}

VxIkToolAction::VxIkToolAction()
    : VxToolAction(PoseTools::Ik, tr("Drags a hand or a foot; the two bones above it follow."), "Y")
{
}

VxOrientationAction::VxOrientationAction(PoseToolSettings::Orientation orientation,
                                         const QString &text, const QString &description)
    : VxPoseToolAction(
          text, description, "", "Gizmo Orientation",
          [orientation](const PoseTools &tools) {
              return tools.settings()->orientation() == orientation;
          },
          [orientation](PoseTools *tools) {
              tools->settings()->setOrientation(orientation);
              return QString();
          })
{
}

VxLocalOrientationAction::VxLocalOrientationAction()
    : VxOrientationAction(PoseToolSettings::Orientation::Local, tr("Local Axes"),
                          tr("Aligns gizmos with the axes of the node."))
{
}

VxParentOrientationAction::VxParentOrientationAction()
    : VxOrientationAction(PoseToolSettings::Orientation::Parent, tr("Parent Axes"),
                          tr("Aligns gizmos with the axes of the node's parent."))
{
}

VxWorldOrientationAction::VxWorldOrientationAction()
    : VxOrientationAction(PoseToolSettings::Orientation::World, tr("World Axes"),
                          tr("Aligns gizmos with the axes of the world."))
{
}

VxCommonPivotAction::VxCommonPivotAction()
    : VxPoseToolAction(tr("Common Pivot"),
                       tr("Rotates all selected nodes about the middle of their origins instead of "
                          "each about its own."),
                       "", "", isCommon, [](PoseTools *tools) {
                           tools->settings()->setPivot(isCommon(*tools)
                                                           ? PoseToolSettings::Pivot::Own
                                                           : PoseToolSettings::Pivot::Common);
                           return QString();
                       })
{
}

VxPinInIkAction::VxPinInIkAction()
    : VxPoseToolAction(tr("Pin in IK"),
                       tr("Pins the selected hands and feet: they stay where they are while nodes "
                          "above their limbs are posed in the viewport."),
                       "Ctrl+Shift+I", "", &PoseTools::areSelectedPinned, &PoseTools::togglePins)
{
}

VxAutoKeyAction::VxAutoKeyAction()
    : VxPoseToolAction(
          tr("Auto Key"),
          tr("Toggles whether changed values become keys at the current time. Off, "
             "the viewport's tools set values without keys."),
          "Ctrl+K", "", [](const PoseTools &) { return vxScene && vxScene->isAnimating(); },
          [](PoseTools *) {
              vxScene->setAnimating(!vxScene->isAnimating());
              return vxScene->isAnimating() ? tr("Auto Key is on: changed values become keys.")
                                            : tr("Auto Key is off: no keys are made.");
          })
{
}

#include "posetools/vxposetoolactions.h"

#include "posetools/posetoolbar.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>

VxPoseToolAction::VxPoseToolAction(const QString &text, const QString &description,
                                   const char *accel, const char *group, const char *folder)
    : VxViewportAction("Pose", text, description, accel, group, folder, true)
{
}

void VxPoseToolAction::init()
{
    VxViewportAction::init();
    PoseTools *tools = PoseTools::current();
    if (!tools)
        return;
    const auto show = [this, tools] { setChecked(isCurrent(*tools)); };
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
    const QString message = choose(tools);
    setChecked(isCurrent(*tools));
    if (!message.isEmpty())
        vxApp->getInterface()->showStatusMessage(message);
}

VxToolAction::VxToolAction(PoseTools::Tool tool, const QString &description, const char *accel)
    : VxPoseToolAction(tr("%1 Tool").arg(PoseTools::title(tool)), description, accel, "Tools")
    , m_tool(tool)
{
}

bool VxToolAction::isCurrent(const PoseTools &tools) const
{
    return tools.activeTool() == m_tool;
}

QString VxToolAction::choose(PoseTools *tools)
{
    tools->activate(m_tool);
    return {};
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
    : VxPoseToolAction(text, description, "", "Tools", "Gizmo Orientation")
    , m_orientation(orientation)
{
}

bool VxOrientationAction::isCurrent(const PoseTools &tools) const
{
    return tools.settings()->orientation() == m_orientation;
}

QString VxOrientationAction::choose(PoseTools *tools)
{
    tools->settings()->setOrientation(m_orientation);
    return {};
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
                       "", "Tools")
{
}

bool VxCommonPivotAction::isCurrent(const PoseTools &tools) const
{
    return tools.settings()->pivot() == PoseToolSettings::Pivot::Common;
}

QString VxCommonPivotAction::choose(PoseTools *tools)
{
    tools->settings()->setPivot(isCurrent(*tools) ? PoseToolSettings::Pivot::Own
                                                  : PoseToolSettings::Pivot::Common);
    return {};
}

VxPinInIkAction::VxPinInIkAction()
    : VxPoseToolAction(tr("Pin in IK"),
                       tr("Pins the selected hands and feet: they stay where they are while nodes "
                          "above their limbs are posed in the viewport."),
                       "Ctrl+Shift+I", "Tools")
{
}

bool VxPinInIkAction::isCurrent(const PoseTools &tools) const
{
    return tools.areSelectedPinned();
}

QString VxPinInIkAction::choose(PoseTools *tools)
{
    return tools->togglePins();
}

VxAutoKeyAction::VxAutoKeyAction()
    : VxPoseToolAction(tr("Auto Key"),
                       tr("Toggles whether changed values become keys at the current time. Off, "
                          "the viewport's tools set values without keys."),
                       "Ctrl+K", "Tools")
{
}

bool VxAutoKeyAction::isCurrent(const PoseTools &) const
{
    return vxScene && vxScene->isAnimating();
}

QString VxAutoKeyAction::choose(PoseTools *)
{
    vxScene->setAnimating(!vxScene->isAnimating());
    return vxScene->isAnimating() ? tr("Auto Key is on: changed values become keys.")
                                  : tr("Auto Key is off: no keys are made.");
}

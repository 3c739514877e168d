#include "posetools/posetools.h"

#include "posetools/iktool.h"
#include "posetools/movetool.h"
#include "posetools/posemarks.h"
#include "posetools/rotatetool.h"
#include "posetools/scaletool.h"
#include "viewport/viewportwidget.h"
#include "widgets/studiotext.h"

#include <algorithm>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxscene.h>

PoseTools::PoseTools(VxScene *scene, ViewportWidget *viewport)
    : QObject(viewport)
    , m_scene(scene)
    , m_viewport(viewport)
    , m_settings(new PoseToolSettings(this))
{
    m_tools[Move] = new MoveTool(scene, m_settings, this);
    m_tools[Rotate] = new RotateTool(scene, m_settings, this);
    m_tools[Scale] = new ScaleTool(scene, m_settings, this);
    m_tools[Ik] = new IkTool(scene, m_settings, this);
    viewport->addLayer(new PoseMarks(scene, this));
    connect(viewport, &ViewportWidget::toolChanged, this, &PoseTools::activeToolChanged);
}

PoseTools *PoseTools::current()
{
    const VxMainWindow *window = vxApp ? vxApp->getInterface() : nullptr;
    // The viewport, whose child they are. Many actions ask, so the whole window is not searched.
    const QWidget *viewport = window ? window->centralWidget() : nullptr;
    return viewport ? viewport->findChild<PoseTools *>(QString(), Qt::FindDirectChildrenOnly)
                    : nullptr;
}

PoseTools::Tool PoseTools::activeTool() const
{
    if (!m_viewport->tool())
        return Select;
    const auto found = std::find(m_tools.begin() + 1, m_tools.end(), m_viewport->tool());
    return Tool(found - m_tools.begin());
}

void PoseTools::activate(Tool tool)
{
    m_viewport->setTool(m_tools[std::size_t(tool)]);
}

QString PoseTools::title(Tool tool)
{
    switch (tool) {
    case Select:
        return StudioText::tr("Select");
    case Move:
        return StudioText::tr("Move");
    case Rotate:
        return StudioText::tr("Rotate");
    case Scale:
        return StudioText::tr("Scale");
    case Ik:
        return StudioText::tr("IK");
    case ToolCount:
        break;
    }
    return {};
}

bool PoseTools::areSelectedPinned() const
{
    const QVector<VxNode *> nodes = m_scene->getSelectedNodes();
    return !nodes.isEmpty() && std::all_of(nodes.begin(), nodes.end(),
                                           [](const VxNode *node) { return node->isPinned(); });
}

QString PoseTools::togglePins()
{
    const bool pins = !areSelectedPinned();
    int count = 0;
    QString obstacle;
    VxUndoStackHold hold;
    for (VxNode *node : m_scene->getSelectedNodes()) {
        const QString reason = pins ? Limb(node).obstacle(m_scene->getTime()) : QString();
        if (!reason.isEmpty()) {
            obstacle = reason;
            continue;
        }
        node->setPinned(pins);
        ++count;
    }
    hold.accept(pins ? StudioText::tr("Pin in IK") : StudioText::tr("Unpin in IK"));
    if (count == 0)
        return obstacle.isEmpty() ? StudioText::tr("Select hands or feet first.") : obstacle;
    return pins ? StudioText::tr("Pinned in IK: %1.").arg(count)
                : StudioText::tr("No longer pinned in IK: %1.").arg(count);
}

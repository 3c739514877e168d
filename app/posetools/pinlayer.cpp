#include "posetools/pinlayer.h"

#include "posetools/posetoolsettings.h"
#include "viewport/viewportcamera.h"

#include <QPainter>
#include <QPalette>
#include <vxcore/vxscene.h>

namespace {

constexpr double PinHalfSide = 6;

} // namespace

PinLayer::PinLayer(const VxScene *scene, const PoseToolSettings *settings, QObject *parent)
    : ViewportTool(parent)
    , m_scene(scene)
    , m_settings(settings)
{
    connect(settings, &PoseToolSettings::changed, this, &ViewportTool::changed);
}

void PinLayer::paint(QPainter *painter, const ViewportCamera &camera, const QPalette &palette) const
{
    painter->setPen(QPen(palette.color(QPalette::WindowText), 1.5));
    painter->setBrush(Qt::NoBrush);
    for (const VxNode *node : m_settings->pinnedNodes(m_scene)) {
        const QMatrix4x4 world = node->getWorldTransform(m_scene->getTime());
        if (const auto at = camera.project(world.column(3).toVector3D()))
            painter->drawRect(QRectF(at->x() - PinHalfSide, at->y() - PinHalfSide, 2 * PinHalfSide,
                                     2 * PinHalfSide));
    }
}

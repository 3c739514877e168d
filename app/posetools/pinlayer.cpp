#include "posetools/pinlayer.h"

#include "viewport/viewportcamera.h"

#include <QPainter>
#include <QPalette>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

namespace {

constexpr double PinHalfSide = 6;

} // namespace

PinLayer::PinLayer(const VxScene *scene, QObject *parent)
    : ViewportTool(parent)
    , m_scene(scene)
{
}

void PinLayer::paint(QPainter *painter, const ViewportCamera &camera, const QPalette &palette) const
{
    painter->setPen(QPen(palette.color(QPalette::WindowText), 1.5));
    painter->setBrush(Qt::NoBrush);
    for (const VxNode *node : m_scene->getNodes()) {
        if (!node->isPinned())
            continue;
        const QMatrix4x4 world = node->getWorldTransform(m_scene->getTime());
        if (const auto at = camera.project(world.column(3).toVector3D()))
            painter->drawRect(QRectF(at->x() - PinHalfSide, at->y() - PinHalfSide, 2 * PinHalfSide,
                                     2 * PinHalfSide));
    }
}

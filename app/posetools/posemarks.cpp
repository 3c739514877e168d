#include "posetools/posemarks.h"

#include "posetools/autokeymark.h"
#include "viewport/viewportcamera.h"

#include <QPainter>
#include <QPalette>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

namespace {

constexpr double TintWidth = 2;
constexpr int EdgeAlpha = 150;
constexpr double PinHalfSide = 6;

void paintEdge(QPainter *painter, const QSizeF &view, QColor ink)
{
    ink.setAlpha(EdgeAlpha);
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->fillRect(QRectF(0, 0, view.width(), TintWidth), ink);
    painter->fillRect(QRectF(0, view.height() - TintWidth, view.width(), TintWidth), ink);
    const QRectF side(0, TintWidth, TintWidth, view.height() - 2 * TintWidth);
    painter->fillRect(side, ink);
    painter->fillRect(side.translated(view.width() - TintWidth, 0), ink);
    painter->setRenderHint(QPainter::Antialiasing);
}

} // namespace

PoseMarks::PoseMarks(const VxScene *scene, QObject *parent)
    : ViewportTool(parent)
    , m_scene(scene)
{
    connect(scene, &VxScene::animatingChanged, this, &ViewportTool::changed);
}

void PoseMarks::paint(QPainter *painter, const ViewportCamera &camera,
                      const QPalette &palette) const
{
    if (m_scene->isAnimating())
        paintEdge(painter, camera.viewSize(), AutoKeyMark::color(palette));
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

#include "posetools/autokeylayer.h"

#include "posetools/autokeymark.h"
#include "viewport/viewportcamera.h"

#include <QPainter>
#include <vxcore/vxscene.h>

namespace {

constexpr double TintWidth = 2;
constexpr int EdgeAlpha = 150;

} // namespace

AutoKeyLayer::AutoKeyLayer(const VxScene *scene, QObject *parent)
    : ViewportTool(parent)
    , m_scene(scene)
{
    connect(scene, &VxScene::animatingChanged, this, &ViewportTool::changed);
}

void AutoKeyLayer::paint(QPainter *painter, const ViewportCamera &camera,
                         const QPalette &palette) const
{
    if (!m_scene->isAnimating())
        return;
    QColor red = AutoKeyMark::color(palette);
    red.setAlpha(EdgeAlpha);
    painter->setRenderHint(QPainter::Antialiasing, false);
    const QRectF view(QPointF(), camera.viewSize());
    painter->fillRect(QRectF(0, 0, view.width(), TintWidth), red);
    painter->fillRect(QRectF(0, view.height() - TintWidth, view.width(), TintWidth), red);
    const QRectF side(0, TintWidth, TintWidth, view.height() - 2 * TintWidth);
    painter->fillRect(side, red);
    painter->fillRect(side.translated(view.width() - TintWidth, 0), red);
}

#include "posetools/autokeylayer.h"

#include "posetools/autokeymark.h"
#include "viewport/viewportcamera.h"

#include <QPainter>
#include <vxcore/vxscene.h>

namespace {

constexpr double EdgeWidth = 2;
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
    painter->fillRect(QRectF(0, 0, view.width(), EdgeWidth), red);
    painter->fillRect(QRectF(0, view.height() - EdgeWidth, view.width(), EdgeWidth), red);
    const QRectF side(0, EdgeWidth, EdgeWidth, view.height() - 2 * EdgeWidth);
    painter->fillRect(side, red);
    painter->fillRect(side.translated(view.width() - EdgeWidth, 0), red);
}

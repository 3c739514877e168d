#include "create/bonechaintool.h"

#include "create/createedits.h"
#include "viewport/boneshape.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPalette>
#include <QStyleHints>
#include <cmath>
#include <vxcore/vxbone.h>
#include <vxcore/vxscene.h>

namespace {

constexpr double ClickTolerance = 5;  // pixels between the presses of a double click
constexpr float FlattestAngle = 0.1f; // sine of the angle at which the grid is still clicked

/** The axis at right angles to the grid: that of an orthographic view along it, else Y. */
int gridNormal(const ViewportCamera &camera)
{
    for (int axis = 0; camera.isOrthographic() && axis < 3; ++axis) {
        if (std::abs(camera.back()[axis]) > 0.999f)
            return axis;
    }
    return 1;
}

} // namespace

BoneChainTool::BoneChainTool(VxScene *scene, QObject *parent)
    : ViewportTool(parent)
    , m_scene(scene)
{
}

void BoneChainTool::begin()
{
    cancel();
    m_parent = m_scene->getPrimarySelection();
    if (qobject_cast<VxBone *>(m_parent) && !m_parent->getEndPoint().isNull()) {
        m_joints = {m_parent->getWorldTransform(m_scene->getTime()).map(m_parent->getEndPoint())};
        m_given = 1;
    }
    Q_EMIT message(tr("Click the joints of the bones. Return ends the chain, Backspace takes the "
                      "last one back."));
    Q_EMIT changed();
}

QVector3D BoneChainTool::pointAt(const ViewportPointer &at) const
{
    const ViewportCamera &camera = at.camera;
    if (!m_joints.isEmpty())
        return camera.pointAt(at.pixel, camera.depth(m_joints.last()));
    const int normal = gridNormal(camera);
    const QVector3D direction = camera.directionAt(at.pixel);
    const QVector3D from = camera.pointAt(at.pixel, 0);
    const float distance = -from[normal] / direction[normal];
    if (std::abs(direction[normal]) > FlattestAngle && (distance > 0 || camera.isOrthographic()))
        return from + direction * distance;
    return camera.pointAt(at.pixel, camera.distance());
}

bool BoneChainTool::isDoubleClick(const QPointF &pixel) const
{
    const QPointF moved = pixel - m_pressedAt;
    return m_sincePress.isValid() &&
           m_sincePress.elapsed() < QGuiApplication::styleHints()->mouseDoubleClickInterval() &&
           moved.manhattanLength() < ClickTolerance;
}

bool BoneChainTool::press(const ViewportPointer &at)
{
    if (m_joints.size() > m_given && isDoubleClick(at.pixel)) {
        finish();
        Q_EMIT finished();
        return true;
    }
    m_joints.append(pointAt(at));
    m_mouse.reset();
    m_sincePress.start();
    m_pressedAt = at.pixel;
    Q_EMIT changed();
    return true;
}

bool BoneChainTool::hover(const ViewportPointer &at)
{
    m_mouse = pointAt(at);
    Q_EMIT changed();
    return true;
}

void BoneChainTool::leave()
{
    m_mouse.reset();
    Q_EMIT changed();
}

bool BoneChainTool::usesKey(const QKeyEvent &event) const
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter ||
           event.key() == Qt::Key_Escape || event.key() == Qt::Key_Backspace;
}

void BoneChainTool::key(const QKeyEvent &event)
{
    if (event.key() == Qt::Key_Backspace) {
        removeLastJoint();
        return;
    }
    finish();
    Q_EMIT finished();
}

void BoneChainTool::removeLastJoint()
{
    m_sincePress.invalidate();
    if (m_joints.size() > m_given)
        m_joints.removeLast();
    Q_EMIT changed();
}

void BoneChainTool::cancel()
{
    m_joints.clear();
    m_given = 0;
    m_mouse.reset();
    m_parent.clear();
    m_sincePress.invalidate();
    Q_EMIT changed();
}

void BoneChainTool::finish()
{
    const QVector<QVector3D> joints = m_joints;
    // A node that was deleted may still exist, for undo.
    VxNode *parent = m_parent && m_parent->getScene() == m_scene ? m_parent.data() : nullptr;
    cancel();
    if (joints.size() < 2)
        return;
    const CreateResult result = CreateEdits::addBoneChain(m_scene, parent, joints);
    Q_EMIT message(result.message.isEmpty() ? tr("Bones created: %1.").arg(joints.size() - 1)
                                            : result.message);
}

void BoneChainTool::paint(QPainter *painter, const ViewportCamera &camera,
                          const QPalette &palette) const
{
    QVector<QVector3D> joints = m_joints;
    if (m_mouse)
        joints.append(*m_mouse);
    const QColor ink = palette.color(QPalette::Highlight).lighter(130);
    QColor body = ink;
    body.setAlphaF(0.25);
    painter->setBrush(body);
    painter->setPen(QPen(ink, 1));
    for (int i = 1; i < joints.size(); ++i) {
        if (const auto shape = boneShape({joints.at(i - 1), joints.at(i), nullptr, false}, camera))
            shape->paint(painter);
    }
    painter->setPen(QPen(ink, 5, Qt::SolidLine, Qt::RoundCap));
    for (const QVector3D &joint : qAsConst(joints)) {
        if (const auto at = camera.project(joint))
            painter->drawPoint(*at);
    }
}

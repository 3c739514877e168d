#include "viewport/motiontrails.h"

#include "viewport/palettetone.h"
#include "viewport/viewportcamera.h"

#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <cmath>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>

namespace {

constexpr double FrameSide = 2; // of dots, pixels
constexpr double KeySide = 6;
constexpr double HoveredSide = 9;
constexpr QPointF LabelOffset(8, -6);
// Points farther out are not painted: a painter is slow with lines far beyond its image.
constexpr double TrailSurroundings = 2000;

QColor inkBefore(const QPalette &palette)
{
    return hasDarkBase(palette) ? QColor(240, 120, 110) : QColor(190, 50, 40);
}

QColor inkAfter(const QPalette &palette)
{
    return hasDarkBase(palette) ? QColor(100, 175, 245) : QColor(25, 90, 190);
}

QRectF square(const QPointF &at, double side)
{
    return {at - QPointF(side, side) / 2, QSizeF(side, side)};
}

/// Larger than a frame: a key, unless the dots on both sides are keys too. The trail of a capture
/// with keys on every frame would be a band.
bool isMarked(const MotionTrail &trail, int i)
{
    const auto isKey = [&trail](int index) {
        return index >= 0 && index < trail.dots.size() && trail.dots.at(index).isKey;
    };
    return isKey(i) && !(isKey(i - 1) && isKey(i + 1));
}

/// The dots of a trail on the screen; a break in the line is a point that is null.
class TrailPicture
{
public:
    TrailPicture(const MotionTrail &trail, const ViewportCamera &camera)
    {
        const QSizeF size = camera.viewSize();
        m_near = QRectF(QPointF(), size)
                     .adjusted(-TrailSurroundings, -TrailSurroundings, TrailSurroundings,
                               TrailSurroundings);
        m_points.reserve(std::size_t(trail.dots.size()));
        for (const MotionTrail::Dot &dot : trail.dots) {
            const auto at = camera.project(dot.at);
            m_points.push_back(at && m_near.contains(*at) ? at : std::nullopt);
        }
    }

    /// The line through the dots from one index to another, both included.
    void paintLine(QPainter *painter, std::size_t first, std::size_t last) const
    {
        QPolygonF line;
        for (std::size_t i = first; i <= last && i < m_points.size(); ++i) {
            if (m_points[i]) {
                line.append(*m_points[i]);
                continue;
            }
            painter->drawPolyline(line);
            line.clear();
        }
        painter->drawPolyline(line);
    }

    const std::optional<QPointF> &at(std::size_t index) const { return m_points[index]; }

private:
    QRectF m_near;
    std::vector<std::optional<QPointF>> m_points;
};

} // namespace

MotionTrails::MotionTrails(VxScene *scene, QObject *parent)
    : ViewportTool(parent)
    , m_scene(scene)
{
    setObjectName(QStringLiteral("MotionTrails"));
    connect(scene, &VxScene::nodeValuesChanged, this, &MotionTrails::dropTrailsOf);
    connect(scene, &VxScene::nodePropertiesChanged, this, &MotionTrails::dropTrailsOf);
    connect(scene, &VxScene::playRangeChanged, this, &MotionTrails::drop);
    connect(scene, &VxScene::timeStepChanged, this, &MotionTrails::drop);
    connect(scene, &VxScene::nodeRemoved, this, &MotionTrails::drop);
}

void MotionTrails::setEnabled(bool enabled)
{
    if (enabled == m_isEnabled)
        return;
    m_isEnabled = enabled;
    cancel();
    drop();
    Q_EMIT enabledChanged(enabled);
    Q_EMIT changed();
}

void MotionTrails::drop()
{
    m_trails.clear();
    setHovered({});
}

/** The trails of the node and of those below it. */
void MotionTrails::dropTrailsOf(const VxNode *node)
{
    const auto isBelow = [node](const Trail &trail) {
        return std::any_of(trail.links.begin(), trail.links.end(),
                           [node](const TrailLink &link) { return link.node == node; });
    };
    m_trails.erase(std::remove_if(m_trails.begin(), m_trails.end(), isBelow), m_trails.end());
    setHovered({});
}

const std::vector<MotionTrails::Trail> &MotionTrails::trails() const
{
    QVector<VxNode *> nodes = m_isEnabled ? m_scene->getSelectedNodes() : QVector<VxNode *>();
    if (nodes.size() > MaxTrails)
        nodes.resize(MaxTrails);
    std::vector<Trail> present;
    for (VxNode *node : qAsConst(nodes)) {
        const QVector<TrailLink> links = trailLinks(node);
        const auto kept = std::find_if(m_trails.begin(), m_trails.end(), [&](const Trail &trail) {
            return trail.node == node && trail.links == links;
        });
        if (kept != m_trails.end()) {
            present.push_back(std::move(*kept));
            kept->node = nullptr;
            continue;
        }
        ++m_numComputed;
        present.push_back(
            {node, links, MotionTrail::of(node, m_scene->getPlayRange(), m_scene->getTimeStep())});
    }
    m_trails = std::move(present);
    return m_trails;
}

/** The nearest dot within reach; the joint itself, at the present time, belongs to the tools. */
const MotionTrail::Dot *MotionTrails::dotAt(const QPointF &pixel,
                                            const ViewportCamera &camera) const
{
    const MotionTrail::Dot *nearest = nullptr;
    double best = DotReach;
    for (const Trail &trail : trails()) {
        for (const MotionTrail::Dot &dot : trail.trail.dots) {
            const auto at = camera.project(dot.at);
            if (!at || dot.time == m_scene->getTime())
                continue;
            // A key that is as near as a frame is preferred.
            const double distance =
                std::hypot(at->x() - pixel.x(), at->y() - pixel.y()) - (dot.isKey ? 0.5 : 0);
            if (distance <= best) {
                best = distance;
                nearest = &dot;
            }
        }
    }
    return nearest;
}

bool MotionTrails::press(const ViewportPointer &at)
{
    const MotionTrail::Dot *dot = m_isEnabled ? dotAt(at.pixel, at.camera) : nullptr;
    if (!dot)
        return false;
    m_pressed = dot->time;
    return true;
}

void MotionTrails::release(const ViewportPointer &at)
{
    const std::optional<VxTime> time = std::exchange(m_pressed, std::nullopt);
    const MotionTrail::Dot *dot = dotAt(at.pixel, at.camera);
    if (time && dot && dot->time == *time)
        m_scene->setTime(*time);
    setHovered({});
}

void MotionTrails::cancel()
{
    m_pressed.reset();
    setHovered({});
}

bool MotionTrails::hover(const ViewportPointer &at)
{
    const MotionTrail::Dot *dot = m_isEnabled ? dotAt(at.pixel, at.camera) : nullptr;
    setHovered(dot ? std::optional<MotionTrail::Dot>(*dot) : std::nullopt);
    return dot != nullptr;
}

void MotionTrails::leave()
{
    setHovered({});
}

void MotionTrails::setHovered(const std::optional<MotionTrail::Dot> &dot)
{
    const bool isSame = dot.has_value() == m_hovered.has_value() &&
                        (!dot || (dot->time == m_hovered->time && dot->at == m_hovered->at));
    if (isSame)
        return;
    m_hovered = dot;
    Q_EMIT changed();
}

void MotionTrails::paint(QPainter *painter, const ViewportCamera &camera,
                         const QPalette &palette) const
{
    if (!m_isEnabled)
        return;
    for (const Trail &trail : trails())
        paintTrail(trail.trail, painter, camera, palette);
    if (m_hovered)
        paintHovered(painter, camera, palette);
}

void MotionTrails::paintTrail(const MotionTrail &trail, QPainter *painter,
                              const ViewportCamera &camera, const QPalette &palette) const
{
    if (trail.dots.isEmpty())
        return;
    const TrailPicture picture(trail, camera);
    const QColor before = inkBefore(palette);
    const QColor after = inkAfter(palette);
    const auto count = std::size_t(trail.dots.size());
    const auto playhead = std::size_t(
        std::upper_bound(trail.dots.begin(), trail.dots.end(), m_scene->getTime(),
                         [](VxTime time, const MotionTrail::Dot &dot) { return time < dot.time; }) -
        trail.dots.begin());
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(before, 0));
    if (playhead > 1)
        picture.paintLine(painter, 0, playhead - 1);
    painter->setPen(QPen(after, 0));
    picture.paintLine(painter, playhead > 0 ? playhead - 1 : 0, count - 1);
    painter->setRenderHint(QPainter::Antialiasing, false);
    for (std::size_t i = 0; i < count; ++i) {
        if (const auto &at = picture.at(i))
            painter->fillRect(square(*at, isMarked(trail, int(i)) ? KeySide : FrameSide),
                              i < playhead ? before : after);
    }
    painter->setRenderHint(QPainter::Antialiasing);
}

void MotionTrails::paintHovered(QPainter *painter, const ViewportCamera &camera,
                                const QPalette &palette) const
{
    const auto at = camera.project(m_hovered->at);
    if (!at)
        return;
    const QColor ink =
        m_hovered->time <= m_scene->getTime() ? inkBefore(palette) : inkAfter(palette);
    painter->fillRect(square(*at, HoveredSide), ink);
    painter->setPen(palette.color(QPalette::WindowText));
    painter->drawText(*at + LabelOffset, VxSceneTimeDisplay::labelOf(m_scene, m_hovered->time));
}

#include "posetools/transformtool.h"

#include "gizmo/gizmopainter.h"
#include "scenetree/sceneedits.h"
#include "widgets/studiotext.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPalette>
#include <QSet>
#include <algorithm>
#include <cmath>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxtypedinput.h>

namespace {

constexpr double FineSpeed = 0.1;
constexpr int LongestNumber = 24;

bool isModifierKey(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt ||
           key == Qt::Key_Meta || key == Qt::Key_AltGr;
}

bool isNumberPart(const QString &text)
{
    return text.size() == 1 && QStringLiteral("0123456789.,+-*/()").contains(text);
}

} // namespace

TransformTool::TransformTool(PoseTools::Tool tool, VxScene *scene, PoseToolSettings *settings,
                             GizmoKind kind, QObject *parent)
    : ViewportTool(parent)
    , m_tool(tool)
    , m_scene(scene)
    , m_settings(settings)
    , m_kind(kind)
{
    connect(settings, &PoseToolSettings::changed, this, &ViewportTool::changed);
}

std::optional<GizmoTarget> TransformTool::target() const
{
    const QVector<VxNode *> selected = m_scene->getSelectedNodes();
    if (selected.isEmpty())
        return std::nullopt;
    VxNode *primary = m_scene->getPrimarySelection();
    GizmoTarget target = targetOf(selected, primary ? primary : selected.last());
    const QVector3D origin = target.frame.origin;
    const bool isFinite =
        std::isfinite(origin.x()) && std::isfinite(origin.y()) && std::isfinite(origin.z());
    if (target.nodes.isEmpty() || !isFinite)
        return std::nullopt;
    return target;
}

std::array<QVector3D, 3> TransformTool::ringAxes(VxNode *node,
                                                 PoseToolSettings::Orientation orientation) const
{
    if (orientation == PoseToolSettings::Orientation::World)
        return Spaces::axesOf(Spaces::rotationOf(QMatrix4x4()));
    const GestureNode each(node, m_scene->getTime(), false);
    const VxRotation parent = Spaces::rotationOf(each.parentMatrix());
    return Spaces::axesOf(orientation == PoseToolSettings::Orientation::Parent
                              ? parent
                              : parent * vxRotation(anglesOf(each.start()), each.order()));
}

std::array<QVector3D, 3> TransformTool::arrowAxes(VxNode *node,
                                                  PoseToolSettings::Orientation orientation) const
{
    std::array<QVector3D, 3> axes = ringAxes(node, orientation);
    const VxNode *parent = node->getNodeParent();
    if (orientation != PoseToolSettings::Orientation::World && parent &&
        Spaces::isMirrored(parent->getWorldTransform(m_scene->getTime()))) {
        for (QVector3D &axis : axes)
            axis = -axis;
    }
    return axes;
}

QVector3D TransformTool::pivotOf(const QVector<VxNode *> &nodes, const VxNode *primary) const
{
    const VxTime time = m_scene->getTime();
    if (m_settings->pivot() == PoseToolSettings::Pivot::Own)
        return primary->getWorldTransform(time).column(3).toVector3D();
    QVector3D sum;
    for (const VxNode *node : nodes)
        sum += node->getWorldTransform(time).column(3).toVector3D();
    return sum / float(nodes.size());
}

QLatin1String TransformTool::axisPrefix() const
{
    static const char *const names[] = {"X ", "Y ", "Z "};
    const int axis = gizmoAxis(m_part);
    return QLatin1String(axis >= 0 ? names[axis] : "");
}

GizmoLocks
TransformTool::commonLocks(const QVector<VxNode *> &nodes,
                           const std::function<GizmoLocks(const GestureNode &)> &locksOf) const
{
    GizmoLocks common;
    common.fill(true);
    for (VxNode *node : nodes) {
        const GizmoLocks locks = locksOf(GestureNode(node, m_scene->getTime(), false));
        for (std::size_t part = 0; part < common.size(); ++part)
            common[part] = common[part] && locks[part];
        if (std::none_of(common.begin(), common.end(), [](bool isLocked) { return isLocked; }))
            break;
    }
    return common;
}

bool TransformTool::press(const ViewportPointer &at)
{
    const auto target = this->target();
    if (!target)
        return false;
    const GizmoPart part =
        hitGizmo(gizmoShapes(m_kind, target->frame, target->locks, at.camera), at.pixel);
    if (part == GizmoPart::None)
        return false;
    begin(*target, part, at);
    return true;
}

void TransformTool::begin(const GizmoTarget &target, GizmoPart part, const ViewportPointer &at)
{
    m_isPressed = true;
    m_part = part;
    m_hovered = GizmoPart::None;
    m_pressTarget = target;
    m_camera = at.camera;
    m_mouse = at.pixel;
    m_pixel = at.pixel;
    m_gesture = std::make_unique<PoseGesture>(m_scene, title());
    connect(m_gesture.get(), &PoseGesture::ended, this, [this] {
        m_gesture.release()->deleteLater(); // it is sending
        reset();
    });
    beginDrag(target, at.pixel);
    beginPins(target.nodes);
    Q_EMIT changed();
}

/** The limbs of pinned joints that the nodes carry along. */
void TransformTool::beginPins(const QVector<VxNode *> &moved)
{
    const QSet<const VxNode *> posed(moved.begin(), moved.end());
    QVector<VxNode *> below;
    for (const VxNode *top : SceneEdits::topmost(m_scene, moved))
        top->getNodeChildren(below, true);
    const QSet<const VxNode *> carried(below.begin(), below.end());
    for (VxNode *pinned : qAsConst(below)) {
        if (!pinned->isPinned())
            continue;
        Limb limb(pinned);
        const std::array<VxNode *, 3> &nodes = limb.nodes();
        const bool isPosed = std::any_of(nodes.begin(), nodes.end(),
                                         [&](const VxNode *node) { return posed.contains(node); });
        if (!carried.contains(nodes[0]) || isPosed || !limb.obstacle(m_scene->getTime()).isEmpty())
            continue;
        limb.begin(m_gesture.get());
        m_pins.push_back(limb);
    }
}

void TransformTool::drag(const ViewportPointer &at)
{
    if (!m_gesture || !m_gesture->isOpen())
        return;
    const bool isFine = at.modifiers & Qt::ControlModifier;
    m_pixel += (at.pixel - m_mouse) * (isFine ? FineSpeed : 1);
    m_mouse = at.pixel;
    if (m_typed.isEmpty())
        update(at.modifiers);
    else
        Q_EMIT changed();
}

void TransformTool::update(Qt::KeyboardModifiers modifiers)
{
    if (m_typed.isEmpty())
        follow(m_pixel, modifiers & Qt::ShiftModifier);
    m_gesture->resetCounts();
    m_slippedPins = 0;
    {
        const VxChangeBlock block;
        write();
        for (Limb &pin : m_pins)
            m_slippedPins += pin.solve(pin.startPosition()) ? 0 : 1;
    }
    Q_EMIT changed();
}

void TransformTool::release(const ViewportPointer &)
{
    finish();
    m_isPressed = false;
}

void TransformTool::finish()
{
    if (!m_gesture)
        return;
    const bool makesKeys = m_gesture->makesKeys();
    const QString done = StudioText::tr("%1: %2.").arg(title(), amountText()) + remark();
    m_gesture->accept();
    reset();
    Q_EMIT message(makesKeys ? done
                             : done + StudioText::tr(" Auto Key is off: no keys are made; "
                                                     "animated channels return to their keys "
                                                     "when the time changes."));
}

void TransformTool::reset()
{
    m_gesture.reset();
    m_pins.clear();
    m_typed.clear();
    m_pressTarget.reset();
    m_part = GizmoPart::None;
    Q_EMIT changed();
}

void TransformTool::cancel()
{
    m_isPressed = false;
    if (!m_gesture)
        return;
    m_gesture->rollBack();
    reset();
    Q_EMIT message(StudioText::tr("%1 was cancelled.").arg(title()));
}

bool TransformTool::hover(const ViewportPointer &at)
{
    const auto target = this->target();
    const GizmoPart part =
        target ? hitGizmo(gizmoShapes(m_kind, target->frame, target->locks, at.camera), at.pixel)
               : GizmoPart::None;
    if (part != m_hovered) {
        m_hovered = part;
        Q_EMIT changed();
    }
    return part != GizmoPart::None;
}

void TransformTool::leave()
{
    if (m_hovered == GizmoPart::None)
        return;
    m_hovered = GizmoPart::None;
    Q_EMIT changed();
}

/** All keys during a drag: a shortcut must not change the scene under it. */
bool TransformTool::usesKey(const QKeyEvent &event) const
{
    return m_isPressed && event.key() != Qt::Key_Escape;
}

void TransformTool::key(const QKeyEvent &event)
{
    if (!m_gesture || isModifierKey(event.key()))
        return;
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
        finish();
        return;
    }
    if (!hasAmount())
        return;
    if (event.key() == Qt::Key_Backspace)
        m_typed.chop(1);
    else if (isNumberPart(event.text()) && m_typed.size() < LongestNumber)
        m_typed += event.text();
    else
        return;
    applyTyped();
}

/** An unfinished number, such as a sign, leaves the amount as it is. */
void TransformTool::applyTyped()
{
    const VxTypedInput input = VxTypedInput::read(m_typed);
    if (input.kind == VxTypedInput::Value)
        setAmount(input.amount);
    update(Qt::NoModifier);
}

QString TransformTool::remark() const
{
    QString text;
    if (m_gesture && m_gesture->limited() > 0)
        text += StudioText::tr(" At the limit.");
    if (m_gesture && m_gesture->refused() > 0)
        text += StudioText::tr(" Channels not changed: %1.").arg(m_gesture->refused());
    if (m_slippedPins > 0)
        text += StudioText::tr(" Pins out of reach: %1.").arg(m_slippedPins);
    return text;
}

QString TransformTool::readout() const
{
    if (!m_gesture)
        return {};
    if (m_typed.isEmpty())
        return amountText() + remark();
    return axisPrefix() + m_typed + QChar(0x2502) + remark();
}

void TransformTool::paint(QPainter *painter, const ViewportCamera &camera,
                          const QPalette &palette) const
{
    const auto target = this->target();
    if (!target)
        return;
    paintGizmo(painter, gizmoShapes(m_kind, target->frame, target->locks, camera),
               m_isPressed ? m_part : m_hovered, palette);
    paintReadout(painter, camera, palette);
}

void TransformTool::paintReadout(QPainter *painter, const ViewportCamera &camera,
                                 const QPalette &palette) const
{
    const QString text = readout();
    if (!text.isEmpty())
        paintGizmoReadout(painter, m_mouse, text, camera.viewSize(), palette);
}

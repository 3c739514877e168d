#include "posetools/limb.h"

#include "pose/channellimits.h"
#include "widgets/studiotext.h"

#include <cmath>
#include <limits>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxskeleton.h>

namespace {

// Scales that differ by axis skew the solution: it is corrected this many times at most.
constexpr int MaxCorrections = 8;
// Fractions of the limb's length.
constexpr double GoodEnough = 1e-5;
constexpr double ReachTolerance = 1e-3;
constexpr double NoLimbLength = 1e-9; // of the positions

} // namespace

Limb::Limb(VxNode *end)
{
    for (std::size_t i = 3; i-- > 0 && end; end = end->getNodeParent())
        m_nodes[i] = end;
}

QString Limb::obstacle(VxTime time) const
{
    if (!m_nodes[0] || qobject_cast<VxSkeleton *>(m_nodes[0]) ||
        qobject_cast<VxSkeleton *>(m_nodes[1]))
        return StudioText::tr("Drag a joint with two bones above it, such as a hand or a foot.");
    std::array<VxVector, 3> at;
    for (std::size_t i = 0; i < 3; ++i)
        at[i] = Spaces::originOf(m_nodes[i]->getWorldTransform(time));
    const double size = std::abs(at[0][0]) + std::abs(at[0][1]) + std::abs(at[0][2]);
    for (std::size_t i = 0; i < 2; ++i) {
        const double length = Spaces::distance(at[i], at[i + 1]);
        if (!(length > NoLimbLength * size) || !std::isfinite(length))
            return StudioText::tr("The bone %1 has no length; its limb cannot be solved.")
                .arg(m_nodes[i]->getLabel());
    }
    for (std::size_t i = 0; i < 2; ++i) {
        const NodeChannels channels(m_nodes[i]);
        for (int channel = XAngle; channel <= ZAngle; ++channel) {
            if (channels.at(channel) && ChannelLimits::isDriven(channels.at(channel)))
                return StudioText::tr("The rotation of %1 is locked or linked.")
                    .arg(m_nodes[i]->getLabel());
        }
    }
    return {};
}

Limb::Matrices Limb::matrices(const QMatrix4x4 &parent, const Poses &poses) const
{
    Matrices result;
    QMatrix4x4 above = parent;
    for (std::size_t i = 0; i < 3; ++i) {
        result[i] = above * m_parts[i]->localMatrix(poses[i]);
        above = result[i];
    }
    return result;
}

void Limb::begin(PoseGesture *gesture)
{
    m_gesture = gesture;
    Poses poses;
    for (std::size_t i = 0; i < 3; ++i) {
        m_parts[i] = &gesture->node(m_nodes[i]);
        poses[i] = m_parts[i]->start();
    }
    const Matrices worlds = matrices(m_parts[0]->parentMatrix(), poses);
    m_startPosition = Spaces::originOf(worlds[2]);
    m_endRotation = rotation(2, worlds[1], poses[2]);
    m_length = Spaces::distance(Spaces::originOf(worlds[0]), Spaces::originOf(worlds[1])) +
               Spaces::distance(Spaces::originOf(worlds[1]), m_startPosition);
}

/** Of a part in the world, without its own scales: those are applied before it. */
VxQuaternion Limb::rotation(std::size_t index, const QMatrix4x4 &parent,
                            const PoseValues &values) const
{
    return vxQuaternion(Spaces::rotationOf(parent)) *
           vxQuaternion(anglesOf(values), m_parts[index]->order());
}

/** Of the middle joint's axes across the bone the one with the widest limits, in the direction in
 *  which they are wider; X without limits. */
VxVector Limb::bendAxis(const Matrices &worlds) const
{
    const QVector3D bone = (worlds[2].column(3) - worlds[1].column(3)).toVector3D().normalized();
    const VxRotation middle = vxRotation(rotation(1, worlds[0], m_parts[1]->start()));
    const std::array<QVector3D, 3> axes = Spaces::axesOf(middle);
    QVector3D result = axes[0];
    double widest = 0;
    for (int i = 0; i < 3; ++i) {
        const VxFloatProperty *control = m_parts[1]->channels().at(XAngle + i);
        const auto *holder =
            control ? static_cast<const VxFloatProperty *>(control->getKeyHolder()) : nullptr;
        if (!holder || !holder->isClamped())
            continue;
        const QVector3D axis = axes[std::size_t(i)];
        const double range = (double(holder->getMax()) - double(holder->getMin())) *
                             double(QVector3D::crossProduct(axis, bone).length());
        if (range <= widest)
            continue;
        widest = range;
        result = -holder->getMin() > holder->getMax() ? -axis : axis;
    }
    return Spaces::toVector(result);
}

void Limb::setAngles(std::size_t index, const QMatrix4x4 &parent, const VxQuaternion &world,
                     Poses *poses) const
{
    const GestureNode &part = *m_parts[index];
    const VxQuaternion local = vxInverse(vxQuaternion(Spaces::rotationOf(parent))) * world;
    const VxEuler angles = ChannelLimits::angles(part.channels(), part.time(), vxRotation(local),
                                                 part.order(), anglesOf(part.start()));
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const int channel = XAngle + int(axis);
        const VxFloatProperty *control = part.channels().at(channel);
        (*poses)[index][std::size_t(channel)] =
            control ? ChannelLimits::limited(control, part.time(), angles[axis]) : angles[axis];
    }
}

/** The poses that bring the joint to a target, within limits. */
Limb::Poses Limb::rotated(const QMatrix4x4 &parent, const VxVector &target) const
{
    Poses poses{m_parts[0]->start(), m_parts[1]->start(), m_parts[2]->start()};
    const Matrices worlds = matrices(parent, poses);
    const VxLimb limb{Spaces::originOf(worlds[0]), Spaces::originOf(worlds[1]),
                      Spaces::originOf(worlds[2])};
    const VxLimbSolution solution = vxSolveLimb(limb, target, bendAxis(worlds));
    const VxQuaternion first = rotation(0, parent, poses[0]);
    const VxQuaternion second = rotation(1, worlds[0], poses[1]);
    setAngles(0, parent, solution.upper * first, &poses);
    const QMatrix4x4 upper = parent * m_parts[0]->localMatrix(poses[0]);
    setAngles(1, upper, solution.upper * solution.lower * second, &poses);
    const QMatrix4x4 lower = upper * m_parts[1]->localMatrix(poses[1]);
    setAngles(2, lower, m_endRotation, &poses);
    return poses;
}

bool Limb::solve(const VxVector &target)
{
    const QMatrix4x4 parent = m_parts[0]->parentMatrix();
    VxVector aim = target;
    Poses best;
    double nearest = std::numeric_limits<double>::max();
    for (int i = 0; i <= MaxCorrections && nearest > GoodEnough * m_length; ++i) {
        const Poses poses = rotated(parent, aim);
        const VxVector end = Spaces::originOf(matrices(parent, poses)[2]);
        const double missed = Spaces::distance(end, target);
        if (!(missed < nearest))
            break;
        best = poses;
        nearest = missed;
        for (std::size_t axis = 0; axis < 3; ++axis)
            aim[axis] += target[axis] - end[axis];
    }
    m_error = m_length > 0 ? nearest / m_length : 0;
    if (nearest == std::numeric_limits<double>::max())
        return false; // not a number
    for (std::size_t i = 0; i < 3; ++i) {
        for (int channel = XAngle; channel <= ZAngle; ++channel)
            m_gesture->set(m_parts[i], channel, best[i][std::size_t(channel)]);
    }
    return m_error <= ReachTolerance;
}

#include "keytools/limbpin.h"

#include "keytools/keyseries.h"
#include "keytools/keytooltext.h"

#include <QtGui/QMatrix4x4>
#include <algorithm>
#include <cmath>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>

namespace {

VxVector placeOf(const QMatrix4x4 &world)
{
    return {double(world(0, 3)), double(world(1, 3)), double(world(2, 3))};
}

double distance(const VxVector &a, const VxVector &b)
{
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

VxQuaternion rotationOf(const QMatrix4x4 &world)
{
    return vxQuaternion(vxRotationOf(world));
}

std::array<VxFloatProperty *, 3> rotationControls(const VxNode *node)
{
    return {node->getXRotControl(), node->getYRotControl(), node->getZRotControl()};
}

QMatrix4x4 worldOf(const VxNode *node, VxTime time)
{
    return node ? node->getWorldTransform(time) : QMatrix4x4();
}

} // namespace

LimbPin::LimbPin(VxNode *joint)
{
    for (std::size_t i = 3; i-- > 0 && joint; joint = joint->getNodeParent())
        m_nodes[i] = joint;
}

QString LimbPin::obstacle() const
{
    if (!m_nodes[0])
        return KeyToolText::tr("select a joint with two joints above it");
    for (const VxNode *node : m_nodes) {
        for (const VxFloatProperty *control : rotationControls(node)) {
            if (control->isLocked() || control->isLinked() || control->getKeyHolder() != control ||
                !control->canBeKeyed())
                return KeyToolText::tr("the rotation of %1 cannot be keyed").arg(node->getLabel());
        }
    }
    return QString();
}

void LimbPin::solve(const VxTimeRange &span, VxTime falloff, VxTime step, VxTime time)
{
    m_span = span;
    m_step = step;
    m_place = placeOf(m_nodes[2]->getWorldTransform(time));
    const double end = std::min(double(span.getEnd()) + falloff, double(VxTimeMax));
    for (double t = std::max(double(span.getStart()) - falloff, double(VxTimeMin)); t < end;
         t += step)
        m_times.push_back(VxTime(t));
    m_times.push_back(VxTime(end));
    std::array<VxEuler, 3> previous;
    for (std::size_t i = 0; i < 3; ++i) {
        const auto controls = rotationControls(m_nodes[i]);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            m_angles[i][axis].resize(m_times.size());
            previous[i][axis] = double(controls[axis]->getValue(m_times.front()));
        }
    }
    for (std::size_t frame = 0; frame < m_times.size(); ++frame) {
        const double weight =
            falloffWeight(m_times[frame], span.getStart(), span.getEnd(), falloff);
        solveFrame(frame, weight, &previous);
    }
}

void LimbPin::solveFrame(std::size_t frame, double weight, std::array<VxEuler, 3> *previous)
{
    const VxTime time = m_times[frame];
    std::array<QMatrix4x4, 3> worlds;
    for (std::size_t i = 0; i < 3; ++i)
        worlds[i] = m_nodes[i]->getWorldTransform(time);
    const VxLimb limb = {placeOf(worlds[0]), placeOf(worlds[1]), placeOf(worlds[2])};
    m_length = distance(limb.root, limb.middle) + distance(limb.middle, limb.end);
    VxVector target;
    for (std::size_t i = 0; i < 3; ++i)
        target[i] = limb.end[i] + weight * (m_place[i] - limb.end[i]);
    const QVector3D axis = worlds[1].column(0).toVector3D();
    const VxLimbSolution solution =
        vxSolveLimb(limb, target, {double(axis.x()), double(axis.y()), double(axis.z())});
    m_outOfReach += solution.reached ? 0 : 1;
    const std::array<VxQuaternion, 3> solved = {
        solution.upper * rotationOf(worlds[0]),
        solution.upper * solution.lower * rotationOf(worlds[1]), rotationOf(worlds[2])};
    VxQuaternion parent = rotationOf(worldOf(m_nodes[0]->getNodeParent(), time));
    for (std::size_t i = 0; i < 3; ++i) {
        const auto order = vxRotationOrder(m_nodes[i]->getRotationOrder());
        VxEuler &angles = (*previous)[i];
        if (weight > 0) {
            angles = vxEulerAngles(vxInverse(parent) * solved[i], order, angles);
        } else {
            // Where the pin has no weight every angle is unchanged.
            const auto controls = rotationControls(m_nodes[i]);
            for (std::size_t a = 0; a < 3; ++a)
                angles[a] = double(controls[a]->getValue(time));
        }
        for (std::size_t a = 0; a < 3; ++a)
            m_angles[i][a][frame] = float(angles[a]);
        parent = solved[i];
    }
}

void LimbPin::write()
{
    const std::vector<quint8> types(m_times.size(), VxKeyInterp::Linear);
    for (std::size_t i = 0; i < 3; ++i) {
        const auto controls = rotationControls(m_nodes[i]);
        for (std::size_t axis = 0; axis < 3; ++axis)
            controls[axis]->replaceKeys(range(), {m_times.data(), m_angles[i][axis].data(),
                                                  types.data(), nullptr, int(m_times.size())});
    }
}

double LimbPin::largestError() const
{
    double largest = 0;
    const double half = std::max(m_step / 2.0, 0.5);
    for (double t = m_span.getStart(); t <= m_span.getEnd(); t += half)
        largest =
            std::max(largest, distance(placeOf(m_nodes[2]->getWorldTransform(VxTime(t))), m_place));
    return m_length > 0 ? largest / m_length : 0;
}

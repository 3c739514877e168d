#include "scene/worldtransformkeeper.h"

#include "scene/vxnode_p.h"

#include <QtCore/QVector>
#include <algorithm>
#include <cmath>
#include <limits>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxfloatproperty.h>

namespace {

// Rounding errors of double arithmetic, relative to the inputs.
constexpr double Noise = 1e-9;
constexpr double AngleNoise = 1e-7; // degrees
// Rounding of a position that is stored in single precision.
constexpr double PlaceTolerance = 1e-5;

bool isSingle(double value)
{
    return std::isfinite(value) && std::abs(value) <= double(std::numeric_limits<float>::max());
}

bool isRotation(NodeControl control)
{
    return control >= XRotation && control <= ZRotation;
}

double largest(const double column[3])
{
    return std::max({std::abs(column[0]), std::abs(column[1]), std::abs(column[2])});
}

} // namespace

WorldTransformKeeper::WorldTransformKeeper(VxNode *node, const VxNode *oldParent,
                                           const VxNode *newParent, VxTime now)
    : m_node(node)
    , m_controls(VxNode::Private::of(node)->allControls())
    , m_times(controlKeyTimes(m_controls))
{
    const auto place = std::lower_bound(m_times.begin(), m_times.end(), now);
    m_now = size_t(place - m_times.begin());
    m_nowIsKey = place != m_times.end() && *place == now;
    if (!m_nowIsKey)
        m_times.insert(place, now);
    if (!sampleRelations(oldParent, newParent))
        m_relations.clear();
}

/** Where the new parent has zero scale, its space at the nearest other time is used. */
bool WorldTransformKeeper::sampleRelations(const VxNode *oldParent, const VxNode *newParent)
{
    const VxNode *common = commonAncestor(oldParent, newParent);
    const std::vector<AffineTransform> from = transformsUpTo(oldParent, common, m_times);
    const std::vector<AffineTransform> to = transformsUpTo(newParent, common, m_times);
    std::vector<bool> known(m_times.size());
    m_relations.resize(m_times.size());
    for (size_t i = 0; i < m_times.size(); ++i) {
        const std::optional<AffineTransform> inverse = to[i].inverted();
        known[i] = inverse.has_value();
        if (inverse)
            m_relations[i] = *inverse * from[i];
    }
    if (!known[m_now])
        return false;
    // From the requested time, where the relation is defined, to either end.
    for (size_t i = m_now + 1; i < m_times.size(); ++i) {
        if (!known[i])
            m_relations[i] = m_relations[i - 1];
    }
    for (size_t i = m_now; i-- > 0;) {
        if (!known[i])
            m_relations[i] = m_relations[i + 1];
    }
    return true;
}

bool WorldTransformKeeper::solve()
{
    const bool conformal =
        std::all_of(m_relations.begin(), m_relations.end(),
                    [](const AffineTransform &relation) { return relation.isConformal(); });
    const StretchTarget target =
        conformal && isAvailable(UniformScale) ? StretchTarget::Uniform : StretchTarget::Axes;
    const NodeSamples samples(m_node, m_times);
    for (size_t i = 0; i < m_times.size(); ++i) {
        m_old.push_back(samples.at(i));
        const NodeControlValues &old = m_old.back();
        VxEuler near = anglesOf(old);
        // Each rotation continues from the previous one by the angle of the original motion.
        for (size_t axis = 0; i > 0 && axis < 3; ++axis)
            near[axis] += m_new[i - 1][XRotation + axis] - m_old[i - 1][XRotation + axis];
        const QVector3D origin = m_node->getOrigin();
        m_new.push_back(
            placeValues(old, m_node->getRotationOrder(), origin, m_relations[i], near, target)
                .values);
        if (!std::all_of(m_new.back().begin(), m_new.back().end(), isSingle))
            return false;
        m_reach = std::max({m_reach, largest(m_relations[i].column[3]), largest(old.data()),
                            largest(m_new.back().data()), double(origin.length())});
    }
    return true;
}

bool WorldTransformKeeper::keep()
{
    if (m_relations.empty() || !solve())
        return false;
    const VxChangeBlock block;
    for (int i = 0; i < NodeControlCount; ++i) {
        const auto control = static_cast<NodeControl>(i);
        if (isAvailable(control))
            write(control);
    }
    return isInPlace();
}

/** A position is kept for each axis separately; a rotation needs all three angles. */
bool WorldTransformKeeper::isAvailable(NodeControl control) const
{
    const auto isFree = [](const VxFloatProperty *property) {
        return property && !property->isLocked() && !property->isLinked() &&
               property->getKeyHolder() == property;
    };
    if (isRotation(control))
        return std::all_of(m_controls.begin() + XRotation, m_controls.begin() + ZRotation + 1,
                           isFree);
    return isFree(m_controls[control]);
}

double WorldTransformKeeper::tolerance(NodeControl control) const
{
    if (isRotation(control))
        return AngleNoise;
    if (control <= ZPosition)
        return Noise * m_reach;
    double size = 0;
    for (const NodeControlValues &values : m_old)
        size = std::max(size, std::abs(values[control]));
    return Noise * size;
}

WorldTransformKeeper::Change WorldTransformKeeper::changeOf(NodeControl control) const
{
    const double noise = tolerance(control);
    const double shift = m_new[0][control] - m_old[0][control];
    bool same = true;
    bool shifted = true;
    bool still = true;
    for (size_t i = 0; i < m_times.size(); ++i) {
        const double difference = m_new[i][control] - m_old[i][control];
        same = same && std::abs(difference) <= noise;
        shifted = shifted && std::abs(difference - shift) <= noise;
        still = still && std::abs(m_new[i][control] - m_new[0][control]) <= noise;
    }
    if (same)
        return Change::None;
    if (m_controls[control]->getNumKeys() > 0)
        return shifted ? Change::Shift : Change::Keys;
    return still || !m_controls[control]->canBeKeyed() ? Change::StoredValue : Change::Keys;
}

void WorldTransformKeeper::write(NodeControl control)
{
    switch (changeOf(control)) {
    case Change::None:
        break;
    case Change::StoredValue:
        m_controls[control]->setStoredValue(float(m_new[m_now][control]));
        break;
    case Change::Shift:
        shiftKeys(control);
        break;
    case Change::Keys:
        writeKeys(control);
        pinNow(control);
        break;
    }
}

void WorldTransformKeeper::shiftKeys(NodeControl control)
{
    VxFloatProperty *property = m_controls[control];
    const double shift = m_new[0][control] - m_old[0][control];
    QVector<int> indexes(property->getNumKeys());
    QVector<float> values(indexes.size());
    for (int i = 0; i < indexes.size(); ++i) {
        indexes[i] = i;
        values[i] = float(double(property->getKeyValue(i)) + shift);
    }
    property->setKeyValues(indexes, values);
}

/** Sets keys at all the times; a new one gets the shape of the key before it. */
void WorldTransformKeeper::writeKeys(NodeControl control)
{
    VxFloatProperty *property = m_controls[control];
    const VxKeyColumns<float> old = property->getKeys();
    VxKeyShape shape;
    shape.type = quint8(property->getDefaultInterpolation());
    std::vector<VxTime> times;
    std::vector<float> values;
    std::vector<quint8> types;
    std::vector<VxTcb> tcb;
    int next = 0;
    for (size_t i = 0; i < m_times.size(); ++i) {
        if (next < old.count && old.times[next] == m_times[i]) {
            shape.type = old.types ? old.types[next] : quint8(VxKeyInterp::Linear);
            shape.tcb = old.tcb ? old.tcb[next] : VxTcb();
            ++next;
        } else if (i == m_now && !m_nowIsKey) {
            continue;
        }
        times.push_back(m_times[i]);
        values.push_back(float(m_new[i][control]));
        types.push_back(shape.type);
        tcb.push_back(shape.tcb);
    }
    // Saves the memory of zero shapes.
    const VxTcb *shapes = old.tcb ? tcb.data() : nullptr;
    property->setKeys({times.data(), values.data(), types.data(), shapes, int(times.size())});
}

void WorldTransformKeeper::pinNow(NodeControl control)
{
    VxFloatProperty *property = m_controls[control];
    const double target = m_new[m_now][control];
    const VxTime now = m_times[m_now];
    const double scale = isRotation(control) ? 1 : std::max(m_reach, std::abs(target));
    if (std::abs(double(property->getValue(now)) - target) <= PlaceTolerance * 0.1 * scale)
        return;
    const int before = property->getFirstKeyFrom(now) - 1;
    float shape[3] = {0, 0, 0};
    const int type =
        before < 0 ? property->getDefaultInterpolation()
                   : property->getKeyInterpolationType(before, &shape[0], &shape[1], &shape[2]);
    property->setKey(now, float(target), type, shape[0], shape[1], shape[2]);
}

bool WorldTransformKeeper::isInPlace() const
{
    const VxNode::RotationOrder order = m_node->getRotationOrder();
    const QVector3D origin = m_node->getOrigin();
    const AffineTransform target = m_relations[m_now] * nodeTransform(m_old[m_now], order, origin);
    const AffineTransform present =
        nodeTransform(nodeControlValues(m_controls, m_times[m_now]), order, origin);
    double size = 0;
    for (int i = 0; i < 3; ++i)
        size = std::max(size, largest(target.column[i]));
    for (int i = 0; i < 4; ++i) {
        const double most = PlaceTolerance * (i < 3 ? size : m_reach);
        for (int row = 0; row < 3; ++row) {
            if (!(std::abs(target.column[i][row] - present.column[i][row]) <= most))
                return false;
        }
    }
    return true;
}

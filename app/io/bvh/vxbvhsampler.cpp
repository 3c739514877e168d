#include "io/bvh/vxbvhsampler.h"

#include "io/motion/vxmotionwriter.h"

#include <algorithm>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxlimbsolver.h>
#include <vxcore/vxskeleton.h>

namespace {

/// A valid joint name: one line that is not empty and opens no block.
QString jointName(const QString &label)
{
    QString name = label.simplified();
    while (name.endsWith(QLatin1Char('{')))
        name = name.chopped(1).trimmed();
    name.remove(QChar(0));
    return name.isEmpty() ? QStringLiteral("joint") : name;
}

std::array<double, 3> pointOf(const QVector3D &v)
{
    return {double(v.x()), double(v.y()), double(v.z())};
}

} // namespace

/// A joint's position and rotation in the world.
struct VxBvhSampler::Frame
{
    std::array<double, 3> position{};
    VxRotation rotation{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

    std::array<double, 3> toLocal(const std::array<double, 3> &point) const
    {
        std::array<double, 3> local{};
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t row = 0; row < 3; ++row)
                local[i] += rotation[row][i] * (point[row] - position[row]);
        }
        return local;
    }

    VxRotation toLocal(const VxRotation &other) const { return vxTransposed(rotation) * other; }
};

bool VxBvhSampler::isAlways(const VxFloatProperty *control, float value) const
{
    QVector<float> values(m_times.size());
    control->getValues(m_times.constData(), m_times.size(), values.data());
    return std::all_of(values.cbegin(), values.cend(),
                       [value](float other) { return other == value; });
}

bool VxBvhSampler::areAlways(const VxNode *node, VxMotionTarget first, VxMotionTarget last,
                             float value) const
{
    bool always = true;
    for (int i = int(first); i <= int(last); ++i)
        always = always && isAlways(node->getTransformControl(i), value);
    return always;
}

bool VxBvhSampler::isUnscaled(const VxNode *node) const
{
    return areAlways(node, VxMotionTarget::Scale, VxMotionTarget::ZScale, 1.0f);
}

bool VxBvhSampler::isAtOrigin(const VxNode *node) const
{
    return node->getOrigin().isNull() &&
           areAlways(node, VxMotionTarget::XTranslate, VxMotionTarget::ZRotate, 0.0f);
}

int VxBvhSampler::jointAbove(const VxNode *node) const
{
    for (const VxNode *above = node->getNodeParent(); above; above = above->getNodeParent()) {
        const auto found = m_indexes.constFind(above);
        if (found != m_indexes.constEnd())
            return *found;
    }
    return -1;
}

void VxBvhSampler::addJoint(const VxBone *bone)
{
    Joint joint;
    joint.bone = bone;
    joint.parent = jointAbove(bone);
    const VxNode *above = bone->getNodeParent();
    const bool isRoot = joint.parent < 0;
    const bool isBelowUnscaled =
        isRoot ? m_isSkeletonUnscaled : m_joints[std::size_t(joint.parent)].isUnscaled;
    const bool isRightBelow = isRoot ? above == m_skeleton && m_isSkeletonStill
                                     : above == m_joints[std::size_t(joint.parent)].bone;
    joint.isDirect = isRightBelow && isBelowUnscaled;
    joint.isUnscaled = isBelowUnscaled && isUnscaled(bone);
    // Nodes between two bones may have a scale, too.
    for (; above != m_skeleton && !m_indexes.contains(above); above = above->getNodeParent())
        joint.isUnscaled = joint.isUnscaled && isUnscaled(above);
    joint.moves = isRoot || !joint.isDirect;
    for (const VxFloatProperty *control : vxControlsOf(bone, VxMotionTarget::XTranslate)) {
        const float first = control->getValue(m_times.constFirst());
        joint.moves = joint.moves || control->getNumKeys() > 0 || !isAlways(control, first);
    }
    if (!isRoot)
        m_joints[std::size_t(joint.parent)].isLeaf = false;
    m_indexes.insert(bone, int(m_joints.size()));
    m_joints.push_back(joint);
}

QMatrix4x4 VxBvhSampler::worldOf(const VxNode *node, VxTime time,
                                 const std::vector<QMatrix4x4> &done) const
{
    if (!node)
        return {};
    const auto found = m_indexes.constFind(node);
    if (found != m_indexes.constEnd() && std::size_t(*found) < done.size())
        return done[std::size_t(*found)];
    return worldOf(node->getNodeParent(), time, done) * node->getLocalTransform(time);
}

std::vector<QMatrix4x4> VxBvhSampler::worlds(VxTime time) const
{
    std::vector<QMatrix4x4> done;
    done.reserve(m_joints.size());
    for (const Joint &joint : m_joints)
        done.push_back(worldOf(joint.bone, time, done));
    return done;
}

VxBvhSampler::Frame VxBvhSampler::frameOf(int joint, const std::vector<QMatrix4x4> &all) const
{
    if (joint < 0)
        return {};
    const QMatrix4x4 &world = all[std::size_t(joint)];
    return {pointOf(world.column(3).toVector3D()), vxRotationOf(world)};
}

void VxBvhSampler::setOffset(const Joint &joint, std::size_t index,
                             const std::vector<QMatrix4x4> &first, VxBvhJoint *out) const
{
    if (joint.isDirect) {
        QVector3D offset = joint.bone->getOrigin();
        const auto controls = vxControlsOf(joint.bone, VxMotionTarget::XTranslate);
        for (int axis = 0; axis < 3; ++axis) {
            const VxFloatProperty *control = controls[std::size_t(axis)];
            offset[axis] += control->getNumKeys() > 0 ? control->getStoredValue()
                                                      : control->getValue(m_times.constFirst());
        }
        out->offset = offset;
    } else {
        const auto local =
            frameOf(joint.parent, first).toLocal(frameOf(int(index), first).position);
        out->offset = {float(local[0]), float(local[1]), float(local[2])};
    }
    if (!joint.isLeaf)
        return;
    QVector3D end = joint.bone->getEndPoint();
    if (!joint.isUnscaled) {
        const auto local = frameOf(int(index), first).toLocal(pointOf(first[index].map(end)));
        end = {float(local[0]), float(local[1]), float(local[2])};
    }
    out->endSites.push_back(end);
}

void VxBvhSampler::copy(const Joint &joint, float *values) const
{
    const int count = m_times.size();
    if (joint.moves) {
        const QVector3D origin = joint.bone->getOrigin();
        const auto controls = vxControlsOf(joint.bone, VxMotionTarget::XTranslate);
        for (int axis = 0; axis < 3; ++axis, values += count) {
            controls[std::size_t(axis)]->getValues(m_times.constData(), count, values);
            std::transform(values, values + count, values,
                           [part = origin[axis]](float value) { return part + value; });
        }
    }
    const auto controls = vxControlsOf(joint.bone, VxMotionTarget::XRotate);
    for (const int axis : vxRotationAxes(vxRotationOrder(joint.bone->getRotationOrder()))) {
        controls[std::size_t(axis)]->getValues(m_times.constData(), count, values);
        values += count;
    }
}

std::vector<std::size_t> VxBvhSampler::firstChannels() const
{
    std::vector<std::size_t> first;
    std::size_t channels = 0;
    for (const Joint &joint : m_joints) {
        first.push_back(channels);
        channels += joint.moves ? 6 : 3;
    }
    first.push_back(channels);
    return first;
}

bool VxBvhSampler::workOut(std::vector<float> *values, const VxFileProgress &progress) const
{
    const std::vector<std::size_t> first = firstChannels();
    const auto count = std::size_t(m_times.size());
    std::vector<std::array<double, 3>> before(m_joints.size());
    for (std::size_t t = 0; t < count; ++t) {
        if (progress && t % 16 == 0 && !progress(int(t * 100 / count)))
            return false;
        const std::vector<QMatrix4x4> all = worlds(m_times.at(int(t)));
        for (std::size_t i = 0; i < m_joints.size(); ++i) {
            const Joint &joint = m_joints[i];
            if (joint.isDirect)
                continue;
            const Frame parent = frameOf(joint.parent, all);
            const Frame own = frameOf(int(i), all);
            const VxRotationOrder order = vxRotationOrder(joint.bone->getRotationOrder());
            before[i] = vxEulerAngles(parent.toLocal(own.rotation), order, before[i]);
            const std::array<double, 3> position = parent.toLocal(own.position);
            const std::array<int, 3> axes = vxRotationAxes(order);
            for (std::size_t part = 0; part < 3; ++part) {
                (*values)[(first[i] + part) * count + t] = float(position[part]);
                (*values)[(first[i] + 3 + part) * count + t] =
                    float(before[i][std::size_t(axes[part])]);
            }
        }
    }
    return true;
}

VxBvhSampler::VxBvhSampler(const VxSkeleton *skeleton, const QVector<VxTime> &times)
    : m_times(times)
    , m_skeleton(skeleton)
{
    for (const VxNode *node = skeleton; node; node = node->getNodeParent()) {
        m_isSkeletonUnscaled = m_isSkeletonUnscaled && isUnscaled(node);
        m_isSkeletonStill = m_isSkeletonStill && isAtOrigin(node);
    }
    for (const VxBone *bone : skeleton->getAllBones())
        addJoint(bone);
}

std::vector<VxBvhJoint> VxBvhSampler::joints() const
{
    const std::vector<QMatrix4x4> first = worlds(m_times.constFirst());
    std::vector<VxBvhJoint> list;
    list.reserve(m_joints.size());
    for (std::size_t i = 0; i < m_joints.size(); ++i) {
        const Joint &joint = m_joints[i];
        VxBvhJoint out;
        out.name = jointName(joint.bone->getLabel());
        out.parent = joint.parent;
        setOffset(joint, i, first, &out);
        if (joint.moves)
            out.channels = {VxBvhChannel::XPosition, VxBvhChannel::YPosition,
                            VxBvhChannel::ZPosition};
        for (const int axis : vxRotationAxes(vxRotationOrder(joint.bone->getRotationOrder())))
            out.channels.push_back(static_cast<VxBvhChannel>(int(VxBvhChannel::XRotation) + axis));
        list.push_back(out);
    }
    return list;
}

bool VxBvhSampler::sample(std::vector<float> *values, const VxFileProgress &progress) const
{
    const std::vector<std::size_t> first = firstChannels();
    const auto count = std::size_t(m_times.size());
    values->assign(first.back() * count, 0.0f);
    const int direct = int(m_joints.size()) - numWorkedOut();
    // Copying is negligible beside computing.
    const int copyPercent = numWorkedOut() == 0 ? 100 : 10;
    int copied = 0;
    for (std::size_t i = 0; i < m_joints.size(); ++i) {
        if (!m_joints[i].isDirect)
            continue;
        if (progress && !progress(copied++ * copyPercent / direct))
            return false;
        copy(m_joints[i], values->data() + first[i] * count);
    }
    if (numWorkedOut() == 0)
        return true;
    return workOut(values, partOfProgress(progress, copyPercent, 100));
}

int VxBvhSampler::numWorkedOut() const
{
    return int(std::count_if(m_joints.cbegin(), m_joints.cend(),
                             [](const Joint &joint) { return !joint.isDirect; }));
}

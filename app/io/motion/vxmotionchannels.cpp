#include "io/motion/vxmotionchannels.h"

#include <algorithm>
#include <tuple>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>

namespace {

/// Half of the total tolerance of angles between keys against the true rotation: curve fitting may
/// use the rest.
constexpr double AngleTolerance = 0.08;
constexpr double AngleFitTolerance = 0.02;
/// Of a channel's range of values.
constexpr double ValueTolerance = 1e-3;

bool isRotation(VxMotionTarget target)
{
    return target == VxMotionTarget::Rotation ||
           (target >= VxMotionTarget::XRotate && target <= VxMotionTarget::ZRotate);
}

VxFloatProperty *control(const VxNode *node, VxMotionTarget target)
{
    return target <= VxMotionTarget::ZScale ? node->getTransformControl(int(target)) : nullptr;
}

double restOf(const VxMotionNode &node, VxMotionTarget target, int index)
{
    if (target <= VxMotionTarget::ZTranslate)
        return node.translation[std::size_t(target)];
    if (isRotation(target))
        return node.rotation[std::size_t(target) - std::size_t(VxMotionTarget::XRotate)];
    if (target == VxMotionTarget::Scale)
        return 1.0;
    if (target <= VxMotionTarget::ZScale)
        return node.scale[std::size_t(target) - std::size_t(VxMotionTarget::XScale)];
    const auto i = std::size_t(index);
    return target == VxMotionTarget::Morph ? node.morphs[i].value : node.properties[i].value;
}

/// The property of a morph, or of the user-defined property `index`, which are last in this order.
VxFloatProperty *furtherProperty(const VxNode *node, const VxMotionNode &data,
                                 VxMotionTarget target, int index)
{
    if (target == VxMotionTarget::Morph) {
        const auto *morph = qobject_cast<const VxMorph *>(node->getObject()->getSubElement(index));
        return morph->getValueControl();
    }
    const int first = node->getNumProperties() - int(data.properties.size());
    return qobject_cast<VxFloatProperty *>(node->getProperty(first + index));
}

double rangeOf(const VxMotionPoints &points)
{
    if (points.points.empty())
        return 0.0;
    const auto [low, high] = std::minmax_element(
        points.points.begin(), points.points.end(),
        [](const VxCurvePoint &a, const VxCurvePoint &b) { return a.value < b.value; });
    return high->value - low->value;
}

} // namespace

bool VxMotionChannels::Target::operator<(const Target &other) const
{
    return std::tie(node, target, index) < std::tie(other.node, other.target, other.index);
}

VxMotionChannels::VxMotionChannels(const VxImportedMotion &motion,
                                   const std::vector<const VxMotionClip *> &clips,
                                   const std::vector<VxMotionTiming::Slot> &slots)
    : m_motion(motion)
    , m_clips(clips)
    , m_slots(slots)
{
    for (std::size_t clip = 0; clip < clips.size(); ++clip) {
        for (const VxMotionChannel &channel : clips[clip]->channels) {
            const VxMotionTarget target =
                isRotation(channel.target) ? VxMotionTarget::Rotation : channel.target;
            if (!channel.times().empty())
                m_sources[{channel.node, target, channel.index}].push_back({clip, &channel});
        }
    }
}

bool VxMotionChannels::drives(int node, VxMotionTarget target) const
{
    return m_sources.count({node, isRotation(target) ? VxMotionTarget::Rotation : target, 0}) > 0;
}

/** The clip's curve for one value, or its rest value without a channel. */
void VxMotionChannels::appendClip(const Sources &sources, std::size_t clip, VxMotionTarget target,
                                  double rest, VxMotionPoints *points) const
{
    for (const Source &source : sources) {
        if (source.clip != clip || source.channel->target != target)
            continue;
        vxAppendCurve(source.channel->curve, m_slots[clip].offset, points);
        m_report->keysBefore += qint64(source.channel->curve.times.size());
        if (m_clips.size() > 1)
            points->points.back().type = VxKeyInterp::Constant;
        return;
    }
    if (m_clips.size() > 1)
        points->appendHold(m_slots[clip].range.getStart(), rest);
}

void VxMotionChannels::addValueKeys(const Target &target, const Sources &sources, VxNode *node)
{
    const VxMotionNode &data = m_motion.nodes[std::size_t(target.node)];
    const double rest = restOf(data, target.target, target.index);
    VxMotionPoints points;
    for (std::size_t clip = 0; clip < m_clips.size(); ++clip)
        appendClip(sources, clip, target.target, rest, &points);
    VxFittedKeys keys;
    if (m_clips.size() == 1)
        keys = vxTcbKeysOf(sources.front().channel->curve, m_slots.front().offset);
    if (keys.times.empty())
        keys = vxKeysOf(points, std::max(ValueTolerance * rangeOf(points), 1e-9));
    countError(points, keys, false);
    VxFloatProperty *property = control(node, target.target);
    setKeys(property ? property : furtherProperty(node, data, target.target, target.index), keys);
}

bool VxMotionChannels::addRotationKeys(const Target &target, const Sources &sources, VxNode *node)
{
    static constexpr VxMotionTarget axes[] = {VxMotionTarget::XRotate, VxMotionTarget::YRotate,
                                              VxMotionTarget::ZRotate};
    const VxMotionNode &data = m_motion.nodes[std::size_t(target.node)];
    std::array<VxMotionPoints, 3> points;
    std::array<bool, 3> isDriven{};
    for (std::size_t clip = 0; clip < m_clips.size(); ++clip) {
        const auto track = std::find_if(sources.begin(), sources.end(), [clip](const Source &s) {
            return s.clip == clip && s.channel->target == VxMotionTarget::Rotation;
        });
        if (track == sources.end()) {
            for (std::size_t axis = 0; axis < 3; ++axis)
                appendClip(sources, clip, axes[axis], data.rotation[axis], &points[axis]);
            continue;
        }
        isDriven = {{true, true, true}};
        const VxMotionRotationTrack &rotation = track->channel->rotation;
        m_report->keysBefore += qint64(rotation.times.size()) * 3;
        if (!vxAppendRotation(rotation, m_slots[clip].offset, VxRotationOrder(data.order),
                              data.rotation, AngleTolerance, std::size_t(m_keysLeft / 3), &points))
            return false;
        for (VxMotionPoints &axis : points) {
            if (m_clips.size() > 1)
                axis.points.back().type = VxKeyInterp::Constant;
        }
    }
    for (const Source &source : sources) {
        if (source.channel->target != VxMotionTarget::Rotation)
            isDriven[std::size_t(source.channel->target) - std::size_t(axes[0])] = true;
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (!isDriven[axis])
            continue;
        VxFittedKeys keys;
        const VxMotionChannel &first = *sources.front().channel;
        if (m_clips.size() == 1 && first.target != VxMotionTarget::Rotation) {
            for (const Source &source : sources) {
                if (source.channel->target == axes[axis])
                    keys = vxTcbKeysOf(source.channel->curve, m_slots.front().offset);
            }
        }
        if (keys.times.empty())
            keys = vxKeysOf(points[axis], AngleFitTolerance);
        countError(points[axis], keys, true);
        setKeys(control(node, axes[axis]), keys);
    }
    return true;
}

void VxMotionChannels::countError(const VxMotionPoints &points, const VxFittedKeys &keys,
                                  bool isAngle)
{
    const double error = points.error + keys.error;
    if (isAngle) {
        m_report->angleError = std::max(m_report->angleError, error);
    } else {
        const double range = rangeOf(points);
        if (range > 0.0)
            m_report->valueError = std::max(m_report->valueError, error / range);
    }
    m_report->mergedKeys += points.merged;
}

void VxMotionChannels::setKeys(VxFloatProperty *property, const VxFittedKeys &keys)
{
    property->setKeys(keys.columns());
    ++m_report->channels;
    m_report->keysAfter += qint64(keys.times.size());
    m_keysLeft -= qint64(keys.times.size());
    m_isTooLong = m_isTooLong || m_keysLeft < 0;
}

bool VxMotionChannels::addKeys(const std::vector<VxNode *> &nodes, const VxFileProgress &progress,
                               VxImportReport *report)
{
    m_report = report;
    qint64 done = 0;
    for (const auto &[target, sources] : m_sources) {
        if (progress && !progress(int(done++ * 100 / qint64(m_sources.size()))))
            return false;
        VxNode *node = nodes[std::size_t(target.node)];
        if (target.target != VxMotionTarget::Rotation)
            addValueKeys(target, sources, node);
        else if (!addRotationKeys(target, sources, node))
            m_isTooLong = true;
        if (m_isTooLong)
            return false;
    }
    return true;
}

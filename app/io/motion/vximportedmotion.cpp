#include "io/motion/vximportedmotion.h"

#include "io/vxfiletext.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <tuple>

namespace {

/// Finite in single precision, in which a scene stores numbers.
bool isFinite(double number)
{
    return std::abs(number) <= double(std::numeric_limits<float>::max());
}

template <class Numbers> bool isFinite(const Numbers &numbers)
{
    return std::all_of(numbers.begin(), numbers.end(), [](double n) { return isFinite(n); });
}

bool areAscending(const std::vector<double> &times)
{
    return isFinite(times) && std::adjacent_find(times.begin(), times.end(),
                                                 std::greater_equal<double>()) == times.end();
}

bool isUnit(const VxMotionQuaternion &q)
{
    const double square = q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3];
    return std::abs(square - 1.0) < 1e-6;
}

bool isWeight(double weight)
{
    return weight > 0.0 && weight <= 1.0;
}

bool isShapeValid(const VxMotionShape &shape)
{
    return isFinite(
               std::array<double, 5>{{shape.inSlope, shape.outSlope, double(shape.tcb.tension),
                                      double(shape.tcb.continuity), double(shape.tcb.bias)}}) &&
           isWeight(shape.inWeight) && isWeight(shape.outWeight);
}

bool isCurveValid(const VxMotionCurve &curve)
{
    return areAscending(curve.times) && curve.values.size() == curve.times.size() &&
           isFinite(curve.values) &&
           (curve.shapes.empty() || curve.shapes.size() == curve.times.size()) &&
           std::all_of(curve.shapes.begin(), curve.shapes.end(), isShapeValid);
}

bool isTrackValid(const VxMotionRotationTrack &track)
{
    const std::size_t tangents =
        track.segment == VxMotionSegment::Cubic ? track.times.size() : std::size_t(0);
    const auto isPlain = [](const VxMotionQuaternion &q) { return isFinite(q); };
    return areAscending(track.times) && track.segment != VxMotionSegment::Tcb &&
           track.values.size() == track.times.size() &&
           std::all_of(track.values.begin(), track.values.end(), isUnit) &&
           track.inTangents.size() == tangents && track.outTangents.size() == tangents &&
           std::all_of(track.inTangents.begin(), track.inTangents.end(), isPlain) &&
           std::all_of(track.outTangents.begin(), track.outTangents.end(), isPlain);
}

bool isNodeValid(const VxMotionNode &node, std::size_t index)
{
    const auto isPlain = [](const VxMotionValue &value) { return isFinite(value.value); };
    return node.parent >= -1 && node.parent < int(index) && isFinite(node.translation) &&
           isFinite(node.rotation) && isFinite(node.scale) && isUnit(node.orientation) &&
           isFinite(node.endPoint) &&
           std::all_of(node.morphs.begin(), node.morphs.end(), isPlain) &&
           std::all_of(node.properties.begin(), node.properties.end(), isPlain);
}

bool isIndexValid(const VxMotionChannel &channel, const std::vector<VxMotionNode> &nodes)
{
    if (channel.node < 0 || std::size_t(channel.node) >= nodes.size() || channel.index < 0)
        return false;
    const VxMotionNode &node = nodes[std::size_t(channel.node)];
    if (channel.target == VxMotionTarget::Morph)
        return std::size_t(channel.index) < node.morphs.size();
    if (channel.target == VxMotionTarget::Property)
        return std::size_t(channel.index) < node.properties.size();
    return channel.index == 0;
}

bool isChannelValid(const VxMotionChannel &channel)
{
    const bool isRotation = channel.target == VxMotionTarget::Rotation;
    return isRotation ? channel.curve.isEmpty() && isTrackValid(channel.rotation)
                      : channel.rotation.isEmpty() && isCurveValid(channel.curve);
}

/// At most one channel for each node, target and index; a rotation track counts for all three
/// angles.
bool areTargetsUnique(const VxMotionClip &clip)
{
    std::set<std::tuple<int, int, int>> seen;
    for (const VxMotionChannel &channel : clip.channels) {
        if (channel.target != VxMotionTarget::Rotation) {
            if (!seen.insert({channel.node, int(channel.target), channel.index}).second)
                return false;
            continue;
        }
        for (const VxMotionTarget target :
             {VxMotionTarget::XRotate, VxMotionTarget::YRotate, VxMotionTarget::ZRotate}) {
            if (!seen.insert({channel.node, int(target), 0}).second)
                return false;
        }
    }
    return true;
}

QString clipError(const VxMotionClip &clip, const std::vector<VxMotionNode> &nodes)
{
    if (!std::isfinite(clip.start) || !std::isfinite(clip.end) || clip.end < clip.start)
        return VxFileText::tr("The animation \"%1\" ends before it starts.").arg(clip.name);
    for (const VxMotionChannel &channel : clip.channels) {
        if (!isIndexValid(channel, nodes))
            return VxFileText::tr("The animation \"%1\" has a channel whose node, morph or "
                                  "property does not exist.")
                .arg(clip.name);
        if (!isChannelValid(channel))
            return VxFileText::tr(
                       "The animation \"%1\" has keys out of order or numbers that are not finite "
                       "for the node \"%2\".")
                .arg(clip.name, nodes[std::size_t(channel.node)].name);
    }
    if (!areTargetsUnique(clip))
        return VxFileText::tr("The animation \"%1\" has two channels with the same target.")
            .arg(clip.name);
    return {};
}

} // namespace

VxRotationOrder vxOrderOfAxes(const std::array<int, 3> &axes)
{
    int order = 0;
    while (order < 5 && vxRotationAxes(VxRotationOrder(order)) != axes)
        ++order;
    return VxRotationOrder(order);
}

void VxMotionFacts::addOmission(const QString &what, const QString &why, const QString &name)
{
    const auto same =
        std::find_if(omissions.begin(), omissions.end(), [&](const VxMotionOmission &omission) {
            return omission.what == what && omission.why == why;
        });
    if (same != omissions.end())
        ++same->count;
    else
        omissions.push_back({what, why, name, 1});
}

bool VxImportedMotion::isValid(QString *message) const
{
    QString error;
    for (std::size_t i = 0; i < nodes.size() && error.isEmpty(); ++i) {
        if (!isNodeValid(nodes[i], i))
            error = VxFileText::tr(
                        "The node \"%1\" has a parent that follows it or a number that is not "
                        "finite.")
                        .arg(nodes[i].name);
    }
    for (std::size_t i = 0; i < clips.size() && error.isEmpty(); ++i)
        error = clipError(clips[i], nodes);
    if (message && !error.isEmpty())
        *message = error;
    return error.isEmpty();
}

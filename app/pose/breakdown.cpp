#include "pose/breakdown.h"

#include "pose/posewriter.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vxcore/vxfloatproperty.h>

namespace {

struct ChannelGroup
{
    int first;
    int count;
};

constexpr ChannelGroup groups[] = {{XPlace, 3}, {XAngle, 3}, {AllScale, 1}, {XStretch, 3}};

struct Neighbours
{
    std::optional<VxTime> before;
    std::optional<VxTime> after;
};

void addKeysAround(const VxFloatProperty *control, VxTime time, Neighbours *found)
{
    const VxTime *times = control->getKeyTimes();
    const int count = control->getNumKeys();
    const int from = control->getFirstKeyFrom(time);
    if (from > 0)
        found->before = std::max(found->before.value_or(times[from - 1]), times[from - 1]);
    const int after = from < count && times[from] == time ? from + 1 : from;
    if (after < count)
        found->after = std::min(found->after.value_or(times[after]), times[after]);
}

/** The rotation at a part of the shorter arc, beyond its ends too. */
VxQuaternion onArc(const VxQuaternion &from, const VxQuaternion &to, double part)
{
    VxQuaternion step = vxInverse(from) * to;
    if (step.w < 0)
        step = {-step.w, -step.x, -step.y, -step.z};
    const double sine = std::sqrt(step.x * step.x + step.y * step.y + step.z * step.z);
    if (sine < 1e-12)
        return from;
    const double half = std::atan2(sine, step.w) * part;
    const double factor = std::sin(half) / sine;
    return from * VxQuaternion{std::cos(half), step.x * factor, step.y * factor, step.z * factor};
}

PoseValues blended(const PoseValues &from, const PoseValues &to, double part, VxRotationOrder order)
{
    PoseValues values;
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = from[i] + (to[i] - from[i]) * part;
    double widest = 0;
    for (std::size_t i = XAngle; i <= ZAngle; ++i)
        widest = std::max(widest, std::abs(to[i] - from[i]));
    if (widest > 180 || widest == 0.0)
        return values;
    const VxEuler angles = vxEulerAngles(
        onArc(vxQuaternion(anglesOf(from), order), vxQuaternion(anglesOf(to), order), part), order,
        anglesOf(values));
    std::copy(angles.begin(), angles.end(), values.begin() + XAngle);
    return values;
}

} // namespace

Breakdown::Breakdown(const QVector<VxNode *> &nodes, VxTime time, Toward toward)
{
    for (VxNode *node : nodes) {
        const NodeChannels channels(node);
        Item item{node, channels.values(time), {}, {}};
        item.to = item.from;
        if (toward == Toward::Rest) {
            item.to = channels.rest();
            item.groups = {true, true, true, true};
        } else {
            const PoseValues present = item.from;
            addNeighbours(node, time, &item);
            if (toward == Toward::Average) {
                item.to = blended(item.from, item.to, 0.5, orderOf(node));
                item.from = present;
            }
        }
        if (std::find(item.groups.begin(), item.groups.end(), true) != item.groups.end())
            m_items.push_back(item);
    }
}

void Breakdown::addNeighbours(const VxNode *node, VxTime time, Item *item)
{
    const NodeChannels channels(node);
    for (std::size_t i = 0; i < item->groups.size(); ++i) {
        Neighbours found;
        for (int k = 0; k < groups[i].count; ++k) {
            if (const VxFloatProperty *control = channels.at(groups[i].first + k))
                addKeysAround(control, time, &found);
        }
        item->groups[i] = found.before || found.after;
        if (!item->groups[i])
            continue;
        const PoseValues before = channels.values(found.before ? *found.before : *found.after);
        const PoseValues after = channels.values(found.after ? *found.after : *found.before);
        for (int k = groups[i].first; k < groups[i].first + groups[i].count; ++k) {
            item->from[std::size_t(k)] = before[std::size_t(k)];
            item->to[std::size_t(k)] = after[std::size_t(k)];
        }
    }
}

void Breakdown::apply(double part, PoseWriter *writer) const
{
    for (const Item &item : m_items) {
        if (!item.node || !item.node->getScene()) // removed while a slider shows the breakdown
            continue;
        const PoseValues values = blended(item.from, item.to, part, orderOf(item.node));
        for (std::size_t i = 0; i < item.groups.size(); ++i) {
            for (int k = 0; item.groups[i] && k < groups[i].count; ++k) {
                const int channel = groups[i].first + k;
                writer->set(item.node, channel, values[std::size_t(channel)]);
            }
        }
    }
}

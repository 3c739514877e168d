#include "viewport/motiontrail.h"

#include "viewport/pointbox.h"

#include <algorithm>
#include <vxcore/vxfloatproperty.h>

namespace {

/** The times of the keys of a node's transform controls within a range, each once, ascending. */
std::vector<VxTime> keyTimes(const VxNode *node, const VxTimeRange &range)
{
    std::vector<VxTime> times;
    for (const VxProperty *property : node->getMadeProperties()) {
        if (!property->getPath().startsWith(QLatin1String("/General/Transforms")))
            continue;
        const VxTime *keys = property->getKeyTimes();
        const int count = property->getNumKeys();
        for (int i = property->getFirstKeyFrom(range.getStart());
             i < count && keys[i] <= range.getEnd(); ++i)
            times.push_back(keys[i]);
    }
    std::sort(times.begin(), times.end());
    times.erase(std::unique(times.begin(), times.end()), times.end());
    return times;
}

std::vector<VxTime> frameTimes(const VxTimeRange &range, VxTime step)
{
    const qint64 frames = (qint64(range.getEnd()) - range.getStart()) / std::max(1, step);
    const qint64 stride = frames / MotionTrail::MaxFrames + 1;
    std::vector<VxTime> times;
    for (qint64 frame = 0; frame <= frames; frame += stride)
        times.push_back(VxTime(range.getStart() + frame * step));
    return times;
}

} // namespace

MotionTrail MotionTrail::of(const VxNode *node, const VxTimeRange &range, VxTime step)
{
    const std::vector<VxTime> frames = frameTimes(range, step);
    std::vector<VxTime> keys = keyTimes(node, range);
    if (keys.size() > std::size_t(MaxFrames))
        keys.resize(std::size_t(MaxFrames));
    std::vector<VxTime> times;
    std::set_union(frames.begin(), frames.end(), keys.begin(), keys.end(),
                   std::back_inserter(times));
    MotionTrail trail;
    trail.dots.reserve(int(times.size()));
    std::size_t key = 0;
    for (const VxTime time : times) {
        while (key < keys.size() && keys[key] < time)
            ++key;
        const QVector3D at = node->getWorldTransform(time).column(3).toVector3D();
        if (isPlace(at))
            trail.dots.append({time, at, key < keys.size() && keys[key] == time});
    }
    return trail;
}

QVector<TrailLink> trailLinks(const VxNode *node)
{
    QVector<TrailLink> links;
    for (; node; node = node->getNodeParent())
        links.append({node, node->getOrigin(), node->getRotationOrder()});
    return links;
}

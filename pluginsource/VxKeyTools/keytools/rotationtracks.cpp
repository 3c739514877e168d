#include "keytools/rotationtracks.h"

#include <QtCore/QHash>
#include <algorithm>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>

namespace {

constexpr std::size_t Missing = std::size_t(-1);

bool haveSameTimes(const KeyTarget &a, const KeyTarget &b)
{
    if (a.spans.size() != b.spans.size() || a.numKeys() != b.numKeys())
        return false;
    const VxTime *timesA = a.property->getKeyTimes();
    const VxTime *timesB = b.property->getKeyTimes();
    for (std::size_t i = 0; i < a.spans.size(); ++i) {
        const VxKeySpan &spanA = a.spans[i];
        const VxKeySpan &spanB = b.spans[i];
        if (spanA.last - spanA.first != spanB.last - spanB.first ||
            !std::equal(timesA + spanA.first, timesA + spanA.last, timesB + spanB.first))
            return false;
    }
    return true;
}

} // namespace

std::vector<RotationTracks> RotationTracks::find(const KeyTargets &targets,
                                                 std::vector<std::size_t> *others, int *incomplete)
{
    QHash<const VxProperty *, std::size_t> trackOf;
    for (std::size_t i = 0; i < targets.tracks.size(); ++i)
        trackOf.insert(targets.tracks[i].property, i);
    std::vector<bool> isUsed(targets.tracks.size());
    std::vector<RotationTracks> found;
    for (std::size_t i = 0; i < targets.tracks.size(); ++i) {
        const auto *node = qobject_cast<const VxNode *>(targets.tracks[i].property->getOwner());
        if (!node || isUsed[i])
            continue;
        const std::array<const VxProperty *, 3> angles = {
            node->getXRotControl(), node->getYRotControl(), node->getZRotControl()};
        if (std::find(angles.begin(), angles.end(), targets.tracks[i].property) == angles.end())
            continue;
        RotationTracks rotation;
        rotation.order = vxRotationOrder(node->getRotationOrder());
        bool isComplete = true;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const std::size_t track = trackOf.value(angles[axis], Missing);
            rotation.tracks[axis] = track;
            isComplete = isComplete && track != Missing &&
                         haveSameTimes(targets.tracks[i], targets.tracks[track]);
            if (track != Missing)
                isUsed[track] = true;
        }
        if (isComplete) {
            found.push_back(rotation);
            continue;
        }
        ++*incomplete;
        for (const std::size_t track : rotation.tracks) {
            if (track != Missing)
                others->push_back(track);
        }
    }
    for (std::size_t i = 0; i < isUsed.size(); ++i) {
        if (!isUsed[i])
            others->push_back(i);
    }
    std::sort(others->begin(), others->end());
    return found;
}

#include "keytools/keyreduction.h"

#include "keytools/errorsearch.h"
#include "keytools/keysteps.h"

#include <algorithm>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscene.h>

namespace {

// More keys than these are first estimated by a part of the properties.
constexpr int SampleKeys = 200000;

/// One of `every`, in no pattern that properties could have.
bool isChosen(std::size_t index, int every)
{
    return (quint32(index) * 2654435761U >> 8) % quint32(every) == 0;
}

/// The samples that measure a span of keys: its keys and, unless all segments are linear, every
/// frame.
struct Samples
{
    Samples(const VxFloatProperty &property, const VxKeySpan &span)
    {
        const VxKeyColumns<float> keys = columnsOf(property, span);
        const bool isLinear =
            !keys.types || std::all_of(keys.types, keys.types + keys.count,
                                       [](quint8 type) { return type == VxKeyInterp::Linear; });
        times.assign(keys.times, keys.times + keys.count);
        if (!isLinear)
            addFrames(VxTimeRange(times.front(), times.back()));
        values.resize(times.size());
        property.getValues(times.data(), int(times.size()), values.data());
    }

    std::vector<VxTime> times;
    std::vector<float> values;

private:
    void addFrames(const VxTimeRange &range)
    {
        const qint64 step = boundedStep(vxScene->getTimeStep(), range.getStart(), range.getEnd());
        for (qint64 t = range.getStart() + step; t < range.getEnd(); t += step)
            times.push_back(VxTime(t));
        std::sort(times.begin(), times.end());
        times.erase(std::unique(times.begin(), times.end()), times.end());
    }
};

bool isLinear(const KeyTargets &targets, const RotationTracks &rotation)
{
    return std::all_of(rotation.tracks.begin(), rotation.tracks.end(), [&](std::size_t track) {
        const KeyTarget &target = targets.tracks[track];
        const auto indexes = target.indexes();
        return std::all_of(indexes.begin(), indexes.end(), [&target](int i) {
            return target.property->getKeyInterpolationType(i) == VxKeyInterp::Linear;
        });
    });
}

} // namespace

KeyReduction::KeyReduction(const KeyTargets &targets, VxKeyInterp::Type type)
    : m_targets(targets)
    , m_type(type)
    , m_plan(targets.tracks.size())
{
    int incomplete = 0;
    for (const RotationTracks &rotation : RotationTracks::find(targets, &m_others, &incomplete)) {
        if (isLinear(targets, rotation))
            m_rotations.push_back(rotation);
        else
            m_others.insert(m_others.end(), rotation.tracks.begin(), rotation.tracks.end());
    }
}

const VxFloatProperty *KeyReduction::propertyOf(std::size_t track) const
{
    return qobject_cast<const VxFloatProperty *>(m_targets.tracks[track].property);
}

void KeyReduction::planRotation(const RotationTracks &rotation, double error)
{
    for (const std::size_t track : rotation.tracks)
        m_plan[track].clear();
    for (std::size_t i = 0; i < m_targets.tracks[rotation.tracks[0]].spans.size(); ++i) {
        std::array<VxKeyColumns<float>, 3> keys;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const std::size_t track = rotation.tracks[axis];
            keys[axis] = columnsOf(*propertyOf(track), m_targets.tracks[track].spans[i]);
        }
        const VxRotationSamples samples = {keys[0].times,
                                           {keys[0].values, keys[1].values, keys[2].values},
                                           keys[0].count,
                                           rotation.order};
        auto reduced = vxReduceRotation(samples, m_type, error);
        for (std::size_t axis = 0; axis < 3; ++axis)
            m_plan[rotation.tracks[axis]].push_back(std::move(reduced[axis]));
    }
}

// A link adds to the keys: they do not determine the evaluated value.
KeyReduction::Spans KeyReduction::planTrack(std::size_t track, double error) const
{
    Spans results;
    const VxFloatProperty *property = propertyOf(track);
    for (const VxKeySpan &span : m_targets.tracks[track].spans) {
        if (!property || property->isLinked()) {
            results.push_back(std::nullopt);
            continue;
        }
        const Samples samples(*property, span);
        results.push_back(vxReduceKeys(samples.times.data(), samples.values.data(),
                                       int(samples.times.size()), m_type, error));
    }
    return results;
}

void KeyReduction::plan(double error)
{
    planSome(error, 1);
}

void KeyReduction::planSome(double error, int every)
{
    for (std::size_t i = 0; i < m_rotations.size(); ++i) {
        if (isChosen(i, every))
            planRotation(m_rotations[i], error);
    }
    for (std::size_t i = 0; i < m_others.size(); ++i) {
        if (isChosen(i, every))
            m_plan[m_others[i]] = planTrack(m_others[i], error);
    }
}

int KeyReduction::keysOfSome(int every) const
{
    int count = 0;
    for (std::size_t i = 0; i < m_rotations.size(); ++i) {
        if (isChosen(i, every))
            count += 3 * m_targets.tracks[m_rotations[i].tracks[0]].numKeys();
    }
    for (std::size_t i = 0; i < m_others.size(); ++i) {
        if (isChosen(i, every))
            count += m_targets.tracks[m_others[i]].numKeys();
    }
    return count;
}

void KeyReduction::planForCount(double count)
{
    const int all = keysOfSome(1);
    const int every = std::max(1, all / SampleKeys);
    ErrorSearch search(count);
    if (every > 1) {
        ErrorSearch estimate(count * keysOfSome(every) / all);
        while (!estimate.isDone()) {
            planSome(estimate.next(), every);
            estimate.add(numKeys());
        }
        search.setFirst(estimate.error());
    }
    std::vector<Spans> best; // the plan of the error found so far
    while (!search.isDone()) {
        plan(search.next());
        if (search.add(numKeys()))
            best.swap(m_plan);
        m_plan.assign(m_targets.tracks.size(), {});
    }
    if (best.empty())
        plan(search.error());
    else
        m_plan = std::move(best);
}

int KeyReduction::numKeys() const
{
    int count = 0;
    for (const Spans &spans : m_plan) {
        for (const std::optional<VxFittedKeys> &keys : spans)
            count += keys ? int(keys->times.size()) : 0;
    }
    return count;
}

void KeyReduction::apply(KeyToolRun *run)
{
    for (std::size_t track = 0; track < m_plan.size(); ++track) {
        if (m_plan[track].empty())
            continue;
        std::size_t next = 0;
        run->replace(track, [&](const VxFloatProperty &, const VxKeySpan &) {
            return std::move(m_plan[track][next++]);
        });
    }
}

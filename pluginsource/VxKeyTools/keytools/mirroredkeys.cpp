#include "keytools/mirroredkeys.h"

#include <algorithm>
#include <iterator>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxkeyfilter.h>

namespace {

// Indexes in VxRestPose.
constexpr int Translation = 0;
constexpr int Rotation = 3;
constexpr int UniformScale = 6;
constexpr int AxisScale = 7;

std::size_t indexOf(int control)
{
    return std::size_t(control);
}

/// The values of copied keys at other times.
std::vector<float> sampledAt(const std::vector<VxTime> &times, const VxCopiedKeys &copied)
{
    const std::vector<float> values(copied.values.begin(), copied.values.end());
    if (times == copied.times)
        return values;
    const VxKeyColumns<float> keys{copied.times.data(), values.data(), copied.types.data(),
                                   copied.tcb.empty() ? nullptr : copied.tcb.data(),
                                   int(copied.times.size())};
    return vxSampleKeys(keys, times.data(), int(times.size()));
}

/// The times of both, each once.
std::vector<VxTime> mergedTimes(const std::vector<VxTime> &a, const std::vector<VxTime> &b)
{
    if (a == b)
        return a;
    std::vector<VxTime> times;
    times.reserve(std::max(a.size(), b.size()));
    std::set_union(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(times));
    return times;
}

/// Copies the shapes of keys at the same times.
void setShapes(const VxCopiedKeys &copied, VxCopiedKeys *keys)
{
    if (!copied.tcb.empty())
        keys->tcb.resize(keys->times.size());
    std::size_t k = 0;
    for (std::size_t i = 0; i < copied.times.size(); ++i) {
        while (keys->times[k] < copied.times[i])
            ++k;
        keys->types[k] = copied.types[i];
        if (!keys->tcb.empty())
            keys->tcb[k] = copied.tcb.empty() ? VxTcb() : copied.tcb[i];
    }
}

VxEuler presentAngles(const VxNode *node, VxTime time)
{
    VxEuler angles{};
    for (int axis = 0; axis < 3; ++axis) {
        if (const VxFloatProperty *angle = node->getTransformControl(Rotation + axis))
            angles[indexOf(axis)] = double(angle->getValue(time));
    }
    return angles;
}

} // namespace

/// The three channels of a group at every time at which one of the copied ones has a key.
struct CopiedNodeKeys::Samples
{
    VxCopiedKeys keys; ///< times and shapes, without values
    std::array<std::vector<float>, 3> values;
};

CopiedNodeKeys::CopiedNodeKeys(const VxNode *node, const VxJointRest &rest)
    : m_node(node)
    , m_rest(rest)
{
}

bool CopiedNodeKeys::add(const VxCopiedKeys &keys)
{
    const int control = VxNode::getTransformControlIndex(keys.property);
    if (control < 0)
        return false;
    if (!m_copied[indexOf(control)])
        m_copied[indexOf(control)] = &keys;
    return true;
}

bool CopiedNodeKeys::hasAny(int first) const
{
    return std::any_of(m_copied.begin() + first, m_copied.begin() + first + 3,
                       [](const VxCopiedKeys *keys) { return keys != nullptr; });
}

void CopiedNodeKeys::addSeparately(int first, const Sources &sources,
                                   std::vector<MirroredKeys> *result) const
{
    for (int axis = 0; axis < 3; ++axis) {
        const VxChannelSource &source = *sources[indexOf(axis)];
        const VxCopiedKeys *copied = m_copied[indexOf(first + source.axis)];
        if (!copied)
            continue;
        MirroredKeys mirrored{first + axis, *copied};
        for (double &value : mirrored.keys.values)
            value = value * source.factor + source.offset;
        result->push_back(std::move(mirrored));
    }
}

CopiedNodeKeys::Samples CopiedNodeKeys::sampled(int first) const
{
    Samples samples;
    VxCopiedKeys &keys = samples.keys;
    for (int control = first; control < first + 3; ++control) {
        if (const VxCopiedKeys *copied = m_copied[indexOf(control)])
            keys.times = mergedTimes(keys.times, copied->times);
    }
    keys.types.resize(keys.times.size());
    // The first channel with a key at a time counts.
    for (int control = first + 2; control >= first; --control) {
        if (const VxCopiedKeys *copied = m_copied[indexOf(control)])
            setShapes(*copied, &keys);
    }
    for (int axis = 0; axis < 3; ++axis) {
        const std::size_t control = indexOf(first + axis);
        std::vector<float> &values = samples.values[indexOf(axis)];
        if (m_copied[control]) {
            values = sampledAt(keys.times, *m_copied[control]);
            continue;
        }
        values.assign(keys.times.size(), m_rest.values[control]);
        const VxFloatProperty *present =
            m_node ? m_node->getTransformControl(first + axis) : nullptr;
        if (present)
            std::transform(keys.times.begin(), keys.times.end(), values.begin(),
                           [present](VxTime time) { return present->getValue(time); });
    }
    return samples;
}

/** convert: the values of the partner from those of the source, called for ascending times. */
template <class Convert>
void CopiedNodeKeys::addTogether(int first, Convert convert,
                                 std::vector<MirroredKeys> *result) const
{
    const Samples samples = sampled(first);
    const std::size_t count = samples.keys.times.size();
    std::array<MirroredKeys, 3> mirrored;
    for (int axis = 0; axis < 3; ++axis) {
        mirrored[indexOf(axis)] = {first + axis, samples.keys};
        mirrored[indexOf(axis)].keys.values.resize(count);
    }
    for (std::size_t k = 0; k < count; ++k) {
        const VxVector values =
            convert(VxVector{double(samples.values[0][k]), double(samples.values[1][k]),
                             double(samples.values[2][k])});
        for (std::size_t axis = 0; axis < 3; ++axis)
            mirrored[axis].keys.values[k] = values[axis];
    }
    std::move(mirrored.begin(), mirrored.end(), std::back_inserter(*result));
}

template <class Convert>
void CopiedNodeKeys::addGroup(int first, const Sources &sources, Convert convert,
                              std::vector<MirroredKeys> *result) const
{
    if (!hasAny(first))
        return;
    if (sources[0] && sources[1] && sources[2])
        addSeparately(first, sources, result);
    else
        addTogether(first, convert, result);
}

std::vector<MirroredKeys> CopiedNodeKeys::mirrored(const VxNode *partner,
                                                   const VxJointRest &partnerRest,
                                                   const VxRotation &reflection, VxTime start) const
{
    const VxPoseTransfer transfer(m_rest, partnerRest, reflection);
    std::vector<MirroredKeys> result;
    addGroup(
        Translation,
        {transfer.translationSource(0), transfer.translationSource(1),
         transfer.translationSource(2)},
        [&](const VxVector &values) { return transfer.translation(values); }, &result);
    Sources angles;
    if (const auto sources = transfer.rotationSources())
        std::copy(sources->begin(), sources->end(), angles.begin());
    VxEuler previous = presentAngles(partner, start);
    addGroup(
        Rotation, angles,
        [&](const VxVector &values) {
            const VxRotation rotation = transfer.rotation(vxRotation(values, m_rest.order));
            return previous = vxEulerAngles(rotation, partnerRest.order, previous);
        },
        &result);
    if (const VxCopiedKeys *scale = m_copied[UniformScale])
        result.push_back({UniformScale, *scale});
    addGroup(
        AxisScale,
        {transfer.stretchSource(0), transfer.stretchSource(1), transfer.stretchSource(2)},
        [&](const VxVector &values) { return transfer.stretch(values); }, &result);
    return result;
}

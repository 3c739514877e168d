#include "io/gltf/vxgltfanimations.h"

#include "io/vxfileerror.h"
#include "io/vxfiletext.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace {

/// The data of one sampler: `width` numbers a key, three times as many for cubic segments.
struct Sampler
{
    VxMotionSegment segment = VxMotionSegment::Linear;
    std::vector<double> times;
    std::vector<double> numbers;
    std::size_t width = 0; ///< numbers of a key's value

    bool isCubic() const { return segment == VxMotionSegment::Cubic; }
    /// part: 0 tangent of the segment before, 1 value, 2 tangent of the segment after.
    const double *at(std::size_t key, std::size_t part) const
    {
        return numbers.data() + (isCubic() ? key * 3 + part : key) * width;
    }
    const double *value(std::size_t key) const { return at(key, 1); }
};

/// Makes the channels of one animation.
class AnimationReader
{
public:
    AnimationReader(VxGltfDocument *document, const std::vector<int> &places,
                    VxImportedMotion *motion, VxMotionClip *clip, const QJsonObject &object)
        : m_document(document)
        , m_places(places)
        , m_motion(motion)
        , m_clip(clip)
        , m_samplers(object.value(QLatin1String("samplers")).toArray())
    {
    }

    bool readChannel(const QJsonObject &channel, QString *message);

private:
    bool readSampler(qint64 index, Sampler *sampler, QString *message);
    bool readTimes(qint64 accessor, Sampler *sampler, QString *message);
    bool checkTimes(Sampler *sampler, QString *message);
    void addCurves(int node, VxMotionTarget first, const Sampler &sampler);
    void addRotation(int node, const Sampler &sampler);
    VxMotionCurve curveOf(const Sampler &sampler, std::size_t component) const;
    bool omit(const QString &why, int node);

    VxGltfDocument *const m_document;
    const std::vector<int> &m_places;
    VxImportedMotion *const m_motion;
    VxMotionClip *const m_clip;
    const QJsonArray m_samplers;
    std::set<std::pair<int, QString>> m_driven;
};

/** Always true: reading continues without the channel. */
bool AnimationReader::omit(const QString &why, int node)
{
    const QString name = node >= 0 ? m_motion->nodes[std::size_t(node)].name : m_clip->name;
    m_motion->facts.addOmission(VxFileText::tr("channel"), why, name);
    return true;
}

bool AnimationReader::readTimes(qint64 accessor, Sampler *sampler, QString *message)
{
    int components = 0;
    const int index = int(qMin<qint64>(accessor, INT_MAX));
    if (!m_document->read(index, &sampler->times, &components, message))
        return false;
    if (components != 1)
        return vxFail(message, VxFileText::tr("Accessor %1 does not contain times.").arg(index));
    return true;
}

/** Finite and ascending. A key at the time of the previous one is dropped: times are single
 * precision, in which those of a long take may coincide. */
bool AnimationReader::checkTimes(Sampler *sampler, QString *message)
{
    const std::vector<double> &times = sampler->times;
    for (const double time : times) {
        if (!std::isfinite(time))
            return vxFail(message, VxFileText::tr("the time of a key is not a number."));
    }
    for (std::size_t i = 1; i < times.size(); ++i) {
        if (times[i] < times[i - 1])
            return vxFail(message, VxFileText::tr("key %1 at %2 s follows a key at %3 s.")
                                       .arg(i)
                                       .arg(times[i])
                                       .arg(times[i - 1]));
    }
    if (std::adjacent_find(times.begin(), times.end()) == times.end())
        return true;
    Sampler kept = *sampler;
    const std::size_t size = sampler->width * (sampler->isCubic() ? 3 : 1);
    std::size_t count = 0;
    for (std::size_t i = 0; i < times.size(); ++i) {
        if (i > 0 && times[i] == times[i - 1]) {
            m_motion->facts.addOmission(VxFileText::tr("key"),
                                        VxFileText::tr("Another key has the same time."),
                                        m_clip->name);
            continue;
        }
        kept.times[count] = times[i];
        std::copy_n(sampler->numbers.begin() + std::ptrdiff_t(i * size), size,
                    kept.numbers.begin() + std::ptrdiff_t(count * size));
        ++count;
    }
    kept.times.resize(count);
    kept.numbers.resize(count * size);
    *sampler = std::move(kept);
    return true;
}

bool AnimationReader::readSampler(qint64 index, Sampler *sampler, QString *message)
{
    if (index < 0 || index >= m_samplers.size())
        return vxFail(message, VxFileText::tr("sampler %1 does not exist.").arg(index));
    const QJsonObject object = m_samplers.at(int(index)).toObject();
    const QString kind = object.value(QLatin1String("interpolation")).toString();
    if (kind == QLatin1String("STEP"))
        sampler->segment = VxMotionSegment::Step;
    else if (kind == QLatin1String("CUBICSPLINE"))
        sampler->segment = VxMotionSegment::Cubic;
    else if (!kind.isEmpty() && kind != QLatin1String("LINEAR"))
        return vxFail(message, VxFileText::tr("unknown interpolation \"%1\".").arg(kind));
    int components = 0; // the channel decides how many numbers a key has
    const int output = int(qMin<qint64>(vxGltfIndex(object, "output"), INT_MAX));
    if (!readTimes(vxGltfIndex(object, "input"), sampler, message) ||
        !m_document->read(output, &sampler->numbers, &components, message))
        return false;
    for (const double number : sampler->numbers) {
        if (!std::isfinite(number))
            return vxFail(message,
                          VxFileText::tr("a value of accessor %1 is not a number.").arg(output));
    }
    const std::size_t values = sampler->times.size() * (sampler->isCubic() ? 3 : 1);
    if (values > 0 && sampler->numbers.size() % values == 0)
        sampler->width = sampler->numbers.size() / values;
    return checkTimes(sampler, message);
}

VxMotionCurve AnimationReader::curveOf(const Sampler &sampler, std::size_t component) const
{
    VxMotionCurve curve;
    curve.times = sampler.times;
    curve.values.reserve(sampler.times.size());
    for (std::size_t i = 0; i < sampler.times.size(); ++i)
        curve.values.push_back(sampler.value(i)[component]);
    if (sampler.segment == VxMotionSegment::Linear)
        return curve;
    curve.shapes.resize(sampler.times.size());
    for (std::size_t i = 0; i < curve.shapes.size(); ++i) {
        VxMotionShape &shape = curve.shapes[i];
        shape.segment = sampler.segment;
        if (sampler.isCubic()) {
            shape.inSlope = sampler.at(i, 0)[component];
            shape.outSlope = sampler.at(i, 2)[component];
        }
    }
    return curve;
}

/** The axes of a vector, or the weights of all morphs. */
void AnimationReader::addCurves(int node, VxMotionTarget first, const Sampler &sampler)
{
    const bool isMorph = first == VxMotionTarget::Morph;
    for (std::size_t i = 0; i < sampler.width; ++i) {
        VxMotionChannel channel;
        channel.node = node;
        channel.target = isMorph ? first : VxMotionTarget(int(first) + int(i));
        channel.index = isMorph ? int(i) : 0;
        channel.curve = curveOf(sampler, i);
        m_clip->channels.push_back(std::move(channel));
    }
}

void AnimationReader::addRotation(int node, const Sampler &sampler)
{
    VxMotionChannel channel;
    channel.node = node;
    channel.target = VxMotionTarget::Rotation;
    VxMotionRotationTrack &track = channel.rotation;
    track.segment = sampler.segment;
    VxMotionQuaternion last{{0.0, 0.0, 0.0, 1.0}};
    for (std::size_t i = 0; i < sampler.times.size(); ++i) {
        const double *q = sampler.value(i);
        const double length = std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
        if (length > 1e-6 && std::isfinite(length)) {
            last = {{q[0] / length, q[1] / length, q[2] / length, q[3] / length}};
        } else {
            m_motion->facts.addOmission(
                VxFileText::tr("rotation"),
                VxFileText::tr("A quaternion of length 0; the previous rotation is kept."),
                m_motion->nodes[std::size_t(node)].name);
        }
        track.times.push_back(sampler.times[i]);
        track.values.push_back(last);
        if (!sampler.isCubic())
            continue;
        const auto tangent = [&](std::size_t part) {
            const double *t = sampler.at(i, part);
            return VxMotionQuaternion{{t[0], t[1], t[2], t[3]}};
        };
        track.inTangents.push_back(tangent(0));
        track.outTangents.push_back(tangent(2));
    }
    m_clip->channels.push_back(std::move(channel));
}

bool AnimationReader::readChannel(const QJsonObject &channel, QString *message)
{
    const QJsonObject target = channel.value(QLatin1String("target")).toObject();
    const QString path = target.value(QLatin1String("path")).toString();
    const qint64 index = vxGltfIndex(target, "node");
    if (path == QLatin1String("pointer"))
        return omit(VxFileText::tr("Its target is not a node."), -1);
    if (!target.contains(QLatin1String("node")))
        return omit(VxFileText::tr("It has no target."), -1);
    if (index < 0 || index >= qint64(m_places.size()))
        return vxFail(message, VxFileText::tr("the target node of a channel does not exist."));
    const int node = m_places[std::size_t(index)];
    const bool isWeights = path == QLatin1String("weights");
    const bool isRotation = path == QLatin1String("rotation");
    const bool isTranslation = path == QLatin1String("translation");
    if (!isWeights && !isRotation && !isTranslation && path != QLatin1String("scale"))
        return omit(VxFileText::tr("Its target is neither a transform nor morph weights."), node);
    if (!m_driven.insert({node, path}).second)
        return omit(VxFileText::tr("Another channel has the same target."), node);
    Sampler sampler;
    if (!readSampler(vxGltfIndex(channel, "sampler"), &sampler, message))
        return false;
    if (sampler.times.empty())
        return omit(VxFileText::tr("It has no keys."), node);
    const std::size_t width = isWeights    ? m_motion->nodes[std::size_t(node)].morphs.size()
                              : isRotation ? 4
                                           : 3;
    if (isWeights && width == 0)
        return omit(VxFileText::tr("The node has no morphs."), node);
    if (sampler.width != width)
        return vxFail(
            message,
            VxFileText::tr("the channel \"%1\" of \"%2\" has %3 numbers per key instead of %4.")
                .arg(path, m_motion->nodes[std::size_t(node)].name, QString::number(sampler.width),
                     QString::number(width)));
    if (isRotation)
        addRotation(node, sampler);
    else
        addCurves(node,
                  isWeights       ? VxMotionTarget::Morph
                  : isTranslation ? VxMotionTarget::XTranslate
                                  : VxMotionTarget::XScale,
                  sampler);
    return true;
}

} // namespace

bool vxReadGltfAnimations(VxGltfDocument *document, const std::vector<int> &places,
                          const VxFileProgress &progress, VxImportedMotion *motion,
                          QString *message)
{
    const QJsonArray animations = document->array("animations");
    for (int i = 0; i < animations.size(); ++i) {
        const QJsonObject object = animations.at(i).toObject();
        VxMotionClip clip;
        clip.name = object.value(QLatin1String("name")).toString();
        if (clip.name.isEmpty())
            clip.name = QStringLiteral("Animation %1").arg(i + 1);
        AnimationReader reader(document, places, motion, &clip, object);
        const QJsonArray channels = object.value(QLatin1String("channels")).toArray();
        for (int c = 0; c < channels.size(); ++c) {
            if (progress && !progress((i * 100 + c * 100 / channels.size()) / animations.size())) {
                message->clear();
                return false;
            }
            QString why;
            if (!reader.readChannel(channels.at(c).toObject(), &why))
                return vxFail(message, VxFileText::tr("Animation \"%1\", channel %2: %3")
                                           .arg(clip.name, QString::number(c), why));
        }
        motion->clips.push_back(std::move(clip));
    }
    return true;
}

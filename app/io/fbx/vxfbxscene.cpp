#include "io/fbx/vxfbxscene.h"

#include "io/vxfiletext.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace {

// Tracks of one node in one animation need several hundred bytes, even if constant.
constexpr std::size_t maxTracks = 300 * 1000;
constexpr double Percent = 0.01;

QString text(std::string_view bytes)
{
    return QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size()));
}

} // namespace

VxFbxScene::VxFbxScene(const VxFbxRecords &records, qint64 version)
    : m_records(records)
    , m_version(version)
    , m_objects(records)
{
}

bool VxFbxScene::read(const VxFileProgress &progress, VxImportedMotion *motion, VxFileError *error)
{
    VxMotionFacts *facts = &motion->facts;
    m_settings = vxFbxReadSettings(m_records, &facts->notes);
    facts->writer = m_settings.writer;
    facts->rate = m_settings.rate;
    facts->metresPerUnit = m_settings.metresPerUnit;
    if (!m_objects.read(error) || !vxFbxReadModels(m_records, m_objects, &m_models, facts, error))
        return false;
    if (m_models.empty())
        return m_records.failAt(error, m_records.find({"Objects"}),
                                VxFileText::tr("The file has no nodes."));
    facts->notes += m_objects.notes();
    m_modelOf.assign(static_cast<std::size_t>(m_objects.count()), -1);
    for (std::size_t i = 0; i < m_models.size(); ++i)
        m_modelOf[std::size_t(m_models[i].object)] = static_cast<int>(i);
    m_modelOf[0] = -1;
    m_stacks = vxFbxReadStacks(m_records, m_objects, facts);
    if (m_stacks.size() * m_models.size() > maxTracks)
        return m_records.failAt(
            error, m_records.find({"Objects"}),
            VxFileText::tr("%1 animations of %2 nodes are more than can be read.")
                .arg(m_stacks.size())
                .arg(m_models.size()));
    findMorphs();
    findProperties();
    if (!readTracks(progress, motion, error))
        return false;
    addOmissions(facts);
    return true;
}

int VxFbxScene::modelOfMorph(int channel) const
{
    // Channel, blend shape, mesh, node: each is connected to the next one.
    int object = channel;
    for (const char *kind : {"Deformer", "Geometry", "Model"}) {
        int above = 0;
        for (const VxFbxObjects::Link &link : m_objects.targets(object)) {
            if (link.property.empty() && m_objects.kind(link.object) == kind) {
                above = link.object;
                break;
            }
        }
        if (above == 0)
            return -1;
        object = above;
    }
    return m_modelOf[std::size_t(object)];
}

// A property in most files, a record of its own in others.
double VxFbxScene::morphPercent(int channel) const
{
    const auto record = m_records.child(m_objects.record(channel), "DeformPercent");
    const double own = m_records.finite(m_records.value(record, 0), 0.0);
    return m_objects.number(channel, "DeformPercent", own);
}

void VxFbxScene::findMorphs()
{
    std::vector<int> counts(m_models.size(), 0);
    for (int i = 1; i < m_objects.count(); ++i) {
        if (m_objects.subclass(i) != "BlendShapeChannel")
            continue;
        const int model = modelOfMorph(i);
        if (model < 0)
            continue;
        const auto owner = static_cast<std::size_t>(model);
        m_values.push_back({{i, VxFbxTarget::Morph, {}},
                            owner,
                            counts[owner]++,
                            morphPercent(i),
                            m_objects.name(i)});
    }
}

// User-defined properties driven by an animation; the others have no keys and are left out.
void VxFbxScene::findProperties()
{
    std::vector<int> counts(m_models.size(), 0);
    std::set<VxFbxTarget> found;
    for (const VxFbxStack &stack : m_stacks) {
        for (const VxFbxLayer &layer : stack.layers) {
            for (const auto &[target, node] : layer.targets) {
                const int model = m_modelOf[std::size_t(target.object)];
                if (target.property != VxFbxTarget::Other || model < 0 ||
                    !m_objects.isUserNumber(target.object, target.name) ||
                    !found.insert(target).second)
                    continue;
                m_values.push_back({target, std::size_t(model), counts[std::size_t(model)]++,
                                    m_objects.number(target.object, target.name, 0.0),
                                    text(target.name)});
            }
        }
    }
}

bool VxFbxScene::readTracks(const VxFileProgress &progress, VxImportedMotion *motion,
                            VxFileError *error)
{
    VxFbxCurves curves(m_records, m_version, m_settings.ticksPerSecond);
    m_tracks.resize(m_stacks.size());
    m_valueTracks.resize(m_stacks.size());
    for (std::size_t i = 0; i < m_stacks.size(); ++i) {
        if (progress && !progress(static_cast<int>(i * 100 / m_stacks.size()))) {
            error->cancelled = true;
            return false;
        }
        VxFbxBlend blend(m_stacks[i], m_objects, curves, &m_counts);
        if (!readClip(&blend, &m_tracks[i], &m_valueTracks[i])) {
            *error = blend.error();
            return false;
        }
    }
    VxFbxFigure figure(m_models, &m_tracks);
    if (!figure.addNodes(motion))
        return m_records.failAt(error, m_records.find({"Objects"}),
                                VxFileText::tr("The file has too many nodes."));
    addValues(figure, motion);
    for (std::size_t i = 0; i < m_stacks.size(); ++i)
        addClip(i, &figure, motion);
    addNotes(figure, curves.notes(), &motion->facts);
    return true;
}

bool VxFbxScene::readClip(VxFbxBlend *blend, VxFbxClipTracks *tracks,
                          std::vector<ValueTrack> *values)
{
    if (!blend->readWeights())
        return false;
    tracks->resize(m_models.size());
    for (std::size_t i = 0; i < m_models.size(); ++i) {
        const VxFbxModel &model = m_models[i];
        VxFbxModelTracks &own = (*tracks)[i];
        const int object = model.object;
        if (!blend->read({object, VxFbxTarget::Translation, {}}, model.translation, model.order,
                         &own.translation) ||
            !blend->read({object, VxFbxTarget::Rotation, {}}, model.rotation, model.order,
                         &own.rotation) ||
            !blend->read({object, VxFbxTarget::Scale, {}}, model.scale, model.order, &own.scale))
            return false;
    }
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        VxFbxTrack track;
        if (!blend->read(m_values[i].target, {{m_values[i].rest, 0.0, 0.0}}, VxNode::XYZ, &track))
            return false;
        if (track[0].hasKeys() || track[0].value != m_values[i].rest)
            values->push_back({i, std::move(track[0])});
    }
    return true;
}

void VxFbxScene::addValues(const VxFbxFigure &figure, VxImportedMotion *motion) const
{
    for (const Value &value : m_values) {
        VxMotionNode &node = motion->nodes[std::size_t(figure.nodeOf(value.model))];
        if (value.target.property == VxFbxTarget::Morph)
            node.morphs.push_back({value.name, value.rest * Percent, {}});
        else
            node.properties.push_back({value.name, value.rest, {}});
    }
}

void VxFbxScene::addClip(std::size_t index, VxFbxFigure *figure, VxImportedMotion *motion)
{
    const VxFbxStack &stack = m_stacks[index];
    VxMotionClip clip;
    clip.name = stack.name;
    const double start = static_cast<double>(stack.start) / m_settings.ticksPerSecond;
    const double end = static_cast<double>(stack.end) / m_settings.ticksPerSecond;
    constexpr double maxSeconds = 440000.0;
    if (start < end && std::abs(start) < maxSeconds && std::abs(end) < maxSeconds) {
        clip.start = start;
        clip.end = end;
    }
    figure->addChannels(index, &clip);
    for (ValueTrack &track : m_valueTracks[index]) {
        const Value &value = m_values[track.value];
        const bool isMorph = value.target.property == VxFbxTarget::Morph;
        VxMotionChannel channel;
        channel.node = figure->nodeOf(value.model);
        channel.target = isMorph ? VxMotionTarget::Morph : VxMotionTarget::Property;
        channel.index = value.index;
        channel.curve = track.channel.hasKeys()
                            ? std::move(track.channel.curve)
                            : VxMotionCurve{{clip.start}, {track.channel.value}, {}};
        if (isMorph)
            vxScaleCurve(&channel.curve, Percent);
        clip.channels.push_back(std::move(channel));
    }
    motion->clips.push_back(std::move(clip));
}

void VxFbxScene::addOmissions(VxMotionFacts *facts) const
{
    struct Kind
    {
        const char *kind;
        const char *subclass; // null: any
        const char *what;
    };
    constexpr Kind kinds[] = {
        {"Geometry", "Mesh", QT_TRANSLATE_NOOP("VxFbxScene", "mesh")},
        {"Deformer", "Skin", QT_TRANSLATE_NOOP("VxFbxScene", "skin")},
        {"Material", nullptr, QT_TRANSLATE_NOOP("VxFbxScene", "material")},
        {"Texture", nullptr, QT_TRANSLATE_NOOP("VxFbxScene", "texture")},
        {"NodeAttribute", "Camera", QT_TRANSLATE_NOOP("VxFbxScene", "camera")},
        {"NodeAttribute", "Light", QT_TRANSLATE_NOOP("VxFbxScene", "light")},
        {"Constraint", nullptr, QT_TRANSLATE_NOOP("VxFbxScene", "constraint")},
        {"AudioLayer", nullptr, QT_TRANSLATE_NOOP("VxFbxScene", "sound")},
    };
    for (int i = 1; i < m_objects.count(); ++i) {
        for (const Kind &it : kinds) {
            if (m_objects.kind(i) == it.kind &&
                (!it.subclass || m_objects.subclass(i) == it.subclass))
                facts->addOmission(VxFileText::tr(it.what),
                                   VxFileText::tr("Only nodes, morphs and their keys are read."),
                                   m_objects.name(i));
        }
    }
    std::set<VxFbxTarget> read;
    for (const Value &value : m_values)
        read.insert(value.target);
    for (const VxFbxStack &stack : m_stacks) {
        for (const VxFbxLayer &layer : stack.layers) {
            for (const auto &[target, node] : layer.targets) {
                const bool isOther = target.property == VxFbxTarget::Other;
                const bool isLost = target.property == VxFbxTarget::Morph || isOther;
                if (isLost && read.count(target) == 0)
                    facts->addOmission(
                        isOther ? VxFileText::tr("animation of \"%1\"").arg(text(target.name))
                                : VxFileText::tr("animation of a morph"),
                        VxFileText::tr("The scene has no corresponding property."),
                        m_objects.name(target.object));
            }
        }
    }
}

void VxFbxScene::addNotes(const VxFbxFigure &figure, const QStringList &curveNotes,
                          VxMotionFacts *facts) const
{
    facts->notes += curveNotes;
    const auto add = [facts](const QString &note, int count) {
        if (count > 0)
            facts->notes.append(note.arg(count));
    };
    add(VxFileText::tr("Helper nodes for pivots, below the nodes that move about them: %1."),
        figure.pivotCount());
    add(VxFileText::tr("Helper nodes for scales that children do not inherit: %1."),
        figure.scaleCount());
    add(VxFileText::tr("Values combined from layers that had to be sampled: %1."),
        m_counts.sampled);
    add(VxFileText::tr("Of these, values that change too fast to be sampled exactly: %1."),
        m_counts.coarse);
    add(VxFileText::tr(
            "Curves that the file continues outside of their keys, where the scene holds the end "
            "value: %1."),
        m_counts.extrapolated);
}

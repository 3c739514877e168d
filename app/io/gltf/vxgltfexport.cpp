#include "io/gltf/vxgltfexport.h"

#include "io/gltf/vxgltfcurves.h"
#include "io/gltf/vxgltfoutput.h"
#include "io/motion/vximportedmotion.h"
#include "io/motion/vxkeptrate.h"
#include "io/vxfileerror.h"
#include "io/vxfiletext.h"

#include <QHash>
#include <QMatrix4x4>
#include <cmath>
#include <limits>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxsafefile.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>

namespace {

QString key(const char *text)
{
    return QString::fromLatin1(text);
}

template <class Numbers> QJsonArray arrayOf(const Numbers &numbers)
{
    QJsonArray array;
    for (const double number : numbers)
        array.append(number);
    return array;
}

/// One file.
class GltfWriter
{
public:
    GltfWriter(const VxScene *scene, const VxTimeRange &range)
        : m_scene(scene)
        , m_range(range)
    {
    }

    void addNodes(const VxNode *root);
    bool addAnimation(const VxFileProgress &progress);
    void addSkins();
    QByteArray bytes(bool binary) const;
    double error() const { return m_error; }
    int numNodes() const { return m_nodes.size(); }
    qint64 numKeys() const { return m_numKeys; }

private:
    QJsonObject nodeObject(const VxNode *node);
    void addRest(const VxNode *node, QJsonObject *object) const;
    int addMorphMesh(const VxNode *node, const QVector<const VxMorph *> &morphs);
    void addTranslation(const VxNode *node);
    void addRotation(const VxNode *node);
    void addScale(const VxNode *node);
    void addWeights(const VxNode *node);
    VxFrameTimes framesOf(const VxNode *node) const;
    void addChannel(const VxNode *node, const char *path, const VxGltfKeys &keys, const char *type);
    int addTimes(const VxFrameTimes &frames, const std::vector<VxTime> &times);
    double commonRate() const;

    const VxScene *const m_scene;
    const VxTimeRange m_range;
    VxGltfOutput m_output;
    QVector<const VxNode *> m_nodes;
    QHash<const VxNode *, int> m_index;
    QJsonArray m_objects;
    QJsonArray m_meshes;
    QJsonArray m_skins;
    QJsonArray m_samplers;
    QJsonArray m_channels;
    std::vector<double> m_rates;      // kept ones, one a node
    std::vector<float> m_lastSeconds; // most channels share theirs
    int m_lastInput = -1;
    double m_error = 0.0;
    qint64 m_numKeys = 0;
};

void GltfWriter::addNodes(const VxNode *root)
{
    m_nodes = vxNodesToExport(m_scene, root);
    const VxTime step = m_scene->getTimeStep();
    for (int i = 0; i < m_nodes.size(); ++i) {
        const VxNode *node = m_nodes[i];
        const int parent = m_index.value(node->getNodeParent(), -1);
        m_rates.push_back(parent < 0 ? vxKeptRate(node, step)
                                     : vxKeptRate(node, step, m_rates[std::size_t(parent)]));
        m_index.insert(node, i);
    }
    for (const VxNode *node : qAsConst(m_nodes))
        m_objects.append(nodeObject(node));
}

/** The node's transform at the range's start: for programs that show no motion. */
void GltfWriter::addRest(const VxNode *node, QJsonObject *object) const
{
    const VxTime time = m_range.getStart();
    const auto values = [&](VxMotionTarget first) {
        const auto controls = vxControlsOf(node, first);
        return VxEuler{double(controls[0]->getValue(time)), double(controls[1]->getValue(time)),
                       double(controls[2]->getValue(time))};
    };
    VxEuler position = values(VxMotionTarget::XTranslate);
    VxEuler scale = values(VxMotionTarget::XScale);
    const double uniform = double(node->getScaleControl()->getValue(time));
    for (std::size_t axis = 0; axis < 3; ++axis) {
        position[axis] = double(node->getOrigin()[int(axis)]) + position[axis];
        scale[axis] = uniform * scale[axis];
    }
    const VxQuaternion q =
        vxQuaternion(values(VxMotionTarget::XRotate), VxRotationOrder(node->getRotationOrder()));
    object->insert(key("translation"), arrayOf(position));
    object->insert(key("rotation"), arrayOf(std::array<double, 4>{q.x, q.y, q.z, q.w}));
    object->insert(key("scale"), arrayOf(scale));
}

QJsonObject GltfWriter::nodeObject(const VxNode *node)
{
    QJsonObject object{{key("name"), node->getLabel()}};
    addRest(node, &object);
    const QVector3D end = node->getEndPoint();
    object.insert(
        key("extras"),
        QJsonObject{{key("rotationOrder"), key(VxRotationOrderNames[node->getRotationOrder()])},
                    {key("endPoint"),
                     arrayOf(VxEuler{double(end.x()), double(end.y()), double(end.z())})}});
    QJsonArray children;
    for (int i = 0; i < node->getNumNodeChildren(); ++i)
        children.append(m_index.value(node->getNodeChild(i)));
    if (!children.isEmpty())
        object.insert(key("children"), children);
    const QVector<const VxMorph *> morphs = vxMorphsOf(node);
    if (!morphs.isEmpty())
        object.insert(key("mesh"), addMorphMesh(node, morphs));
    return object;
}

/** Weights need a mesh: a minimal triangle, with targets that change nothing. */
int GltfWriter::addMorphMesh(const VxNode *node, const QVector<const VxMorph *> &morphs)
{
    constexpr float Side = 1e-3f;
    const int corners = m_output.addFloats({0, 0, 0, Side, 0, 0, 0, Side, 0}, "VEC3", true);
    const int zeros = m_output.addZeros(3, "VEC3");
    QJsonArray targets;
    QJsonArray names;
    QJsonArray weights;
    for (const VxMorph *morph : morphs) {
        targets.append(QJsonObject{{key("POSITION"), zeros}});
        names.append(morph->getLabel());
        weights.append(double(morph->getValueControl()->getValue(m_range.getStart())));
    }
    const QJsonObject primitive{{key("attributes"), QJsonObject{{key("POSITION"), corners}}},
                                {key("targets"), targets}};
    m_meshes.append(QJsonObject{{key("name"), node->getLabel()},
                                {key("primitives"), QJsonArray{primitive}},
                                {key("weights"), weights},
                                {key("extras"), QJsonObject{{key("targetNames"), names}}}});
    return m_meshes.size() - 1;
}

VxFrameTimes GltfWriter::framesOf(const VxNode *node) const
{
    return {m_range, m_scene->getTimeStep(), m_rates[std::size_t(m_index.value(node))]};
}

/** That of all motion in the file: the kept one, or the scene's if nodes have different ones. */
double GltfWriter::commonRate() const
{
    const bool isCommon = std::all_of(m_rates.begin(), m_rates.end(),
                                      [this](double rate) { return rate == m_rates.front(); });
    return isCommon && m_rates.front() > 0.0 ? m_rates.front()
                                             : double(VxTicksPerSecond) / m_scene->getTimeStep();
}

/** Late times that are equal in single precision are moved to the next larger number. */
int GltfWriter::addTimes(const VxFrameTimes &frames, const std::vector<VxTime> &times)
{
    const double start = m_range.getStart() < 0 ? frames.seconds(m_range.getStart()) : 0.0;
    std::vector<float> seconds;
    seconds.reserve(times.size());
    for (const VxTime time : times) {
        const auto second = float(frames.seconds(time) - start);
        seconds.push_back(seconds.empty() || second > seconds.back()
                              ? second
                              : std::nextafter(seconds.back(), std::numeric_limits<float>::max()));
    }
    if (m_lastInput >= 0 && seconds == m_lastSeconds)
        return m_lastInput;
    m_lastInput = m_output.addFloats(seconds, "SCALAR", true);
    m_lastSeconds = std::move(seconds);
    return m_lastInput;
}

void GltfWriter::addChannel(const VxNode *node, const char *path, const VxGltfKeys &keys,
                            const char *type)
{
    static const char *const names[] = {"STEP", "LINEAR", "CUBICSPLINE"};
    m_samplers.append(QJsonObject{{key("input"), addTimes(framesOf(node), keys.times)},
                                  {key("output"), m_output.addFloats(keys.numbers, type, false)},
                                  {key("interpolation"), key(names[keys.kind])}});
    m_channels.append(QJsonObject{{key("sampler"), m_samplers.size() - 1},
                                  {key("target"), QJsonObject{{key("node"), m_index.value(node)},
                                                              {key("path"), key(path)}}}});
    m_error = std::max(m_error, keys.error);
    m_numKeys += qint64(keys.times.size());
}

void GltfWriter::addTranslation(const VxNode *node)
{
    const auto controls = vxControlsOf(node, VxMotionTarget::XTranslate);
    if (!std::any_of(controls.begin(), controls.end(), vxIsAnimated))
        return;
    std::vector<VxGltfValue> values;
    values.reserve(3);
    for (std::size_t axis = 0; axis < 3; ++axis)
        values.push_back({controls[axis], 1.0, double(node->getOrigin()[int(axis)])});
    addChannel(node, "translation", vxGltfKeysOf(values, m_range, framesOf(node)), "VEC3");
}

void GltfWriter::addRotation(const VxNode *node)
{
    const auto controls = vxControlsOf(node, VxMotionTarget::XRotate);
    if (!std::any_of(controls.begin(), controls.end(), vxIsAnimated))
        return;
    addChannel(node, "rotation",
               vxGltfRotationKeys(controls, VxRotationOrder(node->getRotationOrder()), m_range,
                                  framesOf(node)),
               "VEC4");
}

/** The product of two animated numbers is no curve of the format: it is sampled. */
void GltfWriter::addScale(const VxNode *node)
{
    const VxFloatProperty *common = node->getScaleControl();
    const auto controls = vxControlsOf(node, VxMotionTarget::XScale);
    const bool isCommon = vxIsAnimated(common);
    const bool isOwn = std::any_of(controls.begin(), controls.end(), vxIsAnimated);
    if (!isCommon && !isOwn)
        return;
    const VxTime start = m_range.getStart();
    std::vector<VxGltfValue> values;
    for (const VxFloatProperty *control : controls) {
        if (isOwn)
            values.push_back({control, isCommon ? 1.0 : double(common->getValue(start)), 0.0});
        else
            values.push_back({common, double(control->getValue(start)), 0.0});
    }
    const VxFrameTimes frames = framesOf(node);
    addChannel(node, "scale",
               isCommon && isOwn ? vxGltfSampledProducts(common, values, frames)
                                 : vxGltfKeysOf(values, m_range, frames),
               "VEC3");
}

void GltfWriter::addWeights(const VxNode *node)
{
    std::vector<VxGltfValue> values;
    bool isAnimated = false;
    for (const VxMorph *morph : vxMorphsOf(node)) {
        values.push_back({morph->getValueControl(), 1.0, 0.0});
        isAnimated = isAnimated || vxIsAnimated(morph->getValueControl());
    }
    if (isAnimated)
        addChannel(node, "weights", vxGltfKeysOf(values, m_range, framesOf(node)), "SCALAR");
}

bool GltfWriter::addAnimation(const VxFileProgress &progress)
{
    for (int i = 0; i < m_nodes.size(); ++i) {
        if (progress && !progress(i * 100 / m_nodes.size()))
            return false;
        addTranslation(m_nodes[i]);
        addRotation(m_nodes[i]);
        addScale(m_nodes[i]);
        addWeights(m_nodes[i]);
    }
    return true;
}

void GltfWriter::addSkins()
{
    for (const VxNode *node : qAsConst(m_nodes)) {
        const auto *skeleton = qobject_cast<const VxSkeleton *>(node);
        if (!skeleton || skeleton->getAllBones().isEmpty())
            continue;
        QJsonArray joints;
        std::vector<float> matrices;
        const QVector<VxBone *> bones = skeleton->getAllBones();
        for (const VxBone *bone : bones) {
            joints.append(m_index.value(bone));
            bool isInvertible = false;
            QMatrix4x4 inverse =
                bone->getWorldTransform(m_range.getStart()).inverted(&isInvertible);
            if (!isInvertible)
                inverse.setToIdentity();
            inverse.setRow(3, QVector4D(0, 0, 0, 1));
            matrices.insert(matrices.end(), inverse.constData(), inverse.constData() + 16);
        }
        m_skins.append(
            QJsonObject{{key("name"), skeleton->getLabel()},
                        {key("joints"), joints},
                        {key("skeleton"), m_index.value(skeleton)},
                        {key("inverseBindMatrices"), m_output.addFloats(matrices, "MAT4", false)}});
    }
}

QByteArray GltfWriter::bytes(bool binary) const
{
    QJsonObject root{{key("asset"),
                      QJsonObject{{key("version"), key("2.0")},
                                  {key("generator"), key("VxStudio")},
                                  {key("extras"), QJsonObject{{key("frameRate"), commonRate()}}}}}};
    QJsonArray tops;
    for (const VxNode *node : m_nodes) {
        if (!node->getNodeParent() || !m_index.contains(node->getNodeParent()))
            tops.append(m_index.value(node));
    }
    root.insert(key("scene"), 0);
    root.insert(key("scenes"), QJsonArray{QJsonObject{{key("nodes"), tops}}});
    root.insert(key("nodes"), m_objects);
    if (!m_meshes.isEmpty())
        root.insert(key("meshes"), m_meshes);
    if (!m_skins.isEmpty())
        root.insert(key("skins"), m_skins);
    if (!m_channels.isEmpty())
        root.insert(key("animations"),
                    QJsonArray{QJsonObject{{key("name"), VxFileText::tr("Motion")},
                                           {key("samplers"), m_samplers},
                                           {key("channels"), m_channels}}});
    return binary ? m_output.binary(root) : m_output.text(root);
}

} // namespace

bool vxWriteGltf(const VxMotionSource &source, const QString &fileName, QString *summary,
                 VxFileError *error)
{
    // Larger exports exceed the format's sizes.
    constexpr qint64 MaxKeys = 40 * 1000 * 1000;
    const VxTimeRange &range = source.range;
    const int numNodes = source.scene->getNumNodes();
    const qint64 frames =
        (qint64(range.getEnd()) - range.getStart()) / source.scene->getTimeStep() + 1;
    if (numNodes == 0)
        return vxFail(error, VxFileText::tr("The scene is empty."));
    if (frames > MaxKeys / numNodes)
        return vxFail(error, VxFileText::tr("The motion is too long: %1 frames of %2 nodes.")
                                 .arg(frames)
                                 .arg(numNodes));
    GltfWriter writer(source.scene, range);
    writer.addNodes(source.root);
    if (!writer.addAnimation(source.progress))
        return vxCancel(error, VxFileText::tr("The export was cancelled."));
    writer.addSkins();
    const bool isText = fileName.endsWith(QLatin1String(".gltf"), Qt::CaseInsensitive);
    const QByteArray bytes = writer.bytes(!isText);
    VxSafeFile file(fileName);
    if (!file.start() || file.write(bytes) != bytes.size() || !file.commit())
        return vxFail(error,
                      VxFileText::tr("The file could not be written: %1.").arg(file.failure()));
    *summary = VxFileText::tr("%1, %2; rotations deviate by up to %3 degrees between keys.",
                              "nodes and keys, each with its number")
                   .arg(VxFileText::tr("%n nodes", nullptr, int(writer.numNodes())),
                        VxFileText::tr("%n keys", nullptr, int(writer.numKeys())),
                        QString::number(writer.error(), 'g', 3));
    if (range.getStart() < 0)
        *summary +=
            QLatin1Char(' ') + VxFileText::tr("The motion is moved so that it starts at time 0.");
    return true;
}

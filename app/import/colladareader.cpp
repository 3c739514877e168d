#include "import/colladareader.h"

#include "import/colladainfo.h"
#include "io/vxfileerror.h"
#include "io/vxfiletext.h"

#include <algorithm>
#include <assimp/Importer.hpp>
#include <assimp/config.h>
#include <assimp/scene.h>
#include <cmath>
#include <set>
#include <vxcore/vxeuler.h>

namespace {

QString text(const aiString &string)
{
    return QString::fromUtf8(string.C_Str());
}

VxMotionQuaternion unit(const aiQuaternion &q)
{
    VxMotionQuaternion result{{double(q.x), double(q.y), double(q.z), double(q.w)}};
    double square = 0.0;
    for (const double part : result)
        square += part * part;
    const double length = std::sqrt(square);
    if (!(length > 1e-9) || !std::isfinite(length))
        return {{0.0, 0.0, 0.0, 1.0}};
    for (double &part : result)
        part /= length;
    return result;
}

/// Whether two rotations are equal up to rounding.
bool isSame(const VxMotionQuaternion &a, const VxMotionQuaternion &b)
{
    const double dot = a[0] * b[0] + a[1] * b[1] + a[2] * b[2] + a[3] * b[3];
    return std::abs(dot) > 1.0 - 1e-12;
}

bool isNear(double a, double b)
{
    return std::abs(a - b) <= 1e-6 * std::max({1.0, std::abs(a), std::abs(b)});
}

/// Converts the library's scene to a motion.
class Converter
{
public:
    Converter(const aiScene &scene, const ColladaInfo &info)
        : m_scene(scene)
        , m_info(info)
    {
    }

    bool convert(VxImportedMotion *motion, VxFileError *error);

private:
    bool addNodes(VxFileError *error);
    void addNode(const aiNode &node, int parent, aiMatrix4x4 matrix);
    void collectBones();
    bool addClip(const aiAnimation &animation, VxFileError *error);
    void addChannel(const aiNodeAnim &channel, double ticksPerSecond, VxMotionClip *clip);
    void addVectors(int node, VxMotionTarget first, const aiVectorKey *keys, unsigned count,
                    double ticksPerSecond, VxMotionClip *clip);
    void addRotations(int node, const aiNodeAnim &channel, double ticksPerSecond,
                      VxMotionClip *clip);
    void addFacts();

    const aiScene &m_scene;
    const ColladaInfo &m_info;
    VxImportedMotion m_motion;
    std::set<std::string> m_bones;
    QHash<QString, int> m_nodeOf;
    qint64 m_numKeys = 0;
    int m_sheared = 0;
};

/** In a document without meshes the library generates one, with a bone for every node. */
void Converter::collectBones()
{
    for (unsigned i = 0; i < m_scene.mNumMeshes && m_info.meshes > 0; ++i) {
        const aiMesh &mesh = *m_scene.mMeshes[i];
        for (unsigned bone = 0; bone < mesh.mNumBones; ++bone)
            m_bones.insert(mesh.mBones[bone]->mName.C_Str());
    }
}

void Converter::addNode(const aiNode &node, int parent, aiMatrix4x4 matrix)
{
    VxMotionNode data;
    const QString id = text(node.mName);
    const ColladaInfo::Node known = m_info.nodes.value(id);
    data.name = known.name.isEmpty() ? id : known.name;
    data.parent = parent;
    const bool isBone = known.isJoint || m_bones.count(node.mName.C_Str()) > 0;
    data.kind = isBone ? VxMotionNode::Bone : VxMotionNode::Node;
    aiVector3D scale;
    aiVector3D position;
    aiQuaternion rotation;
    matrix.Decompose(scale, rotation, position);
    // The library's own composition scales rows instead of columns.
    aiMatrix4x4 moved;
    aiMatrix4x4 scaled;
    const aiMatrix4x4 again = aiMatrix4x4::Translation(position, moved) *
                              aiMatrix4x4(rotation.GetMatrix()) *
                              aiMatrix4x4::Scaling(scale, scaled);
    if (!again.Equal(matrix, 1e-3f * std::max({1.0f, std::abs(scale.x), std::abs(scale.y),
                                               std::abs(scale.z)})))
        ++m_sheared;
    const VxMotionQuaternion q = unit(rotation);
    data.translation = {{double(position.x), double(position.y), double(position.z)}};
    data.scale = {{double(scale.x), double(scale.y), double(scale.z)}};
    data.rotation =
        vxEulerAngles(VxQuaternion{q[3], q[0], q[1], q[2]}, VxRotationOrder(data.order));
    // Of several instances of a node the first one is animated.
    if (!m_nodeOf.contains(id))
        m_nodeOf.insert(id, int(m_motion.nodes.size()));
    m_motion.nodes.push_back(std::move(data));
}

/** Without recursion; the library's root represents the scene itself and is skipped. */
bool Converter::addNodes(VxFileError *error)
{
    struct Pending
    {
        const aiNode *node;
        int parent;
        int depth;
    };
    std::vector<Pending> pending;
    const aiNode *root = m_scene.mRootNode;
    const auto addChildren = [&pending](const aiNode &node, int parent, int depth) {
        for (unsigned i = node.mNumChildren; i > 0; --i)
            pending.push_back({node.mChildren[i - 1], parent, depth});
    };
    addChildren(*root, -1, 1);
    while (!pending.empty()) {
        const Pending next = pending.back();
        pending.pop_back();
        if (next.depth > VxMotionLimits::MaxDepth ||
            m_motion.nodes.size() >= VxMotionLimits::MaxNodes)
            return vxFail(error, VxFileText::tr("There are too many nodes or levels of nodes."));
        addNode(*next.node, next.parent, next.node->mTransformation);
        addChildren(*next.node, int(m_motion.nodes.size()) - 1, next.depth + 1);
    }
    return !m_motion.nodes.empty() || vxFail(error, VxFileText::tr("The file has no nodes."));
}

/** The three axes of a position or scale; constant ones get no keys. */
void Converter::addVectors(int node, VxMotionTarget first, const aiVectorKey *keys, unsigned count,
                           double ticksPerSecond, VxMotionClip *clip)
{
    const VxMotionNode &data = m_motion.nodes[std::size_t(node)];
    const std::array<double, 3> &rest =
        first == VxMotionTarget::XTranslate ? data.translation : data.scale;
    for (unsigned axis = 0; axis < 3; ++axis) {
        VxMotionChannel channel;
        channel.node = node;
        channel.target = VxMotionTarget(int(first) + int(axis));
        bool moves = false;
        for (unsigned i = 0; i < count; ++i) {
            const double time = keys[i].mTime / ticksPerSecond;
            if (!channel.curve.isEmpty() && time <= channel.curve.times.back())
                continue;
            channel.curve.times.push_back(time);
            channel.curve.values.push_back(double(keys[i].mValue[axis]));
            moves = moves || !isNear(channel.curve.values.back(), rest[axis]);
        }
        m_numKeys += qint64(channel.curve.times.size());
        if (moves)
            clip->channels.push_back(std::move(channel));
    }
}

void Converter::addRotations(int node, const aiNodeAnim &source, double ticksPerSecond,
                             VxMotionClip *clip)
{
    const VxMotionNode &data = m_motion.nodes[std::size_t(node)];
    const VxQuaternion q = vxQuaternion(data.rotation, VxRotationOrder(data.order));
    const VxMotionQuaternion rest{{q.x, q.y, q.z, q.w}};
    VxMotionChannel channel;
    channel.node = node;
    channel.target = VxMotionTarget::Rotation;
    bool moves = false;
    for (unsigned i = 0; i < source.mNumRotationKeys; ++i) {
        const double time = source.mRotationKeys[i].mTime / ticksPerSecond;
        if (!channel.rotation.isEmpty() && time <= channel.rotation.times.back())
            continue;
        channel.rotation.times.push_back(time);
        channel.rotation.values.push_back(unit(source.mRotationKeys[i].mValue));
        moves = moves || !isSame(channel.rotation.values.back(), rest);
    }
    m_numKeys += qint64(channel.rotation.times.size()) * 3;
    if (moves)
        clip->channels.push_back(std::move(channel));
}

void Converter::addChannel(const aiNodeAnim &channel, double ticksPerSecond, VxMotionClip *clip)
{
    const int node = m_nodeOf.value(text(channel.mNodeName), -1);
    if (node < 0) {
        m_motion.facts.addOmission(VxFileText::tr("channel"),
                                   VxFileText::tr("Its node does not exist."),
                                   text(channel.mNodeName));
        return;
    }
    addVectors(node, VxMotionTarget::XTranslate, channel.mPositionKeys, channel.mNumPositionKeys,
               ticksPerSecond, clip);
    addRotations(node, channel, ticksPerSecond, clip);
    addVectors(node, VxMotionTarget::XScale, channel.mScalingKeys, channel.mNumScalingKeys,
               ticksPerSecond, clip);
}

bool Converter::addClip(const aiAnimation &animation, VxFileError *error)
{
    const double ticksPerSecond = animation.mTicksPerSecond > 0.0 ? animation.mTicksPerSecond : 1.0;
    VxMotionClip clip;
    clip.name = text(animation.mName);
    if (clip.name.isEmpty())
        clip.name = QStringLiteral("Animation %1").arg(m_motion.clips.size() + 1);
    std::set<std::string> seen;
    for (unsigned i = 0; i < animation.mNumChannels; ++i) {
        const aiNodeAnim &channel = *animation.mChannels[i];
        if (seen.insert(channel.mNodeName.C_Str()).second)
            addChannel(channel, ticksPerSecond, &clip);
        else
            m_motion.facts.addOmission(VxFileText::tr("channel"),
                                       VxFileText::tr("Another channel has the same target."),
                                       text(channel.mNodeName));
        if (m_numKeys > VxMotionLimits::MaxKeys)
            return vxFail(
                error, VxFileText::tr("There are more than %1 keys.").arg(VxMotionLimits::MaxKeys));
    }
    if (!clip.channels.empty())
        m_motion.clips.push_back(std::move(clip));
    return true;
}

void Converter::addFacts()
{
    VxMotionFacts &facts = m_motion.facts;
    facts.format = m_info.version.isEmpty() ? VxFileText::tr("COLLADA")
                                            : VxFileText::tr("COLLADA %1").arg(m_info.version);
    facts.writer = m_info.writer;
    facts.upAxis = m_info.upAxis;
    facts.metresPerUnit = m_info.metresPerUnit;
    if (m_info.hasTangents)
        facts.notes.append(VxFileText::tr("The file has smooth segments; their keys are joined by "
                                          "straight ones."));
    if (m_sheared > 0)
        facts.notes.append(
            VxFileText::tr("The rest transforms of %n nodes have a shear, which is left out.",
                           nullptr, m_sheared));
    const QString why = VxFileText::tr("Only nodes and their motion are imported.");
    for (int i = 0; i < m_info.meshes; ++i)
        facts.addOmission(VxFileText::tr("mesh"), why, QString());
    for (int i = 0; i < m_info.cameras; ++i)
        facts.addOmission(VxFileText::tr("camera"), why, QString());
    for (int i = 0; i < m_info.lights; ++i)
        facts.addOmission(VxFileText::tr("light"), why, QString());
}

bool Converter::convert(VxImportedMotion *motion, VxFileError *error)
{
    collectBones();
    if (!addNodes(error))
        return false;
    for (unsigned i = 0; i < m_scene.mNumAnimations; ++i) {
        if (!addClip(*m_scene.mAnimations[i], error))
            return false;
    }
    addFacts();
    *motion = std::move(m_motion);
    return true;
}

} // namespace

bool readCollada(const QByteArray &bytes, VxImportedMotion *motion, VxFileError *error)
{
    ColladaInfo info;
    if (!readColladaInfo(bytes, &info, error))
        return false;
    Assimp::Importer importer;
    // The builder converts the up axis, for all formats in the same way.
    importer.SetPropertyBool(AI_CONFIG_IMPORT_COLLADA_IGNORE_UP_DIRECTION, true);
    const QByteArray plain = plainCollada(bytes);
    const aiScene *scene =
        importer.ReadFileFromMemory(plain.constData(), std::size_t(plain.size()), 0, "dae");
    if (!scene || !scene->mRootNode)
        return vxFail(error, VxFileText::tr("The document cannot be read: %1")
                                 .arg(QString::fromUtf8(importer.GetErrorString()).simplified()));
    return Converter(*scene, info).convert(motion, error);
}

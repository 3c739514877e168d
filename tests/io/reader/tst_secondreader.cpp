// Scenes built from real files against another reader: world transforms of all nodes at the times
// of their keys.
//
// The files are those of Debian's package of test models and, when the variable VX_MOTION_DATA
// names a folder, those in its folders "fbx" and "gltf".

#include "io/fbx/vxfbxreader.h"
#include "io/gltf/vxgltfreader.h"
#include "io/motion/vxmotionbuilder.h"
#include "io/motion/vxmotiontiming.h"
#include "testing/vxtestmain.h"
#include "testing/vxtestmodels.h"
#include "testing/vxwarningguard.h"

#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>
#include <assimp/Importer.hpp>
#include <assimp/config.h>
#include <assimp/scene.h>
#include <cmath>
#include <map>
#include <set>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

namespace {

constexpr double Degrees = 180.0 / 3.14159265358979323846;
constexpr double TimeTolerance = 1e-4; // seconds

using Matrix = std::array<std::array<double, 4>, 4>;

Matrix matrix(const aiMatrix4x4 &m)
{
    Matrix result{};
    for (unsigned i = 0; i < 4; ++i)
        for (unsigned k = 0; k < 4; ++k)
            result[i][k] = double(m[i][k]);
    return result;
}

Matrix matrix(const QMatrix4x4 &m)
{
    Matrix result{};
    for (int i = 0; i < 4; ++i)
        for (int k = 0; k < 4; ++k)
            result[std::size_t(i)][std::size_t(k)] = double(m(i, k));
    return result;
}

Matrix operator*(const Matrix &a, const Matrix &b)
{
    Matrix c{};
    for (std::size_t i = 0; i < 4; ++i)
        for (std::size_t j = 0; j < 4; ++j)
            for (std::size_t k = 0; k < 4; ++k)
                c[i][j] += a[i][k] * b[k][j];
    return c;
}

/// Degrees between the rotations of two matrices, whose axes may be scaled.
double angleBetween(const Matrix &a, const Matrix &b)
{
    double chord = 0;
    for (std::size_t column = 0; column < 3; ++column) {
        double aa = 0;
        double bb = 0;
        for (std::size_t row = 0; row < 3; ++row) {
            aa += a[row][column] * a[row][column];
            bb += b[row][column] * b[row][column];
        }
        if (aa < 1e-20 || bb < 1e-20)
            return 0; // without a size there is no direction
        for (std::size_t row = 0; row < 3; ++row) {
            const double d = a[row][column] / std::sqrt(aa) - b[row][column] / std::sqrt(bb);
            chord += d * d;
        }
    }
    return 2 * std::asin(std::min(1.0, std::sqrt(chord / 8))) * Degrees;
}

double distance(const Matrix &a, const Matrix &b)
{
    double square = 0;
    for (std::size_t row = 0; row < 3; ++row)
        square += (a[row][3] - b[row][3]) * (a[row][3] - b[row][3]);
    return std::sqrt(square);
}

/// What the other reader makes of a file.
class OtherScene
{
public:
    explicit OtherScene(const QString &fileName)
    {
        m_importer.SetPropertyBool(AI_CONFIG_IMPORT_FBX_PRESERVE_PIVOTS, false);
        m_importer.SetPropertyBool(AI_CONFIG_IMPORT_NO_SKELETON_MESHES, true);
        m_scene = m_importer.ReadFile(fileName.toStdString(), 0);
    }

    bool isGood() const { return m_scene && m_scene->mRootNode; }
    const aiScene &scene() const { return *m_scene; }

    const aiAnimation *animation(const QString &name, int index) const
    {
        for (unsigned i = 0; i < m_scene->mNumAnimations; ++i)
            if (name == QString::fromUtf8(m_scene->mAnimations[i]->mName.C_Str()))
                return m_scene->mAnimations[i];
        return index < int(m_scene->mNumAnimations) && name.startsWith(QLatin1String("Animation "))
                   ? m_scene->mAnimations[index]
                   : nullptr;
    }

    /// By name; null where several have it.
    std::map<QString, const aiNode *> nodes() const
    {
        std::map<QString, const aiNode *> found;
        QVector<const aiNode *> open{m_scene->mRootNode};
        while (!open.isEmpty()) {
            const aiNode *at = open.takeLast();
            for (unsigned i = 0; i < at->mNumChildren; ++i)
                open.append(at->mChildren[i]);
            const QString name = QString::fromUtf8(at->mName.C_Str());
            const bool isNew = found.emplace(name, at).second;
            if (!isNew)
                found[name] = nullptr;
        }
        return found;
    }

private:
    Assimp::Importer m_importer;
    const aiScene *m_scene = nullptr;
};

/// An animation of the other reader's scene at the times of its keys.
class OtherPose
{
public:
    OtherPose(const aiAnimation *animation, double time)
        : m_time(time)
    {
        for (unsigned i = 0; animation && i < animation->mNumChannels; ++i)
            m_channels[animation->mChannels[i]->mNodeName.C_Str()] = animation->mChannels[i];
        m_ticks = animation && animation->mTicksPerSecond > 0 ? animation->mTicksPerSecond : 1.0;
    }

    /// False where a channel on the way has no key at the time: between keys the other reader joins
    /// them with lines.
    bool world(const aiNode *node, Matrix *result) const
    {
        *result = matrix(aiMatrix4x4());
        for (; node; node = node->mParent) {
            aiMatrix4x4 local = node->mTransformation;
            const auto channel = m_channels.find(node->mName.C_Str());
            if (channel != m_channels.end() && !at(*channel->second, &local))
                return false;
            *result = matrix(local) * *result;
        }
        return true;
    }

private:
    template <class Key, class Value>
    bool find(const Key *keys, unsigned count, Value Key::*value, Value *found) const
    {
        for (unsigned i = 0; i < count; ++i) {
            if (std::abs(keys[i].mTime / m_ticks - m_time) < TimeTolerance) {
                *found = keys[i].*value;
                return true;
            }
        }
        // One key, or several that are the same, are for all times.
        if (count > 0)
            *found = keys[0].*value;
        for (unsigned i = 1; i < count; ++i) {
            if (!(keys[i].*value == keys[0].*value))
                return false;
        }
        return count > 0;
    }

    bool at(const aiNodeAnim &channel, aiMatrix4x4 *local) const
    {
        aiVector3D scale;
        aiVector3D position;
        aiQuaternion rotation;
        local->Decompose(scale, rotation, position);
        const auto isThere = [](bool found, unsigned count) { return found || count == 0; };
        if (!isThere(find(channel.mPositionKeys, channel.mNumPositionKeys, &aiVectorKey::mValue,
                          &position),
                     channel.mNumPositionKeys) ||
            !isThere(find(channel.mRotationKeys, channel.mNumRotationKeys, &aiQuatKey::mValue,
                          &rotation),
                     channel.mNumRotationKeys) ||
            !isThere(
                find(channel.mScalingKeys, channel.mNumScalingKeys, &aiVectorKey::mValue, &scale),
                channel.mNumScalingKeys))
            return false;
        rotation.Normalize();
        // The library's own way to put them together scales rows instead of columns.
        aiMatrix4x4 moved;
        aiMatrix4x4 scaled;
        *local = aiMatrix4x4::Translation(position, moved) * aiMatrix4x4(rotation.GetMatrix()) *
                 aiMatrix4x4::Scaling(scale, scaled);
        return true;
    }

    std::map<std::string, const aiNodeAnim *> m_channels;
    const double m_time;
    double m_ticks = 1.0;
};

/// Times of all keys of an animation, in seconds.
std::vector<double> keyTimes(const aiAnimation &animation)
{
    std::set<double> times;
    const double ticks = animation.mTicksPerSecond > 0 ? animation.mTicksPerSecond : 1.0;
    for (unsigned i = 0; i < animation.mNumChannels; ++i) {
        const aiNodeAnim &channel = *animation.mChannels[i];
        for (unsigned k = 0; k < channel.mNumPositionKeys; ++k)
            times.insert(channel.mPositionKeys[k].mTime / ticks);
        for (unsigned k = 0; k < channel.mNumRotationKeys; ++k)
            times.insert(channel.mRotationKeys[k].mTime / ticks);
        for (unsigned k = 0; k < channel.mNumScalingKeys; ++k)
            times.insert(channel.mScalingKeys[k].mTime / ticks);
    }
    return {times.begin(), times.end()};
}

QByteArray named(const QByteArray &text)
{
    QJsonObject root = QJsonDocument::fromJson(text).object();
    QJsonArray nodes = root.value(QStringLiteral("nodes")).toArray();
    for (int i = 0; i < nodes.size(); ++i) {
        QJsonObject node = nodes.at(i).toObject();
        if (node.value(QStringLiteral("name")).toString().isEmpty())
            node.insert(QStringLiteral("name"), QStringLiteral("unnamed %1").arg(i));
        nodes.replace(i, node);
    }
    root.insert(QStringLiteral("nodes"), nodes);
    return QJsonDocument(root).toJson();
}

/** A copy of a glTF text in a folder with links to the files beside it, with names for the nodes
 * that have none, so that they can be compared. Files of other kinds stay where they are. */
QString prepared(const QString &fileName, const QTemporaryDir &folder)
{
    QFile file(fileName);
    if (!fileName.endsWith(QLatin1String(".gltf")) || !file.open(QIODevice::ReadOnly))
        return fileName;
    const QFileInfo info(fileName);
    const QFileInfoList beside = info.dir().entryInfoList(QDir::Files | QDir::NoDotAndDotDot);
    for (const QFileInfo &other : beside) {
        if (other.fileName() != info.fileName())
            QFile::link(other.absoluteFilePath(), folder.filePath(other.fileName()));
    }
    const QByteArray text = file.readAll();
    QFile copy(folder.filePath(info.fileName()));
    const bool isJson = !QJsonDocument::fromJson(text).isNull();
    if (!copy.open(QIODevice::WriteOnly) || copy.write(isJson ? named(text) : text) < 0)
        qFatal("cannot write");
    return copy.fileName();
}

/// Differences in which this program is right: files, nodes and the reason.
QString acceptedReason(const QString &file, const QString &node)
{
    Q_UNUSED(node);
    if (file.startsWith(QLatin1String("synthetic_rotation_order_layers")))
        return QStringLiteral("three layers of rotation, of which the other reader keeps one");
    if (file.startsWith(QLatin1String("motionbuilder_sausage_rrss")))
        return QStringLiteral("InheritType 0, of which the other reader has no notion");
    if (file == QLatin1String("box.fbx"))
        return QStringLiteral("a geometric transform, which the other reader puts into the node");
    return {};
}

/// The largest of many differences.
struct Agreement
{
    int count = 0;
    double degrees = 0;
    double distance = 0;
    QString where;
    std::map<QString, double> accepted; ///< by reason

    /// size: of the whole scene, in its unit of length.
    void add(const Matrix &own, const Matrix &other, double size, const QString &file,
             const QString &node, double time)
    {
        const double angle = angleBetween(own, other);
        const double far = ::distance(own, other) / size;
        const QString reason = acceptedReason(file, node);
        if (!reason.isEmpty() && (angle > 1e-3 || far > 1e-5)) {
            double &largest = accepted[node + QStringLiteral(": ") + reason];
            largest = std::max(largest, angle);
            return;
        }
        ++count;
        if (angle > degrees || far > distance)
            where = QStringLiteral("%1 at %2 s: %3 degrees, %4")
                        .arg(node)
                        .arg(time)
                        .arg(angle)
                        .arg(far);
        degrees = std::max(degrees, angle);
        distance = std::max(distance, far);
    }
};

bool readFile(const QString &fileName, VxImportedMotion *motion, VxFileError *error)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(fileName));
    return fileName.endsWith(QLatin1String(".fbx"), Qt::CaseInsensitive)
               ? vxReadFbx(file.readAll(), {}, motion, error)
               : vxReadGltf(file.readAll(), QFileInfo(fileName).absolutePath(), {}, motion, error);
}

/// A file's nodes with the keys of one animation; the scene's name of each.
class OwnScene
{
public:
    bool build(const VxImportedMotion &motion, int clip, VxFileError *error)
    {
        VxImportedMotion copy = motion;
        if (clip >= 0)
            copy.clips = {motion.clips[std::size_t(clip)]};
        VxSceneContents contents;
        VxImportReport report;
        if (!vxBuildMotion(std::move(copy), {}, {}, &contents, &report, error))
            return false;
        VxSceneReader::install(std::move(contents), &m_scene);
        m_isRotated = report.isRotated;
        for (const VxNode *node : m_scene.getNodes()) {
            const bool isNew = m_nodes.emplace(node->getLabel(), node).second;
            if (!isNew)
                m_nodes[node->getLabel()] = nullptr;
        }
        return true;
    }

    const std::map<QString, const VxNode *> &nodes() const { return m_nodes; }

    /// Below the node that turns the up axis, which the other reader does not have.
    Matrix world(const VxNode *node, VxTime time) const
    {
        QMatrix4x4 world = node->getWorldTransform(time);
        if (m_isRotated)
            world = m_scene.getRootNodes().constFirst()->getWorldTransform(time).inverted() * world;
        return matrix(world);
    }

    /// The largest coordinate of any node, at least 1.
    double size(VxTime time) const
    {
        double largest = 1;
        for (const VxNode *node : m_scene.getNodes()) {
            const QVector3D at = node->getWorldTransform(time).map(QVector3D());
            largest = std::max({largest, std::abs(double(at.x())), std::abs(double(at.y())),
                                std::abs(double(at.z()))});
        }
        return largest;
    }

    /// Whether every animated control of a node and of those above it has a key at a time, or the
    /// same value always.
    static bool hasKeysAt(const VxNode *node, VxTime time)
    {
        for (; node; node = node->getNodeParent()) {
            for (const VxFloatProperty *control :
                 {node->getXPosControl(), node->getYPosControl(), node->getZPosControl(),
                  node->getXRotControl(), node->getYRotControl(), node->getZRotControl(),
                  node->getXScaleControl(), node->getYScaleControl(), node->getZScaleControl()}) {
                const VxKeyColumns<float> keys = control->getKeys();
                const bool moves = std::any_of(keys.values, keys.values + keys.count,
                                               [&](float v) { return v != keys.values[0]; });
                if (moves && !control->hasKey(time))
                    return false;
            }
        }
        return true;
    }

private:
    VxScene m_scene;
    std::map<QString, const VxNode *> m_nodes;
    bool m_isRotated = false;
};

} // namespace

class tst_SecondReader : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard.reset(new VxWarningGuard); }
    void cleanup() { m_guard.reset(); }

    void worldTransformsAgree_data();
    void worldTransformsAgree();

private:
    void compare(const VxImportedMotion &motion, int clip, const OtherScene &other,
                 const QString &file, Agreement *agreement);

    QScopedPointer<VxWarningGuard> m_guard;
};

void tst_SecondReader::worldTransformsAgree_data()
{
    QTest::addColumn<QString>("fileName");
    const QString data = qEnvironmentVariable("VX_MOTION_DATA");
    for (const QString &folder : {data + QStringLiteral("/fbx"), data + QStringLiteral("/gltf"),
                                  vxTestModels("FBX"), vxTestModels("glTF2")}) {
        QDirIterator files(
            folder, {QStringLiteral("*.fbx"), QStringLiteral("*.gltf"), QStringLiteral("*.glb")},
            QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString file = files.next();
            QTest::newRow(
                qPrintable(QDir(folder).dirName() + u'/' + QDir(folder).relativeFilePath(file)))
                << file;
        }
    }
}

void tst_SecondReader::compare(const VxImportedMotion &motion, int clip, const OtherScene &other,
                               const QString &file, Agreement *agreement)
{
    OwnScene own;
    VxFileError error;
    QVERIFY2(own.build(motion, clip, &error), qPrintable(error.text()));
    const auto at = std::size_t(std::max(0, clip));
    const aiAnimation *animation =
        clip < 0 ? nullptr : other.animation(motion.clips[at].name, clip);
    if (clip >= 0 && !animation)
        return; // it leaves out animations that drive nothing
    // FBX times of the other reader begin with the animation.
    const double start =
        clip >= 0 && file.endsWith(QLatin1String(".fbx")) ? motion.clips[at].start : 0.0;
    const std::map<QString, const aiNode *> others = other.nodes();
    std::vector<double> times{0.0};
    if (animation)
        times = keyTimes(*animation);
    const std::size_t stride = 1 + times.size() / 200;
    for (std::size_t i = 0; i < times.size(); i += stride) {
        const OtherPose pose(animation, times[i]);
        const VxTime time = VxMotionTiming::ticks(start + times[i]);
        const double size = own.size(time);
        for (const auto &[name, node] : own.nodes()) {
            const auto found = others.find(name);
            Matrix expected;
            if (!node || found == others.end() || !found->second || !own.hasKeysAt(node, time) ||
                !pose.world(found->second, &expected))
                continue;
            agreement->add(own.world(node, time), expected, size, file, name, times[i]);
        }
    }
}

void tst_SecondReader::worldTransformsAgree()
{
    QFETCH(QString, fileName);
    const QTemporaryDir folder;
    fileName = prepared(fileName, folder);
    const QString file = QFileInfo(fileName).fileName();
    VxImportedMotion motion;
    VxFileError error;
    if (!readFile(fileName, &motion, &error) || motion.nodes.empty()) {
        qInfo("refused: %s", qPrintable(error.text()));
        QVERIFY(!error.message.isEmpty() || motion.nodes.empty());
        return;
    }
    const OtherScene other(fileName);
    if (!other.isGood())
        QSKIP("The other reader refuses the file.");
    Agreement agreement;
    for (int clip = motion.clips.empty() ? -1 : 0; clip < int(motion.clips.size()); ++clip) {
        compare(motion, clip, other, file, &agreement);
        if (QTest::currentTestFailed())
            return;
    }
    for (const auto &[reason, degrees] : agreement.accepted)
        qInfo("accepted for %s (%.3g degrees)", qPrintable(reason), degrees);
    qInfo("%d world transforms, %.2g degrees, %.2g of the size", agreement.count, agreement.degrees,
          agreement.distance);
    QVERIFY2(agreement.degrees < 1e-3, qPrintable(agreement.where));
    QVERIFY2(agreement.distance < 1e-5, qPrintable(agreement.where));
}

VX_TEST_GUILESS_MAIN(tst_SecondReader)
#include "tst_secondreader.moc"

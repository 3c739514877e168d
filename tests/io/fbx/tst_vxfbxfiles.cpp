// Real FBX files of several programs: against the format's own definition at and between their
// keys, and against another reader at their keys.
//
// The files are those of Debian's package of test models and, when the variable VX_MOTION_DATA
// names a folder, those in its folder "fbx".

#include "fbxcomparison.h"
#include "testing/vxtestmain.h"
#include "testing/vxtestmodels.h"
#include "testing/vxwarningguard.h"

#include <QDir>
#include <assimp/Importer.hpp>
#include <assimp/config.h>
#include <assimp/scene.h>
#include <memory>

using fbxcomparison::Difference;
using fbxworld::Mat;

namespace {

QString dataFolder()
{
    return qEnvironmentVariable("VX_MOTION_DATA");
}

QByteArray contents(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void addRows()
{
    QTest::addColumn<QString>("fileName");
    for (const QString &folder : {dataFolder() + QStringLiteral("/fbx"), vxTestModels("FBX")}) {
        const QDir dir(folder);
        for (const QString &name : dir.entryList({QStringLiteral("*.fbx")}, QDir::Files))
            if (name != QLatin1String("transparentTest.fbx")) // its zeros became blanks
                QTest::newRow(qPrintable(dir.dirName() + u'/' + name)) << dir.filePath(name);
    }
}

/// What the other reader makes of the file, evaluated at a time.
class OtherReader
{
public:
    explicit OtherReader(const QString &fileName)
    {
        m_importer.SetPropertyBool(AI_CONFIG_IMPORT_FBX_PRESERVE_PIVOTS, false);
        m_importer.SetPropertyBool(AI_CONFIG_IMPORT_NO_SKELETON_MESHES, true);
        m_scene = m_importer.ReadFile(fileName.toStdString(), 0);
    }

    bool isGood() const { return m_scene && m_scene->mRootNode; }

    const aiAnimation *animation(const QByteArray &name) const
    {
        for (unsigned i = 0; i < m_scene->mNumAnimations; ++i)
            if (name == m_scene->mAnimations[i]->mName.C_Str())
                return m_scene->mAnimations[i];
        return nullptr;
    }

    /// Null for a name that is empty or that several nodes have.
    const aiNode *node(const QByteArray &name) const
    {
        const aiNode *found = nullptr;
        QVector<const aiNode *> open{m_scene->mRootNode};
        while (!open.isEmpty()) {
            const aiNode *at = open.takeLast();
            for (unsigned i = 0; i < at->mNumChildren; ++i)
                open.append(at->mChildren[i]);
            if (name != at->mName.C_Str())
                continue;
            if (found || name.isEmpty())
                return nullptr;
            found = at;
        }
        return found;
    }

    const aiNodeAnim *channel(const aiAnimation *animation, const QByteArray &name) const
    {
        for (unsigned i = 0; i < animation->mNumChannels; ++i)
            if (name == animation->mChannels[i]->mNodeName.C_Str())
                return animation->mChannels[i];
        return nullptr;
    }

    static Mat matrix(const aiMatrix4x4 &m)
    {
        Mat result{};
        for (unsigned i = 0; i < 4; ++i)
            for (unsigned k = 0; k < 4; ++k)
                result[i][k] = double(m[i][k]);
        return result;
    }

private:
    Assimp::Importer m_importer;
    const aiScene *m_scene = nullptr;
};

/// Differences from the other reader in which this one is right: files, nodes and the reason.
QString acceptedReason(const QString &file, const QByteArray &node)
{
    if (file.startsWith(QLatin1String("synthetic_rotation_order_layers")) && node == "pCube1")
        return QStringLiteral("Lcl Rotation has three layers; the other reader keeps one of them");
    if (file == QLatin1String("box.fbx") && node == "root")
        return QStringLiteral("a geometric transform, which the other reader puts into the node");
    if (file.startsWith(QLatin1String("motionbuilder_sausage_rrss")))
        return QStringLiteral("InheritType 0, of which the other reader has no notion");
    return {};
}

/// The largest of many differences.
struct Agreement
{
    int count = 0;
    double largest = 0;
    QByteArray where;

    void add(double difference, const QString &fileName, const QByteArray &node)
    {
        const QString reason = acceptedReason(QFileInfo(fileName).fileName(), node);
        if (difference > 1e-5 && !reason.isEmpty()) {
            qInfo("accepted for %s: %s (%.3g)", node.constData(), qPrintable(reason), difference);
            return;
        }
        ++count;
        if (difference >= largest) {
            largest = difference;
            where = node + ": " + QByteArray::number(difference);
        }
    }
};

double distance(const aiVector3D &v, const Mat &m)
{
    const double size = std::max(1.0, double(v.Length()));
    return std::max({std::abs(double(v.x) - m[0][3]), std::abs(double(v.y) - m[1][3]),
                     std::abs(double(v.z) - m[2][3])}) /
           size;
}

/// The exact time at which all curves of a property have a key, near a time.
std::optional<double> keyTime(const fbxworld::Scene &scene, int stack, qint64 model,
                              const QByteArray &property, double near)
{
    std::optional<double> time;
    for (const char *component : {"d|X", "d|Y", "d|Z"}) {
        const std::optional<fbxworld::Curve> curve =
            scene.curveOf(stack, model, property, component);
        if (!curve)
            continue;
        time.reset();
        for (const fbxworld::Curve::Key &key : curve->keys)
            if (std::abs(key.time - near) < 1e-5)
                time = key.time;
        if (!time)
            return {};
    }
    return time;
}

/// Keys that have the next key's value at once, which takes a key more.
int stepsToNext(const fbxworld::Curve &curve)
{
    return int(std::count_if(
        curve.keys.begin(), curve.keys.end() - 1,
        [](const fbxworld::Curve::Key &key) { return (key.flags & 0x102) == 0x102; }));
}

} // namespace

class TestVxFbxFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void followDefinition_data();
    void followDefinition();
    void matchOtherReader_data();
    void matchOtherReader();
    void keepEveryKey_data();
    void keepEveryKey();
    void facts();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestVxFbxFiles::followDefinition_data()
{
    addRows();
}

void TestVxFbxFiles::followDefinition()
{
    QFETCH(QString, fileName);
    const QByteArray bytes = contents(fileName);
    const VxImportedMotion motion = fbxcomparison::readGood(bytes);
    const Difference difference = fbxcomparison::compare(bytes, motion, 5);
    qInfo("%d poses, %.2g degrees, %.2g of the size", difference.poses, difference.degrees,
          difference.distance);
    QVERIFY(difference.poses > 0);
    // Layers that are blended as rotations are sampled within 1/100 degree on each axis.
    const bool isSampled = !motion.facts.notes.filter(QStringLiteral("sampled")).isEmpty();
    QVERIFY2(difference.degrees < (isSampled ? 0.02 : 1e-3), difference.where);
    QVERIFY(difference.distance < 1e-5);
}

void TestVxFbxFiles::matchOtherReader_data()
{
    addRows();
}

// Local rotations and positions at the times of their own keys, where the other reader has all
// three components from keys; between keys it joins them with lines.
void TestVxFbxFiles::matchOtherReader()
{
    QFETCH(QString, fileName);
    const QByteArray bytes = contents(fileName);
    const fbxworld::Scene scene(bytes);
    const VxImportedMotion motion = fbxcomparison::readGood(bytes);
    const OtherReader other(fileName);
    if (!other.isGood())
        QSKIP("The other reader refuses the file.");
    const QVector<int> nodes = fbxcomparison::nodesOf(motion, scene);
    Agreement rotations;
    Agreement positions;
    for (int stack = -1; stack < scene.stackCount(); ++stack) {
        const bool isRest = stack < 0;
        const aiAnimation *animation = isRest ? nullptr : other.animation(scene.stackName(stack));
        if (!animation && !isRest)
            continue; // it leaves out animations without channels
        const int clip = isRest ? -1 : fbxcomparison::clipOf(motion, scene.stackName(stack));
        // Its times begin with the animation.
        const double start = isRest ? 0.0 : motion.clips[std::size_t(clip)].start;
        for (int i = 0; i < nodes.size(); ++i) {
            const fbxworld::Scene::Model &model = scene.models()[i];
            const int end = motionworld::endOf(motion, model.name, nodes[i]);
            const int parent = model.parent < 0
                                   ? -1
                                   : motionworld::endOf(motion, scene.models()[model.parent].name,
                                                        nodes[model.parent]);
            const auto localAt = [&](double time) {
                const QVector<Mat> worlds = motionworld::worlds(motion, clip, time);
                return parent < 0 ? worlds[end] : fbxworld::relative(worlds[parent], worlds[end]);
            };
            if (isRest) {
                if (const aiNode *node = other.node(model.name)) {
                    const Mat rest = OtherReader::matrix(node->mTransformation);
                    rotations.add(fbxworld::angleBetween(rest, localAt(0)), fileName, model.name);
                    positions.add(distance({node->mTransformation.a4, node->mTransformation.b4,
                                            node->mTransformation.c4},
                                           localAt(0)),
                                  fileName, model.name);
                }
                continue;
            }
            const aiNodeAnim *channel = other.channel(animation, model.name);
            if (!channel)
                continue;
            const auto secondsOf = [&](double time) {
                return start + time / animation->mTicksPerSecond;
            };
            for (unsigned k = 0; k < channel->mNumRotationKeys; ++k) {
                const aiQuatKey &key = channel->mRotationKeys[k];
                const auto time =
                    keyTime(scene, stack, model.id, "Lcl Rotation", secondsOf(key.mTime));
                if (time)
                    rotations.add(fbxworld::angleBetween(
                                      OtherReader::matrix(aiMatrix4x4(key.mValue.GetMatrix())),
                                      localAt(*time)),
                                  fileName, model.name);
            }
            for (unsigned k = 0; k < channel->mNumPositionKeys; ++k) {
                const aiVectorKey &key = channel->mPositionKeys[k];
                const auto time =
                    keyTime(scene, stack, model.id, "Lcl Translation", secondsOf(key.mTime));
                if (time)
                    positions.add(distance(key.mValue, localAt(*time)), fileName, model.name);
            }
        }
    }
    qInfo("%d rotations, %.2g degrees; %d positions, %.2g", rotations.count, rotations.largest,
          positions.count, positions.largest);
    QVERIFY2(rotations.largest < 1e-3, rotations.where);
    QVERIFY2(positions.largest < 1e-5, positions.where);
}

void TestVxFbxFiles::keepEveryKey_data()
{
    addRows();
}

// Where a value has curves in one layer only, its keys are those of the file, one for one.
void TestVxFbxFiles::keepEveryKey()
{
    QFETCH(QString, fileName);
    const QByteArray bytes = contents(fileName);
    const VxImportedMotion motion = fbxcomparison::readGood(bytes);
    if (!motion.facts.notes.filter(QStringLiteral("sampled")).isEmpty() ||
        !motion.facts.notes.filter(QStringLiteral("scales")).isEmpty())
        QSKIP("The file has layers that are blended or scales that are multiplied.");
    const fbxworld::Scene scene(bytes);
    const QVector<int> nodes = fbxcomparison::nodesOf(motion, scene);
    qint64 expected = 0;
    qint64 actual = 0;
    for (int stack = 0; stack < scene.stackCount(); ++stack) {
        for (const fbxworld::Scene::Model &model : scene.models())
            for (const char *property : {"Lcl Translation", "Lcl Rotation", "Lcl Scaling"})
                for (const char *component : {"d|X", "d|Y", "d|Z"})
                    if (const auto curve = scene.curveOf(stack, model.id, property, component))
                        expected += curve->keys.size() + stepsToNext(*curve);
        const int clip = fbxcomparison::clipOf(motion, scene.stackName(stack));
        for (const VxMotionChannel &channel : motion.clips[std::size_t(clip)].channels)
            if (channel.target < VxMotionTarget::Morph)
                actual += qint64(channel.curve.times.size());
    }
    QCOMPARE(actual, expected);
}

void TestVxFbxFiles::facts()
{
    const QString folder = dataFolder() + QStringLiteral("/fbx/");
    if (!QDir(folder).exists())
        QSKIP("The folder of motion files is not there.");
    const VxImportedMotion blender = fbxcomparison::readGood(
        contents(folder + QStringLiteral("blender_279_sausage_7400_binary.fbx")));
    QCOMPARE(blender.facts.format, QStringLiteral("FBX 7.4 (binary)"));
    QVERIFY(blender.facts.writer.startsWith(QLatin1String("Blender")));
    QCOMPARE(blender.facts.rate, 24.0);
    QCOMPARE(blender.facts.metresPerUnit, 1.0);
    QCOMPARE(blender.clips.size(), std::size_t(3));
    QCOMPARE(blender.nodes.front().kind, VxMotionNode::Skeleton);
    const VxImportedMotion maya = fbxcomparison::readGood(
        contents(folder + QStringLiteral("maya_anim_interpolation_7700_ascii.fbx")));
    QCOMPARE(maya.facts.writer, QStringLiteral("Maya 2023"));
    QCOMPARE(maya.facts.rate, 30.0);
    QCOMPARE(maya.clips.at(0).channels.size(), std::size_t(1));
}

VX_TEST_MAIN(TestVxFbxFiles)
#include "tst_vxfbxfiles.moc"

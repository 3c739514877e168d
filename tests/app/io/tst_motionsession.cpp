// Random sessions of imports and exports among other edits: a seed decides the steps. Whatever
// happens, keys stay valid, what fails or only reads changes nothing, and the history can be
// undone to the start and redone to the end.

#include "gltfsample.h"
#include "io/formats/vxmotionexport.h"
#include "io/formats/vxmotionimport.h"
#include "io/vxscenewriter.h"
#include "soundscene.h"
#include "testing/vxfilemutations.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QtTest>
#include <cmath>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

using VxFileMutations::below;
using VxFileMutations::Random;

const QByteArray bvh =
    "HIERARCHY\nROOT hip\n{\nOFFSET 0 1 0\nCHANNELS 4 Xposition Zrotation Xrotation Yrotation\n"
    "End Site\n{\nOFFSET 0 1 0\n}\n}\nMOTION\nFrames: 3\nFrame Time: 0.0333667\n"
    "1 2 3 4\n2 20 30 40\n3 -50 60 70\n";
const QByteArray csv = "node,parent,kind,property,time,value,interpolation,tension\n"
                       "walk,,figure,,,,,\nhip,walk,bone,x rotation,-0.5,0,tcb,0.5\n"
                       "hip,,,x rotation,0.31,40,tcb,\nhip,,,x rotation,1,10,constant,\n"
                       "face,,node,morph:smile,0,0,,\nface,,,morph:smile,2,1,,\n";

// A bone with smooth, straight and constant segments about two axes, one of them in a second layer.
const QByteArray fbx = R"(; FBX 7.4.0 project file
FBXHeaderExtension: { FBXVersion: 7400 }
GlobalSettings: { Properties70: { P: "TimeMode","enum","","",11 } }
Objects: {
    Model: 10, "Model::hip", "LimbNode" {
        Properties70: {
            P: "RotationOrder","enum","","",4
            P: "RotationActive","bool","","",1
            P: "PreRotation","Vector3D","Vector","",10,20,30
            P: "Lcl Translation","Lcl Translation","","A",0,1,0
        }
    }
    AnimationStack: 20, "AnimStack::Take", "" { }
    AnimationLayer: 21, "AnimLayer::Base", "" { }
    AnimationLayer: 22, "AnimLayer::Second", "" { }
    AnimationCurveNode: 31, "AnimCurveNode::R", "" { }
    AnimationCurveNode: 32, "AnimCurveNode::R", "" { }
    AnimationCurve: 41, "AnimCurve::", "" {
        KeyTime: *4 { a: 0,23093079000,46186158000,57732697500 }
        KeyValueFloat: *4 { a: 0,30,-40,10 }
        KeyAttrFlags: *3 { a: 264,4,2 }
        KeyAttrDataFloat: *12 { a: 0,0,218434821,0,0,0,0,0,0,0,0,0 }
        KeyAttrRefCount: *3 { a: 2,1,1 }
    }
    AnimationCurve: 42, "AnimCurve::", "" {
        KeyTime: *2 { a: 0,46186158000 }
        KeyValueFloat: *2 { a: 0,200 }
        KeyAttrFlags: *1 { a: 4 }
        KeyAttrDataFloat: *4 { a: 0,0,0,0 }
        KeyAttrRefCount: *1 { a: 2 }
    }
}
Connections: {
    C: "OO",10,0
    C: "OO",21,20
    C: "OO",22,20
    C: "OO",31,21
    C: "OO",32,22
    C: "OP",31,10,"Lcl Rotation"
    C: "OP",32,10,"Lcl Rotation"
    C: "OP",41,31,"d|X"
    C: "OP",42,32,"d|Y"
}
)";

QByteArray gltf()
{
    GltfSample sample;
    sample.root.insert("nodes", QJsonArray{QJsonObject{{"name", "ball"}}});
    for (int i = 0; i < 2; ++i)
        sample.animate(i, 0, "translation", i ? "STEP" : "LINEAR",
                       sample.floats({0, 0.5f, 1.01f}, "SCALAR", 1),
                       sample.floats({1, 2, 3, 4, 5, 6, 7, 8, 9}, "VEC3", 3));
    return sample.text();
}

} // namespace

class tst_MotionSession : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void theFilesHaveMotion();
    void sessions_data();
    void sessions();

private:
    QByteArray sceneBytes() const;
    QString write(const char *name, const QByteArray &bytes) const;
    VxNode *anyNode(Random &random) const;
    void edit(Random &random);
    void import(Random &random);
    void failToImport(Random &random);
    void exportAndRead(Random &random);
    bool areKeysSound() const;

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<QTemporaryDir> m_dir;
    QScopedPointer<VxUndoStack> m_undo;
    QScopedPointer<VxScene> m_scene;
    QStringList m_files;
};

void tst_MotionSession::init()
{
    m_guard.reset(new VxWarningGuard);
    m_dir.reset(new QTemporaryDir);
    m_undo.reset(new VxUndoStack);
    m_scene.reset(new VxScene);
    m_files = QStringList{write("walk.bvh", bvh), write("walk.csv", csv), write("hip.fbx", fbx),
                          write("ball.gltf", gltf())};
}

void tst_MotionSession::cleanup()
{
    m_scene.reset();
    m_undo.reset();
    m_dir.reset();
    m_guard.reset();
}

QString tst_MotionSession::write(const char *name, const QByteArray &bytes) const
{
    QFile file(m_dir->filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", name);
    return file.fileName();
}

QByteArray tst_MotionSession::sceneBytes() const
{
    QBuffer buffer;
    VxFileError error;
    buffer.open(QIODevice::WriteOnly);
    if (!VxSceneWriter(m_scene.data()).write(&buffer, &error))
        qFatal("%s", qPrintable(error.text()));
    return buffer.data();
}

VxNode *tst_MotionSession::anyNode(Random &random) const
{
    const QVector<VxNode *> nodes = m_scene->getNodes();
    return nodes.isEmpty() ? nullptr : nodes.at(below(random, nodes.size()));
}

/** Keys, aliases, links, overriding controls, nodes added and removed: one entry. */
void tst_MotionSession::edit(Random &random)
{
    VxNode *node = anyNode(random);
    VxNode *other = anyNode(random);
    VxUndoStackHold hold;
    switch (node ? below(random, 7) : 0) {
    case 0:
        m_scene->addNode(new VxNode(QStringLiteral("node")));
        break;
    case 1:
        node->getXRotControl()->setKey(below(random, 9000) - 2000, float(below(random, 90)),
                                       below(random, 3));
        break;
    case 2:
        node->getYPosControl()->setAliasedProperty(random() % 2 ? other->getXPosControl()
                                                                : nullptr);
        break;
    case 3:
        node->getZPosControl()->setLink(random() % 2 ? other->getXRotControl() : nullptr);
        break;
    case 4:
        node->getYRotControl()->setOverridingControl(random() % 2 ? other->getXScaleControl()
                                                                  : nullptr);
        break;
    case 5:
        m_scene->removeNode(node);
        break;
    default:
        node->getXRotControl()->deleteAllKeys();
    }
    hold.accept(QStringLiteral("Edit"));
}

void tst_MotionSession::import(Random &random)
{
    const int entries = m_undo->count();
    const int index = m_undo->index();
    VxMotionImport import(m_scene.data());
    VxMotionBuildOptions options;
    options.startsAtZero = random() % 2;
    import.setOptions(options);
    VxImportChoices choices;
    choices.snapsToFrames = random() % 2;
    choices.matchesRate = random() % 2;
    choices.rotationsOnly = random() % 4 == 0;
    VxFileError error;
    const QString file = m_files.at(below(random, m_files.size()));
    QVERIFY2(import.load(file, &error), qPrintable(error.text()));
    const VxImportNumbers numbers = import.numbers(choices);
    QVERIFY2(import.enter(choices, &error), qPrintable(error.text()));
    QCOMPARE(m_undo->index(), index + 1);
    QVERIFY(m_undo->count() <= entries + 1);
    QVERIFY(numbers.keys <= import.report().keysAfter);
}

/** Damaged, missing, cancelled or loaded and not entered. */
void tst_MotionSession::failToImport(Random &random)
{
    const QByteArray before = sceneBytes();
    const int index = m_undo->index();
    VxMotionImport import(m_scene.data());
    VxFileError error;
    const auto cancel = [](int) { return false; };
    switch (below(random, 5)) {
    case 0:
        QVERIFY(!import.load(write("bad.bvh", bvh.left(150)), &error));
        break;
    case 1:
        QVERIFY(!import.load(write("bad.csv", csv + "hip,,,x rotation,0,0"), &error));
        QCOMPARE(int(error.line), 8);
        break;
    case 2:
        QVERIFY(!import.load(write("bad.fbx", fbx.left(fbx.size() / 2)), &error));
        QVERIFY(error.line > 1);
        break;
    case 3:
        import.setProgress(cancel);
        QVERIFY(!import.load(m_files.first(), &error));
        QVERIFY(error.cancelled);
        break;
    default:
        QVERIFY(import.load(m_files.last(), &error));
    }
    QCOMPARE(m_undo->index(), index);
    QVERIFY(sceneBytes() == before);
}

/** Writes the scene or a part of it, which changes nothing, and adds the file to those to import.
 */
void tst_MotionSession::exportAndRead(Random &random)
{
    const QByteArray before = sceneBytes();
    const int index = m_undo->index();
    VxMotionExportOptions options;
    options.root = random() % 2 ? anyNode(random) : nullptr;
    options.playRangeOnly = random() % 2;
    options.hasRowPerFrame = random() % 2;
    static const char *const names[] = {"out.csv", "out.glb", "out.bvh"};
    const QString file = m_dir->filePath(QLatin1String(names[below(random, 3)]));
    QString summary;
    VxFileError error;
    const bool done = vxExportMotion(m_scene.data(), options, file, {}, &summary, &error);
    QCOMPARE(done, error.message.isEmpty());
    QCOMPARE(m_undo->index(), index);
    QVERIFY(sceneBytes() == before);
    if (!done)
        return;
    VxScene other;
    VxMotionImport import(&other);
    QVERIFY2(import.load(file, &error) && import.enter({}, &error), qPrintable(error.text()));
    if (other.getNumNodes() < 20 && m_files.size() < 9) {
        const QString kept = m_dir->filePath(QStringLiteral("kept %1.").arg(m_files.size()) +
                                             QFileInfo(file).suffix());
        QVERIFY(QFile::copy(file, kept));
        m_files.append(kept);
    }
}

bool tst_MotionSession::areKeysSound() const
{
    const QVector<VxNode *> nodes = m_scene->getNodes();
    for (const VxNode *node : nodes) {
        for (int i = 0; i < node->getNumProperties(); ++i) {
            const auto *property = qobject_cast<const VxFloatProperty *>(node->getProperty(i));
            if (property && !isSound(*property))
                return false;
        }
    }
    return true;
}

void tst_MotionSession::theFilesHaveMotion()
{
    for (const QString &file : qAsConst(m_files)) {
        VxMotionImport import(m_scene.data());
        VxFileError error;
        QVERIFY2(import.load(file, &error), qPrintable(error.text()));
        QVERIFY2(import.report().keysAfter >= 5, qPrintable(file));
    }
}

void tst_MotionSession::sessions_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 0; seed < 12; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_MotionSession::sessions()
{
    QFETCH(unsigned, seed);
    Random random(seed);
    const QByteArray start = sceneBytes();
    for (int step = 0; step < 30; ++step) {
        switch (below(random, 8)) {
        case 0:
            failToImport(random);
            break;
        case 1:
            exportAndRead(random);
            break;
        case 2:
        case 3:
            if (m_scene->getNumNodes() < 150)
                import(random);
            break;
        case 4:
            m_undo->undo();
            break;
        case 5:
            m_undo->redo();
            break;
        default:
            edit(random);
        }
        if (QTest::currentTestFailed())
            return;
        QVERIFY2(areKeysSound(), qPrintable(QString("step %1").arg(step)));
    }
    const QByteArray end = sceneBytes();
    const int last = m_undo->index();
    for (int round = 0; round < 2; ++round) {
        while (m_undo->canUndo())
            m_undo->undo();
        QVERIFY(sceneBytes() == start);
        m_undo->setIndex(last);
        QVERIFY(sceneBytes() == end);
    }
}

VX_TEST_GUILESS_MAIN(tst_MotionSession)
#include "tst_motionsession.moc"

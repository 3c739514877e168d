#include "bvhimport.h"
#include "io/bvh/vxbvhreader.h"
#include "testing/vxtestmain.h"
#include "testing/vxtestmodels.h"
#include "testing/vxwarningguard.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>
#include <cmath>
#include <memory>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostack.h>

namespace {

const QByteArray branched =
    "HIERARCHY\n"
    "ROOT hip\n{\nOFFSET 1 2 3\n"
    "CHANNELS 6 Xposition Yposition Zposition Zrotation Yrotation Xrotation\n"
    "JOINT left\n{\nOFFSET 4 0 0\nCHANNELS 3 Yrotation Xrotation Zrotation\n"
    "End Site\n{\nOFFSET 0 -5 0\n}\n}\n"
    "JOINT right\n{\nOFFSET -2 2 0\nCHANNELS 2 Yposition Zrotation\n}\n}\n"
    "ROOT prop\n{\nOFFSET 7 8 9\n"
    "JOINT handle\n{\nOFFSET 0 1 0\n}\n}\n"
    "MOTION\nFrames: 3\nFrame Time: .0333333\n"
    "10 20 30 1 2 3 4 5 6 7 8\n"
    "11 21 31 -1 -2 -3 -4 -5 -6 -7 -8\n"
    "12 22 32 90 0 0 0 90 0 9 45\n";

VxBvhDocument documentOf(const QByteArray &bytes)
{
    VxBvhDocument document;
    VxFileError error;
    if (!vxReadBvh(bytes, &document, &error))
        QTest::qFail(qPrintable(error.text()), __FILE__, __LINE__);
    return document;
}

struct Keys
{
    QVector<VxTime> times;
    QVector<float> values;
    QVector<int> types;
};

Keys keysOf(const VxFloatProperty *property)
{
    Keys keys;
    for (int i = 0; i < property->getNumKeys(); ++i) {
        keys.times << property->getKeyTime(i);
        keys.values << property->getKeyValue(i);
        keys.types << property->getKeyInterpolationType(i);
    }
    return keys;
}

// What a scene shows of an import, to compare before and after.
QVector<int> stateOf(const VxScene &scene)
{
    return {scene.getNumNodes(),           scene.getTime(),
            scene.getTimeStep(),           scene.getPlayRange().getStart(),
            scene.getPlayRange().getEnd(), scene.getAnimRange().getStart(),
            scene.getAnimRange().getEnd()};
}

// The world matrix of a joint by the file's own rule: offset or position, then the rotations in
// the order of the channels.
QMatrix4x4 worldOf(const VxBvhDocument &document, int joint, int frame)
{
    QMatrix4x4 matrix;
    if (joint < 0)
        return matrix;
    int channel = 0;
    for (int i = 0; i < joint; ++i)
        channel += static_cast<int>(document.joints[static_cast<std::size_t>(i)].channels.size());
    const VxBvhJoint &data = document.joints[static_cast<std::size_t>(joint)];
    QVector3D place = data.offset;
    QMatrix4x4 turn;
    for (const VxBvhChannel kind : data.channels) {
        const float value = document.channelValues(channel++)[frame];
        const int axis = vxBvhAxis(kind);
        if (vxBvhIsRotation(kind))
            turn.rotate(value, axis == 0, axis == 1, axis == 2);
        else
            place[axis] = value;
    }
    matrix.translate(place[0], place[1], place[2]);
    return worldOf(document, data.parent, frame) * matrix * turn;
}

} // namespace

class TestVxBvhImport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<VxNode *>(); } // for signal spies
    void init();
    void cleanup();

    void buildsTheHierarchy();
    void keysAreInFileOrder();
    void makesNoControlsWithoutKeys();
    void placesBones();
    void rotationOrders_data();
    void rotationOrders();
    void setsTheScenesTime();
    void restPoseLeavesTheTime();
    void otherRatesKeepTheirTimes();
    void keepsTheRestPoseWithoutKeys();
    void bonesHaveThePositionsOfTheFile();
    void realFileIsImportedCompletely();
    void undoAndRedo();
    void secondImportAddsAFigure();
    void namesOfFiguresDiffer();
    void besideOthersTheSceneKeepsItsTime_data();
    void besideOthersTheSceneKeepsItsTime();
    void undoOfAnImportBesideOthers();
    void failureLeavesTheScene_data();
    void failureLeavesTheScene();
    void cancelLeavesTheScene_data();
    void cancelLeavesTheScene();
    void progressAscends();

private:
    VxBone *bone(const char *name) const;
    void import(const QByteArray &bytes);

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxUndoStack> m_undo;
    std::unique_ptr<VxScene> m_scene;
};

void TestVxBvhImport::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_undo = std::make_unique<VxUndoStack>();
    m_scene = std::make_unique<VxScene>();
}

void TestVxBvhImport::cleanup()
{
    m_undo->clear();
    m_scene.reset();
    m_undo.reset();
    m_guard.reset();
}

VxBone *TestVxBvhImport::bone(const char *name) const
{
    return qobject_cast<VxBone *>(m_scene->findNode(QString::fromUtf8(name)));
}

void TestVxBvhImport::import(const QByteArray &bytes)
{
    VxFileError error;
    BvhImport importer(m_scene.get());
    QVERIFY2(importer.importDocument(documentOf(bytes), QStringLiteral("walk.bvh"), &error),
             qPrintable(error.text()));
}

void TestVxBvhImport::buildsTheHierarchy()
{
    VxFileError error;
    BvhImport importer(m_scene.get());
    QVERIFY(!importer.getSkeleton());
    QVERIFY(
        importer.importDocument(documentOf(branched), QStringLiteral("dir/a.walk.bvh"), &error));
    VxSkeleton *skeleton = importer.getSkeleton();
    QCOMPARE(m_scene->getRootNodes(), QVector<VxNode *>{skeleton});
    QCOMPARE(skeleton->getLabel(), QStringLiteral("a.walk"));
    QCOMPARE(m_scene->getNumNodes(), 6);
    QCOMPARE(skeleton->getAllBones().size(), 5);
    QCOMPARE(skeleton->getNodeChild(0), bone("hip"));
    QCOMPARE(skeleton->getNodeChild(1), bone("prop"));
    QCOMPARE(bone("hip")->getNodeChild(0), bone("left"));
    QCOMPARE(bone("hip")->getNodeChild(1), bone("right"));
    QCOMPARE(bone("handle")->getNodeParent(), bone("prop"));
    QCOMPARE(bone("handle")->getSkeleton(), skeleton);
    QVERIFY(importer.getSummary().contains(QLatin1String("3 frames at 30 frames per second")));
}

void TestVxBvhImport::keysAreInFileOrder()
{
    import(branched);
    const QVector<VxTime> times = {0, 160, 320};
    const auto check = [&times](const VxFloatProperty *control, const QVector<float> &values) {
        const Keys keys = keysOf(control);
        QCOMPARE(keys.times, times);
        QCOMPARE(keys.values, values);
        QCOMPARE(keys.types, (QVector<int>{0, 0, 0}));
    };
    check(bone("hip")->getXPosControl(), {10, 11, 12});
    check(bone("hip")->getYPosControl(), {20, 21, 22});
    check(bone("hip")->getZPosControl(), {30, 31, 32});
    check(bone("hip")->getZRotControl(), {1, -1, 90});
    check(bone("hip")->getYRotControl(), {2, -2, 0});
    check(bone("hip")->getXRotControl(), {3, -3, 0});
    check(bone("left")->getYRotControl(), {4, -4, 0});
    check(bone("left")->getXRotControl(), {5, -5, 90});
    check(bone("left")->getZRotControl(), {6, -6, 0});
    check(bone("right")->getYPosControl(), {7, -7, 9});
    check(bone("right")->getZRotControl(), {8, -8, 45});
    for (const VxFloatProperty *undriven :
         {bone("left")->getXPosControl(), bone("right")->getXRotControl(),
          bone("prop")->getXRotControl(), bone("handle")->getZPosControl(),
          bone("hip")->getScaleControl()}) {
        QVERIFY(undriven);
        QCOMPARE(undriven->getNumKeys(), 0);
    }
}

// Controls are made on demand, and thousands of bones use few of theirs.
void TestVxBvhImport::makesNoControlsWithoutKeys()
{
    import(branched);
    QCOMPARE(bone("left")->getMadeProperties().size(), 3);
    QCOMPARE(bone("right")->getMadeProperties().size(), 2);
    QCOMPARE(bone("handle")->getMadeProperties().size(), 0);
}

void TestVxBvhImport::placesBones()
{
    import(branched);
    QCOMPARE(bone("hip")->getOrigin(), QVector3D(0, 0, 0));
    QCOMPARE(bone("left")->getOrigin(), QVector3D(4, 0, 0));
    QCOMPARE(bone("right")->getOrigin(), QVector3D(-2, 0, 0));
    QCOMPARE(bone("prop")->getOrigin(), QVector3D(7, 8, 9));
    QCOMPARE(bone("left")->getEndPoint(), QVector3D(0, -5, 0));
    QCOMPARE(bone("hip")->getEndPoint(), QVector3D(1, 1, 0));
    QCOMPARE(bone("prop")->getEndPoint(), QVector3D(0, 1, 0));
    QCOMPARE(bone("handle")->getEndPoint(), QVector3D(0, 0, 0));
}

void TestVxBvhImport::rotationOrders_data()
{
    QTest::addColumn<QByteArray>("channels");
    QTest::addColumn<int>("order");
    const auto row = [](const char *channels, VxNode::RotationOrder order) {
        QTest::newRow(channels) << QByteArray(channels) << int(order);
    };
    row("3 Xrotation Yrotation Zrotation", VxNode::XYZ);
    row("3 Xrotation Zrotation Yrotation", VxNode::XZY);
    row("3 Yrotation Xrotation Zrotation", VxNode::YXZ);
    row("3 Yrotation Zrotation Xrotation", VxNode::YZX);
    row("3 Zrotation Xrotation Yrotation", VxNode::ZXY);
    row("3 Zrotation Yrotation Xrotation", VxNode::ZYX);
    row("4 Zrotation Xposition Yrotation Xrotation", VxNode::ZYX);
    row("2 Zrotation Yrotation", VxNode::ZYX);
    row("1 Yrotation", VxNode::YXZ);
    row("1 Xposition", VxNode::XYZ);
    row("0", VxNode::XYZ);
}

void TestVxBvhImport::rotationOrders()
{
    QFETCH(QByteArray, channels);
    QFETCH(int, order);
    import("HIERARCHY\nROOT a\n{\nOFFSET 0 0 0\nCHANNELS " + channels +
           "\n}\nMOTION\nFrames: 0\nFrame Time: 1\n");
    QCOMPARE(int(bone("a")->getRotationOrder()), order);
}

void TestVxBvhImport::setsTheScenesTime()
{
    m_scene->setTimeStep(200);
    import(branched);
    QCOMPARE(m_scene->getTimeStep(), 160);
    QCOMPARE(m_scene->getPlayRange(), VxTimeRange(0, 320));
    QCOMPARE(m_scene->getAnimRange(), VxTimeRange(0, 320));
    QCOMPARE(m_scene->getTime(), 0);
}

void TestVxBvhImport::restPoseLeavesTheTime()
{
    m_scene->setTimeStep(200);
    m_scene->setAnimRange({0, 4000});
    m_scene->setPlayRange({200, 2000});
    QVector<int> expected = stateOf(*m_scene);
    expected[0] = 6;
    QByteArray bytes = branched.left(branched.indexOf("10 20"));
    import(bytes.replace("Frames: 3", "Frames: 0"));
    QCOMPARE(stateOf(*m_scene), expected);
    QCOMPARE(bone("hip")->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(bone("hip")->getWorldTransform(0).map(QVector3D()), QVector3D(1, 2, 3));
    QCOMPARE(bone("right")->getWorldTransform(0).map(QVector3D()), QVector3D(-1, 4, 3));
}

void TestVxBvhImport::otherRatesKeepTheirTimes()
{
    import(QByteArray(branched).replace(".0333333", "0.0334"));
    QCOMPARE(keysOf(bone("hip")->getXPosControl()).times, (QVector<VxTime>{0, 160, 321}));
    QCOMPARE(m_scene->getTimeStep(), 160);
    QCOMPARE(m_scene->getPlayRange(), VxTimeRange(0, 321));
}

void TestVxBvhImport::keepsTheRestPoseWithoutKeys()
{
    import(branched);
    VxFloatProperty *control = bone("hip")->getYPosControl();
    QCOMPARE(control->getValue(0), 20.0f);
    control->deleteAllKeys();
    QCOMPARE(control->getValue(0), 2.0f);
    QCOMPARE(bone("left")->getYPosControl()->getValue(0), 0.0f);
}

void TestVxBvhImport::bonesHaveThePositionsOfTheFile()
{
    VxBvhDocument document;
    VxFileError error;
    QVERIFY2(vxReadBvhFile(vxTestModels("BVH/01_01.bvh"), &document, &error),
             qPrintable(error.text()));
    BvhImport importer(m_scene.get());
    QVERIFY(importer.importDocument(document, QStringLiteral("walk.bvh"), &error));
    const QVector<VxBone *> bones = importer.getSkeleton()->getAllBones();
    QCOMPARE(std::size_t(bones.size()), document.joints.size());
    for (const int frame : {0, 1, 777, 2751}) {
        for (int joint = 0; joint < bones.size(); ++joint) {
            const QMatrix4x4 expected = worldOf(document, joint, frame);
            const QMatrix4x4 actual = bones[joint]->getWorldTransform(frame * 40);
            for (int i = 0; i < 16; ++i)
                QVERIFY2(std::abs(actual.constData()[i] - expected.constData()[i]) < 1e-3f,
                         qPrintable(bones[joint]->getLabel()));
        }
    }
}

void TestVxBvhImport::realFileIsImportedCompletely()
{
    VxFileError error;
    BvhImport importer(m_scene.get());
    QVERIFY2(importer.importFile(vxTestModels("BVH/01_01.bvh"), &error), qPrintable(error.text()));
    QCOMPARE(importer.getSkeleton()->getLabel(), QStringLiteral("01_01"));
    QCOMPARE(m_scene->getNumNodes(), 32);
    QCOMPARE(m_scene->getTimeStep(), 40);
    QCOMPARE(m_scene->getPlayRange(), VxTimeRange(0, 2751 * 40));
    QCOMPARE(m_scene->getAnimRange(), VxTimeRange(0, 2751 * 40));
    int keys = 0;
    for (const VxBone *one : importer.getSkeleton()->getAllBones()) {
        for (int i = 0; i < one->getNumProperties(); ++i)
            keys += one->getProperty(i)->getNumKeys();
    }
    QCOMPARE(keys, 96 * 2752);
    QCOMPARE(bone("Hips")->getYPosControl()->getKeyValue(0), 17.8693f);
    QCOMPARE(bone("Hips")->getZRotControl()->getKeyValue(1), -3.2316f);
}

void TestVxBvhImport::undoAndRedo()
{
    m_scene->setTimeStep(200);
    const QVector<int> before = stateOf(*m_scene);
    import(branched);
    const QVector<int> after = stateOf(*m_scene);
    QCOMPARE(m_undo->count(), 1);
    QCOMPARE(m_undo->undoText(), QStringLiteral("Import walk"));
    for (int round = 0; round < 2; ++round) {
        m_undo->undo();
        QCOMPARE(stateOf(*m_scene), before);
        m_undo->redo();
        QCOMPARE(stateOf(*m_scene), after);
        QCOMPARE(keysOf(bone("hip")->getXPosControl()).values, (QVector<float>{10, 11, 12}));
    }
}

void TestVxBvhImport::secondImportAddsAFigure()
{
    import(branched);
    import(branched);
    QCOMPARE(m_scene->getRootNodes().size(), 2);
    QCOMPARE(m_scene->getNumNodes(), 12);
}

void TestVxBvhImport::namesOfFiguresDiffer()
{
    m_scene->addNode(new VxNode(QStringLiteral("walk 3")));
    auto *renamed = new VxNode(QStringLiteral("prop"));
    renamed->setLabel(QStringLiteral("walk"));
    m_scene->addNode(renamed);
    QStringList names;
    for (int i = 0; i < 3; ++i) {
        import(branched);
        names.append(m_scene->getRootNodes().last()->getName());
    }
    QCOMPARE(names, QStringList({"walk 2", "walk 4", "walk 5"}));
}

void TestVxBvhImport::besideOthersTheSceneKeepsItsTime_data()
{
    QTest::addColumn<VxTimeRange>("anim");
    QTest::addColumn<VxTimeRange>("play");
    QTest::addColumn<VxTimeRange>("newAnim");
    QTest::addColumn<VxTimeRange>("newPlay");
    // The motion lasts from 0 to 320.
    QTest::newRow("a longer scene") << VxTimeRange(-400, 4000) << VxTimeRange(-400, 4000)
                                    << VxTimeRange(-400, 4000) << VxTimeRange(-400, 4000);
    QTest::newRow("a shorter scene")
        << VxTimeRange(0, 200) << VxTimeRange(0, 200) << VxTimeRange(0, 320) << VxTimeRange(0, 320);
    QTest::newRow("a scene that begins later") << VxTimeRange(200, 800) << VxTimeRange(200, 800)
                                               << VxTimeRange(0, 800) << VxTimeRange(0, 800);
    QTest::newRow("a play range of its own")
        << VxTimeRange(0, 200) << VxTimeRange(0, 100) << VxTimeRange(0, 320) << VxTimeRange(0, 100);
}

void TestVxBvhImport::besideOthersTheSceneKeepsItsTime()
{
    QFETCH(VxTimeRange, anim);
    QFETCH(VxTimeRange, play);
    QFETCH(VxTimeRange, newAnim);
    QFETCH(VxTimeRange, newPlay);
    m_scene->addNode(new VxNode(QStringLiteral("there")));
    m_scene->setTimeStep(200);
    m_scene->setAnimRange(anim);
    m_scene->setPlayRange(play);
    m_scene->setTime(120);
    VxFileError error;
    BvhImport importer(m_scene.get());
    QVERIFY(importer.importDocument(documentOf(branched), QStringLiteral("walk.bvh"), &error));
    QCOMPARE(m_scene->getTimeStep(), 200);
    QCOMPARE(m_scene->getTime(), 120);
    QCOMPARE(m_scene->getAnimRange(), newAnim);
    QCOMPARE(m_scene->getPlayRange(), newPlay);
    QCOMPARE(keysOf(bone("hip")->getXPosControl()).times, (QVector<VxTime>{0, 160, 320}));
    QVERIFY2(importer.getSummary().contains("keeps its 24 frames per second; some keys"),
             qPrintable(importer.getSummary()));
}

void TestVxBvhImport::undoOfAnImportBesideOthers()
{
    m_scene->addNode(new VxNode(QStringLiteral("there")));
    m_scene->setAnimRange({0, 200});
    m_scene->setPlayRange({0, 200});
    const QVector<int> before = stateOf(*m_scene);
    import(branched);
    const QVector<int> after = stateOf(*m_scene);
    QVERIFY(before != after);
    QCOMPARE(m_undo->count(), 1);
    for (int round = 0; round < 2; ++round) {
        m_undo->undo();
        QCOMPARE(stateOf(*m_scene), before);
        m_undo->redo();
        QCOMPARE(stateOf(*m_scene), after);
    }
}

void TestVxBvhImport::failureLeavesTheScene_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("part");
    QTest::newRow("a broken file")
        << QByteArray(branched).replace("21 31", "21 x31") << "line 33: Value 3 of frame 2";
    QTest::newRow("too many frames a second")
        << QByteArray(branched).replace(".0333333", ".0001") << "at most 4800";
    QTest::newRow("too long") << QByteArray(branched).replace(".0333333", "1e6") << "too long";
}

void TestVxBvhImport::failureLeavesTheScene()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, part);
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("walk.bvh")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    const QVector<int> before = stateOf(*m_scene);
    QSignalSpy added(m_scene.get(), &VxScene::nodeAdded);
    VxFileError error;
    BvhImport importer(m_scene.get());
    QVERIFY(!importer.importFile(file.fileName(), &error));
    QVERIFY2(error.text().contains(part), qPrintable(error.text()));
    QCOMPARE(error.file, file.fileName());
    QCOMPARE(stateOf(*m_scene), before);
    QCOMPARE(added.count(), 0);
    QCOMPARE(m_undo->count(), 0);
    QVERIFY(!importer.getSkeleton());
}

void TestVxBvhImport::cancelLeavesTheScene_data()
{
    QTest::addColumn<int>("percent");
    QTest::newRow("at once") << 0;
    QTest::newRow("while reading") << 30;
    QTest::newRow("while building") << 85;
}

void TestVxBvhImport::cancelLeavesTheScene()
{
    QFETCH(int, percent);
    const QVector<int> before = stateOf(*m_scene);
    QSignalSpy added(m_scene.get(), &VxScene::nodeAdded);
    VxFileError error;
    BvhImport importer(m_scene.get());
    int last = -1;
    importer.setProgress([percent, &last](int now) {
        last = now;
        return now < percent;
    });
    QVERIFY(!importer.importFile(vxTestModels("BVH/01_01.bvh"), &error));
    QVERIFY(error.cancelled);
    QVERIFY(last >= percent && last < percent + 15);
    QCOMPARE(stateOf(*m_scene), before);
    QCOMPARE(added.count(), 0);
    QCOMPARE(m_undo->count(), 0);
}

void TestVxBvhImport::progressAscends()
{
    VxFileError error;
    BvhImport importer(m_scene.get());
    QVector<int> reports;
    importer.setProgress([&reports](int percent) {
        reports << percent;
        return true;
    });
    QVERIFY(importer.importFile(vxTestModels("BVH/01_01.bvh"), &error));
    QVERIFY(reports.size() > 40);
    QVERIFY(std::is_sorted(reports.begin(), reports.end()));
    QVERIFY(reports.first() >= 0 && reports.last() <= 100 && reports.last() > 90);
}

VX_TEST_MAIN(TestVxBvhImport)
#include "tst_vxbvhimport.moc"

// Scene files: what is written is read back, byte for byte; what is broken is refused whole.

#include "io/vxscenecamera.h"
#include "io/vxscenereader.h"
#include "io/vxscenewriter.h"
#include "testing/vxtestmain.h"
#include "walksample.h"

#include <QBuffer>
#include <QCborArray>
#include <QCborMap>
#include <QCborValue>
#include <QTemporaryDir>
#include <QtTest/QtTest>
#include <random>
#include <testing/vxwarningguard.h>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxstringproperty.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

QByteArray bytesOf(const VxScene &scene)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    VxFileError error;
    return VxSceneWriter(&scene).write(&buffer, &error) ? bytes : QByteArray();
}

bool load(const QByteArray &bytes, VxScene *scene, VxFileError *error)
{
    VxSceneContents contents;
    if (!VxSceneReader().read(bytes, &contents, error))
        return false;
    VxSceneReader::install(std::move(contents), scene);
    return true;
}

QByteArray sampleBytes()
{
    VxScene scene;
    WalkSample::build(&scene);
    return bytesOf(scene);
}

/// The sample as a map that a test can change.
QCborMap sampleMap()
{
    return QCborValue::fromCbor(sampleBytes()).toMap();
}

} // namespace

class TestSceneFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void sampleRoundTripsByteForByte();
    void everyTraitRoundTrips();
    void identifiersRoundTrip();
    void olderFilesGetIdentifiers();
    void theCameraRoundTrips();
    void markersRoundTrip();
    void theTimeDisplayRoundTrips();
    void keysOfEveryKindRoundTrip();
    void emptyScene();
    void aliasesAndLinksMayPointForward();
    void ownKeysBehindAReferenceRoundTrip_data();
    void ownKeysBehindAReferenceRoundTrip();
    void ownKeysOfALockedAliasRoundTrip();
    void lockedPropertiesKeepTheirKeys();
    void installIsOneLoadAndClearsTheHistory();
    void unknownMembersAreReported();
    void brokenFiles_data();
    void brokenFiles();
    void keysOutOfOrderAreRefused();
    void groupsNestedTooDeeplyAreRefused();
    void cutOffAnywhereIsRefused();
    void mutatedFilesNeverCrash();
    void readingCanBeCancelled();
    void writingCanBeCancelled();
    void failedWriteLeavesTheFormerFile();
    void fullDiskIsReported();
    void missingFileIsNamed();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestSceneFile::sampleRoundTripsByteForByte()
{
    const QByteArray bytes = sampleBytes();
    QVERIFY(bytes.size() > 10000);
    VxScene scene;
    VxFileError error;
    QVERIFY2(load(bytes, &scene, &error), qPrintable(error.text()));
    QCOMPARE(bytesOf(scene), bytes);
}

void TestSceneFile::everyTraitRoundTrips()
{
    VxScene scene;
    scene.setTimeStep(200);
    scene.setAnimRange({-400, 8000});
    scene.setPlayRange({400, 4000});
    scene.setTime(600);
    scene.loopPlayback(true);
    scene.setAnimating(false);
    auto *node = new VxNode(QStringLiteral("n"));
    node->setLabel(QStringLiteral("Ünïcode label"));
    node->setVisible(false);
    node->setSelectable(false);
    node->setIkNode(true);
    node->setPinned(true);
    node->setOrigin({1, 2, 3});
    node->setEndPoint({4, 5, 6});
    node->setRestPose(VxRestPose{1, 2, 3, 40, 50, 60, 1, 1, 2, 1});
    node->setRotationOrder(VxNode::YXZ);
    auto *property = new VxFloatProperty(QStringLiteral("p"), 0.25f);
    property->setLabel(QStringLiteral("P"));
    property->setMinMax(-1.5f, 2.5f, true);
    property->setSensitivity(0.125f);
    property->setPercentage(true);
    property->setHidden(true);
    property->setDynamicallyHidden(true);
    property->setExcluded(true);
    property->setStoredValue(1.5f);
    property->setDefaultInterpolation(2);
    property->setAnimatable(false);
    node->addProperty(property, QStringLiteral("/A/B"));
    scene.addNode(node);
    scene.addNode(new VxBone(QStringLiteral("b")), node);

    const QByteArray bytes = bytesOf(scene);
    VxScene copy;
    VxFileError error;
    QVERIFY2(load(bytes, &copy, &error), qPrintable(error.text()));
    QCOMPARE(copy.getTimeStep(), 200);
    QCOMPARE(copy.getAnimRange(), VxTimeRange(-400, 8000));
    QCOMPARE(copy.getPlayRange(), VxTimeRange(400, 4000));
    QCOMPARE(copy.getTime(), 600);
    QVERIFY(copy.isLoopingEnabled());
    QVERIFY(!copy.isAnimating());
    VxNode *read = copy.findNode(QStringLiteral("n"));
    QVERIFY(read);
    QCOMPARE(read->getLabel(), QStringLiteral("Ünïcode label"));
    QVERIFY(!read->isVisible());
    QVERIFY(!read->isSelectable());
    QVERIFY(read->isIkNode());
    QVERIFY(read->isPinned());
    QCOMPARE(read->getOrigin(), QVector3D(1, 2, 3));
    QCOMPARE(read->getEndPoint(), QVector3D(4, 5, 6));
    QVERIFY((read->getRestPose() == VxRestPose{1, 2, 3, 40, 50, 60, 1, 1, 2, 1}));
    QCOMPARE(read->getRotationOrder(), VxNode::YXZ);
    QVERIFY(qobject_cast<VxBone *>(read->getNodeChild(0)));
    auto *p = qobject_cast<VxFloatProperty *>(read->findProperty(QStringLiteral("p")));
    QVERIFY(p);
    QCOMPARE(p->getLabel(), QStringLiteral("P"));
    QCOMPARE(p->getPath(), QStringLiteral("/A/B"));
    QCOMPARE(p->getDefaultValue(), 0.25f);
    QCOMPARE(p->getStoredValue(), 1.5f);
    QCOMPARE(p->getMin(), -1.5f);
    QCOMPARE(p->getMax(), 2.5f);
    QVERIFY(p->isClamped() && p->isPercentage() && p->isHidden() && p->isDynamicallyHidden());
    QVERIFY(p->isExcluded() && !p->isAnimatable());
    QCOMPARE(p->getSensitivity(), 0.125f);
    QCOMPARE(p->getDefaultInterpolation(), 2);
    QCOMPARE(bytesOf(copy), bytes);
}

void TestSceneFile::identifiersRoundTrip()
{
    VxScene scene;
    for (const char *name : {"a", "b", "c"})
        scene.addNode(new VxNode(QLatin1String(name)));
    scene.removeNode(scene.findNode(QStringLiteral("a")));
    VxScene read;
    VxFileError error;
    QVERIFY(load(bytesOf(scene), &read, &error));
    QCOMPARE(read.findNode(QStringLiteral("b"))->getId(), quint64(2));
    QCOMPARE(read.findNodeById(3)->getName(), QStringLiteral("c"));
}

void TestSceneFile::olderFilesGetIdentifiers()
{
    QCborMap map = sampleMap();
    QCborArray nodes = map.value(QLatin1String("nodes")).toArray();
    for (int i = 0; i < nodes.size(); ++i) {
        QCborMap node = nodes.at(i).toMap();
        QVERIFY(node.take(QLatin1String("id")).isInteger());
        nodes[i] = node;
    }
    map[QLatin1String("nodes")] = nodes;
    VxScene read;
    VxFileError error;
    QVERIFY2(load(QCborValue(map).toCbor(), &read, &error), qPrintable(error.text()));
    for (int i = 0; i < read.getNumNodes(); ++i)
        QCOMPARE(read.getNodes().at(i)->getId(), quint64(i + 1));
}

void TestSceneFile::theCameraRoundTrips()
{
    VxScene scene;
    QVERIFY(!sampleMap().contains(QStringLiteral("camera"))); // the camera was never moved
    VxCameraState camera;
    camera.target = {1, -2, 3};
    camera.distance = 44;
    camera.yaw = -90;
    camera.pitch = 12.5f;
    camera.fieldOfView = 55;
    camera.orthographic = true;
    VxSceneCamera::of(&scene)->setState(camera);
    const QByteArray bytes = bytesOf(scene);
    VxScene copy;
    VxFileError error;
    QVERIFY2(load(bytes, &copy, &error), qPrintable(error.text()));
    QVERIFY(VxSceneCamera::stateOf(&copy) == camera);
    QCOMPARE(bytesOf(copy), bytes);
    // Numbers out of range are no reason to refuse a scene.
    QCborMap map = QCborValue::fromCbor(bytes).toMap();
    map.insert(QStringLiteral("camera"), QCborMap{{QStringLiteral("distance"), -1.0},
                                                  {QStringLiteral("pitch"), 1000},
                                                  {QStringLiteral("lens"), 1}});
    QVERIFY2(load(map.toCborValue().toCbor(), &copy, &error), qPrintable(error.text()));
    QCOMPARE(VxSceneCamera::stateOf(&copy)->distance, VxCameraState::MinDistance);
    QCOMPARE(VxSceneCamera::stateOf(&copy)->pitch, 90.0f);
    copy.clear();
    QVERIFY(!VxSceneCamera::stateOf(&copy));
}

void TestSceneFile::markersRoundTrip()
{
    VxScene scene;
    QVERIFY(!sampleMap().contains(QStringLiteral("markers"))); // as in older files
    VxMarker point;
    point.name = QStringLiteral("Zürich, \"line\"\nbreak");
    point.span = VxTimeRange(VxTimeMin, VxTimeMin);
    VxMarker span;
    span.span = VxTimeRange(-5, VxTimeMax);
    span.color = 0xff010203;
    VxMarkers::of(&scene)->add({span, point});
    const QByteArray bytes = bytesOf(scene);
    VxScene copy;
    VxFileError error;
    QVERIFY2(load(bytes, &copy, &error), qPrintable(error.text()));
    const VxMarkerList read = VxMarkers::listOf(&copy);
    QCOMPARE(read.size(), 2);
    QCOMPARE(read.at(0).name, point.name);
    QCOMPARE(read.at(0).span, point.span);
    QCOMPARE(read.at(0).color, VxMarker::DefaultColor);
    QCOMPARE(read.at(1).name, QString());
    QCOMPARE(read.at(1).span, span.span);
    QCOMPARE(read.at(1).color, span.color);
    QCOMPARE(bytesOf(copy), bytes);
    // A later version's member is skipped; markers of the former scene are not kept.
    QCborMap map = QCborValue::fromCbor(bytes).toMap();
    map.insert(QStringLiteral("markers"),
               QCborArray{QCborMap{{QStringLiteral("icon"), 3}, {QStringLiteral("start"), 7}}});
    VxSceneContents contents;
    QVERIFY(VxSceneReader().read(map.toCborValue().toCbor(), &contents, &error));
    QCOMPARE(contents.unknownMembers, QStringList{QStringLiteral("icon")});
    VxSceneReader::install(std::move(contents), &copy);
    QCOMPARE(VxMarkers::listOf(&copy).size(), 1);
    QVERIFY(load(sampleBytes(), &copy, &error));
    QVERIFY(VxMarkers::listOf(&copy).isEmpty());
}

void TestSceneFile::theTimeDisplayRoundTrips()
{
    QVERIFY(!sampleMap().contains(QStringLiteral("timeDisplay"))); // as in older files
    for (const VxTimeDisplay display :
         {VxTimeDisplay{VxTimeDisplay::Timecode, {30000, 1001}, true},
          VxTimeDisplay{VxTimeDisplay::Seconds, {}, false}, VxTimeDisplay()}) {
        VxScene scene, copy;
        VxSceneTimeDisplay::of(&scene)->setDisplay(display);
        VxSceneTimeDisplay::of(&copy)->setDisplay({VxTimeDisplay::Ticks, {24, 1}, false});
        VxFileError error;
        QVERIFY2(load(bytesOf(scene), &copy, &error), qPrintable(error.text()));
        QVERIFY(VxSceneTimeDisplay::displayOf(&copy) == display);
        QCOMPARE(bytesOf(copy), bytesOf(scene));
    }
    // Unknown values are reported, and the scene is opened.
    QCborMap map = sampleMap();
    map.insert(QStringLiteral("timeDisplay"),
               QCborMap{{QStringLiteral("unit"), QStringLiteral("feet")},
                        {QStringLiteral("rate"), QCborArray{1000000, 3}},
                        {QStringLiteral("offset"), 5}});
    VxSceneContents contents;
    VxFileError error;
    QVERIFY2(VxSceneReader().read(map.toCborValue().toCbor(), &contents, &error),
             qPrintable(error.text()));
    QCOMPARE(contents.unknownMembers,
             (QStringList{QStringLiteral("offset"), QStringLiteral("unit \"feet\""),
                          QStringLiteral("rate 1e+06/3")}));
    QVERIFY(contents.timeDisplay == VxTimeDisplay());
}

void TestSceneFile::keysOfEveryKindRoundTrip()
{
    VxScene scene;
    auto *node = new VxNode(QStringLiteral("n"));
    auto *whole = new VxIntProperty(QStringLiteral("i"), 3);
    auto *text = new VxStringProperty(QStringLiteral("s"), QStringLiteral("a \"text\""));
    node->addProperty(whole, QStringLiteral("/G"));
    node->addProperty(text, QStringLiteral("/G"));
    scene.addNode(node);
    node->getXPosControl()->setKey(VxTimeMin, 1.0f, 0);
    node->getXPosControl()->setKey(0, -2.5f, 1);
    node->getXPosControl()->setKey(VxTimeMax, 1e-30f, 2, 0.5f, -0.5f, 1.0f);
    whole->setKey(-5, 1 << 30);
    whole->setKey(10, -7);

    VxScene copy;
    VxFileError error;
    QVERIFY2(load(bytesOf(scene), &copy, &error), qPrintable(error.text()));
    VxNode *read = copy.findNode(QStringLiteral("n"));
    const VxFloatProperty *x = read->getXPosControl();
    QCOMPARE(x->getNumKeys(), 3);
    QCOMPARE(x->getKeyTime(0), VxTimeMin);
    QCOMPARE(x->getKeyTime(2), VxTimeMax);
    QCOMPARE(x->getKeyValue(2), 1e-30f);
    float t = 0, c = 0, b = 0;
    QCOMPARE(x->getKeyInterpolationType(2, &t, &c, &b), 2);
    QCOMPARE(t, 0.5f);
    QCOMPARE(c, -0.5f);
    QCOMPARE(b, 1.0f);
    QCOMPARE(x->getKeyInterpolationType(1), 1);
    const auto *i = qobject_cast<VxIntProperty *>(read->findProperty(QStringLiteral("i")));
    QVERIFY(i);
    QCOMPARE(i->getKeyValue(0), 1 << 30);
    QCOMPARE(i->getKeyTime(0), -5);
    const auto *s = qobject_cast<VxStringProperty *>(read->findProperty(QStringLiteral("s")));
    QVERIFY(s);
    QCOMPARE(s->getValue(), QStringLiteral("a \"text\""));
}

void TestSceneFile::emptyScene()
{
    VxScene scene, copy;
    VxFileError error;
    QVERIFY2(load(bytesOf(scene), &copy, &error), qPrintable(error.text()));
    QCOMPARE(copy.getNumNodes(), 0);
}

void TestSceneFile::aliasesAndLinksMayPointForward()
{
    VxScene scene;
    auto *first = new VxNode(QStringLiteral("first"));
    auto *second = new VxNode(QStringLiteral("second"));
    scene.addNode(first);
    scene.addNode(second);
    second->getXPosControl()->setKey(0, 5.0f, 0);
    QVERIFY(first->getXPosControl()->setAliasedProperty(second->getXPosControl()));
    QVERIFY(first->getYPosControl()->setLink(second->getXPosControl(), true, 2.0, 1.0));
    QVERIFY(first->getZPosControl()->setOverridingControl(second->getYPosControl()));
    VxScene copy;
    VxFileError error;
    const QByteArray bytes = bytesOf(scene);
    QVERIFY2(load(bytes, &copy, &error), qPrintable(error.text()));
    VxNode *read = copy.findNode(QStringLiteral("first"));
    VxNode *target = copy.findNode(QStringLiteral("second"));
    QCOMPARE(read->getXPosControl()->getAliasedProperty(), target->getXPosControl());
    QCOMPARE(read->getYPosControl()->getLinkedProperty(), target->getXPosControl());
    QVERIFY(read->getYPosControl()->isLinkTerminal());
    QCOMPARE(read->getYPosControl()->getValue(0), 11.0f);
    QCOMPARE(read->getZPosControl()->getOverridingControl(), target->getYPosControl());
    QCOMPARE(bytesOf(copy), bytes);
}

void TestSceneFile::ownKeysBehindAReferenceRoundTrip_data()
{
    QTest::addColumn<bool>("overrides");
    QTest::newRow("aliases") << false;
    QTest::newRow("overridden properties") << true;
}

/// A property that shows the keys of another one has its own ones again when the reference is
/// removed after the file was opened.
void TestSceneFile::ownKeysBehindAReferenceRoundTrip()
{
    QFETCH(bool, overrides);
    const auto refer = [overrides](VxProperty *from, VxProperty *to) {
        return overrides ? from->setOverridingControl(to) : from->setAliasedProperty(to);
    };
    VxScene scene;
    auto *node = new VxNode(QStringLiteral("n"));
    scene.addNode(node);
    const auto add = [node](auto *property) {
        node->addProperty(property, QString());
        return property;
    };
    auto *keyed = add(new VxFloatProperty(QStringLiteral("keyed")));
    auto *stored = add(new VxFloatProperty(QStringLiteral("stored"), 1.0f));
    auto *count = add(new VxIntProperty(QStringLiteral("count")));
    auto *text = add(new VxStringProperty(QStringLiteral("text"), QStringLiteral("mine")));
    auto *number = add(new VxFloatProperty(QStringLiteral("number")));
    auto *whole = add(new VxIntProperty(QStringLiteral("whole")));
    auto *note = add(new VxStringProperty(QStringLiteral("note"), QStringLiteral("theirs")));
    keyed->setKey(160, 2.0f, VxKeyInterp::Tcb, 0.5f, 0.25f, -0.5f);
    keyed->setKey(320, 3.0f, VxKeyInterp::Constant);
    stored->setStoredValue(7.5f);
    count->setKey(480, 9);
    number->setKey(0, 100.0f, 0);
    whole->setKey(0, 200);
    const QByteArray before = bytesOf(scene);
    QVERIFY(refer(keyed, number) && refer(stored, number) && refer(count, whole));
    QVERIFY(refer(text, note));

    VxScene copy;
    VxFileError error;
    QVERIFY2(load(bytesOf(scene), &copy, &error), qPrintable(error.text()));
    VxNode *read = copy.findNode(QStringLiteral("n"));
    QCOMPARE(static_cast<VxFloatProperty *>(read->findProperty("keyed"))->getValue(200), 100.0f);
    QCOMPARE(static_cast<VxStringProperty *>(read->findProperty("text"))->getValue(),
             QStringLiteral("theirs"));
    for (const char *name : {"keyed", "stored", "count", "text"})
        QVERIFY(refer(read->findProperty(QLatin1String(name)), nullptr));
    QCOMPARE(bytesOf(copy).toHex(' '), before.toHex(' '));
}

void TestSceneFile::ownKeysOfALockedAliasRoundTrip()
{
    VxScene scene, copy;
    auto *node = new VxNode(QStringLiteral("n"));
    scene.addNode(node);
    node->getXPosControl()->setKey(160, 5.0f, 0);
    node->getYPosControl()->setLocked(true);
    QVERIFY(node->getXPosControl()->setAliasedProperty(node->getYPosControl()));
    node->getXPosControl()->setLocked(true);
    VxFileError error;
    QVERIFY2(load(bytesOf(scene), &copy, &error), qPrintable(error.text()));
    auto *read = copy.findNode(QStringLiteral("n"))->getXPosControl();
    QVERIFY(read->isLocked() && read->isAlias());
    read->setLocked(false);
    QVERIFY(read->setAliasedProperty(nullptr));
    QCOMPARE(read->getNumKeys(), 1);
    QCOMPARE(read->getValue(160), 5.0f);
}

void TestSceneFile::lockedPropertiesKeepTheirKeys()
{
    VxScene scene, copy;
    auto *node = new VxNode(QStringLiteral("n"));
    scene.addNode(node);
    node->getXPosControl()->setKey(160, 5.0f, 0);
    node->getXPosControl()->setLocked(true);
    VxFileError error;
    QVERIFY2(load(bytesOf(scene), &copy, &error), qPrintable(error.text()));
    QVERIFY(copy.findNode(QStringLiteral("n"))->getXPosControl()->isLocked());
    QCOMPARE(copy.findNode(QStringLiteral("n"))->getXPosControl()->getNumKeys(), 1);
}

void TestSceneFile::installIsOneLoadAndClearsTheHistory()
{
    VxUndoStack stack;
    VxScene scene;
    auto *old = new VxNode(QStringLiteral("old"));
    {
        VxUndoStackHold hold;
        scene.addNode(old);
        hold.accept(QStringLiteral("Add"));
    }
    QSignalSpy starting(&scene, &VxScene::sceneLoadStarting);
    QSignalSpy loaded(&scene, &VxScene::sceneLoaded);
    VxFileError error;
    QVERIFY(load(sampleBytes(), &scene, &error));
    QCOMPARE(starting.count(), 1);
    QCOMPARE(loaded.count(), 1);
    QCOMPARE(scene.findNode(QStringLiteral("old")), nullptr);
    QCOMPARE(stack.count(), 0);
}

void TestSceneFile::unknownMembersAreReported()
{
    QCborMap map = sampleMap();
    map.insert(QStringLiteral("cameras"), QCborArray{1, QCborMap{{1, 2}}});
    VxSceneContents contents;
    VxFileError error;
    QVERIFY2(VxSceneReader().read(map.toCborValue().toCbor(), &contents, &error),
             qPrintable(error.text()));
    QCOMPARE(contents.unknownMembers, QStringList{QStringLiteral("cameras")});
    QCOMPARE(contents.rootNodes.size(), size_t(2));
}

void TestSceneFile::brokenFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    const auto changed = [](const char *name, const QCborValue &value) {
        QCborMap map = sampleMap();
        map.insert(QLatin1String(name), value);
        return map.toCborValue().toCbor();
    };
    QTest::newRow("empty file") << QByteArray() << QStringLiteral("damaged");
    QTest::newRow("plain text") << QByteArrayLiteral("HIERARCHY\nROOT Hips\n")
                                << QStringLiteral("");
    QTest::newRow("another map") << QCborMap{{QStringLiteral("a"), 1}}.toCborValue().toCbor()
                                 << QStringLiteral("not a scene file");
    QTest::newRow("another format")
        << changed("format", QStringLiteral("other")) << QStringLiteral("not a scene file");
    QTest::newRow("newer version")
        << changed("version", 7) << QStringLiteral("version 7 of the scene format");
    QTest::newRow("other ticks") << changed("ticksPerSecond", 1000)
                                 << QStringLiteral("1000 is out of range");
    QTest::newRow("time step zero")
        << changed("timeStep", 0) << QStringLiteral("0 is out of range");
    QTest::newRow("nodes are a number")
        << changed("nodes", 3) << QStringLiteral("Expected an array");
    QTest::newRow("node of unknown kind")
        << changed("nodes", QCborArray{QCborMap{{QStringLiteral("kind"), QStringLiteral("car")},
                                                {QStringLiteral("name"), QStringLiteral("x")}}})
        << QStringLiteral("unknown kind: \"car\"");
    QTest::newRow("parent behind its child")
        << changed("nodes", QCborArray{QCborMap{{QStringLiteral("kind"), QStringLiteral("node")},
                                                {QStringLiteral("name"), QStringLiteral("x")},
                                                {QStringLiteral("parent"), 5}}})
        << QStringLiteral("5 is out of range");
    QTest::newRow("rest pose of two numbers")
        << changed("nodes", QCborArray{QCborMap{{QStringLiteral("kind"), QStringLiteral("node")},
                                                {QStringLiteral("name"), QStringLiteral("x")},
                                                {QStringLiteral("restPose"), QCborArray{1, 2}}}})
        << QStringLiteral("Expected 10 numbers");
    QTest::newRow("camera is a number") << changed("camera", 3) << QStringLiteral("Expected a map");
    QTest::newRow("camera's distance is a text")
        << changed("camera", QCborMap{{QStringLiteral("distance"), QStringLiteral("far")}})
        << QStringLiteral("Expected a number");
    QTest::newRow("range with one end")
        << changed("playRange", QCborArray{1}) << QStringLiteral("Expected 2 numbers");
    const auto marker = [&changed](const QCborMap &members) {
        return changed("markers", QCborArray{members});
    };
    QTest::newRow("time display is a text")
        << changed("timeDisplay", QStringLiteral("frames")) << QStringLiteral("Expected a map");
    QTest::newRow("rate of one number")
        << changed("timeDisplay", QCborMap{{QStringLiteral("rate"), QCborArray{30}}})
        << QStringLiteral("Expected 2 numbers");
    QTest::newRow("markers are a map")
        << changed("markers", QCborMap{}) << QStringLiteral("Expected an array");
    QTest::newRow("marker without a start")
        << marker({{QStringLiteral("name"), QStringLiteral("m")}})
        << QStringLiteral("The marker \"m\" has no start.");
    QTest::newRow("marker that ends before it starts")
        << marker({{QStringLiteral("start"), 5}, {QStringLiteral("end"), 4}})
        << QStringLiteral("ends before it starts");
    QTest::newRow("marker beyond all times")
        << marker({{QStringLiteral("start"), qint64(1) << 40}}) << QStringLiteral("out of range");
    QTest::newRow("marker of a colour that is a text")
        << marker({{QStringLiteral("start"), 5}, {QStringLiteral("color"), QStringLiteral("red")}})
        << QStringLiteral("Expected");
    QByteArray deep("\xa1\x61\x78", 3);
    deep += QByteArray(100000, '\x81');
    QTest::newRow("deep nesting") << QByteArray("\xa2\x66"
                                                "format"
                                                "\x67"
                                                "vxscene"
                                                "\x61\x78") +
                                         QByteArray(100000, '\x81')
                                  << QStringLiteral("damaged");
    QTest::newRow("deep nesting without a format") << deep << QStringLiteral("not a scene file");
}

void TestSceneFile::brokenFiles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    VxScene scene;
    scene.addNode(new VxNode(QStringLiteral("kept")));
    VxMarkers::of(&scene)->add(VxMarker());
    VxFileError error;
    QVERIFY(!load(bytes, &scene, &error));
    QCOMPARE(VxMarkers::listOf(&scene).size(), 1);
    QVERIFY2(error.message.contains(message), qPrintable(error.text()));
    QVERIFY(error.offset >= 0);
    QVERIFY(scene.findNode(QStringLiteral("kept")));
}

void TestSceneFile::groupsNestedTooDeeplyAreRefused()
{
    for (const int depth : {64, 65}) {
        VxScene scene;
        auto *node = new VxNode(QStringLiteral("n"));
        scene.addNode(node);
        const QString path = QStringLiteral("/g").repeated(depth);
        // A deeper path than an element accepts, as a file could have it.
        auto *property = new VxFloatProperty(QStringLiteral("deep"));
        QVERIFY(node->addProperty(property, QStringLiteral("/g")));
        property->setPath(path);
        VxScene copy;
        VxFileError error;
        QCOMPARE(load(bytesOf(scene), &copy, &error), depth <= 64);
        if (depth <= 64)
            QCOMPARE(copy.findNode("n")->findProperty("deep")->getPath(), path);
        else
            QVERIFY2(error.message.contains("\"deep\" are nested too deeply"),
                     qPrintable(error.text()));
    }
}

void TestSceneFile::keysOutOfOrderAreRefused()
{
    VxScene scene;
    auto *node = new VxNode(QStringLiteral("n"));
    scene.addNode(node);
    node->getXPosControl()->setKey(0x01020304, 1.0f, 0);
    node->getXPosControl()->setKey(0x01020305, 1.0f, 0);
    QByteArray bytes = bytesOf(scene);
    const int place = bytes.indexOf(QByteArrayLiteral("\x04\x03\x02\x01\x05\x03\x02\x01"));
    QVERIFY(place > 0);
    bytes[place] = '\x06';
    bytes.replace("crc32", "other"); // an older file has no checksums
    VxScene copy;
    VxFileError error;
    QVERIFY(!load(bytes, &copy, &error));
    QVERIFY2(error.message.contains(QLatin1String("not in time order")), qPrintable(error.text()));
}

void TestSceneFile::cutOffAnywhereIsRefused()
{
    const QByteArray bytes = sampleBytes();
    for (int length = 0; length < bytes.size(); length += length < 2000 ? 1 : 977) {
        VxSceneContents contents;
        VxFileError error;
        QVERIFY2(!VxSceneReader().read(bytes.left(length), &contents, &error),
                 qPrintable(QString::number(length)));
        QVERIFY(!error.message.isEmpty());
    }
}

void TestSceneFile::mutatedFilesNeverCrash()
{
    const QByteArray original = sampleBytes();
    std::mt19937 random(20261121);
    int refused = 0;
    for (int round = 0; round < 1000; ++round) {
        QByteArray bytes = original;
        for (int change = int(random() % 4); change >= 0; --change) {
            const int place = int(random() % unsigned(bytes.size()));
            switch (random() % 3) {
            case 0:
                bytes[place] = char(random());
                break;
            case 1:
                bytes.remove(place, int(random() % 16));
                break;
            default:
                bytes.insert(place, bytes.mid(int(random() % unsigned(bytes.size())), 8));
            }
        }
        VxSceneContents contents;
        VxFileError error;
        if (VxSceneReader().read(bytes, &contents, &error))
            continue;
        ++refused;
        QVERIFY(!error.message.isEmpty());
        QVERIFY(error.offset <= bytes.size());
    }
    QVERIFY(refused > 300);
}

void TestSceneFile::readingCanBeCancelled()
{
    VxSceneReader reader;
    reader.setProgress([](int percent) { return percent < 50; });
    VxSceneContents contents;
    VxFileError error;
    QVERIFY(!reader.read(sampleBytes(), &contents, &error));
    QVERIFY(error.cancelled);
    QVERIFY(contents.rootNodes.empty());
}

void TestSceneFile::writingCanBeCancelled()
{
    VxScene scene;
    WalkSample::build(&scene);
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("cancelled.vxscene"));
    VxSceneWriter writer(&scene);
    writer.setProgress([](int percent) { return percent < 50; });
    VxFileError error;
    QVERIFY(!writer.writeFile(name, &error));
    QVERIFY(error.cancelled);
    QVERIFY(!QFile::exists(name));
}

void TestSceneFile::failedWriteLeavesTheFormerFile()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("missing/walk.vxscene"));
    VxScene scene;
    VxFileError error;
    QVERIFY(!VxSceneWriter(&scene).writeFile(name, &error));
    QVERIFY(error.text().contains(QLatin1String("The file cannot be written")));
}

void TestSceneFile::fullDiskIsReported()
{
    QFile full(QStringLiteral("/dev/full"));
    QVERIFY(full.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    VxScene scene;
    WalkSample::build(&scene);
    VxFileError error;
    QVERIFY(!VxSceneWriter(&scene).write(&full, &error));
    QVERIFY2(error.message.contains(QLatin1String("No space left")), qPrintable(error.text()));
}

void TestSceneFile::missingFileIsNamed()
{
    VxSceneContents contents;
    VxFileError error;
    QVERIFY(!VxSceneReader().readFile(QStringLiteral("nowhere.vxscene"), &contents, &error));
    QVERIFY(error.text().contains(QLatin1String("nowhere.vxscene")));
}

VX_TEST_GUILESS_MAIN(TestSceneFile)
#include "tst_vxscenefile.moc"

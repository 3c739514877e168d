// Scene files: what is written is read back, byte for byte.

#include "io/vxscenecamera.h"
#include "scenefilebytes.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QCborArray>
#include <vxcore/vxbone.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxscenetimedisplay.h>
#include <vxcore/vxstringproperty.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

class TestSceneFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void sampleRoundTripsByteForByte();
    void everyTraitRoundTrips();
    void textsRoundTrip_data();
    void textsRoundTrip();
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

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestSceneFile::sampleRoundTripsByteForByte()
{
    const QByteArray bytes = sampleBytes();
    QVERIFY(bytes.size() > 10000);
    VxScene scene;
    VxFileError error;
    QVERIFY2(loadScene(bytes, &scene, &error), qPrintable(error.text()));
    QCOMPARE(sceneBytes(&scene), bytes);
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

    const QByteArray bytes = sceneBytes(&scene);
    VxScene copy;
    VxFileError error;
    QVERIFY2(loadScene(bytes, &copy, &error), qPrintable(error.text()));
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
    QCOMPARE(sceneBytes(&copy), bytes);
}

void TestSceneFile::textsRoundTrip_data()
{
    QTest::addColumn<QString>("text");
    const QString mark = QChar(0xFEFF);
    QTest::newRow("a byte order mark first") << mark + "walk";
    QTest::newRow("nothing but a byte order mark") << mark;
    QTest::newRow("a long text with a byte order mark first") << mark + QString(300, 'n');
    QTest::newRow("a null character") << "a" + QString(QChar(0)) + "b";
    QTest::newRow("many letters of three bytes") << QString(5000, QChar(0x6B69));
}

void TestSceneFile::textsRoundTrip()
{
    QFETCH(QString, text);
    VxScene scene;
    auto *node = new VxNode(QStringLiteral("n"));
    node->setLabel(text);
    scene.addNode(node);
    VxScene read;
    VxFileError error;
    QVERIFY2(loadScene(sceneBytes(&scene), &read, &error), qPrintable(error.text()));
    QVERIFY(read.findNode(QStringLiteral("n"))->getLabel() == text);
}

void TestSceneFile::identifiersRoundTrip()
{
    VxScene scene;
    for (const char *name : {"a", "b", "c"})
        scene.addNode(new VxNode(QLatin1String(name)));
    scene.removeNode(scene.findNode(QStringLiteral("a")));
    VxScene read;
    VxFileError error;
    QVERIFY(loadScene(sceneBytes(&scene), &read, &error));
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
    QVERIFY2(loadScene(QCborValue(map).toCbor(), &read, &error), qPrintable(error.text()));
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
    const QByteArray bytes = sceneBytes(&scene);
    VxScene copy;
    VxFileError error;
    QVERIFY2(loadScene(bytes, &copy, &error), qPrintable(error.text()));
    QVERIFY(VxSceneCamera::stateOf(&copy) == camera);
    QCOMPARE(sceneBytes(&copy), bytes);
    // Numbers out of range are no reason to refuse a scene.
    QCborMap map = QCborValue::fromCbor(bytes).toMap();
    map.insert(QStringLiteral("camera"), QCborMap{{QStringLiteral("distance"), -1.0},
                                                  {QStringLiteral("pitch"), 1000},
                                                  {QStringLiteral("lens"), 1}});
    QVERIFY2(loadScene(map.toCborValue().toCbor(), &copy, &error), qPrintable(error.text()));
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
    const QByteArray bytes = sceneBytes(&scene);
    VxScene copy;
    VxFileError error;
    QVERIFY2(loadScene(bytes, &copy, &error), qPrintable(error.text()));
    const VxMarkerList read = VxMarkers::listOf(&copy);
    QCOMPARE(read.size(), 2);
    QCOMPARE(read.at(0).name, point.name);
    QCOMPARE(read.at(0).span, point.span);
    QCOMPARE(read.at(0).color, VxMarker::DefaultColor);
    QCOMPARE(read.at(1).name, QString());
    QCOMPARE(read.at(1).span, span.span);
    QCOMPARE(read.at(1).color, span.color);
    QCOMPARE(sceneBytes(&copy), bytes);
    // A later version's member is skipped; markers of the former scene are not kept.
    QCborMap map = QCborValue::fromCbor(bytes).toMap();
    map.insert(QStringLiteral("markers"),
               QCborArray{QCborMap{{QStringLiteral("icon"), 3}, {QStringLiteral("start"), 7}}});
    VxSceneContents contents;
    QVERIFY(VxSceneReader().read(map.toCborValue().toCbor(), &contents, &error));
    QCOMPARE(contents.unknownMembers, QStringList{QStringLiteral("icon")});
    VxSceneReader::install(std::move(contents), &copy);
    QCOMPARE(VxMarkers::listOf(&copy).size(), 1);
    QVERIFY(loadScene(sampleBytes(), &copy, &error));
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
        QVERIFY2(loadScene(sceneBytes(&scene), &copy, &error), qPrintable(error.text()));
        QVERIFY(VxSceneTimeDisplay::displayOf(&copy) == display);
        QCOMPARE(sceneBytes(&copy), sceneBytes(&scene));
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
    QVERIFY2(loadScene(sceneBytes(&scene), &copy, &error), qPrintable(error.text()));
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
    QVERIFY2(loadScene(sceneBytes(&scene), &copy, &error), qPrintable(error.text()));
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
    const QByteArray bytes = sceneBytes(&scene);
    QVERIFY2(loadScene(bytes, &copy, &error), qPrintable(error.text()));
    VxNode *read = copy.findNode(QStringLiteral("first"));
    VxNode *target = copy.findNode(QStringLiteral("second"));
    QCOMPARE(read->getXPosControl()->getAliasedProperty(), target->getXPosControl());
    QCOMPARE(read->getYPosControl()->getLinkedProperty(), target->getXPosControl());
    QVERIFY(read->getYPosControl()->isLinkTerminal());
    QCOMPARE(read->getYPosControl()->getValue(0), 11.0f);
    QCOMPARE(read->getZPosControl()->getOverridingControl(), target->getYPosControl());
    QCOMPARE(sceneBytes(&copy), bytes);
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
    const QByteArray before = sceneBytes(&scene);
    QVERIFY(refer(keyed, number) && refer(stored, number) && refer(count, whole));
    QVERIFY(refer(text, note));

    VxScene copy;
    VxFileError error;
    QVERIFY2(loadScene(sceneBytes(&scene), &copy, &error), qPrintable(error.text()));
    VxNode *read = copy.findNode(QStringLiteral("n"));
    QCOMPARE(static_cast<VxFloatProperty *>(read->findProperty("keyed"))->getValue(200), 100.0f);
    QCOMPARE(static_cast<VxStringProperty *>(read->findProperty("text"))->getValue(),
             QStringLiteral("theirs"));
    for (const char *name : {"keyed", "stored", "count", "text"})
        QVERIFY(refer(read->findProperty(QLatin1String(name)), nullptr));
    QCOMPARE(sceneBytes(&copy).toHex(' '), before.toHex(' '));
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
    QVERIFY2(loadScene(sceneBytes(&scene), &copy, &error), qPrintable(error.text()));
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
    QVERIFY2(loadScene(sceneBytes(&scene), &copy, &error), qPrintable(error.text()));
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
    QVERIFY(loadScene(sampleBytes(), &scene, &error));
    QCOMPARE(starting.count(), 1);
    QCOMPARE(loaded.count(), 1);
    QCOMPARE(scene.findNode(QStringLiteral("old")), nullptr);
    QCOMPARE(stack.count(), 0);
}

VX_TEST_GUILESS_MAIN(TestSceneFile)
#include "tst_vxscenefile.moc"

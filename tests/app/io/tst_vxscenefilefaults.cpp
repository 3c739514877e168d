// Scene files: what is broken is refused whole, and a file that cannot be written changes nothing.

#include "scenefilebytes.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QCborArray>
#include <QTemporaryDir>
#include <random>
#include <vxcore/vxmarkers.h>

class TestSceneFileFaults : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

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

void TestSceneFileFaults::unknownMembersAreReported()
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

void TestSceneFileFaults::brokenFiles_data()
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

void TestSceneFileFaults::brokenFiles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    VxScene scene;
    scene.addNode(new VxNode(QStringLiteral("kept")));
    VxMarkers::of(&scene)->add(VxMarker());
    VxFileError error;
    QVERIFY(!loadScene(bytes, &scene, &error));
    QCOMPARE(VxMarkers::listOf(&scene).size(), 1);
    QVERIFY2(error.message.contains(message), qPrintable(error.text()));
    QVERIFY(error.offset >= 0);
    QVERIFY(scene.findNode(QStringLiteral("kept")));
}

void TestSceneFileFaults::groupsNestedTooDeeplyAreRefused()
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
        QCOMPARE(loadScene(sceneBytes(&scene), &copy, &error), depth <= 64);
        if (depth <= 64)
            QCOMPARE(copy.findNode("n")->findProperty("deep")->getPath(), path);
        else
            QVERIFY2(error.message.contains("\"deep\" are nested too deeply"),
                     qPrintable(error.text()));
    }
}

void TestSceneFileFaults::keysOutOfOrderAreRefused()
{
    VxScene scene;
    auto *node = new VxNode(QStringLiteral("n"));
    scene.addNode(node);
    node->getXPosControl()->setKey(0x01020304, 1.0f, 0);
    node->getXPosControl()->setKey(0x01020305, 1.0f, 0);
    QByteArray bytes = sceneBytes(&scene);
    const int place = bytes.indexOf(QByteArrayLiteral("\x04\x03\x02\x01\x05\x03\x02\x01"));
    QVERIFY(place > 0);
    bytes[place] = '\x06';
    bytes.replace("crc32", "other"); // an older file has no checksums
    VxScene copy;
    VxFileError error;
    QVERIFY(!loadScene(bytes, &copy, &error));
    QVERIFY2(error.message.contains(QLatin1String("not in time order")), qPrintable(error.text()));
}

void TestSceneFileFaults::cutOffAnywhereIsRefused()
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

void TestSceneFileFaults::mutatedFilesNeverCrash()
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

void TestSceneFileFaults::readingCanBeCancelled()
{
    VxSceneReader reader;
    reader.setProgress([](int percent) { return percent < 50; });
    VxSceneContents contents;
    VxFileError error;
    QVERIFY(!reader.read(sampleBytes(), &contents, &error));
    QVERIFY(error.cancelled);
    QVERIFY(contents.rootNodes.empty());
}

void TestSceneFileFaults::writingCanBeCancelled()
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

void TestSceneFileFaults::failedWriteLeavesTheFormerFile()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("missing/walk.vxscene"));
    VxScene scene;
    VxFileError error;
    QVERIFY(!VxSceneWriter(&scene).writeFile(name, &error));
    QVERIFY(error.text().contains(QLatin1String("The file cannot be written")));
}

void TestSceneFileFaults::fullDiskIsReported()
{
    QFile full(QStringLiteral("/dev/full"));
    QVERIFY(full.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    VxScene scene;
    WalkSample::build(&scene);
    VxFileError error;
    QVERIFY(!VxSceneWriter(&scene).write(&full, &error));
    QVERIFY2(error.message.contains(QLatin1String("No space left")), qPrintable(error.text()));
}

void TestSceneFileFaults::missingFileIsNamed()
{
    VxSceneContents contents;
    VxFileError error;
    QVERIFY(!VxSceneReader().readFile(QStringLiteral("nowhere.vxscene"), &contents, &error));
    QVERIFY(error.text().contains(QLatin1String("nowhere.vxscene")));
}

VX_TEST_GUILESS_MAIN(TestSceneFileFaults)
#include "tst_vxscenefilefaults.moc"

// glTF files in both forms, with data beside them, and broken.

#include "gltfreading.h"
#include "testing/vxtestmain.h"

#include <QTemporaryDir>
#include <QtTest>
#include <vxcore/vxfloatproperty.h>

class tst_VxGltfFiles : public QObject, private GltfReading
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void binaryFormIsTheSame();
    void dataBesideTheFile();
    void brokenFilesGiveOneMessage_data();
    void brokenFilesGiveOneMessage();
};

void tst_VxGltfFiles::binaryFormIsTheSame()
{
    GltfSample sample = oneNode("translation", "LINEAR", {1, 0, 0, 2, 0, 0, 3, 0, 0}, "VEC3", 3);
    QJsonObject json = sample.json();
    json.insert("buffers", QJsonArray{QJsonObject{{"byteLength", sample.data.size()}}});
    QByteArray text = QJsonDocument(json).toJson(QJsonDocument::Compact);
    while (text.size() % 4)
        text.append(' ');
    const auto word = [](quint32 number) {
        QByteArray bytes(4, 0);
        qToLittleEndian(number, bytes.data());
        return bytes;
    };
    const QByteArray chunks = word(quint32(text.size())) + "JSON" + text +
                              word(quint32(sample.data.size())) + QByteArray("BIN\0", 4) +
                              sample.data;
    const QByteArray glb = "glTF" + word(2) + word(quint32(chunks.size() + 12)) + chunks;
    QVERIFY2(read(glb), qPrintable(m_error.text()));
    QCOMPARE(node("cube")->getXPosControl()->getValue(3 * VxTicksPerSecond), 3.0f);
    // Every place at which the file may end, but the padding of its last block.
    for (int size = 0; size + 1 < glb.size(); size += 3) {
        QVERIFY2(!read(glb.left(size)), qPrintable(QString::number(size)));
        QVERIFY(!m_error.message.isEmpty());
    }
}

void tst_VxGltfFiles::dataBesideTheFile()
{
    QTemporaryDir dir;
    const GltfSample sample =
        oneNode("translation", "LINEAR", {1, 0, 0, 2, 0, 0, 3, 0, 0}, "VEC3", 3);
    QFile file(dir.filePath("the data.bin"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(sample.data) == sample.data.size());
    file.close();
    const auto with = [&sample](const char *uri) {
        QJsonObject json = sample.json();
        json.insert("buffers", QJsonArray{QJsonObject{{"byteLength", sample.data.size()},
                                                      {"uri", QLatin1String(uri)}}});
        return QJsonDocument(json).toJson();
    };
    QVERIFY2(read(with("the%20data.bin"), dir.path()), qPrintable(m_error.text()));
    QCOMPARE(node("cube")->getXPosControl()->getNumKeys(), 3);
    QDir(dir.path()).mkdir("below");
    for (const char *uri : {"../the%20data.bin", "/etc/passwd", "file:///etc/passwd",
                            "http://example.org/data.bin", ""}) {
        QVERIFY2(!read(with(uri), dir.filePath("below")), uri);
        QVERIFY2(m_error.message.contains("outside"), qPrintable(m_error.message));
    }
    QVERIFY(!read(with("missing.bin"), dir.path()));
    QVERIFY(m_error.message.contains("missing.bin"));
}

void tst_VxGltfFiles::brokenFilesGiveOneMessage_data()
{
    QTest::addColumn<QByteArray>("part");
    QTest::addColumn<QByteArray>("instead");
    QTest::addColumn<QString>("message");
    QTest::newRow("no JSON") << QByteArray("{") << QByteArray("(") << "Invalid JSON";
    QTest::newRow("another version")
        << QByteArray("\"2.0\"") << QByteArray("\"3.1\"") << "version 3.1";
    QTest::newRow("a node its own ancestor")
        << QByteArray("\"name\":\"cube\"") << QByteArray("\"children\":[0]") << "its own ancestor";
    QTest::newRow("a child that is not there")
        << QByteArray("\"name\":\"cube\"") << QByteArray("\"children\":[77]") << "does not exist";
    QTest::newRow("a child by a fraction")
        << QByteArray("\"name\":\"cube\"") << QByteArray("\"children\":[0.5]") << "does not exist";
    QTest::newRow("a matrix of words")
        << QByteArray("\"name\":\"cube\"") << QByteArray("\"matrix\":[\"a\"]") << "not numbers";
    QTest::newRow("billions of keys")
        << QByteArray("\"count\":3") << QByteArray("\"count\":3000000000")
        << "more than can be read";
    QTest::newRow("more keys than bytes")
        << QByteArray("\"count\":3") << QByteArray("\"count\":300000") << "too few";
    QTest::newRow("fewer values than times")
        << QByteArray("\"count\":3,\"type\":\"VEC3\"")
        << QByteArray("\"count\":1,\"type\":\"VEC3\"") << "numbers per key";
    QTest::newRow("a view beyond the data")
        << QByteArray("\"byteOffset\":0") << QByteArray("\"byteOffset\":4000000000") << "beyond";
    QTest::newRow("a stride within an element")
        << QByteArray("\"byteOffset\":12") << QByteArray("\"byteOffset\":12,\"byteStride\":2")
        << "stride";
    QTest::newRow("an unknown kind of number")
        << QByteArray("5126") << QByteArray("5130") << "Invalid description";
    QTest::newRow("a sampler that is not there")
        << QByteArray("\"sampler\":0") << QByteArray("\"sampler\":-1") << "does not exist";
    QTest::newRow("a node that is not there")
        << QByteArray("\"node\":0") << QByteArray("\"node\":9") << "does not exist";
    QTest::newRow("an unknown interpolation")
        << QByteArray("LINEAR") << QByteArray("BEZIER") << "BEZIER";
    QTest::newRow("compressed data")
        << QByteArray("\"byteOffset\":0")
        << QByteArray("\"byteOffset\":0,\"extensions\":{\"EXT_meshopt_compression\":{}}")
        << "without compression";
    QTest::newRow("data that is none")
        << QByteArray("base64,") << QByteArray("base64,!!") << "damaged";
}

void tst_VxGltfFiles::brokenFilesGiveOneMessage()
{
    QFETCH(QByteArray, part);
    QFETCH(QByteArray, instead);
    QFETCH(QString, message);
    const GltfSample sample =
        oneNode("translation", "LINEAR", {1, 0, 0, 2, 0, 0, 3, 0, 0}, "VEC3", 3);
    QByteArray text = QJsonDocument(sample.json()).toJson(QJsonDocument::Compact);
    QVERIFY2(read(text), qPrintable(m_error.text()));
    const VxNode *former = node("cube");
    const int at = text.indexOf(part);
    QVERIFY(at >= 0);
    text.replace(at, part.size(), instead);
    QVERIFY(!read(text));
    QVERIFY2(m_error.message.contains(message), qPrintable(m_error.message));
    QCOMPARE(node("cube"), former); // what was read before is untouched
}

VX_TEST_GUILESS_MAIN(tst_VxGltfFiles)
#include "tst_vxgltffiles.moc"

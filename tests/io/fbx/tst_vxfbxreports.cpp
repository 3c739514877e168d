// What the reader refuses, and what it reports as changed or left out.

#include "fbxcomparison.h"
#include "fbxsamples.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <limits>
#include <memory>

using fbxcomparison::readGood;
using namespace fbxsamples;

class TestVxFbxReports : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void coarseSamplingIsReported();
    void extrapolationIsReported_data();
    void extrapolationIsReported();
    void keysOutOfOrder();
    void refuses_data();
    void refuses();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestVxFbxReports::coarseSamplingIsReported()
{
    for (const float turns : {0.5f, 1000.0f}) {
        Document document = layered({});
        document.layer(layerId + 2, stackId);
        animate(&document, 3500, layerId + 2, 1, "Lcl Rotation", {0, 360 * turns, 0}, {0, 0, 0},
                {0, 100 * turns, 0});
        const VxImportedMotion motion = readGood(document.write({}));
        QCOMPARE(motion.facts.notes.filter(QStringLiteral("too fast")).isEmpty(), turns < 10);
    }
}

void TestVxFbxReports::extrapolationIsReported_data()
{
    QTest::addColumn<char>("letter");
    QTest::addColumn<bool>("isReported");
    QTest::newRow("constant") << 'C' << false;
    QTest::newRow("slope") << 'K' << true;
    QTest::newRow("repeat") << 'R' << true;
    QTest::newRow("mirror") << 'M' << true;
    QTest::newRow("repeat with an offset") << 'A' << true;
}

void TestVxFbxReports::extrapolationIsReported()
{
    QFETCH(char, letter);
    QFETCH(bool, isReported);
    const Record after{
        "Post-Extrapolation",
        {},
        {{"Type", {fbxdocument::Value::letter(letter)}, {}}, {"Repetition", {-1}, {}}}};
    const Document document = oneCurve({0, 1}, {0, 40}, linear, noData, {after});
    for (const Format &format : allFormats()) {
        const VxImportedMotion motion = readGood(document.write(format));
        bool hasNote = false;
        for (const QString &note : motion.facts.notes)
            hasNote = hasNote || note.contains(QLatin1String("outside of their keys"));
        QVERIFY2(hasNote == isReported, nameOf(format));
    }
}

void TestVxFbxReports::keysOutOfOrder()
{
    constexpr float none = std::numeric_limits<float>::quiet_NaN();
    const Document document = oneCurve({0, 2, 1, 1, 3}, {0, 20, 10, 11, none}, linear, noData);
    const VxImportedMotion motion = readGood(document.write({}));
    const VxMotionCurve &curve = motion.clips.at(0).channels.at(0).curve;
    QCOMPARE(curve.times, (std::vector<double>{0, 1, 2}));
    QCOMPARE(curve.values, (std::vector<double>{0, 11, 20}));
    QCOMPARE(motion.facts.notes.size(), 3);
}

void TestVxFbxReports::refuses_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *name, const QByteArray &bytes, const char *reason) {
        QTest::newRow(name) << bytes << QString::fromLatin1(reason);
    };
    const QByteArray binary = chain({}).write({});
    const QByteArray text = chain({}).write({true, 7700, false});
    row("nothing", "", "version is missing");
    row("other text", "hello world", "outside of all records");
    row("an old version", chain({}).write({true, 6100, false}), "version 6.1 is not supported");
    row("an old binary version", chain({}).write({false, 6100, false}), "version 6.1");
    row("the end of a binary file missing", binary.chopped(40), "ends");
    row("the end of a text missing", text.chopped(40), "ends inside");
    row("a brace too many", text + "}", "Unmatched");
    row("no objects", QByteArray("FBXHeaderExtension: {\nFBXVersion: 7400\n}\n"), "Objects");
    Document circle;
    circle.model(1, 2, "a", {});
    circle.model(2, 1, "b", {});
    row("parents in a circle", circle.write({}), "form a cycle");
    Document own;
    own.model(1, 1, "a", {});
    row("a node below itself", own.write({true, 7400, false}), "form a cycle");
    Document counts = oneCurve({0, 1}, {0, 40}, linear, noData);
    counts.objects().last().children[2].values = {fbxdocument::Value(QVector<float>{1, 2, 3})};
    row("more values than times", counts.write({}), "2 key times and 3 key values");
    Document runs = oneCurve({0, 1}, {0, 40}, linear, noData);
    runs.objects().last().children[5].values = {fbxdocument::Value('i', {5})};
    row("runs that are too long", runs.write({true, 7400, false}), "do not add up");
    Document far = oneCurve({0, 1e6}, {0, 40}, linear, noData);
    row("a key in a million seconds", far.write({}), "440000 seconds");
    row("nothing but braces", QByteArray("a:{").repeated(100000), "nested more than");
    QByteArray bomb = oneCurve({0, 1}, {0, 40}, linear, noData).write({true, 7400, false});
    bomb.replace("KeyTime: *2", "KeyTime: *2000000000");
    row("a count by billions", bomb, "declares more values");
    // Two times 512 MB of zeros in half a megabyte each.
    Document zeros = oneCurve({0, 1}, {0, 40}, linear, noData);
    zeros.objects().last().children[1].values = {
        fbxdocument::Value('l', QVector<double>(8 * 1000 * 1000, 0.0))};
    row("a deflate bomb", zeros.write({false, 7400, true}), "too large for its size");
}

void TestVxFbxReports::refuses()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    VxImportedMotion motion;
    motion.nodes.resize(1);
    VxFileError error;
    QVERIFY(!vxReadFbx(bytes, {}, &motion, &error));
    QVERIFY2(error.message.contains(reason), qPrintable(error.text()));
    QVERIFY((error.line >= 1) != (error.offset >= 0));
    QCOMPARE(motion.nodes.size(), std::size_t(1));
}

VX_TEST_MAIN(TestVxFbxReports)
#include "tst_vxfbxreports.moc"

#include "io/bvh/vxbvhreader.h"
#include "io/bvh/vxbvhwriter.h"
#include "testing/vxtestmain.h"
#include "testing/vxtestmodels.h"
#include "testing/vxwarningguard.h"

#include <QTemporaryDir>
#include <QtTest>
#include <limits>
#include <memory>

namespace {

// Lines 1 to 10; "MOTION" is line 8, "Frames:" 9, "Frame Time:" 10, the first row 11.
const QByteArray smallHead = "HIERARCHY\n"
                             "ROOT hip\n"
                             "{\n"
                             "  OFFSET 1 2 3\n"
                             "  CHANNELS 3 Zrotation Xrotation Yrotation\n"
                             "  End Site { OFFSET 0 1 0 }\n"
                             "}\n"
                             "MOTION\n";
const QByteArray smallCounts = "Frames: 2\nFrame Time: .0083333\n";
const QByteArray smallRows = "1 2 3\n4 5 6\n";
const QByteArray smallFile = smallHead + smallCounts + smallRows;

QByteArray replaced(const char *before, const char *after)
{
    QByteArray bytes = smallFile;
    Q_ASSERT(bytes.contains(before));
    return bytes.replace(before, after);
}

QByteArray nested(int depth)
{
    QByteArray bytes = "HIERARCHY\n";
    for (int i = 0; i < depth; ++i)
        bytes += (i ? "JOINT j" : "ROOT j") + QByteArray::number(i) + " {\nOFFSET 0 0 0\n";
    return bytes + QByteArray(depth, '}') + "\nMOTION\nFrames: 0\nFrame Time: 1\n";
}

VxBvhDocument readGood(const QByteArray &bytes)
{
    VxBvhDocument document;
    VxFileError error;
    if (!vxReadBvh(bytes, &document, &error))
        QTest::qFail(qPrintable(error.text()), __FILE__, __LINE__);
    QString reason;
    if (!document.isValid(&reason))
        QTest::qFail(qPrintable(reason), __FILE__, __LINE__);
    return document;
}

std::vector<float> columns(std::initializer_list<float> values)
{
    return values;
}

/// Returns the file's name.
QString writeFile(const QTemporaryDir &folder, const char *name, const QByteArray &bytes)
{
    QFile file(folder.filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s cannot be written", name);
    return file.fileName();
}

} // namespace

class TestVxBvhReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void readsTheSmallFile();
    void accepts_data();
    void accepts();
    void refuses_data();
    void refuses();
    void keepsNames_data();
    void keepsNames();
    void readsSeveralRootsAndBranches();
    void restPoseHasNoValues();
    void nestingLimit();
    void failureLeavesTheDocument();
    void numbersAreExact();
    void numbersTooSmallForDoublesAreZero_data();
    void numbersTooSmallForDoublesAreZero();
    void errorNamesFileAndLine();
    void missingFile();
    void realFiles_data();
    void realFiles();
    void realFileWithARowTooMany();
    void cancels();
    void progressAscends();
    void valuesInAHugeClaimCostNothing();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestVxBvhReader::readsTheSmallFile()
{
    const VxBvhDocument document = readGood(smallFile);
    QCOMPARE(document.joints.size(), std::size_t(1));
    const VxBvhJoint &hip = document.joints.front();
    QCOMPARE(hip.name, QStringLiteral("hip"));
    QCOMPARE(hip.parent, -1);
    QVERIFY(hip.offset == (QVector3D{1, 2, 3}));
    QVERIFY(hip.channels ==
            (std::vector<VxBvhChannel>{VxBvhChannel::ZRotation, VxBvhChannel::XRotation,
                                       VxBvhChannel::YRotation}));
    QVERIFY(hip.endSites == (std::vector<QVector3D>{{0, 1, 0}}));
    QCOMPARE(document.frameCount, 2);
    QCOMPARE(document.frameTime, 0.0083333);
    QVERIFY(document.values == columns({1, 4, 2, 5, 3, 6}));
    QCOMPARE(document.channelValues(1)[1], 5.0f);
}

// Every row reads to the same document as the small file.
void TestVxBvhReader::accepts_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](const char *name, const QByteArray &bytes) {
        QTest::newRow(name) << bytes;
    };
    row("as it is", smallFile);
    row("line ends of CR LF", QByteArray(smallFile).replace("\n", "\r\n"));
    row("line ends of CR alone", QByteArray(smallFile).replace("\n", "\r"));
    row("tabs for blanks", QByteArray(smallFile).replace(" ", "\t"));
    row("keywords in lower case", QByteArray(smallFile).toLower());
    row("keywords in upper case", QByteArray(smallFile).toUpper().replace("HIP", "hip"));
    row("blank lines at the end", smallFile + "\n \n\t\n");
    row("no line end at the end", smallFile.trimmed());
    row("blanks at the ends of lines", QByteArray(smallFile).replace("\n", "  \n"));
    row("blank lines everywhere", QByteArray(smallFile).replace("\n", "\n\n"));
    row("a byte order mark", "\xEF\xBB\xBF" + smallFile);
    row("brace on the line of the name", replaced("hip\n{", "hip {"));
    row("brace at the end of the name", replaced("hip\n{", "hip{"));
    row("no blank after the colons", QByteArray(smallFile).replace(": ", ":"));
    row("blanks before the colons", QByteArray(smallFile).replace(":", " :"));
    row("channels before the offset", QByteArray(smallFile)
                                          .replace("  OFFSET 1 2 3\n", "")
                                          .replace("Yrotation\n", "Yrotation\nOFFSET 1 2 3\n"));
    row("channel names over lines", replaced("Zrotation X", "\nZrotation\nX"));
    row("a frame over two lines", replaced("1 2 3", "1 2\n3"));
    row("a value a line", replaced("1 2 3\n4 5 6", "1\n2\n3\n4\n5\n6"));
    row("all frames on one line", replaced("3\n4", "3 4"));
    row("plus signs", replaced("1 2 3\n4", "+1 +2 +3\n+4"));
    row("exponents", replaced("4 5 6", "400e-2 .5E1 0.6e+1"));
    row("decimals", replaced("4 5 6", "4. 5.0 6.000000"));
    row("a plus sign at a count", replaced("Frames: 2", "Frames: +2"));
}

void TestVxBvhReader::accepts()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(readGood(bytes) == readGood(smallFile));
}

void TestVxBvhReader::refuses_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("part");
    const auto row = [](const char *name, const QByteArray &bytes, int line, const char *part) {
        QTest::newRow(name) << bytes << line << QString::fromUtf8(part);
    };
    row("empty file", "", 1, "empty");
    row("nothing but blanks", " \n\t\n \n", 3, "empty");
    row("another text", "solid cube\n", 1,
        "not a BVH file: \"HIERARCHY\" expected, found \"solid\"");
    row("no HIERARCHY", smallFile.mid(10), 1, "\"HIERARCHY\" expected, found \"ROOT\"");
    row("no ROOT", "HIERARCHY\nMOTION\n", 2, "\"ROOT\" expected, found \"MOTION\"");
    row("nothing after HIERARCHY", "HIERARCHY\n\n", 2, "no ROOT");
    row("JOINT in the place of ROOT", replaced("ROOT", "JOINT"), 2, "\"ROOT\" expected");
    row("no MOTION", smallHead.left(smallHead.size() - 7), 7, "\"MOTION\" is missing");
    row("values in the place of MOTION", replaced("MOTION\n", ""), 8, "or \"MOTION\" expected");
    row("no Frames", replaced("Frames: 2\n", ""), 9, "\"Frames:\" expected, found \"Frame\"");
    row("end after MOTION", smallHead, 8, "\"Frames:\" is missing");
    row("no Frame Time", replaced("Frame Time: .0083333\n", ""), 10, "\"Frame Time:\" expected");
    row("end after Frames", smallHead + "Frames: 2\n", 9, "\"Frame Time:\" is missing");
    row("Frame without Time", replaced("Frame Time: .0083333", "Frame rate: 4"), 10,
        "\"Frame Time:\"");
    row("name missing", replaced("ROOT hip", "ROOT"), 2, "no name");
    row("brace in the place of the name", replaced("ROOT hip\n{", "ROOT {"), 2, "no name");
    row("two opening braces", replaced("ROOT hip\n{", "ROOT hip {{"), 2, "Unexpected \"{\"");
    row("no opening brace", replaced("{\n", "\n"), 4,
        "\"{\" of joint \"hip\" expected, found \"OFFSET\"");
    row("no closing brace", replaced("}\nMOTION", "\nMOTION"), 8,
        "Joint \"hip\" (line 2) is not closed with \"}\": found \"MOTION\"");
    row("a closing brace too many", replaced("}\nMOTION", "}\n}\nMOTION"), 8, "Unmatched \"}\"");
    row("end within a joint", smallHead.left(smallHead.indexOf("  CHANNELS")), 4, "Joint \"hip\"");
    row("ROOT within a joint", replaced("End Site", "ROOT b"), 6, "not closed");
    row("unknown word in a joint", replaced("CHANNELS 3", "CHANELS 3"), 5, "found \"CHANELS\"");
    row("no OFFSET", replaced("  OFFSET 1 2 3\n", ""), 5, "\"OFFSET\" of joint \"hip\" expected");
    row("second OFFSET", replaced("OFFSET 1 2 3", "OFFSET 1 2 3 OFFSET 1 2 3"), 4,
        "second \"OFFSET\"");
    row("offset of two numbers", replaced("OFFSET 1 2 3", "OFFSET 1 2"), 5,
        "offset of joint \"hip\" must be a number, not \"CHANNELS\"");
    row("offset not finite", replaced("OFFSET 1 2 3", "OFFSET 1 nan 3"), 4, "finite, not \"nan\"");
    row("offset out of range", replaced("OFFSET 1 2 3", "OFFSET 1 2 3e39"), 4,
        "out of range: \"3e39\"");
    row("second CHANNELS", replaced("  End Site", "CHANNELS 1 Xposition\n End Site"), 6,
        "second \"CHANNELS\"");
    row("CHANNELS after a child",
        "HIERARCHY\nROOT a {\nOFFSET 0 0 0\nJOINT b {\nOFFSET 0 0 0\n}\nCHANNELS 0\n}", 7,
        "precede its children");
    row("a duplicate channel", replaced("Xrotation", "Zrotation"), 5,
        "channel \"Zrotation\" twice");
    row("unknown channel", replaced("Xrotation", "Xscale"), 5, "found \"Xscale\"");
    row("fewer channels than announced", replaced("CHANNELS 3", "CHANNELS 4"), 6, "found \"End\"");
    row("more channels than announced", replaced("CHANNELS 3", "CHANNELS 2"), 5,
        "found \"Yrotation\"");
    row("a million channels", replaced("CHANNELS 3", "CHANNELS 1000000"), 5,
        "cannot have 1000000 channels");
    row("channels negative", replaced("CHANNELS 3", "CHANNELS -3"), 5, "cannot be negative: -3");
    row("channels beyond 64 bits", replaced("CHANNELS 3", "CHANNELS 99999999999999999999"), 5,
        "too large");
    row("channels not a number", replaced("CHANNELS 3", "CHANNELS three"), 5,
        "whole number, not \"three\"");
    row("End without Site", replaced("End Site", "End Effector"), 6, "\"End Site\" expected");
    row("end site without offset", replaced("{ OFFSET 0 1 0 }", "{ }"), 6,
        "\"OFFSET\" of the end site");
    row("end site not closed", replaced("{ OFFSET 0 1 0 }\n}", "{ OFFSET 0 1 0\nJOINT b {"), 7,
        "\"}\" of the end site");
    row("frames negative", replaced("Frames: 2", "Frames: -2"), 9, "cannot be negative: -2");
    row("frames with decimals", replaced("Frames: 2", "Frames: 2.5"), 9,
        "whole number, not \"2.5\"");
    row("frames not a number", replaced("Frames: 2", "Frames: many"), 9, "whole number");
    row("frames missing", replaced("Frames: 2", "Frames:"), 10, "whole number, not \"Frame\"");
    row("frames beyond 31 bits", replaced("Frames: 2", "Frames: 3000000000"), 9, "Too many");
    row("frames beyond 64 bits", replaced("Frames: 2", "Frames: 99999999999999999999"), 9,
        "too large");
    row("more frames than the bytes can hold", replaced("Frames: 2", "Frames: 2000000000"), 9,
        "2000000000 frames of 3 values are declared");
    row("frames without channels", replaced("  CHANNELS 3 Zrotation Xrotation Yrotation\n", ""), 8,
        "no joint has a channel");
    row("frame time zero", replaced(".0083333", "0"), 10, "must be greater than 0, not 0");
    row("frame time negative", replaced(".0083333", "-.01"), 10,
        "must be greater than 0, not -.01");
    row("frame time infinite", replaced(".0083333", "inf"), 10, "finite, not \"inf\"");
    row("frame time out of range", replaced(".0083333", "1e400"), 10, "out of range");
    row("frame time a word", replaced(".0083333", "fast"), 10, "must be a number, not \"fast\"");
    row("frame time missing", smallHead + "Frames: 0\nFrame Time:\n", 10, "frame time is missing");
    row("a word in the motion", replaced("4 5 6", "4 five 6"), 12,
        "Value 2 of frame 2 must be a number, not \"five\"");
    row("a decimal comma", replaced("4 5 6", "4 5,5 6"), 12, "not \"5,5\"");
    row("a value not a number", replaced("4 5 6", "4 NaN 6"), 12, "finite, not \"NaN\"");
    row("a value infinite", replaced("4 5 6", "4 -inf 6"), 12, "finite, not \"-inf\"");
    row("a value that overflowed elsewhere", replaced("4 5 6", "4 1.#QNAN 6"), 12,
        "not \"1.#QNAN\"");
    row("a value out of range", replaced("4 5 6", "4 1e40 6"), 12, "out of range: \"1e40\"");
    row("a value with two signs", replaced("4 5 6", "4 +-5 6"), 12, "not \"+-5\"");
    row("a hexadecimal value", replaced("4 5 6", "4 0x5 6"), 12, "not \"0x5\"");
    row("an exponent cut off", replaced("4 5 6", "4 5e 6"), 12, "not \"5e\"");
    row("a brace in the motion", replaced("4 5 6", "4 } 6"), 12, "not \"}\"");
    row("a bad value in a frame over lines", replaced("4 5 6", "4\n5\nx"), 14,
        "Value 3 of frame 2");
    row("a bad value with CR LF", replaced("4 5 6", "4 x 6").replace("\n", "\r\n"), 12,
        "not \"x\"");
    row("a bad value with CR alone", replaced("4 5 6", "4 x 6").replace("\n", "\r"), 12,
        "not \"x\"");
    row("last value missing", replaced("4 5 6", "4 5"), 12,
        "within frame 2 of 2, after 2 of its 3");
    row("last row missing", replaced("1 2 3\n4 5 6", "1.000 2.000 3.000"), 11,
        "2 frames are declared, but the file ends after 1");
    row("a value missing in the middle", replaced("Frames: 2", "Frames: 4") + "7 8\n9 9 9\n", 13,
        "does not have the 3 values of one frame");
    row("a value too many in the middle",
        replaced("Frames: 2", "Frames: 3").replace("4 5 6\n", "4 5 6 7\n7 8 9\n"), 12,
        "does not have the 3 values of one frame");
    row("a value too many in the last row", replaced("4 5 6", "4 5 6 7"), 12, "found \"7\"");
    row("half a row too many", smallFile + "7 8\n", 13,
        "more values than the 2 frames of 3 declared in line 9: found \"7\"");
    row("two frames too many, the last one broken", smallFile + "7 8 9\n1 x 3\n", 13,
        "more values than the 2 frames of 3 declared in line 9: found \"7\"");
    row("a frame too many in the last row", replaced("4 5 6", "4 5 6 7 8 9"), 12, "found \"7\"");
    row("text after no frames of no channels",
        replaced("  CHANNELS 3 Zrotation Xrotation Yrotation\n", "")
            .replace("Frames: 2", "Frames: 0"),
        10, "more values than the 0 frames of 0 declared in line 8: found \"1\"");
    row("text after the motion", smallFile + "\nthe end", 14, "found \"the\"");
    row("NUL bytes", smallFile + QByteArray(4, '\0'), 13, "not a text file");
    row("binary rubbish", QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16), 2, "not a text file");
    row("two-byte characters", QByteArray("H\0I\0E\0R\0", 8), 1, "not a text file");
    row("cut off in a keyword", smallFile.left(13), 2, "\"ROOT\" expected, found \"ROO\"");
}

void TestVxBvhReader::refuses()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, line);
    QFETCH(QString, part);
    VxBvhDocument document;
    VxFileError error;
    const QTemporaryDir folder;
    const QString name = writeFile(folder, "a.bvh", bytes);
    QVERIFY(!vxReadBvhFile(name, &document, &error));
    QVERIFY2(error.message.contains(part), qPrintable(error.text()));
    QCOMPARE(error.line, qint64(line));
    QCOMPARE(error.file, name);
    QVERIFY(!error.cancelled);
    QVERIFY(document.joints.empty());
}

void TestVxBvhReader::keepsNames_data()
{
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<QString>("name");
    const auto row = [](const char *label, const char *written, const QString &name) {
        QTest::newRow(label) << QByteArray(written) << name;
    };
    row("plain", "hip", QStringLiteral("hip"));
    row("blanks inside", "left  upper leg", QStringLiteral("left  upper leg"));
    row("colons", "rig:body:hip", QStringLiteral("rig:body:hip"));
    row("blanks around", " \t hip \t", QStringLiteral("hip"));
    row("a keyword", "JOINT", QStringLiteral("JOINT"));
    row("braces inside", "a{b}c", QStringLiteral("a{b}c"));
    row("a closing brace at the end", "a}", QStringLiteral("a}"));
    row("a place marker of messages", "%1 %2", QStringLiteral("%1 %2"));
    row("UTF-8", "h\303\274fte", QString::fromUtf8("h\303\274fte"));
    row("an 8-bit code", "h\374fte", QString::fromUtf8("h\303\274fte"));
}

void TestVxBvhReader::keepsNames()
{
    QFETCH(QByteArray, written);
    QFETCH(QString, name);
    const VxBvhDocument document = readGood(replaced("hip", written.constData()));
    QCOMPARE(document.joints.front().name, name);
    QByteArray bytes;
    VxFileError error;
    QVERIFY(VxBvhWriter::write(document, &bytes, &error));
    QVERIFY(readGood(bytes) == document);
}

void TestVxBvhReader::readsSeveralRootsAndBranches()
{
    const VxBvhDocument document = readGood("HIERARCHY\n"
                                            "ROOT a\n{\nOFFSET 0 0 0\nCHANNELS 1 Xposition\n"
                                            "JOINT b\n{\nOFFSET 0 0 1\nCHANNELS 1 Yrotation\n"
                                            "End Site\n{\nOFFSET 0 0 2\n}\n"
                                            "end SITE\n{\nOFFSET 0 0 3\n}\n}\n"
                                            "JOINT c\n{\nOFFSET 0 0 4\n}\n}\n"
                                            "ROOT d\n{\nOFFSET 0 0 5\nCHANNELS 1 Zposition\n"
                                            "JOINT e\n{\nOFFSET 0 0 6\n}\n}\n"
                                            "MOTION\nFrames: 1\nFrame Time: 1\n7 8 9\n");
    QCOMPARE(document.joints.size(), std::size_t(5));
    const int parents[] = {-1, 0, 0, -1, 3};
    for (std::size_t i = 0; i < 5; ++i)
        QCOMPARE(document.joints[i].parent, parents[i]);
    QCOMPARE(document.joints[1].endSites.size(), std::size_t(2));
    QCOMPARE(document.joints[1].endSites[1].z(), 3.0f);
    QVERIFY(document.values == columns({7, 8, 9}));
    QByteArray bytes;
    VxFileError error;
    QVERIFY(VxBvhWriter::write(document, &bytes, &error));
    QVERIFY(readGood(bytes) == document);
}

void TestVxBvhReader::restPoseHasNoValues()
{
    const VxBvhDocument document = readGood(smallHead + "Frames: 0\nFrame Time: 0.1\n");
    QCOMPARE(document.frameCount, 0);
    QVERIFY(document.values.empty());
    QVERIFY(!document.channelValues(0));
}

void TestVxBvhReader::nestingLimit()
{
    const int limit = static_cast<int>(VxBvhMaxDepth);
    QCOMPARE(readGood(nested(limit)).joints.size(), VxBvhMaxDepth);
    for (const int depth : {limit + 1, 200000}) {
        VxBvhDocument document;
        VxFileError error;
        QVERIFY(!vxReadBvh(nested(depth), &document, &error));
        QVERIFY(error.message.contains(QStringLiteral("more than 512 levels deep")));
        QCOMPARE(error.line, qint64(2 + 2 * limit));
    }
}

void TestVxBvhReader::failureLeavesTheDocument()
{
    VxBvhDocument document = readGood(smallFile);
    VxFileError error;
    QVERIFY(!vxReadBvh(smallFile + "x", &document, &error));
    QVERIFY(document == readGood(smallFile));
}

void TestVxBvhReader::numbersAreExact()
{
    const VxBvhDocument document = readGood(
        replaced("1 2 3\n4 5 6", "0.1 -17.3198 3.40282347e38\n1e-45 1e-60 1234567.890123456789"));
    QVERIFY(document.values ==
            columns({0.1f, std::numeric_limits<float>::denorm_min(), -17.3198f, 0.0f,
                     std::numeric_limits<float>::max(), 1234567.890123456789f}));
}

void TestVxBvhReader::numbersTooSmallForDoublesAreZero_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<bool>("isZero");
    for (const char *number : {"1e-400", "-1e-400", "0.001e-330", "123456e-500", "1E-400",
                               "0.000000000000000000001e-320", "1e-99999999999999999999"})
        QTest::newRow(number) << QByteArray(number) << true;
    for (const char *number : {"1e400", "0.001e400", "1e99999999999999999999", "123456E+500"})
        QTest::newRow(number) << QByteArray(number) << false;
}

void TestVxBvhReader::numbersTooSmallForDoublesAreZero()
{
    QFETCH(QByteArray, number);
    QFETCH(bool, isZero);
    VxBvhDocument document;
    VxFileError error;
    const QByteArray bytes = replaced("4 5 6", "4 " + number + " 6");
    QCOMPARE(vxReadBvh(bytes, &document, &error), isZero);
    if (isZero)
        QCOMPARE(std::abs(document.values.at(3)), 0.0f);
    else
        QVERIFY2(error.message.contains(QLatin1String("out of range")), qPrintable(error.message));
}

void TestVxBvhReader::errorNamesFileAndLine()
{
    VxBvhDocument document;
    VxFileError error;
    const QTemporaryDir folder;
    const QString name = writeFile(folder, "walk.bvh", replaced("5", "x"));
    QVERIFY(!vxReadBvhFile(name, &document, &error));
    QCOMPARE(error.text(),
             name + QStringLiteral(", line 12: Value 2 of frame 2 must be a number, not \"x\"."));
    error.file.clear();
    QVERIFY(error.text().startsWith(QLatin1String("line 12: ")));
    error.line = -1;
    QCOMPARE(error.text(), error.message);
    error.offset = 7;
    QVERIFY(error.text().startsWith(QLatin1String("byte 7: ")));
}

void TestVxBvhReader::missingFile()
{
    QTemporaryDir folder;
    VxBvhDocument document;
    VxFileError error;
    QVERIFY(!vxReadBvhFile(folder.filePath(QStringLiteral("no.bvh")), &document, &error));
    QVERIFY(error.text().contains(QLatin1String("no.bvh: The file cannot be read: ")));
    QVERIFY(!vxReadBvhFile(folder.path(), &document, &error));
    QVERIFY(error.isSet());
}

void TestVxBvhReader::realFiles_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("frames");
    QTest::newRow("a walk") << QStringLiteral("01_01.bvh") << 2752;
    QTest::newRow("a longer one") << QStringLiteral("01_03.bvh") << 4511;
}

void TestVxBvhReader::realFiles()
{
    QFETCH(QString, file);
    QFETCH(int, frames);
    VxBvhDocument document;
    VxFileError error;
    QVERIFY2(vxReadBvhFile(vxTestModels("BVH/" + file), &document, &error),
             qPrintable(error.text()));
    QVERIFY(document.isValid());
    QCOMPARE(document.joints.size(), std::size_t(31));
    QCOMPARE(document.channelCount(), 96);
    QCOMPARE(document.frameCount, frames);
    QCOMPARE(document.frameTime, 0.0083333);
    QByteArray bytes;
    QVERIFY(VxBvhWriter::write(document, &bytes, &error));
    QVERIFY(readGood(bytes) == document);
}

// One of the package's files has one row more than it announces.
void TestVxBvhReader::realFileWithARowTooMany()
{
    QFile file(vxTestModels("BVH/Boxing_Toes.bvh"));
    QVERIFY2(file.open(QIODevice::ReadOnly), "the package assimp-testmodels is missing");
    QByteArray bytes = file.readAll();
    VxBvhDocument document;
    VxFileError error;
    QString note;
    QVERIFY2(vxReadBvh(bytes, &document, &error, {}, &note), qPrintable(error.text()));
    QCOMPARE(document.frameCount, 3069);
    QCOMPARE(note, QStringLiteral("The file has 1 more frame than the 3069 it "
                                  "declares; the extra frame was ignored."));
    bytes.replace("3069", "3070");
    QVERIFY(vxReadBvh(bytes, &document, &error, {}, &note));
    QCOMPARE(document.frameCount, 3070);
    QVERIFY(note.isEmpty());
}

void TestVxBvhReader::cancels()
{
    int calls = 0;
    const VxFileProgress progress = [&calls](int percent) {
        ++calls;
        return percent < 40;
    };
    VxBvhDocument document;
    VxFileError error;
    QVERIFY(!vxReadBvhFile(vxTestModels("BVH/01_01.bvh"), &document, &error, progress));
    QVERIFY(error.cancelled);
    QVERIFY(error.isSet());
    QVERIFY(document.joints.empty());
    QVERIFY(calls > 10 && calls < 60);
}

void TestVxBvhReader::progressAscends()
{
    std::vector<int> reports;
    const VxFileProgress progress = [&reports](int percent) {
        reports.push_back(percent);
        return true;
    };
    VxBvhDocument document;
    VxFileError error;
    QVERIFY(vxReadBvhFile(vxTestModels("BVH/01_01.bvh"), &document, &error, progress));
    QVERIFY(reports.size() > 50);
    for (std::size_t i = 1; i < reports.size(); ++i)
        QVERIFY(reports[i] > reports[i - 1]);
    QVERIFY(reports.front() >= 0 && reports.back() <= 100);
}

// Two thousand million frames of 96 values would be 700 GB: must be refused before memory is asked
// for, however large the file that claims it.
void TestVxBvhReader::valuesInAHugeClaimCostNothing()
{
    QFile file(vxTestModels("BVH/01_01.bvh"));
    QVERIFY2(file.open(QIODevice::ReadOnly), "the package assimp-testmodels is missing");
    const QByteArray bytes = file.readAll().replace("Frames: 2752", "Frames: 2000000000");
    VxBvhDocument document;
    VxFileError error;
    QVERIFY(!vxReadBvh(bytes, &document, &error));
    QCOMPARE(error.line, qint64(186));
    QVERIFY(error.message.contains(QLatin1String("2000000000 frames of 96 values")));
}

VX_TEST_GUILESS_MAIN(TestVxBvhReader)
#include "tst_vxbvhreader.moc"

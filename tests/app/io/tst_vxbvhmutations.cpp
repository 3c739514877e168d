// A real motion file, damaged in a thousand ways that a seed decides: each gives a document that
// keeps all its rules, or one message with a line of the file.

#include "io/bvh/vxbvhreader.h"
#include "io/bvh/vxbvhwriter.h"
#include "testing/vxfilemutations.h"
#include "testing/vxtestmain.h"
#include "testing/vxtestmodels.h"
#include "testing/vxwarningguard.h"

#include <QElapsedTimer>
#include <QFile>
#include <QtTest>
#include <memory>
#include <random>

namespace {

using VxFileMutations::below;
using VxFileMutations::Random;

void flipBytes(QByteArray &bytes, Random &random)
{
    for (int i = 1 + below(random, 4); i > 0; --i) {
        const int at = below(random, bytes.size());
        bytes[at] = static_cast<char>(bytes.at(at) ^ (1 << below(random, 8)));
    }
}

void deleteSpan(QByteArray &bytes, Random &random)
{
    bytes.remove(below(random, bytes.size()), 1 + below(random, 60));
}

void duplicateSpan(QByteArray &bytes, Random &random)
{
    const QByteArray span = bytes.mid(below(random, bytes.size()), 1 + below(random, 200));
    bytes.insert(below(random, bytes.size()), span);
}

void truncate(QByteArray &bytes, Random &random)
{
    bytes.truncate(below(random, bytes.size()));
}

// Start and length of the word at or after a place.
QPair<int, int> wordAt(const QByteArray &bytes, int from)
{
    int start = from;
    while (start < bytes.size() && isspace(static_cast<unsigned char>(bytes.at(start))))
        ++start;
    int end = start;
    while (end < bytes.size() && !isspace(static_cast<unsigned char>(bytes.at(end))))
        ++end;
    return {start, end - start};
}

void swapWords(QByteArray &bytes, Random &random)
{
    QPair<int, int> a = wordAt(bytes, below(random, bytes.size()));
    QPair<int, int> b = wordAt(bytes, below(random, bytes.size()));
    if (b.first < a.first)
        std::swap(a, b);
    if (a.first + a.second > b.first)
        return;
    const QByteArray first = bytes.mid(a.first, a.second);
    const QByteArray second = bytes.mid(b.first, b.second);
    bytes.replace(b.first, b.second, first);
    bytes.replace(a.first, a.second, second);
}

void plantNumber(QByteArray &bytes, Random &random)
{
    static const char *const numbers[] = {"-1",   "0",     "nan",  "1e999", "99999999999",
                                          "1e-9", "2e9",   "-inf", "+",     "1e",
                                          "7",    "65536", "",     "{",     "}"};
    const QPair<int, int> word = wordAt(bytes, below(random, bytes.size()));
    bytes.replace(word.first, word.second, numbers[below(random, 15)]);
}

QByteArray damaged(const QByteArray &original, Random &random)
{
    static void (*const kinds[])(QByteArray &, Random &) = {flipBytes, deleteSpan, duplicateSpan,
                                                            truncate,  swapWords,  plantNumber};
    QByteArray bytes = original;
    for (int i = 1 + below(random, 3); i > 0 && !bytes.isEmpty(); --i)
        kinds[below(random, 6)](bytes, random);
    return bytes;
}

qint64 lineCount(QByteArray bytes)
{
    bytes.replace("\r\n", "\n").replace('\r', '\n');
    const bool closed = bytes.isEmpty() || bytes.endsWith('\n');
    return qMax(1, bytes.count('\n') + (closed ? 0 : 1));
}

} // namespace

class TestVxBvhMutations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void damagedFiles_data();
    void damagedFiles();
    void everyTruncationOfAShortFile();

private:
    // False when the document or the error is not as documented; the reason is stored for the test.
    bool isAnswerSound(const QByteArray &bytes, bool *accepted);

    QByteArray m_whole; // the real file
    QByteArray m_short; // its hierarchy and its first 12 frames
};

void TestVxBvhMutations::initTestCase()
{
    QFile file(vxTestModels("BVH/01_01.bvh"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    m_whole = file.readAll();
    int end = m_whole.indexOf("Frame Time");
    for (int line = 0; line < 13; ++line)
        end = m_whole.indexOf('\n', end) + 1;
    m_short = m_whole.left(end).replace("Frames: 2752", "Frames: 12");
    bool accepted = false;
    QVERIFY(isAnswerSound(m_whole, &accepted) && accepted);
    QVERIFY(isAnswerSound(m_short, &accepted) && accepted);
}

bool TestVxBvhMutations::isAnswerSound(const QByteArray &bytes, bool *accepted)
{
    VxBvhDocument document;
    VxFileError error;
    QString reason;
    *accepted = vxReadBvh(bytes, &document, &error);
    if (*accepted && !document.isValid(&reason)) {
        qWarning("unsound document: %s", qPrintable(reason));
        return false;
    }
    if (*accepted) {
        QByteArray written;
        VxBvhDocument again;
        return !error.isSet() && VxBvhWriter::write(document, &written, &error) &&
               vxReadBvh(written, &again, &error) && again == document;
    }
    if (error.message.isEmpty() || error.cancelled || error.line < 1 ||
        error.line > lineCount(bytes)) {
        qWarning("unsound error: %s of %lld lines", qPrintable(error.text()), lineCount(bytes));
        return false;
    }
    return document.joints.empty();
}

void TestVxBvhMutations::damagedFiles_data()
{
    QTest::addColumn<bool>("whole");
    QTest::addColumn<int>("count");
    QTest::newRow("the first frames") << false << 1000;
    QTest::newRow("the whole file") << true << 60;
}

void TestVxBvhMutations::damagedFiles()
{
    QFETCH(bool, whole);
    QFETCH(int, count);
    const VxWarningGuard guard;
    int accepted = 0;
    for (int seed = 0; seed < count; ++seed) {
        Random random(static_cast<unsigned>(seed));
        const QByteArray bytes = damaged(whole ? m_whole : m_short, random);
        bool good = false;
        QVERIFY2(isAnswerSound(bytes, &good), qPrintable(QStringLiteral("seed %1").arg(seed)));
        accepted += good;
    }
    qInfo("%d of %d damaged files could still be read", accepted, count);
    QVERIFY(accepted > count / 50);
    QVERIFY(accepted < count * 9 / 10);
}

void TestVxBvhMutations::everyTruncationOfAShortFile()
{
    const VxWarningGuard guard;
    const int end = m_short.indexOf('\n', m_short.indexOf("Frame Time")) + 200;
    for (int size = 0; size < end; ++size) {
        bool accepted = true;
        QVERIFY2(isAnswerSound(m_short.left(size), &accepted), qPrintable(QString::number(size)));
        QVERIFY(!accepted);
    }
}

VX_TEST_GUILESS_MAIN(TestVxBvhMutations)
#include "tst_vxbvhmutations.moc"

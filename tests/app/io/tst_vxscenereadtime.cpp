// Large scene files of each form are read in time proportional to their size.

#include "scenedocuments.h"
#include "testing/vxgrowth.h"
#include "testing/vxtestmain.h"

#include <QtTest/QtTest>
#include <testing/vxwarningguard.h>

namespace {

using namespace scenedocuments;

/// An indefinite byte string or text of many chunks: the stream writer has none.
QByteArray chunks(char start, const QByteArray &chunk, int count)
{
    return QByteArray(1, start) + chunk.repeated(count) + '\xff';
}

QByteArray largeDocument(const QString &kind, int size)
{
    if (kind == QLatin1String("unknown members"))
        return document([size](Writer &out) {
            for (int i = 0; i < size; ++i) {
                out.append(QStringLiteral("unknown%1").arg(i));
                out.append(i);
            }
        });
    if (kind == QLatin1String("chunks")) {
        // Times of keys: a marker that is replaced by the chunks.
        QByteArray bytes = propertyDocument(1, [](Writer &out, int) {
            out.append(QLatin1String("keys"));
            out.startMap();
            out.append(QLatin1String("times"));
            out.append(QCborTag(VxSceneFile::TagInt32));
            out.append(QByteArray("MARK"));
            out.endMap();
        });
        return bytes.replace(QByteArray("\x44MARK"),
                             chunks('\x5f', QByteArray("\x41\x00", 2), size * 4));
    }
    if (kind == QLatin1String("text in chunks"))
        return document([](Writer &out) { text(out, "unknown", "MARK"); })
            .replace(QByteArray("\x64MARK"), chunks('\x7f', QByteArray("\x61z", 2), size * 4));
    if (kind == QLatin1String("aliases of one property"))
        return propertyDocument(size, [](Writer &out, int i) {
            if (i == 0)
                return;
            out.append(QLatin1String("alias"));
            out.append(0);
        });
    if (kind == QLatin1String("short chains of links"))
        return propertyDocument(size, [size](Writer &out, int i) {
            if (i % 100 == 99 || i == size - 1)
                return;
            out.append(QLatin1String("override"));
            out.append(i + 1);
        });
    if (kind == QLatin1String("properties of one node"))
        return propertyDocument(size, [](Writer &, int) {});
    if (kind == QLatin1String("sub-elements"))
        return nodeDocument([size](Writer &out) {
            out.append(QLatin1String("object"));
            out.startMap();
            text(out, "name", "o");
            out.append(QLatin1String("subElements"));
            out.startArray();
            for (int i = 0; i < size; ++i) {
                out.startMap();
                text(out, "kind", "element");
                text(out, "name", "s");
                out.endMap();
            }
            out.endArray();
            out.endMap();
        });
    return document([size](Writer &out) {
        out.append(QLatin1String("nodes"));
        out.startArray();
        for (int i = 0; i < size / 8; ++i) {
            out.startMap();
            text(out, "kind", "bone");
            text(out, "name", "b");
            out.append(QLatin1String("parent"));
            out.append(i - 1 - i % 500);
            out.endMap();
        }
        out.endArray();
    });
}

} // namespace

class TestSceneReadTime : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void readingIsLinear_data();
    void readingIsLinear();
    void unknownMembersAreSummedUp();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestSceneReadTime::readingIsLinear_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind :
         {"unknown members", "chunks", "aliases of one property", "short chains of links",
          "properties of one node", "nodes", "sub-elements", "text in chunks"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TestSceneReadTime::readingIsLinear()
{
    QFETCH(QString, kind);
    const double ratio = vxGrowth(5000, 8, 24, [&kind](int size) {
        const QByteArray bytes = largeDocument(kind, size);
        const double start = vxProcessorMilliseconds();
        VxSceneContents contents;
        QString message;
        read(bytes, &contents, &message);
        return vxProcessorMilliseconds() - start;
    });
    // 8 times the document in 64 times the time would be quadratic.
    QVERIFY2(ratio < 24, qPrintable(QString::number(ratio)));
}

void TestSceneReadTime::unknownMembersAreSummedUp()
{
    VxSceneContents contents;
    QString message;
    QVERIFY(read(largeDocument(QStringLiteral("unknown members"), 100000), &contents, &message));
    QCOMPARE(contents.unknownMembers.size(), 100000);
    QCOMPARE(contents.unknownMembers.at(99999), QStringLiteral("unknown99999"));
}

VX_TEST_GUILESS_MAIN(TestSceneReadTime)
#include "tst_vxscenereadtime.moc"

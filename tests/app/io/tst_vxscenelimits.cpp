// Scene files with invalid or extreme contents: members twice, numbers out of range, chains and
// nestings beyond the limits.

#include "io/vxscenewriter.h"
#include "scenedocuments.h"
#include "testing/vxtestmain.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QtTest/QtTest>
#include <cmath>
#include <functional>
#include <limits>
#include <testing/vxwarningguard.h>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxscene.h>

namespace {

using namespace scenedocuments;

QByteArray bytesOf(const VxScene &scene, VxFileError *error)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return VxSceneWriter(&scene).write(&buffer, error) ? bytes : QByteArray();
}

/// The CPU time in milliseconds that a step takes.
template <class Step> double milliseconds(const Step &step)
{
    QElapsedTimer timer;
    timer.start();
    step();
    return double(timer.nsecsElapsed()) / 1e6;
}

} // namespace

class TestSceneLimits : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void membersTwiceAreRefused_data();
    void membersTwiceAreRefused();
    void numbersOutOfRangeAreRefused_data();
    void numbersOutOfRangeAreRefused();
    void writtenScenesCanBeRead();
    void depthOfNodes_data();
    void depthOfNodes();
    void chainsOfReferences_data();
    void chainsOfReferences();
    void circlesOfReferencesAreRefused();
    void diamondsOfReferencesAreReadAtOnce();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestSceneLimits::membersTwiceAreRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("member");
    const auto row = [](const char *title, const QByteArray &bytes, const char *member) {
        QTest::newRow(title) << bytes << QString::fromLatin1(member);
    };
    const Write properties = [](Writer &out) {
        out.append(QLatin1String("properties"));
        out.startArray();
        out.startMap();
        text(out, "name", "p");
        text(out, "kind", "float");
        out.append(QLatin1String("link"));
        out.startMap();
        out.append(QLatin1String("to"));
        out.append(1);
        out.endMap();
        out.endMap();
        out.startMap();
        text(out, "name", "q");
        text(out, "kind", "float");
        out.endMap();
        out.endArray();
    };
    row("a node's name after its properties", nodeDocument([&](Writer &out) {
            properties(out);
            text(out, "name", "again");
        }),
        "name");
    row("an object's name after its properties", nodeDocument([&](Writer &out) {
            out.append(QLatin1String("object"));
            out.startMap();
            text(out, "name", "o");
            properties(out);
            text(out, "name", "again");
            out.endMap();
        }),
        "name");
    row("a node's object", nodeDocument([&](Writer &out) {
            for (int i = 0; i < 2; ++i) {
                out.append(QLatin1String("object"));
                out.startMap();
                text(out, "name", "o");
                if (i == 0)
                    properties(out);
                out.endMap();
            }
        }),
        "object");
    row("a sub-element's name after its properties", nodeDocument([&](Writer &out) {
            out.append(QLatin1String("object"));
            out.startMap();
            text(out, "name", "o");
            out.append(QLatin1String("subElements"));
            out.startArray();
            out.startMap();
            text(out, "kind", "element");
            text(out, "name", "s");
            properties(out);
            text(out, "name", "again");
            out.endMap();
            out.endArray();
            out.endMap();
        }),
        "name");
    row("the nodes", document([&](Writer &out) {
            for (int i = 0; i < 2; ++i) {
                out.append(QLatin1String("nodes"));
                out.startArray();
                out.endArray();
            }
        }),
        "nodes");
    row("the target of a link",
        propertyDocument(2,
                         [](Writer &out, int) {
                             out.append(QLatin1String("link"));
                             out.startMap();
                             for (int i = 0; i < 2; ++i) {
                                 out.append(QLatin1String("to"));
                                 out.append(0);
                             }
                             out.endMap();
                         }),
        "to");
    row("the times of keys",
        propertyDocument(1,
                         [](Writer &out, int) {
                             out.append(QLatin1String("keys"));
                             out.startMap();
                             for (int i = 0; i < 2; ++i) {
                                 out.append(QLatin1String("times"));
                                 out.append(QCborTag(VxSceneFile::TagInt32));
                                 out.append(QByteArray());
                             }
                             out.endMap();
                         }),
        "times");
    row("a member with an unknown name", document([](Writer &out) {
            text(out, "weather", "a");
            text(out, "weather", "b");
        }),
        "weather");
}

void TestSceneLimits::membersTwiceAreRefused()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, member);
    VxSceneContents contents;
    QString message;
    QVERIFY(!read(bytes, &contents, &message));
    QVERIFY2(message.contains(QStringLiteral("\"%1\" occurs twice").arg(member)),
             qPrintable(message));
    QVERIFY(contents.rootNodes.empty());
}

void TestSceneLimits::numbersOutOfRangeAreRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const auto vector = [](const char *name, double value) {
        return nodeDocument([&](Writer &out) {
            out.append(QLatin1String(name));
            out.startArray();
            out.append(0.0);
            out.append(value);
            out.append(0.0);
            out.endArray();
        });
    };
    const auto property = [](const char *kind, const char *name, const QVector<double> &values) {
        return nodeDocument([&](Writer &out) {
            out.append(QLatin1String("properties"));
            out.startArray();
            out.startMap();
            text(out, "name", "p");
            text(out, "kind", kind);
            out.append(QLatin1String(name));
            if (values.size() > 1)
                out.startArray();
            for (const double value : values)
                out.append(value);
            if (values.size() > 1)
                out.endArray();
            out.endMap();
            out.endArray();
        });
    };
    for (const double value : {1e300, -1e300, 3.5e38}) {
        const QByteArray number = QByteArray::number(value);
        QTest::newRow("origin " + number) << vector("origin", value);
        QTest::newRow("end point " + number) << vector("endPoint", value);
        for (const char *name : {"value", "default", "sensitivity"})
            QTest::newRow(QByteArray("float ") + name + ' ' + number)
                << property("float", name, {value});
        QTest::newRow("float lower limit " + number) << property("float", "limits", {value, 1.0});
        QTest::newRow("float upper limit " + number) << property("float", "limits", {1.0, value});
    }
    for (const double value : {2147483648.0, -2147483649.0, 1e300}) {
        const QByteArray number = QByteArray::number(value);
        for (const char *name : {"value", "default"})
            QTest::newRow(QByteArray("int ") + name + ' ' + number)
                << property("int", name, {value});
        QTest::newRow("int limit " + number) << property("int", "limits", {value, 1.0});
    }
    QTest::newRow("infinite link factor") << propertyDocument(2, [](Writer &out, int) {
        out.append(QLatin1String("link"));
        out.startMap();
        out.append(QLatin1String("to"));
        out.append(1);
        out.append(QLatin1String("factor"));
        out.append(std::numeric_limits<double>::infinity());
        out.endMap();
    });
}

void TestSceneLimits::numbersOutOfRangeAreRefused()
{
    QFETCH(QByteArray, bytes);
    VxSceneContents contents;
    QString message;
    QVERIFY(!read(bytes, &contents, &message));
    QVERIFY2(message.contains(QLatin1String("Expected a")) ||
                 message.contains(QLatin1String("outside of")),
             qPrintable(message));
}

/** Whatever is set, within the range or not: the file written is accepted again. */
void TestSceneLimits::writtenScenesCanBeRead()
{
    // Three numbers are not finite, and there are six doors for each.
    for (int i = 0; i < 3 * 6; ++i)
        m_guard->expect(QRegularExpression(QStringLiteral("not finite")));
    const float nothing = std::numeric_limits<float>::quiet_NaN();
    const float infinite = std::numeric_limits<float>::infinity();
    const float highest = std::numeric_limits<float>::max();
    for (const float value : {nothing, infinite, -infinite, highest, -highest, 1e-45f}) {
        VxScene scene;
        auto *node = new VxNode(QStringLiteral("n"));
        node->setOrigin({value, 0, 0});
        node->setEndPoint({0, 0, value});
        auto *number = new VxFloatProperty(QStringLiteral("p"), value);
        node->addProperty(number, QStringLiteral("/A"));
        number->setMinMax(value, 1.0f);
        number->setMinMax(-1.0f, value);
        number->setSensitivity(value);
        number->setStoredValue(value);
        number->setKey(0, value, 0);
        number->setKey(160, 1.0f, 2, value, value, value);
        auto *linked = new VxFloatProperty(QStringLiteral("q"), 0.0f);
        node->addProperty(linked, QStringLiteral("/A"));
        linked->setLink(number, false, double(value), 0.0);
        linked->setLink(number, false, 1e300, double(value));
        auto *whole = new VxIntProperty(QStringLiteral("i"), 0);
        node->addProperty(whole, QStringLiteral("/A"));
        whole->setLink(linked, true, double(value) * 1e30, 0.0);
        scene.addNode(node);
        // What a link makes is stored as a value of its own.
        QVERIFY(std::isfinite(linked->getValue(0)));
        node->getXPosControl()->setKey(0, linked->getValue(0), 0);

        VxFileError error;
        const QByteArray bytes = bytesOf(scene, &error);
        QVERIFY2(!bytes.isEmpty(), qPrintable(error.text()));
        VxSceneContents contents;
        QString message;
        QVERIFY2(read(bytes, &contents, &message), qPrintable(message));
    }
}

void TestSceneLimits::depthOfNodes_data()
{
    QTest::addColumn<int>("depth");
    QTest::newRow("the limit") << int(VxNode::MaxDepth);
    QTest::newRow("one beyond") << VxNode::MaxDepth + 1;
    QTest::newRow("far beyond") << 20000;
}

void TestSceneLimits::depthOfNodes()
{
    QFETCH(int, depth);
    const QByteArray bytes = document([&](Writer &out) {
        out.append(QLatin1String("nodes"));
        out.startArray();
        for (int i = 0; i < depth; ++i) {
            out.startMap();
            text(out, "kind", "bone");
            out.append(QLatin1String("name"));
            out.append(QStringLiteral("b%1").arg(i));
            out.append(QLatin1String("parent"));
            out.append(i - 1);
            out.endMap();
        }
        out.endArray();
    });
    VxSceneContents contents;
    QString message;
    const bool accepted = depth <= VxNode::MaxDepth;
    QCOMPARE(read(bytes, &contents, &message), accepted);
    if (accepted) {
        VxScene scene;
        VxSceneReader::install(std::move(contents), &scene);
        QCOMPARE(scene.getNumNodes(), depth);
        QCOMPARE(scene.getNodes().last()->getDepth(), depth);
    } else {
        QVERIFY2(message.contains(QLatin1String("\"b4096\" is nested deeper than 4096 levels")),
                 qPrintable(message));
    }
}

void TestSceneLimits::chainsOfReferences_data()
{
    QTest::addColumn<QString>("member");
    QTest::addColumn<bool>("forward");
    QTest::addColumn<int>("length");
    for (const char *member : {"alias", "override", "link"}) {
        for (const bool forward : {true, false}) {
            for (const int length : {128, 129, 20000})
                QTest::newRow(QByteArray(member) +
                              (forward ? " to later ones " : " to earlier ones ") +
                              QByteArray::number(length))
                    << QString::fromLatin1(member) << forward << length;
        }
    }
}

void TestSceneLimits::chainsOfReferences()
{
    QFETCH(QString, member);
    QFETCH(bool, forward);
    QFETCH(int, length);
    // The node's own ten controls are not in the file, so the properties are numbered from 0.
    const QByteArray bytes = propertyDocument(length + 1, [&](Writer &out, int i) {
        if (forward ? i == length : i == 0)
            return;
        out.append(member);
        const int target = forward ? i + 1 : i - 1;
        if (member != QLatin1String("link")) {
            out.append(target);
            return;
        }
        out.startMap();
        out.append(QLatin1String("to"));
        out.append(target);
        out.endMap();
    });
    VxSceneContents contents;
    QString message;
    const bool accepted = length <= VxProperty::MaxReferenceChain;
    bool done = false;
    const double spent = milliseconds([&] { done = read(bytes, &contents, &message); });
    QCOMPARE(done, accepted);
    if (!accepted)
        QVERIFY2(message.contains(QLatin1String("chain of more than 128 references")),
                 qPrintable(message));
    QVERIFY2(spent < 2000, qPrintable(QString::number(spent)));
}

void TestSceneLimits::circlesOfReferencesAreRefused()
{
    for (const int size : {1, 2, 3, 1000}) {
        const QByteArray bytes = propertyDocument(size, [&](Writer &out, int i) {
            out.append(QLatin1String("alias"));
            out.append((i + 1) % size);
        });
        VxSceneContents contents;
        QString message;
        QVERIFY(!read(bytes, &contents, &message));
        QVERIFY2(message.contains(QLatin1String("\"p0\" has an invalid reference")),
                 qPrintable(message));
    }
}

/** Two references a property make 2 to the 100 ways from the first one to the last. */
void TestSceneLimits::diamondsOfReferencesAreReadAtOnce()
{
    constexpr int Length = 100;
    const QByteArray bytes = propertyDocument(Length + 1, [](Writer &out, int i) {
        if (i == Length)
            return;
        out.append(QLatin1String("alias"));
        out.append(i + 1);
        out.append(QLatin1String("link"));
        out.startMap();
        out.append(QLatin1String("to"));
        out.append(i + 1);
        out.endMap();
    });
    VxSceneContents contents;
    QString message;
    QVERIFY2(read(bytes, &contents, &message), qPrintable(message));
    VxNode *node = contents.rootNodes.front().get();
    auto *first = node->findProperty(QStringLiteral("p0"));
    auto *last = qobject_cast<VxFloatProperty *>(node->findProperty(QStringLiteral("p100")));
    QVERIFY(first && last);
    QSignalSpy reports(first, &VxProperty::valueChanged);
    last->setKey(160, 2.0f, 0);
    QCOMPARE(reports.count(), 1);
}

VX_TEST_GUILESS_MAIN(TestSceneLimits)
#include "tst_vxscenelimits.moc"

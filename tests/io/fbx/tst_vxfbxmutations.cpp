// FBX files damaged in a hundred ways that a seed decides: each gives a motion that keeps all
// its rules, or one message with a place in the file. tools/soak runs more of them.

#include "fbxmutations.h"
#include "testing/vxsessionlength.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <memory>

class TestVxFbxMutations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void damagedFiles();
    void everyTruncation();
    void largeClaims_data();
    void largeClaims();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestVxFbxMutations::damagedFiles()
{
    const fbxdocument::Document document = fbxmutations::seedDocument();
    const QVector<QByteArray> sources{
        document.write({false, 7400, false}), document.write({false, 7400, true}),
        document.write({false, 7700, true}), document.write({true, 7700, false})};
    int accepted = 0;
    const int files = vxSessionLength(100);
    for (int seed = 0; seed < files; ++seed) {
        double milliseconds = 0;
        bool isAccepted = false;
        const QByteArray wrong = fbxmutations::verdict(
            fbxmutations::fileOf(unsigned(seed), sources), &milliseconds, &isAccepted);
        QVERIFY2(wrong.isEmpty(), "seed " + QByteArray::number(seed) + ": " + wrong);
        accepted += isAccepted;
    }
    // Both outcomes are there, else the damage is too large or too small to test anything.
    QVERIFY2(accepted > files / 10 && accepted < files * 9 / 10, QByteArray::number(accepted));
}

// A binary file that ends early is refused, wherever it ends; a text wherever a record is open.
void TestVxFbxMutations::everyTruncation()
{
    fbxdocument::Document document;
    document.model(1, 0, "node", {fbxdocument::Document::property("RotationOrder", {2})});
    for (const int version : {7400, 7500}) {
        const QByteArray bytes = document.write({false, version, false});
        for (int size = 0; size < bytes.size(); ++size) {
            double milliseconds = 0;
            bool isAccepted = false;
            const QByteArray wrong =
                fbxmutations::verdict(bytes.left(size), &milliseconds, &isAccepted);
            QVERIFY2(wrong.isEmpty() && !isAccepted, "size " + QByteArray::number(size) + wrong);
        }
    }
}

void TestVxFbxMutations::largeClaims_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QByteArray links = "FBXHeaderExtension: {\nFBXVersion: 7400\n}\nObjects: {\n";
    QByteArray connections = "Connections: {\n";
    for (int i = 1; i <= 20000; ++i) {
        links += "Model: " + QByteArray::number(i) + ", \"Model::n\", \"Null\" {\n}\n";
        connections +=
            "C: \"OO\"," + QByteArray::number(i + 1) + "," + QByteArray::number(i) + "\n";
    }
    QTest::newRow("nodes below each other without end") << links + "}\n" + connections + "}\n";
    QByteArray shared = "FBXHeaderExtension: {\nFBXVersion: 7400\n}\nObjects: {\n"
                        "Model: 1, \"Model::n\", \"Null\" {\n}\n";
    connections = "Connections: {\n";
    for (int i = 0; i < 20000; ++i) {
        const QByteArray stack = QByteArray::number(1000000 + i);
        shared += "AnimationStack: " + stack + ", \"AnimStack::s\", \"\" {\n}\n";
        connections += "C: \"OO\",5," + stack +
                       "\nC: \"OO\",6,5\nC: \"OP\",6,1,\"Lcl Rotation\"\n"
                       "C: \"OP\",7,6,\"d|X\"\n";
    }
    shared += "AnimationLayer: 5, \"AnimLayer::l\", \"\" {\n}\n"
              "AnimationCurveNode: 6, \"AnimCurveNode::n\", \"\" {\n}\n"
              "AnimationCurve: 7, \"AnimCurve::\", \"\" {\nKeyTime: *1 {\na: 0\n}\n"
              "KeyValueFloat: *1 {\na: 0\n}\n}\n";
    QTest::newRow("one layer in thousands of animations") << shared + "}\n" + connections + "}\n";
    QTest::newRow("a comma a byte") << "FBXVersion: " + QByteArray("1,").repeated(4000000);
    QTest::newRow("a record every two bytes") << QByteArray("a:").repeated(3000000);
}

void TestVxFbxMutations::largeClaims()
{
    QFETCH(QByteArray, bytes);
    double milliseconds = 0;
    bool isAccepted = false;
    const QByteArray wrong = fbxmutations::verdict(bytes, &milliseconds, &isAccepted);
    QVERIFY2(wrong.isEmpty(), wrong);
    qInfo("%s after %.0f ms", isAccepted ? "accepted" : "refused", milliseconds);
}

VX_TEST_MAIN(TestVxFbxMutations)
#include "tst_vxfbxmutations.moc"

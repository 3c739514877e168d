// Scenes written as glTF and read back: the same motion, and files that other programs accept.

#include "gltfreading.h"
#include "io/gltf/vxgltfexport.h"
#include "io/gltf/vxgltfreader.h"
#include "io/motion/vxmotionbuilder.h"
#include "randomkeys.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QJsonDocument>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>
#include <cmath>
#include <random>
#include <vxcore/vxbone.h>
#include <vxcore/vxeuler.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostack.h>

namespace {

/// Keys of the types given, at times that need not be frames.
void addKeys(VxFloatProperty *property, Random &random, float size, const QVector<int> &types)
{
    VxTime time = 0;
    while (time <= End) {
        const int type = types[int(random() % unsigned(types.size()))];
        property->setKey(time, number(random, -size, size), type, number(random, -1, 1),
                         number(random, -1, 1), number(random, -1, 1));
        time += 300 + VxTime(random() % 2000);
    }
}

VxBone *addBone(VxNode *parent, const char *name, Random &random)
{
    auto *bone = new VxBone(QLatin1String(name));
    parent->addNodeChild(bone);
    bone->setOrigin({number(random, -1, 1), number(random, 2, 10), number(random, -1, 1)});
    bone->setEndPoint({0, 4, 0});
    bone->setRotationOrder(VxNode::RotationOrder(random() % 6));
    return bone;
}

double distance(const QVector4D &a, const QVector4D &b)
{
    return double((a - b).length());
}

} // namespace

class tst_VxGltfExport : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void motionRoundTrips_data();
    void motionRoundTrips();
    void stepsStaySteps();
    void smoothCurvesStayAsFewKeys();
    void straightRotationsGetNoKeys();
    void morphsRoundTrip();
    void aFigureAlone();
    void timesBeforeZeroAreMoved();
    void lateTimesStayApart();
    void theRateRoundTrips();
    void validatorReportsNothing();

private:
    VxSkeleton *makeFigure(unsigned seed, const QVector<int> &types);
    bool roundTrip(const VxNode *root = nullptr);
    const VxNode *again(const QString &name) const;

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<VxUndoStack> m_undo;
    QScopedPointer<VxScene> m_scene;
    VxSceneContents m_contents;
    VxFileError m_error;
    double m_stated = 0.0;
};

void tst_VxGltfExport::init()
{
    m_guard.reset(new VxWarningGuard);
    m_undo.reset(new VxUndoStack);
    m_scene.reset(new VxScene);
    m_scene->setTimeStep(Step);
    m_scene->setAnimRange({0, End});
}

void tst_VxGltfExport::cleanup()
{
    m_contents = VxSceneContents();
    m_scene.reset();
    m_undo.reset();
    m_guard.reset();
}

VxSkeleton *tst_VxGltfExport::makeFigure(unsigned seed, const QVector<int> &types)
{
    Random random(seed);
    auto *figure = new VxSkeleton(QStringLiteral("figure"));
    m_scene->addNode(figure);
    auto *hip = new VxBone(QStringLiteral("hip"));
    VxBone *spine = addBone(hip, "spine", random);
    VxBone *arm = addBone(spine, "arm", random);
    m_scene->addNode(hip, figure);
    for (VxNode *node : QVector<VxNode *>{hip, spine, arm}) {
        for (VxFloatProperty *control :
             {node->getXRotControl(), node->getYRotControl(), node->getZRotControl()})
            addKeys(control, random, 120, types);
    }
    for (VxFloatProperty *control :
         {hip->getXPosControl(), hip->getYPosControl(), hip->getZPosControl()})
        addKeys(control, random, 20, types);
    addKeys(spine->getYScaleControl(), random, 2, types);
    addKeys(arm->getScaleControl(), random, 2, types);
    return figure;
}

bool tst_VxGltfExport::roundTrip(const VxNode *root)
{
    const QTemporaryDir dir;
    QFile file(dir.filePath("scene.glb"));
    QString summary;
    VxImportedMotion motion;
    VxImportReport report;
    VxMotionBuildOptions options;
    options.figureName = QStringLiteral("new figure");
    if (!vxWriteGltf({m_scene.data(), m_scene->getAnimRange(), root}, file.fileName(), &summary,
                     &m_error) ||
        !file.open(QIODevice::ReadOnly))
        return false;
    m_stated = summary.section("up to ", 1).section(' ', 0, 0).toDouble();
    return vxReadGltf(file.readAll(), QString(), {}, &motion, &m_error) &&
           vxBuildMotion(std::move(motion), options, {}, &m_contents, &report, &m_error);
}

const VxNode *tst_VxGltfExport::again(const QString &name) const
{
    for (const auto &root : m_contents.rootNodes) {
        QVector<VxNode *> nodes{root.get()};
        root->getNodeChildren(nodes, true);
        for (const VxNode *node : qAsConst(nodes)) {
            if (node->getName() == name)
                return node;
        }
    }
    qFatal("no node %s", qPrintable(name));
}

void tst_VxGltfExport::motionRoundTrips_data()
{
    QTest::addColumn<QVector<int>>("types");
    const int linear = VxKeyInterp::Linear;
    const int constant = VxKeyInterp::Constant;
    const int tcb = VxKeyInterp::Tcb;
    QTest::newRow("straight") << QVector<int>{linear};
    QTest::newRow("steps") << QVector<int>{constant};
    QTest::newRow("smooth") << QVector<int>{tcb};
    QTest::newRow("straight and steps") << QVector<int>{linear, constant};
    QTest::newRow("all kinds") << QVector<int>{linear, constant, tcb};
}

void tst_VxGltfExport::motionRoundTrips()
{
    QFETCH(QVector<int>, types);
    for (unsigned seed = 1; seed <= 4; ++seed) {
        m_scene->clear();
        m_scene->setTimeStep(Step);
        m_scene->setAnimRange({0, End});
        const VxSkeleton *figure = makeFigure(seed, types);
        QVERIFY2(roundTrip(), qPrintable(m_error.text()));
        QVERIFY(m_stated <= 0.05);
        QVector<VxNode *> nodes;
        figure->getNodeChildren(nodes, true);
        for (VxTime time = 0; time <= End; time += Step / 4) {
            const bool onFrame = time % Step == 0;
            for (const VxNode *node : qAsConst(nodes)) {
                const VxNode *other = again(node->getName());
                QCOMPARE(other->getRotationOrder(), node->getRotationOrder());
                const double angle =
                    vxAngleBetween(rotationOf(node, time), rotationOf(other, time));
                // Between frames the importer's own share of 0.1 degrees is added.
                QVERIFY2(angle <= (onFrame ? 1e-3 : m_stated + 0.1),
                         qPrintable(QString("%1 degrees at %2, seed %3, %4")
                                        .arg(angle)
                                        .arg(time)
                                        .arg(seed)
                                        .arg(node->getName())));
                const QMatrix4x4 a = node->getLocalTransform(time);
                const QMatrix4x4 b = other->getLocalTransform(time);
                const double limit = onFrame ? 2e-4 : 1e-1; // of a figure 20 high
                QVERIFY2(
                    distance(a.column(3), b.column(3)) <= limit,
                    qPrintable(
                        QString("%1 at %2").arg(distance(a.column(3), b.column(3))).arg(time)));
                for (int axis = 0; onFrame && axis < 3; ++axis)
                    QVERIFY(std::abs(double(a.column(axis).length() - b.column(axis).length())) <
                            4e-3);
            }
        }
    }
}

void tst_VxGltfExport::stepsStaySteps()
{
    makeFigure(7, {VxKeyInterp::Constant});
    QVERIFY2(roundTrip(), qPrintable(m_error.text()));
    const VxNode *spine = again("spine");
    for (int i = 0; i < spine->getXRotControl()->getNumKeys(); ++i)
        QCOMPARE(spine->getXRotControl()->getKeyInterpolationType(i), int(VxKeyInterp::Constant));
    // One tick before a key of the original the value before it still holds.
    const VxFloatProperty *hip = m_scene->findNode("hip")->getXPosControl();
    for (int i = 1; i < hip->getNumKeys() && hip->getKeyTime(i) <= End; ++i)
        QCOMPARE(again("hip")->getXPosControl()->getValue(hip->getKeyTime(i) - 1),
                 hip->getKeyValue(i - 1));
}

void tst_VxGltfExport::smoothCurvesStayAsFewKeys()
{
    auto *node = new VxNode(QStringLiteral("ball"));
    m_scene->addNode(node);
    for (VxFloatProperty *control :
         {node->getXPosControl(), node->getYPosControl(), node->getZPosControl()}) {
        for (const VxTime time : {0, 1000, 4000, 9600})
            control->setKey(time, float(time % 7000) * 0.01f, VxKeyInterp::Tcb, 0.3f, 0.1f, -0.4f);
    }
    QVERIFY2(roundTrip(), qPrintable(m_error.text()));
    QCOMPARE(again("ball")->getXPosControl()->getNumKeys(), 4);
    for (VxTime time = 0; time <= End; time += 13)
        QVERIFY(qAbs(again("ball")->getXPosControl()->getValue(time) -
                     node->getXPosControl()->getValue(time)) < 1e-3f * 70);
}

// About one axis straight angles are the arc itself.
void tst_VxGltfExport::straightRotationsGetNoKeys()
{
    auto *node = new VxNode(QStringLiteral("door"));
    m_scene->addNode(node);
    for (int i = 0; i <= 4; ++i)
        node->getYRotControl()->setKey(i * 2400, float(i % 2) * 80, VxKeyInterp::Linear);
    QVERIFY2(roundTrip(), qPrintable(m_error.text()));
    QCOMPARE(again("door")->getYRotControl()->getNumKeys(), 5);
    QVERIFY(m_stated < 5e-4);
}

void tst_VxGltfExport::morphsRoundTrip()
{
    auto *node = new VxNode(QStringLiteral("face"));
    auto *object = new VxObject(QStringLiteral("shape"));
    node->setObject(object);
    object->addSubElement(new VxMorph(QStringLiteral("smile")));
    auto *frown = new VxMorph(QStringLiteral("frown"));
    object->addSubElement(frown);
    m_scene->addNode(node);
    frown->getValueControl()->setKey(0, 0, VxKeyInterp::Linear);
    frown->getValueControl()->setKey(4800, 1, VxKeyInterp::Linear);
    QVERIFY2(roundTrip(), qPrintable(m_error.text()));
    const VxObject *other = again("face")->getObject();
    QVERIFY(other);
    QCOMPARE(other->getNumSubElements(), 2);
    const auto *morph = qobject_cast<const VxMorph *>(other->getSubElement(1));
    QCOMPARE(morph->getName(), QStringLiteral("frown"));
    QCOMPARE(morph->getValueControl()->getValue(2400), 0.5f);
}

void tst_VxGltfExport::aFigureAlone()
{
    const VxSkeleton *figure = makeFigure(3, {VxKeyInterp::Linear});
    m_scene->addNode(new VxNode(QStringLiteral("lamp")));
    QVERIFY2(roundTrip(figure), qPrintable(m_error.text()));
    QCOMPARE(int(m_contents.rootNodes.size()), 1);
    QVERIFY(qobject_cast<VxSkeleton *>(m_contents.rootNodes[0].get()));
    QVERIFY(qobject_cast<const VxBone *>(again("arm")));
    QCOMPARE(again("arm")->getEndPoint(), QVector3D(0, 4, 0));
}

void tst_VxGltfExport::timesBeforeZeroAreMoved()
{
    auto *node = new VxNode(QStringLiteral("ball"));
    m_scene->addNode(node);
    m_scene->setAnimRange({-4800, 4800});
    node->getXPosControl()->setKey(-4800, 1, VxKeyInterp::Linear);
    node->getXPosControl()->setKey(4800, 2, VxKeyInterp::Linear);
    QVERIFY2(roundTrip(), qPrintable(m_error.text()));
    QCOMPARE(again("ball")->getXPosControl()->getKeyTime(0), 0);
    QCOMPARE(again("ball")->getXPosControl()->getValue(4800), 1.5f);
}

// Three hours are 10800 s: single precision is no finer than 5 ticks there.
void tst_VxGltfExport::lateTimesStayApart()
{
    constexpr VxTime Late = 10800 * 4800;
    auto *node = new VxNode(QStringLiteral("ball"));
    m_scene->addNode(node);
    m_scene->setAnimRange({Late, Late + 4800});
    for (int i = 0; i < 4; ++i)
        node->getXPosControl()->setKey(Late + 100 + i, float(i), VxKeyInterp::Linear);
    node->getYPosControl()->setKey(Late, 0, VxKeyInterp::Constant);
    node->getYPosControl()->setKey(Late + 2400, 5, VxKeyInterp::Constant);
    QVERIFY2(roundTrip(), qPrintable(m_error.text()));
    QVERIFY(qAbs(again("ball")->getXPosControl()->getValue(Late + 4800) - 3.0f) < 1e-5f);
    QCOMPARE(again("ball")->getYPosControl()->getValue(Late + 2380), 0.0f);
    QCOMPARE(again("ball")->getYPosControl()->getValue(Late + 2420), 5.0f);
}

// Its keys fit 30 frames a second as well.
void tst_VxGltfExport::theRateRoundTrips()
{
    auto *node = new VxNode(QStringLiteral("ball"));
    m_scene->addNode(node);
    m_scene->setTimeStep(200);
    m_scene->setAnimRange({0, 4800});
    node->getXPosControl()->setKey(0, 1, VxKeyInterp::Linear);
    node->getXPosControl()->setKey(4800, 2, VxKeyInterp::Linear);
    QVERIFY2(roundTrip(), qPrintable(m_error.text()));
    QCOMPARE(m_contents.timeStep, 200);
}

void tst_VxGltfExport::validatorReportsNothing()
{
    const QString npm = QStandardPaths::findExecutable("npm");
    const QString node = QStandardPaths::findExecutable("node");
    if (npm.isEmpty() || node.isEmpty())
        QSKIP("npm is absent: the files were not checked by gltf-validator.");
    QTemporaryDir dir;
    QProcess install;
    install.setWorkingDirectory(dir.path());
    install.start(npm,
                  {"install", "--no-audit", "--no-fund", "--prefix", dir.path(), "gltf-validator"});
    if (!install.waitForFinished(120000) || install.exitCode() != 0)
        QSKIP("gltf-validator cannot be installed by npm: the files were not checked by it.");
    makeFigure(11, {VxKeyInterp::Linear, VxKeyInterp::Constant, VxKeyInterp::Tcb});
    auto *face = new VxNode(QStringLiteral("face"));
    face->setObject(new VxObject(QStringLiteral("shape")));
    auto *morph = new VxMorph(QStringLiteral("smile"));
    face->getObject()->addSubElement(morph);
    m_scene->addNode(face);
    morph->getValueControl()->setKey(480, 1, VxKeyInterp::Tcb);
    for (const char *name : {"scene.glb", "scene.gltf"}) {
        const QString file = dir.filePath(QLatin1String(name));
        QString summary;
        QVERIFY2(vxWriteGltf({m_scene.data(), m_scene->getAnimRange()}, file, &summary, &m_error),
                 qPrintable(m_error.text()));
        QProcess check;
        check.setWorkingDirectory(dir.path());
        check.start(node, {"-e",
                           "require('gltf-validator').validateBytes(new Uint8Array(require('fs')."
                           "readFileSync(process.argv[1]))).then(r=>console.log(JSON.stringify("
                           "r.issues)))",
                           file});
        QVERIFY(check.waitForFinished(60000));
        const QByteArray answer = check.readAllStandardOutput();
        const QJsonObject issues = QJsonDocument::fromJson(answer).object();
        QVERIFY2(issues.contains("numErrors"), check.readAllStandardError().constData());
        QVERIFY2(issues.value("numErrors").toInt() == 0, answer.constData());
        QVERIFY2(issues.value("numWarnings").toInt() == 0, answer.constData());
    }
}

VX_TEST_GUILESS_MAIN(tst_VxGltfExport)
#include "tst_vxgltfexport.moc"

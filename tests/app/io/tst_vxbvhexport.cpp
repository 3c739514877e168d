// Exported motion is imported as the same motion.

#include "bvhimport.h"
#include "io/bvh/vxbvhreader.h"
#include "io/formats/vxmotionexport.h"
#include "testing/vxscenebuilder.h"
#include "testing/vxtestmain.h"
#include "testing/vxtestmodels.h"
#include "testing/vxwarningguard.h"
#include "walksample.h"

#include <QTemporaryDir>
#include <QtTest>
#include <cmath>
#include <memory>
#include <vxcore/vxbone.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostack.h>

namespace {

using Control = VxFloatProperty *(VxNode::*)() const;
const Control movingControls[] = {&VxNode::getXPosControl, &VxNode::getYPosControl,
                                  &VxNode::getZPosControl, &VxNode::getXRotControl,
                                  &VxNode::getYRotControl, &VxNode::getZRotControl};

VxSkeleton *figureOf(const VxScene &scene)
{
    for (VxNode *node : scene.getNodes()) {
        if (auto *skeleton = qobject_cast<VxSkeleton *>(node))
            return skeleton;
    }
    return nullptr;
}

float worldDistance(const QMatrix4x4 &a, const QMatrix4x4 &b)
{
    float largest = 0.0f;
    for (int i = 0; i < 16; ++i)
        largest = std::max(largest, std::abs(a.constData()[i] - b.constData()[i]));
    return largest;
}

/// The matrix without what scales it: a motion file has no scales.
QMatrix4x4 rigid(QMatrix4x4 matrix)
{
    for (int column = 0; column < 3; ++column) {
        QVector3D axis = matrix.column(column).toVector3D().normalized();
        matrix.setColumn(column, QVector4D(axis, 0.0f));
    }
    return matrix;
}

} // namespace

class tst_VxBvhExport : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void sameValuesRoundTrip_data();
    void sameValuesRoundTrip();
    void everyInterpolationIsSampled();
    void otherRatesAndStarts();
    void positionsOfBonesThatMove();
    void rotationOrders();
    void unsupportedTransformsAreConverted_data();
    void unsupportedTransformsAreConverted();
    void namesAreMadeToFit();
    void endsOfBones();
    void refuses_data();
    void refuses();
    void cancelKeepsTheFile_data();
    void cancelKeepsTheFile();
    void progressAscends();
    void nothingChangesInTheScene();

private:
    bool write(const VxSkeleton *skeleton, VxFileError *error, const VxFileProgress &progress = {});
    VxSkeleton *readBack();
    VxSkeleton *roundTrip(const VxSkeleton *skeleton);

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<VxUndoStack> m_undo;
    std::unique_ptr<VxScene> m_scene;
    std::unique_ptr<VxScene> m_other;
    QString m_file;
    QString m_summary;
};

void tst_VxBvhExport::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_dir = std::make_unique<QTemporaryDir>();
    m_undo = std::make_unique<VxUndoStack>();
    m_scene = std::make_unique<VxScene>();
    m_other = std::make_unique<VxScene>();
    m_file = m_dir->filePath("out.bvh");
}

void tst_VxBvhExport::cleanup()
{
    m_undo->clear();
    m_other.reset();
    m_scene.reset();
    m_undo.reset();
    m_guard.reset();
}

bool tst_VxBvhExport::write(const VxSkeleton *skeleton, VxFileError *error,
                            const VxFileProgress &progress)
{
    VxMotionExportOptions options;
    options.root = skeleton;
    return vxExportMotion(m_scene.get(), options, m_file, progress, &m_summary, error);
}

VxSkeleton *tst_VxBvhExport::readBack()
{
    VxFileError error;
    BvhImport import(m_other.get());
    if (!import.importFile(m_file, &error))
        QTest::qFail(qPrintable(error.text()), __FILE__, __LINE__);
    return import.getSkeleton();
}

VxSkeleton *tst_VxBvhExport::roundTrip(const VxSkeleton *skeleton)
{
    VxFileError error;
    if (!write(skeleton, &error))
        QTest::qFail(qPrintable(error.text()), __FILE__, __LINE__);
    return readBack();
}

void tst_VxBvhExport::sameValuesRoundTrip_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("the sample") << VX_SOURCE_DIR "/samples/walk.bvh";
    for (const char *name : {"01_01.bvh", "01_03.bvh", "Boxing_Toes.bvh"})
        QTest::newRow(name) << vxTestModels(QLatin1String("BVH/") + QLatin1String(name));
}

/// Every control of every bone at every frame, to the last bit.
void tst_VxBvhExport::sameValuesRoundTrip()
{
    QFETCH(QString, file);
    VxFileError error;
    BvhImport import(m_scene.get());
    QVERIFY2(import.importFile(file, &error), qPrintable(error.text()));
    const QVector<VxBone *> before = import.getSkeleton()->getAllBones();
    const QVector<VxBone *> after = roundTrip(import.getSkeleton())->getAllBones();
    QCOMPARE(m_other->getTimeStep(), m_scene->getTimeStep());
    QCOMPARE(m_other->getAnimRange(), m_scene->getAnimRange());
    QCOMPARE(after.size(), before.size());
    QVERIFY(before.size() > 10);
    const VxTime step = m_scene->getTimeStep();
    for (int i = 0; i < before.size(); ++i) {
        const VxBone *a = before.at(i);
        const VxBone *b = after.at(i);
        QCOMPARE(b->getLabel(), a->getLabel());
        QCOMPARE(b->getOrigin(), a->getOrigin());
        if (a->getNumNodeChildren() == 0)
            QCOMPARE(b->getEndPoint(), a->getEndPoint());
        for (const Control control : movingControls) {
            for (VxTime time = 0; time <= m_scene->getAnimRange().getEnd(); time += step) {
                const float expected = (a->*control)()->getValue(time);
                const float actual = (b->*control)()->getValue(time);
                if (expected != actual)
                    QFAIL(qPrintable(QString("%1 at %2: %3, not %4")
                                         .arg(a->getLabel())
                                         .arg(time)
                                         .arg(double(actual))
                                         .arg(double(expected))));
            }
        }
    }
    QVERIFY2(m_summary.contains("frames per second"), qPrintable(m_summary));
    QVERIFY(!m_summary.contains("worked"));
}

void tst_VxBvhExport::everyInterpolationIsSampled()
{
    VxSceneBuilder builder(m_scene.get());
    VxSkeleton *figure = builder.addSkeleton("f", 2, VxSceneBuilder::Shape::Chain);
    VxFloatProperty *turn = figure->getAllBones().at(1)->getXRotControl();
    turn->setKey(0, 0.0f, VxKeyInterp::Tcb, 0.5f, -0.5f, 0.25f);
    turn->setKey(1600, 90.0f, VxKeyInterp::Constant);
    turn->setKey(3200, -90.0f, VxKeyInterp::Linear);
    turn->setKey(4800, 45.0f, VxKeyInterp::Linear);
    const VxSkeleton *back = roundTrip(figure);
    const VxFloatProperty *copy = back->getAllBones().at(1)->getXRotControl();
    QCOMPARE(copy->getNumKeys(), 31);
    for (int frame = 0; frame <= 30; ++frame)
        QCOMPARE(copy->getKeyValue(frame), turn->getValue(frame * 160));
    QVERIFY(turn->getValue(400) != turn->getValue(1600) / 4); // the curve is one
}

void tst_VxBvhExport::otherRatesAndStarts()
{
    VxSceneBuilder builder(m_scene.get());
    VxSkeleton *figure = builder.addSkeleton("f", 1);
    VxFloatProperty *turn = figure->getAllBones().at(0)->getYRotControl();
    turn->setKey(0, 0.0f, VxKeyInterp::Linear);
    turn->setKey(48000, 480.0f, VxKeyInterp::Linear);
    m_scene->setTimeStep(200);                            // 24 frames a second
    m_scene->setAnimRange({1000, 1000 + 10 * 200 + 150}); // its end is between two frames
    const VxSkeleton *back = roundTrip(figure);
    QCOMPARE(m_other->getTimeStep(), 200);
    QCOMPARE(m_other->getAnimRange(), VxTimeRange(0, 2000));
    const VxFloatProperty *copy = back->getAllBones().at(0)->getYRotControl();
    for (int frame = 0; frame <= 10; ++frame)
        QCOMPARE(copy->getKeyValue(frame), turn->getValue(1000 + frame * 200));
    QVERIFY2(m_summary.contains("11 frames at 24 frames"), qPrintable(m_summary));
}

void tst_VxBvhExport::positionsOfBonesThatMove()
{
    VxSceneBuilder builder(m_scene.get());
    VxSkeleton *figure = builder.addSkeleton("f", 3, VxSceneBuilder::Shape::Chain);
    const QVector<VxBone *> bones = figure->getAllBones();
    bones.at(1)->setOrigin({1.0f, 2.0f, 3.0f});
    bones.at(1)->getYPosControl()->setKey(0, 5.0f, VxKeyInterp::Linear);
    bones.at(1)->getYPosControl()->setKey(4800, 9.0f, VxKeyInterp::Linear);
    bones.at(2)->setOrigin({4.0f, 0.0f, 0.0f});
    bones.at(2)->getXPosControl()->setStoredValue(0.5f);
    const QVector<VxBone *> back = roundTrip(figure)->getAllBones();
    QCOMPARE(back.at(0)->getXPosControl()->getNumKeys(), 31); // a root always has positions
    QCOMPARE(back.at(1)->getYPosControl()->getNumKeys(), 31);
    QCOMPARE(back.at(2)->getXPosControl()->getNumKeys(), 0);
    QCOMPARE(back.at(2)->getOrigin(), QVector3D(4.5f, 0.0f, 0.0f));
    for (VxTime time = 0; time <= 4800; time += 160) {
        for (int i = 0; i < 3; ++i)
            QVERIFY(worldDistance(back.at(i)->getWorldTransform(time),
                                  bones.at(i)->getWorldTransform(time)) < 1e-5f);
    }
}

void tst_VxBvhExport::rotationOrders()
{
    VxSceneBuilder builder(m_scene.get());
    VxSkeleton *figure = builder.addSkeleton("f", 6, VxSceneBuilder::Shape::Chain);
    const QVector<VxBone *> bones = figure->getAllBones();
    builder.keyChannels({bones.begin(), bones.end()}, 31);
    for (int i = 0; i < bones.size(); ++i) {
        bones.at(i)->setRotationOrder(VxNode::RotationOrder(i));
        bones.at(i)->setOrigin({}); // else the positions are imported with it
        for (const Control scale :
             {&VxNode::getXScaleControl, &VxNode::getYScaleControl, &VxNode::getZScaleControl}) {
            (bones.at(i)->*scale)()->deleteAllKeys();
            (bones.at(i)->*scale)()->setStoredValue(1.0f);
        }
    }
    const QVector<VxBone *> back = roundTrip(figure)->getAllBones();
    for (int i = 0; i < bones.size(); ++i) {
        QCOMPARE(int(back.at(i)->getRotationOrder()), i);
        for (const Control control : movingControls) {
            const float expected = (bones.at(i)->*control)()->getValue(1600);
            QCOMPARE((back.at(i)->*control)()->getValue(1600), expected);
        }
    }
}

void tst_VxBvhExport::unsupportedTransformsAreConverted_data()
{
    QTest::addColumn<QString>("what");
    for (const char *what :
         {"the skeleton moves", "the skeleton turns", "the skeleton is scaled",
          "a node above moves it all", "a bone is scaled", "a bone grows",
          "a bone is scaled unevenly", "a node between bones", "a scaled node between bones"})
        QTest::newRow(what) << QString(QLatin1String(what));
}

/// Places and directions of all bones in the world, at each frame, are those of the scene; numbers
/// of size 10 are worked out in single precision, so a thousandth is allowed.
void tst_VxBvhExport::unsupportedTransformsAreConverted()
{
    QFETCH(QString, what);
    VxSceneBuilder builder(m_scene.get());
    VxNode *above = builder.addNode("above");
    VxSkeleton *figure = builder.addSkeleton("f", 4, VxSceneBuilder::Shape::Chain);
    figure->setNodeParent(above);
    const QVector<VxBone *> bones = figure->getAllBones();
    for (int i = 0; i < bones.size(); ++i) {
        bones.at(i)->setOrigin({0.5f, 2.0f, float(i)});
        bones.at(i)->setEndPoint({0.0f, 1.0f, 0.0f});
        bones.at(i)->setRotationOrder(VxNode::RotationOrder(i + 1));
        bones.at(i)->getXRotControl()->setKey(0, 10.0f * float(i), VxKeyInterp::Linear);
        bones.at(i)->getXRotControl()->setKey(4800, 200.0f, VxKeyInterp::Linear);
        bones.at(i)->getZRotControl()->setKey(2400, -30.0f, VxKeyInterp::Linear);
    }
    const auto change = [](VxFloatProperty *control, float first, float last) {
        control->setKey(0, first, VxKeyInterp::Linear);
        control->setKey(4800, last, VxKeyInterp::Linear);
    };
    if (what == "the skeleton moves") {
        change(figure->getXPosControl(), 0.0f, 10.0f);
    } else if (what == "the skeleton turns") {
        change(figure->getYRotControl(), 0.0f, 720.0f);
    } else if (what == "the skeleton is scaled") {
        figure->getScaleControl()->setStoredValue(2.5f);
    } else if (what == "a node above moves it all") {
        change(above->getYRotControl(), 0.0f, 90.0f);
        change(above->getZPosControl(), 3.0f, -3.0f);
    } else if (what == "a bone is scaled") {
        bones.at(1)->getScaleControl()->setStoredValue(0.5f);
    } else if (what == "a bone grows") {
        change(bones.at(0)->getScaleControl(), 1.0f, 3.0f);
    } else if (what == "a bone is scaled unevenly") {
        bones.at(2)->getYScaleControl()->setStoredValue(3.0f);
    } else {
        VxNode *between = builder.addNode("between", bones.at(1));
        bones.at(2)->setNodeParent(between);
        change(between->getYRotControl(), 0.0f, 45.0f);
        change(between->getXPosControl(), 1.0f, 2.0f);
        if (what.startsWith("a scaled"))
            between->getScaleControl()->setStoredValue(2.0f);
    }
    const QVector<VxBone *> back = roundTrip(figure)->getAllBones();
    QCOMPARE(back.size(), bones.size());
    QVERIFY2(m_summary.contains("converted to positions"), qPrintable(m_summary));
    // Below an uneven scale a turned bone is sheared: no rotation can express that.
    const bool shears = what == "a bone is scaled unevenly";
    for (int frame = 0; frame <= 30; ++frame) {
        for (int i = 0; i < bones.size(); ++i) {
            const QMatrix4x4 expected = bones.at(i)->getWorldTransform(frame * 160);
            const QMatrix4x4 actual = back.at(i)->getWorldTransform(frame * 160);
            const QVector3D place = expected.column(3).toVector3D();
            QVERIFY2((actual.column(3).toVector3D() - place).length() < 1e-3f,
                     qPrintable(QString("%1, frame %2").arg(bones.at(i)->getLabel()).arg(frame)));
            if (!shears || i < 3)
                QVERIFY(worldDistance(actual, rigid(expected)) < 1e-3f);
        }
    }
    // The end of the chain is where it was, too.
    const QMatrix4x4 first = bones.last()->getWorldTransform(0);
    const QVector3D end = back.last()->getWorldTransform(0).map(back.last()->getEndPoint());
    QVERIFY((first.map(bones.last()->getEndPoint()) - end).length() < 1e-3f);
}

void tst_VxBvhExport::namesAreMadeToFit()
{
    VxSceneBuilder builder(m_scene.get());
    VxSkeleton *figure = builder.addSkeleton("f", 6, VxSceneBuilder::Shape::Chain);
    const QStringList labels = {
        "  blanks  ", "two\nlines", "brace {", "{", QString::fromUtf8("höft 腰"), "f 6"};
    const QVector<VxBone *> bones = figure->getAllBones();
    for (int i = 0; i < labels.size(); ++i)
        bones.at(i)->setLabel(labels.at(i));
    QStringList found;
    for (const VxBone *bone : roundTrip(figure)->getAllBones())
        found.append(bone->getLabel());
    QCOMPARE(found, QStringList({"blanks", "two lines", "brace", "joint",
                                 QString::fromUtf8("höft 腰"), "f 6"}));
}

void tst_VxBvhExport::endsOfBones()
{
    VxSceneBuilder builder(m_scene.get());
    VxSkeleton *figure = builder.addSkeleton("f", 5, VxSceneBuilder::Shape::Tree);
    for (VxBone *bone : figure->getAllBones())
        bone->setEndPoint({1.0f, 2.0f, 3.0f});
    VxFileError error;
    QVERIFY(write(figure, &error));
    VxBvhDocument document;
    QVERIFY(vxReadBvhFile(m_file, &document, &error));
    QCOMPARE(int(document.joints.size()), 5);
    QVERIFY(document.joints.at(0).endSites.empty());
    const QVector3D end{1.0f, 2.0f, 3.0f};
    QVERIFY(document.joints.at(4).endSites == std::vector<QVector3D>{end});
    QCOMPARE(document.frameCount, 31);
}

void tst_VxBvhExport::refuses_data()
{
    QTest::addColumn<int>("bones");
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("message");
    QTest::newRow("a figure without bones") << 0 << 4800 << "out.bvh"
                                            << "\"f\" has no bones";
    QTest::newRow("more than memory holds") << 2 << int(VxTimeMax) << "out.bvh"
                                            << "too long: 2147483648 frames of 2 bones";
    QTest::newRow("a folder that is not there") << 2 << 4800 << "gone/out.bvh"
                                                << "No such file or directory";
}

void tst_VxBvhExport::refuses()
{
    QFETCH(int, bones);
    QFETCH(int, end);
    QFETCH(QString, file);
    QFETCH(QString, message);
    m_file = m_dir->filePath(file);
    VxSkeleton *figure = nullptr;
    if (bones > 0) {
        figure = VxSceneBuilder(m_scene.get()).addSkeleton("f", bones);
    } else {
        figure = new VxSkeleton("f");
        m_scene->addNode(figure);
    }
    m_scene->setAnimRange({0, end});
    if (end == VxTimeMax) {
        m_scene->setTimeStep(1);
        message.replace("2147483648", QString::number(qint64(VxTimeMax) + 1));
    }
    VxFileError error;
    QVERIFY(!write(figure, &error));
    QVERIFY2(error.text().contains(message), qPrintable(error.text()));
    QVERIFY2(error.text().startsWith(m_file), qPrintable(error.text()));
    QVERIFY(!error.cancelled);
    QVERIFY(!QFile::exists(m_file));
}

void tst_VxBvhExport::cancelKeepsTheFile_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<bool>("worksOut");
    QTest::newRow("at once") << 0 << false;
    QTest::newRow("while controls are copied") << 20 << false;
    QTest::newRow("while the world is worked out") << 30 << true;
    QTest::newRow("while it is written") << 80 << false;
}

void tst_VxBvhExport::cancelKeepsTheFile()
{
    QFETCH(int, percent);
    QFETCH(bool, worksOut);
    VxFileError error;
    BvhImport import(m_scene.get());
    QVERIFY(import.importFile(vxTestModels("BVH/01_01.bvh"), &error));
    if (worksOut)
        import.getSkeleton()->getXPosControl()->setStoredValue(5.0f);
    QFile former(m_file);
    QVERIFY(former.open(QIODevice::WriteOnly) && former.write("former") == 6);
    former.close();
    int last = -1;
    QVERIFY(!write(import.getSkeleton(), &error, [&](int now) {
        last = now;
        return now < percent;
    }));
    QVERIFY(error.cancelled);
    QVERIFY2(last >= percent, qPrintable(QString::number(last)));
    QVERIFY(former.open(QIODevice::ReadOnly));
    QCOMPARE(former.readAll(), QByteArray("former"));
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files), QStringList{"out.bvh"});
}

void tst_VxBvhExport::progressAscends()
{
    VxFileError error;
    BvhImport import(m_scene.get());
    QVERIFY(import.importFile(vxTestModels("BVH/01_01.bvh"), &error));
    import.getSkeleton()->getXPosControl()->setStoredValue(5.0f);
    QVector<int> reports;
    QVERIFY(write(import.getSkeleton(), &error, [&](int now) {
        reports.append(now);
        return true;
    }));
    QVERIFY(reports.size() > 20);
    QVERIFY(std::is_sorted(reports.cbegin(), reports.cend()));
    QVERIFY(reports.first() >= 0 && reports.last() > 80 && reports.last() <= 100);
}

void tst_VxBvhExport::nothingChangesInTheScene()
{
    WalkSample::build(m_scene.get());
    m_scene->setTime(480);
    int changes = 0;
    QObject listener;
    for (VxNode *node : m_scene->getNodes()) {
        for (int i = 0; i < node->getNumProperties(); ++i)
            connect(node->getProperty(i), &VxProperty::valueChanged, &listener, [&] { ++changes; });
    }
    VxFileError error;
    QVERIFY(write(figureOf(*m_scene), &error));
    QCOMPARE(changes, 0);
    QCOMPARE(m_scene->getTime(), 480);
    QCOMPARE(m_undo->count(), 0);
}

VX_TEST_GUILESS_MAIN(tst_VxBvhExport)
#include "tst_vxbvhexport.moc"

// The shipped sample: the generator still makes it, and it shows every kind of key and property.

#include "io/bvh/vxbvhreader.h"
#include "io/bvh/vxbvhwriter.h"
#include "io/vxscenewriter.h"
#include "testing/vxtestmain.h"
#include "walkfigure.h"
#include "walksample.h"

#include <QBuffer>
#include <QtTest/QtTest>
#include <testing/vxwarningguard.h>
#include <vxcore/vxbone.h>
#include <vxcore/vxboolproperty.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxpropertygrouptree.h>
#include <vxcore/vxpropertyhelper.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxstringproperty.h>

namespace {

QByteArray shipped(const char *name)
{
    QFile file(QStringLiteral(VX_SOURCE_DIR "/samples/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestWalkSample : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void figureHasAboutSixtyBones();
    void sceneFileMatchesTheGenerator();
    void motionFileMatchesTheGenerator();
    void everyKindOfPropertyIsThere();
    void feetStayNearTheGround();
    void motionMatchesTheBakedScene();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestWalkSample::figureHasAboutSixtyBones()
{
    const std::vector<WalkBone> bones = walkFigure();
    QCOMPARE(bones.size(), size_t(58));
    QSet<QString> names;
    for (size_t i = 0; i < bones.size(); ++i) {
        names.insert(bones[i].name);
        QVERIFY(bones[i].parent < int(i));
        QCOMPARE(bones[i].parent < 0, i == 0);
    }
    QCOMPARE(names.size(), int(bones.size()));
}

void TestWalkSample::sceneFileMatchesTheGenerator()
{
    VxScene scene;
    WalkSample::build(&scene);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    VxFileError error;
    QVERIFY(VxSceneWriter(&scene).write(&buffer, &error));
    QVERIFY2(bytes == shipped("walk.vxscene"), "run walkgen on the samples folder");
}

void TestWalkSample::motionFileMatchesTheGenerator()
{
    QByteArray bytes;
    VxFileError error;
    QVERIFY2(VxBvhWriter::write(WalkSample::motion(), &bytes, &error), qPrintable(error.text()));
    QVERIFY2(bytes == shipped("walk.bvh"), "run walkgen on the samples folder");
}

void TestWalkSample::everyKindOfPropertyIsThere()
{
    VxScene scene;
    WalkSample::build(&scene);
    QSet<int> interpolations;
    QSet<QString> found;
    for (VxNode *node : scene.getNodes()) {
        for (VxProperty *property : node->getPropertyGroups()->collectAllProperties()) {
            const auto *number = qobject_cast<VxNumericProperty *>(property);
            for (int i = 0; i < property->getNumKeys(); ++i)
                interpolations.insert(property->getKeyInterpolationType(i));
            if (property->isAlias())
                found.insert(QStringLiteral("alias"));
            if (property->isHidden() && property->getNumKeys() > 0)
                found.insert(QStringLiteral("hidden"));
            if (property->isLocked())
                found.insert(QStringLiteral("locked"));
            if (number && number->isLinked())
                found.insert(number->isLinkTerminal() ? QStringLiteral("terminal link")
                                                      : QStringLiteral("open link"));
            if (number && number->isPercentage() && property->getNumKeys() > 0)
                found.insert(QStringLiteral("percentage"));
            if (VxPropertyHelper::isMorphProperty(property))
                found.insert(QStringLiteral("morph"));
            found.insert(QLatin1String(property->metaObject()->className()));
        }
    }
    QCOMPARE(interpolations, (QSet<int>{0, 1, 2}));
    for (const char *kind :
         {"alias", "hidden", "locked", "terminal link", "open link", "percentage", "morph",
          "VxFloatProperty", "VxIntProperty", "VxBoolProperty", "VxStringProperty"})
        QVERIFY2(found.contains(QLatin1String(kind)), kind);
}

void TestWalkSample::feetStayNearTheGround()
{
    VxScene scene;
    WalkSample::build(&scene);
    for (VxTime time = 0; time <= scene.getAnimRange().getEnd(); time += 160) {
        float lowest = 1e9f;
        for (const char *toe : {"lToe", "rToe"}) {
            const VxNode *node = scene.findNode(QLatin1String(toe));
            QVERIFY(node);
            const QMatrix4x4 world = node->getWorldTransform(time);
            lowest = qMin(lowest, (world * QVector3D()).y());
        }
        QVERIFY2(lowest > -9.0f && lowest < 14.0f, qPrintable(QString::number(double(lowest))));
    }
}

void TestWalkSample::motionMatchesTheBakedScene()
{
    VxScene scene;
    WalkSample::build(&scene);
    const VxBvhDocument motion = WalkSample::motion();
    QString problem;
    QVERIFY2(motion.isValid(&problem), qPrintable(problem));
    int channel = 0;
    for (const VxBvhJoint &joint : motion.joints) {
        const VxNode *node = scene.findNode(joint.name);
        QVERIFY(node);
        for (const VxBvhChannel kind : joint.channels) {
            const float *values = motion.channelValues(channel++);
            if (kind != VxBvhChannel::XRotation || !joint.name.endsWith(QLatin1String("Thigh")))
                continue;
            for (int frame = 0; frame < motion.frameCount; ++frame)
                QCOMPARE(values[frame], node->getXRotControl()->getValue(frame * 160));
        }
    }
}

VX_TEST_GUILESS_MAIN(TestWalkSample)
#include "tst_walksample.moc"

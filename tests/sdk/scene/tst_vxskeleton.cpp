#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <vxcore/vxapp.h>
#include <vxcore/vxbone.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxstyle.h>

class TestSkeleton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void bonesFindTheirSkeleton();
    void allBonesInHierarchyOrder();
    void bonesOfAnotherSkeletonAreLeftOut();
    void eachKindHasItsIcon();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestSkeleton::bonesFindTheirSkeleton()
{
    VxSkeleton skeleton(QStringLiteral("figure"));
    auto *prop = new VxNode(QStringLiteral("prop"));
    auto *bone = new VxBone(QStringLiteral("bone"));
    QVERIFY(!bone->getSkeleton());
    skeleton.addNodeChild(prop);
    prop->addNodeChild(bone);
    QCOMPARE(bone->getSkeleton(), &skeleton);
    QCOMPARE(skeleton.getSkeleton(), &skeleton);
    QVERIFY(!prop->getSkeleton());
}

void TestSkeleton::allBonesInHierarchyOrder()
{
    VxSkeleton skeleton(QStringLiteral("figure"));
    auto *hip = new VxBone(QStringLiteral("hip"));
    auto *leg = new VxBone(QStringLiteral("leg"));
    auto *hat = new VxNode(QStringLiteral("hat"));
    auto *feather = new VxBone(QStringLiteral("feather"));
    auto *spine = new VxBone(QStringLiteral("spine"));
    skeleton.addNodeChild(hip);
    hip->addNodeChild(leg);
    hip->addNodeChild(hat);
    hat->addNodeChild(feather);
    skeleton.addNodeChild(spine);
    QCOMPARE(skeleton.getAllBones(), (QVector<VxBone *>{hip, leg, feather, spine}));
}

void TestSkeleton::bonesOfAnotherSkeletonAreLeftOut()
{
    VxSkeleton rider(QStringLiteral("rider"));
    auto *horse = new VxSkeleton(QStringLiteral("horse"));
    auto *mane = new VxBone(QStringLiteral("mane"));
    auto *arm = new VxBone(QStringLiteral("arm"));
    rider.addNodeChild(horse);
    horse->addNodeChild(mane);
    rider.addNodeChild(arm);
    QCOMPARE(rider.getAllBones(), QVector<VxBone *>{arm});
    QCOMPARE(horse->getAllBones(), QVector<VxBone *>{mane});
    QCOMPARE(mane->getSkeleton(), horse);
}

void TestSkeleton::eachKindHasItsIcon()
{
    const VxNode node(QStringLiteral("node"));
    const VxBone bone(QStringLiteral("bone"));
    const VxSkeleton skeleton(QStringLiteral("skeleton"));
    QVERIFY(node.getIcon().isNull());
    const VxApp app;
    const auto picture = [](const QIcon &icon) { return icon.pixmap(16, 16).toImage(); };
    const QImage nodePicture = picture(node.getIcon());
    const QImage bonePicture = picture(bone.getIcon());
    const QImage skeletonPicture = picture(skeleton.getIcon());
    QVERIFY(!nodePicture.isNull());
    QCOMPARE(bonePicture, picture(app.getStyle()->icon(VxStyle::SP_VxBone)));
    QVERIFY(nodePicture != bonePicture);
    QVERIFY(nodePicture != skeletonPicture);
    QVERIFY(bonePicture != skeletonPicture);
}

VX_TEST_MAIN(TestSkeleton)
#include "tst_vxskeleton.moc"

#include "pose/posecommands.h"
#include "posetestbase.h"
#include "testing/vxtestmain.h"

#include <random>
#include <vxcore/vxmirrornames.h>

namespace {

constexpr VxTime FirstTime = 320;
constexpr VxTime SecondTime = 640;

using Vector = std::array<double, 3>;

VxRotation anyRotation(std::mt19937 *random)
{
    std::uniform_real_distribution<double> angle(-170, 170);
    return vxRotation(VxEuler{angle(*random), angle(*random), angle(*random)},
                      VxRotationOrder::ZYX);
}

QVector3D times(const VxRotation &matrix, const QVector3D &v)
{
    QVector3D result;
    for (int i = 0; i < 3; ++i)
        result[i] = float(matrix[std::size_t(i)][0] * double(v.x()) +
                          matrix[std::size_t(i)][1] * double(v.y()) +
                          matrix[std::size_t(i)][2] * double(v.z()));
    return result;
}

/// Four pairs of limbs below a trunk, with axes of their own in the rest pose.
struct Joint
{
    const char *name;
    int parent;
    QVector3D place; ///< in the figure at rest
};

const Joint joints[] = {{"Hips", -1, {0, 90, 0}},       {"Chest", 0, {0, 130, 2}},
                        {"LeftArm", 1, {18, 140, 0}},   {"LeftHand", 2, {60, 138, 5}},
                        {"RightArm", 1, {-18, 140, 0}}, {"RightHand", 4, {-60, 138, 5}},
                        {"LeftLeg", 0, {9, 85, 0}},     {"LeftFoot", 6, {10, 10, -3}},
                        {"RightLeg", 0, {-9, 85, 0}},   {"RightFoot", 8, {-10, 10, -3}}};

} // namespace

/// Copying, pasting and mirroring of poses in the whole program.
class tst_Poses : public QObject, private PoseTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { startOnce(); }
    void cleanupTestCase() { endOnce(); }
    void init() { newScene(); }

    void nothingCopied();
    void pasteAtAnotherTime();
    void mirroredWorldPosesAgree_data();
    void mirroredWorldPosesAgree();
    void mirrorsAnArmInTwoGestures();
    void mirrorsWithinARotatedBody();
    void swapsBothSides();
    void anglesContinue();
    void limitsAndLocks();
    void stretchedBones();
    void figuresWithOtherNames();
    void resetsToRest();
    void withoutAutoKey();
    void selections();
    void nothingSelected_data();
    void nothingSelected();
    void degenerateFigures();
    void thousandsOfFigures();

private:
    VxNode *buildFigure(std::mt19937 *random, bool ownAxes, bool ownOrders,
                        const VxRotation &facing);
    static void checkMirrored(const VxNode *from, const VxNode *to, const VxRotation &facing);
};

/** Rest axes are in the stored values; a pose is keyed. */
VxNode *tst_Poses::buildFigure(std::mt19937 *random, bool ownAxes, bool ownOrders,
                               const VxRotation &facing)
{
    vxScene->clear();
    auto *root = new VxSkeleton("figure");
    QVector<VxNode *> nodes;
    std::vector<VxRotation> axes;
    std::vector<QVector3D> places;
    for (const Joint &joint : joints) {
        auto *bone = new VxBone(QLatin1String(joint.name));
        const bool isRoot = joint.parent < 0;
        (isRoot ? static_cast<VxNode *>(root) : nodes.at(joint.parent))->addNodeChild(bone);
        const VxRotation above =
            isRoot ? vxRotation(VxEuler{}, VxRotationOrder::ZYX) : axes[std::size_t(joint.parent)];
        const VxRotation own = ownAxes ? anyRotation(random) : above;
        const QVector3D place = times(facing, joint.place);
        const QVector3D from = isRoot ? QVector3D() : places[std::size_t(joint.parent)];
        bone->setOrigin(times(vxTransposed(above), place - from));
        const QVector3D out(0, joint.place.x() == 0 ? 10 : 0, joint.place.x() == 0 ? 0 : 12);
        bone->setEndPoint(times(vxTransposed(own), times(facing, out)));
        if (ownOrders)
            bone->setRotationOrder(VxNode::RotationOrder((*random)() % 6));
        const VxEuler rest =
            vxEulerAngles(vxTransposed(above) * own, vxRotationOrder(bone->getRotationOrder()));
        std::uniform_real_distribution<float> turn(-80, 80);
        VxFloatProperty *const angles[] = {bone->getXRotControl(), bone->getYRotControl(),
                                           bone->getZRotControl()};
        for (int i = 0; i < 3; ++i) {
            angles[i]->setStoredValue(float(rest[std::size_t(i)]));
            angles[i]->setKey(0, float(rest[std::size_t(i)]), 0);
            angles[i]->setKey(FirstTime, turn(*random), 0);
        }
        for (VxFloatProperty *translation :
             {bone->getXPosControl(), bone->getYPosControl(), bone->getZPosControl()}) {
            translation->setKey(0, 0, 0);
            translation->setKey(FirstTime, turn(*random) / 10, 0);
        }
        nodes.append(bone);
        axes.push_back(own);
        places.push_back(place);
    }
    root->getYRotControl()->setStoredValue(33);
    root->getXPosControl()->setStoredValue(-70);
    vxScene->addNode(root);
    makeAllControls();
    history()->clear();
    return root;
}

/** Places and bone ends, in the figure's space, are mirror images of each other. */
void tst_Poses::checkMirrored(const VxNode *from, const VxNode *to, const VxRotation &facing)
{
    const QMatrix4x4 space = from->getSkeleton()->getWorldTransform(0).inverted();
    const auto mirrored = [&](const QVector3D &at) {
        return times(facing, times(vxTransposed(facing), at) * QVector3D(-1, 1, 1));
    };
    for (const QVector3D &point : {QVector3D(), from->getEndPoint()}) {
        const bool isEnd = !point.isNull();
        const QVector3D first = space * (from->getWorldTransform(FirstTime) * point);
        const QVector3D second =
            space * (to->getWorldTransform(SecondTime) * (isEnd ? to->getEndPoint() : QVector3D()));
        const float off = (mirrored(first) - second).length();
        QVERIFY2(off < 1e-3f, qPrintable(QStringLiteral("%1: %2 %3")
                                             .arg(to->getName(), isEnd ? "end" : "place")
                                             .arg(double(off))));
    }
}

void tst_Poses::nothingCopied()
{
    // The first function: nothing was copied in this process.
    select({"Hips"});
    action("VxPastePoseAction")->trigger();
    QCOMPARE(status(), QString("No pose was copied yet."));
    QCOMPARE(history()->count(), 0);
}

void tst_Poses::pasteAtAnotherTime()
{
    angle("Chest", 1)->setValue(0, 20);
    angle("LeftUpperArm", 2)->setValue(0, -40);
    node("Hips")->getYPosControl()->setValue(0, -5);
    history()->clear();
    select({"Figure"});
    action("VxCopyPoseAction")->trigger();
    QCOMPARE(status(), QString("Copied the pose of 21 nodes."));
    QCOMPARE(history()->count(), 0);
    vxScene->setTime(FirstTime);
    angle("Chest", 1)->setValue(5);
    angle("LeftUpperArm", 2)->setValue(0);
    angle("Head", 0)->setValue(30);
    history()->clear();
    const QByteArray before = sceneBytes();
    action("VxPastePoseAction")->trigger();
    QCOMPARE(status(), QString("Pasted the pose to 21 of 21 nodes."));
    checkOneEntry(before, "Paste Pose");
    // Keys where a channel changes or has keys, and nowhere else.
    QCOMPARE(keysOf(angle("Chest", 1)), QString("0=20 2=20"));
    QCOMPARE(keysOf(angle("LeftUpperArm", 2)), QString("0=-40 2=-40"));
    QCOMPARE(keysOf(angle("Head", 0)), QString("2=0"));
    QCOMPARE(keysOf(node("Hips")->getYPosControl()), QString("0=-5 2=-5"));
    QCOMPARE(keysOf(angle("Head", 1)), QString());
    QCOMPARE(keysOf(node("Head")->getScaleControl()), QString());
    // Without a selection it is pasted to the figure that it was copied from.
    select({});
    vxScene->setTime(SecondTime);
    angle("Chest", 1)->setValue(1);
    action("VxPastePoseAction")->trigger();
    QCOMPARE(angle("Chest", 1)->getValue(), 20.0f);
}

void tst_Poses::mirroredWorldPosesAgree_data()
{
    QTest::addColumn<bool>("ownAxes");
    QTest::addColumn<bool>("ownOrders");
    QTest::addColumn<double>("facing");
    QTest::newRow("equal axes") << false << false << 0.0;
    QTest::newRow("other rotation orders") << false << true << 0.0;
    QTest::newRow("other axes on each side") << true << false << 0.0;
    QTest::newRow("other axes and orders") << true << true << 0.0;
    QTest::newRow("facing X") << true << true << 90.0;
    QTest::newRow("facing anywhere") << true << true << 37.0;
}

void tst_Poses::mirroredWorldPosesAgree()
{
    QFETCH(bool, ownAxes);
    QFETCH(bool, ownOrders);
    QFETCH(double, facing);
    const VxRotation turned = vxRotation(VxEuler{0, facing, 0}, VxRotationOrder::ZYX);
    for (quint32 seed = 1; seed <= 4; ++seed) {
        std::mt19937 random(seed);
        buildFigure(&random, ownAxes, ownOrders, turned)->select();
        vxScene->setTime(FirstTime);
        action("VxCopyPoseAction")->trigger();
        vxScene->setTime(SecondTime);
        const QByteArray before = sceneBytes();
        action("VxPastePoseMirroredAction")->trigger();
        QCOMPARE(status(), QString("Pasted the pose to 10 of 10 nodes."));
        const VxMirrorNames names;
        for (const Joint &joint : joints) {
            const QString other = names.mirrored(joint.name);
            checkMirrored(node(joint.name), node(other.isEmpty() ? joint.name : other), turned);
        }
        checkOneEntry(before, "Paste Pose Mirrored");
        if (QTest::currentTestFailed())
            return;
    }
}

// Click on the shoulder, then one command.
void tst_Poses::mirrorsAnArmInTwoGestures()
{
    angle("LeftUpperArm", 2)->setValue(-60);
    angle("LeftForearm", 1)->setValue(-45);
    angle("LeftForearm", 0)->setValue(30);
    angle("LeftThigh", 0)->setValue(-20);
    history()->clear();
    const QByteArray before = sceneBytes();
    select({"LeftShoulder"});
    type(Qt::Key_M, Qt::ControlModifier);
    QCOMPARE(status(), QString("Mirrored the pose of 4 nodes."));
    checkOneEntry(before, "Mirror to Other Side");
    QCOMPARE(angle("RightUpperArm", 2)->getValue(), 60.0f);
    QCOMPARE(angle("RightForearm", 1)->getValue(), 45.0f);
    QCOMPARE(angle("RightForearm", 0)->getValue(), 30.0f);
    QCOMPARE(angle("RightThigh", 0)->getNumKeys(), 0);
    QCOMPARE(angle("LeftUpperArm", 2)->getValue(), -60.0f);
}

// The other arm gets the pose relative to the chest, whatever the rotation of the chest.
void tst_Poses::mirrorsWithinARotatedBody()
{
    angle("Hips", 1)->setValue(130);
    angle("Chest", 2)->setValue(25);
    angle("LeftUpperArm", 1)->setValue(-70);
    select({"LeftShoulder"});
    action("VxMirrorPoseAction")->trigger();
    QCOMPARE(angle("RightUpperArm", 1)->getValue(), 70.0f);
    QCOMPARE(angle("Chest", 2)->getValue(), 25.0f);
}

void tst_Poses::swapsBothSides()
{
    angle("LeftThigh", 0)->setValue(-50);
    angle("RightThigh", 0)->setValue(20);
    angle("Chest", 1)->setValue(15);
    node("Hips")->getXPosControl()->setValue(3);
    const QByteArray before = sceneBytes();
    select({"Hips"});
    action("VxMirrorPoseAction")->trigger();
    QCOMPARE(angle("LeftThigh", 0)->getValue(), 20.0f);
    QCOMPARE(angle("RightThigh", 0)->getValue(), -50.0f);
    QCOMPARE(angle("Chest", 1)->getValue(), -15.0f);
    QCOMPARE(node("Hips")->getXPosControl()->getValue(), -3.0f);
    action("VxMirrorPoseAction")->trigger();
    QCOMPARE(angle("LeftThigh", 0)->getValue(), -50.0f);
    QCOMPARE(angle("RightThigh", 0)->getValue(), 20.0f);
    history()->undo();
    history()->undo();
    history()->clear();
    QVERIFY(sceneBytes() == before);
}

// Beyond half a turn an angle continues instead of jumping.
void tst_Poses::anglesContinue()
{
    setKeys(angle("Hips", 1), "0=10 4=700");
    select({"Hips"});
    action("VxCopyPoseAction")->trigger();
    vxScene->setTime(4 * 160);
    action("VxPastePoseAction")->trigger();
    QCOMPARE(keysOf(angle("Hips", 1)), QString("0=10 4=730"));
}

void tst_Poses::limitsAndLocks()
{
    angle("LeftForearm", 1)->setValue(-90);
    angle("LeftHand", 1)->setValue(20);
    angle("LeftThigh", 2)->setValue(40);
    angle("RightForearm", 1)->setMinMax(0, 45, true);
    angle("RightHand", 1)->setLocked(true);
    VxFloatProperty *driven = angle("RightThigh", 2);
    driven->setLink(node("Head")->getXPosControl());
    select({"LeftShoulder", "LeftThigh"});
    history()->clear();
    action("VxMirrorPoseAction")->trigger();
    QCOMPARE(angle("RightForearm", 1)->getValue(), 45.0f);
    QCOMPARE(angle("RightHand", 1)->getValue(), 0.0f);
    QCOMPARE(driven->getValue(), 0.0f);
    QCOMPARE(driven->getNumKeys(), 0);
    QCOMPARE(status(),
             QString("Mirrored the pose of 8 nodes. Channels at their limits: 1. Channels "
                     "not changed (locked, linked, or no key there while Auto Key is "
                     "off): 2."));
    // Of two equal triples of angles the one within the limits.
    setKeys(angle("Hips", 0), "0=170");
    setKeys(angle("Hips", 1), "0=180");
    setKeys(angle("Hips", 2), "0=180");
    select({"Hips"});
    action("VxCopyPoseAction")->trigger();
    vxScene->setTime(160);
    for (int axis = 0; axis < 3; ++axis) {
        angle("Hips", axis)->deleteAllKeys();
        angle("Hips", axis)->setMinMax(-90, 90, true);
    }
    angle("Hips", 0)->setValue(90);
    action("VxPastePoseAction")->trigger();
    QVERIFY(qAbs(angle("Hips", 0)->getValue() - 10) < 1e-3f);
    QVERIFY(qAbs(angle("Hips", 1)->getValue()) < 1e-3f);
    QVERIFY(qAbs(angle("Hips", 2)->getValue()) < 1e-3f);
}

void tst_Poses::stretchedBones()
{
    node("LeftHand")->getXScaleControl()->setValue(2);
    node("LeftHand")->getScaleControl()->setValue(1.5);
    select({"LeftHand"});
    action("VxMirrorPoseAction")->trigger();
    QCOMPARE(node("RightHand")->getXScaleControl()->getValue(), 2.0f);
    QCOMPARE(node("RightHand")->getYScaleControl()->getNumKeys(), 0);
    QCOMPARE(node("RightHand")->getScaleControl()->getValue(), 1.5f);
}

void tst_Poses::figuresWithOtherNames()
{
    // A second figure with the numbers of copies in its names.
    CreateEdits::addFigure(vxScene);
    angle("LeftThigh", 0)->setValue(-50);
    select({"Figure"});
    action("VxCopyPoseAction")->trigger();
    select({"Head_2"});
    history()->clear();
    action("VxPastePoseAction")->trigger();
    QCOMPARE(status(), QString("Pasted the pose to 21 of 21 nodes."));
    QCOMPARE(angle("LeftThigh_2", 0)->getValue(), -50.0f);
    // Names with a name space; some that are missing.
    auto *other = new VxSkeleton("other");
    auto *thigh = new VxBone("walker:leftthigh");
    other->addNodeChild(new VxBone("walker:Hips"));
    other->getNodeChild(0)->addNodeChild(thigh);
    vxScene->addNode(other);
    select({"other"});
    action("VxPastePoseAction")->trigger();
    QCOMPARE(thigh->getXRotControl()->getValue(), -50.0f);
    QCOMPARE(status(), QString("Pasted the pose to 2 of 21 nodes. Not found: Spine, Chest, Neck, "
                               "Head, LeftShoulder and 14 more.")
                           .replace("Spine, Chest, Neck, Head, LeftShoulder",
                                    status().section(": ", 1).section(" and", 0, 0)));
    QVERIFY(status().endsWith(" and 14 more."));
    // Nothing matches at all.
    auto *prop = new VxSkeleton("prop");
    prop->addNodeChild(new VxBone("lid"));
    vxScene->addNode(prop);
    select({"lid"});
    history()->clear();
    const QByteArray before = sceneBytes();
    action("VxPastePoseAction")->trigger();
    QVERIFY2(status().startsWith("No node of the figure matches the pose. Not found: "),
             qPrintable(status()));
    QCOMPARE(history()->count(), 0);
    QVERIFY(sceneBytes() == before);
}

void tst_Poses::resetsToRest()
{
    angle("LeftThigh", 0)->setValue(-50);
    angle("RightThigh", 0)->setValue(-50);
    node("Head")->setRestPose(VxRestPose{0, 0, 0, 12, 0, 0, 1, 1, 1, 1});
    angle("Head", 0)->setValue(30);
    node("Hips")->getYPosControl()->setValue(7);
    history()->clear();
    const QByteArray before = sceneBytes();
    select({"LeftThigh"});
    action("VxResetPoseAction")->trigger();
    checkOneEntry(before, "Reset to Rest");
    QCOMPARE(angle("LeftThigh", 0)->getValue(), 0.0f);
    QCOMPARE(angle("RightThigh", 0)->getValue(), -50.0f);
    select({"Figure"});
    action("VxResetPoseAction")->trigger();
    QCOMPARE(angle("RightThigh", 0)->getValue(), 0.0f);
    QCOMPARE(angle("Head", 0)->getValue(), 12.0f);
    QCOMPARE(node("Hips")->getYPosControl()->getValue(), 0.0f);
}

void tst_Poses::withoutAutoKey()
{
    setKeys(angle("LeftThigh", 0), "0=-50 8=-50");
    setKeys(angle("RightThigh", 0), "0=10 8=10");
    vxScene->setAnimating(false);
    select({"LeftThigh"});
    vxScene->setTime(160);
    action("VxMirrorPoseAction")->trigger();
    QCOMPARE(keysOf(angle("RightThigh", 0)), QString("0=10 8=10"));
    QVERIFY(status().contains("not changed"));
    // An existing key gets the value.
    vxScene->setTime(0);
    action("VxMirrorPoseAction")->trigger();
    QCOMPARE(keysOf(angle("RightThigh", 0)), QString("0=-50 8=10"));
}

void tst_Poses::selections()
{
    select({"LeftHand", "Head", "RightThigh"});
    action("VxSelectMirrorAction")->trigger();
    QCOMPARE(vxScene->getSelectedNodes(),
             (QVector<VxNode *>{node("RightHand"), node("Head"), node("LeftThigh")}));
    action("VxSelectParentsAction")->trigger();
    QCOMPARE(vxScene->getSelectedNodes(),
             (QVector<VxNode *>{node("RightForearm"), node("Neck"), node("Hips")}));
    select({"LeftForearm"});
    action("VxSelectChildrenAction")->trigger();
    QCOMPARE(vxScene->getSelectedNodes(),
             (QVector<VxNode *>{node("LeftForearm"), node("LeftHand")}));
    QCOMPARE(vxScene->getPrimarySelection(), node("LeftForearm"));
    select({"Figure"});
    action("VxSelectParentsAction")->trigger();
    QCOMPARE(status(), QString("The selected nodes have no parents."));
    action("VxSelectMirrorAction")->trigger();
    QCOMPARE(status(), QString("The selected nodes have no other side."));
    QCOMPARE(vxScene->getSelectedNodes(), QVector<VxNode *>{node("Figure")});
    QCOMPARE(history()->count(), 0);
}

void tst_Poses::nothingSelected_data()
{
    QTest::addColumn<QString>("message");
    const QString message = "Select the nodes of a figure first.";
    for (const char *name :
         {"VxCopyPoseAction", "VxMirrorPoseAction", "VxResetPoseAction", "VxSelectMirrorAction",
          "VxSelectChildrenAction", "VxSelectParentsAction", "VxBreakdownAction",
          "VxHoldPoseAction", "VxCyclePosesAction", "VxMatchEndsAction"})
        QTest::newRow(name) << message;
}

void tst_Poses::nothingSelected()
{
    select({});
    const QByteArray before = sceneBytes();
    action(QTest::currentDataTag())->trigger();
    QTEST(status(), "message");
    QCOMPARE(history()->count(), 0);
    QVERIFY(sceneBytes() == before);
}

// Bones of no length in one place, scales of zero, a lone root.
void tst_Poses::degenerateFigures()
{
    vxScene->clear();
    auto *root = new VxSkeleton("flat");
    for (const char *name : {"LeftA", "RightA", "LeftB", "RightB"}) {
        auto *bone = new VxBone(name);
        root->addNodeChild(bone);
        bone->getXRotControl()->setKey(0, 1e30f, 0);
        bone->getXScaleControl()->setKey(0, 0, 0);
        bone->getScaleControl()->setKey(0, 0, 0);
        bone->getXPosControl()->setKey(0, -3e38f, 0);
        bone->getXPosControl()->setKey(320, 3e38f, 0);
    }
    root->getScaleControl()->setKey(0, 0, 0);
    vxScene->addNode(root);
    vxScene->addNode(new VxNode("alone"));
    makeAllControls();
    for (const QString &selected : {QString("flat"), QString("alone"), QString("LeftA")}) {
        select({selected});
        for (const VxTime time : {0, 160, 320}) {
            vxScene->setTime(time);
            for (const char *name : {"VxCopyPoseAction", "VxPastePoseAction",
                                     "VxPastePoseMirroredAction", "VxMirrorPoseAction",
                                     "VxHoldPoseAction", "VxMatchEndsAction", "VxResetPoseAction"})
                action(name)->trigger();
            QCOMPARE(keyFault(), QString());
        }
    }
}

// Figures that look at the nodes of all others take more than 20 seconds.
void tst_Poses::thousandsOfFigures()
{
    constexpr int Figures = 20000;
    vxScene->clear();
    for (int i = 0; i < Figures; ++i) {
        auto *root = new VxNode(QStringLiteral("LeftRoot%1").arg(i));
        root->addNodeChild(new VxNode(QStringLiteral("LeftArm%1").arg(i)));
        vxScene->addNode(root);
    }
    vxScene->selectAllNodes(true);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!PoseCommands::selectMirror(vxScene).done);
    QVERIFY(!PoseCommands::mirrorSelected(vxScene).done);
    QVERIFY(!PoseCommands::copy(vxScene).done);
    QVERIFY2(timer.elapsed() < 10000, qPrintable(QString::number(timer.elapsed())));
    vxScene->clear();
}

VX_TEST_MAIN(tst_Poses)
#include "tst_poses.moc"

#include "keytoolstage.h"
#include "testing/vxtestmain.h"

#include <random>
#include <vxcore/vxbone.h>
#include <vxcore/vxlimbsolver.h>
#include <vxcore/vxskeleton.h>

namespace {

constexpr VxTime Shift = 40 * Frame; // from the copied keys to the pasted ones

using Channels = std::array<VxFloatProperty *, 6>;

/// Translations and rotations of a node.
Channels channelsOf(const VxNode *node)
{
    return {node->getXPosControl(), node->getYPosControl(), node->getZPosControl(),
            node->getXRotControl(), node->getYRotControl(), node->getZRotControl()};
}

struct Joint
{
    const char *name;
    const char *partner;
    int parent;
    VxVector place; ///< in the figure at rest
};

const Joint joints[] = {
    {"Hips", "Hips", -1, {0, 90, 0}},          {"Chest", "Chest", 0, {0, 130, 2}},
    {"LeftArm", "RightArm", 1, {18, 140, 0}},  {"LeftHand", "RightHand", 2, {60, 138, 5}},
    {"RightArm", "LeftArm", 1, {-18, 140, 0}}, {"RightHand", "LeftHand", 4, {-60, 138, 5}}};
constexpr std::size_t JointCount = std::size(joints);

enum Axes { WorldAxes, MirroredAxes, AnyAxes };

/// A symmetrical figure at rest; its joints have the axes of the world, axes that mirror those of
/// the other side, or any axes and rotation orders.
class Figure
{
public:
    Figure(Axes axes, quint32 seed)
        : m_random(seed)
        , m_skeleton(new VxSkeleton("Figure"))
    {
        vxScene->addNode(m_skeleton);
        for (std::size_t i = 0; i < JointCount; ++i) {
            const int parent = joints[i].parent;
            auto *bone = new VxBone(joints[i].name);
            vxScene->addNode(bone, parent < 0 ? m_skeleton : m_bones[std::size_t(parent)]);
            m_bones[i] = bone;
            m_axes[i] = axesOf(i, axes);
            if (axes == AnyAxes)
                bone->setRotationOrder(VxNode::RotationOrder(m_random() % 6));
            const VxRotation toParent =
                vxTransposed(parent < 0 ? VxIdentityRotation : m_axes[std::size_t(parent)]);
            VxVector step = joints[i].place;
            for (std::size_t axis = 0; parent >= 0 && axis < 3; ++axis)
                step[axis] -= joints[parent].place[axis];
            step = toParent * step;
            bone->setOrigin({float(step[0]), float(step[1]), float(step[2])});
            const VxEuler angles =
                vxEulerAngles(toParent * m_axes[i], vxRotationOrder(bone->getRotationOrder()));
            const Channels channels = channelsOf(bone);
            for (std::size_t axis = 0; axis < 3; ++axis)
                channels[3 + axis]->setStoredValue(float(angles[axis]));
        }
    }

    VxNode *skeleton() const { return m_skeleton; }
    VxNode *bone(std::size_t joint) const { return m_bones[joint]; }
    VxNode *partner(std::size_t joint) const { return vxScene->findNode(joints[joint].partner); }

    /// Keys of a node on some frames from 0 to 30, with values about those at rest.
    void key(const VxNode *node, const std::vector<VxTime> &times, double degrees = 50)
    {
        std::uniform_real_distribution<double> part(-1, 1);
        const Channels channels = channelsOf(node);
        for (std::size_t i = 0; i < channels.size(); ++i) {
            const double rest = double(channels[i]->getStoredValue());
            for (const VxTime time : times)
                channels[i]->setKey(time, float(rest + part(m_random) * (i < 3 ? 5 : degrees)),
                                    VxKeyInterp::Linear);
        }
    }
    std::mt19937 *random() { return &m_random; }

    /// The largest distance between the mirror image of points of a joint at a time and those of
    /// its partner later on. The figure is at rest in its own space.
    double distanceAt(std::size_t joint, VxTime time) const
    {
        std::size_t other = 0;
        while (QLatin1String(joints[other].name) != QLatin1String(joints[joint].partner))
            ++other;
        double distance = 0;
        for (const VxVector &point : {VxVector{}, VxVector{10, 0, 0}, VxVector{0, 10, 0}}) {
            const VxVector own = vxTransposed(m_axes[joint]) * point;
            const VxVector others = vxTransposed(m_axes[other]) * mirrored(point);
            const VxVector image = mirrored(worldPoint(m_bones[joint], own, time));
            const VxVector result = worldPoint(m_bones[other], others, time + Shift);
            for (std::size_t axis = 0; axis < 3; ++axis)
                distance = std::max(distance, std::abs(image[axis] - result[axis]));
        }
        return distance;
    }

private:
    static VxVector mirrored(const VxVector &v) { return {-v[0], v[1], v[2]}; }
    static VxVector worldPoint(const VxNode *node, const VxVector &v, VxTime time)
    {
        const QVector3D world =
            node->getWorldTransform(time).map(QVector3D(float(v[0]), float(v[1]), float(v[2])));
        return {double(world.x()), double(world.y()), double(world.z())};
    }
    VxRotation axesOf(std::size_t joint, Axes axes)
    {
        if (axes == WorldAxes)
            return VxIdentityRotation;
        if (axes == AnyAxes) {
            std::uniform_real_distribution<double> angle(-170, 170);
            return vxRotation(VxEuler{angle(m_random), angle(m_random), angle(m_random)},
                              VxRotationOrder::ZYX);
        }
        // Those of the left arm are along it; the right ones are their mirror image with X
        // reversed.
        const QString name = QString::fromLatin1(joints[joint].name);
        if (!name.startsWith("Left") && !name.startsWith("Right"))
            return VxIdentityRotation;
        const VxRotation left = vxRotation(VxEuler{20, -30, 15}, VxRotationOrder::XYZ);
        const VxRotation flip = {{{-1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
        return name.startsWith("Left") ? left : flip * left * flip;
    }

    std::mt19937 m_random;
    VxNode *m_skeleton;
    std::array<VxNode *, JointCount> m_bones{};
    std::array<VxRotation, JointCount> m_axes{};
};

} // namespace

/// Pasting of copied keys as mirrored motion.
class tst_MirroredPaste : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void drawings_data();
    void drawings();
    void channelsKeepTheirKeys();
    void worldPosesAreMirrored_data();
    void worldPosesAreMirrored();
    void dependentAnglesShareTheirTimes();
    void anglesContinue();
    void theRootIsMirroredInPlace();
    void bothSidesAreExchanged();
    void propertiesOfASide();
    void anotherFigure();
    void messages();
};

void tst_MirroredPaste::drawings_data()
{
    QTest::addColumn<QString>("copied");
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    const auto row = [](const char *name, const char *copied, const char *call, const char *before,
                        const char *after) {
        QTest::newRow(name) << copied << call << before << after;
    };
    row("merged", "x A . B", "pasteMirrored()", "m n o p q r", "m n A p B r");
    row("replacing the span", "A . B", "pasteMirrored({mode: 'Replace span'})", "m n o p q r",
        "m n A . B r");
    row("with ripple", "A . B", "pasteMirrored({mode: 'Ripple'})", "m n o p . q",
        "m n A . B o p . q");
}

/// The height of an arm, which mirroring does not change; the playhead is on frame 2.
void tst_MirroredPaste::drawings()
{
    QFETCH(QString, copied);
    QFETCH(QString, call);
    QFETCH(QString, before);
    QFETCH(QString, after);
    KeyToolStage stage;
    const Figure figure(WorldAxes, 1);
    VxFloatProperty *left = figure.bone(2)->getYPosControl();
    VxFloatProperty *right = figure.partner(2)->getYPosControl();
    vxScene->setTime(2 * Frame);
    stage.draw(left, copied);
    stage.copy(left);
    const QString source = stage.drawing(left, 8).toLower();
    stage.draw(right, before);
    const QByteArray start = KeyToolStage::snapshot();
    vxApp->getUndoStack()->clear();
    QCOMPARE(stage.run("KeyTools." + call + ".message"),
             QString("Paste Mirrored: 2 on 1 channel; nodes: 1 to the other side, 0 in place"));
    QCOMPARE(stage.drawing(right, after.split(' ').size()), after);
    QCOMPARE(stage.drawing(left, 8).toLower(), source);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    const QByteArray end = KeyToolStage::snapshot();
    vxApp->getUndoStack()->undo();
    QCOMPARE(KeyToolStage::snapshot(), start);
    vxApp->getUndoStack()->redo();
    QCOMPARE(KeyToolStage::snapshot(), end);
}

// Rest axes that mirror each other: times, types and shapes of each channel by itself.
void tst_MirroredPaste::channelsKeepTheirKeys()
{
    for (const Axes axes : {WorldAxes, MirroredAxes}) {
        KeyToolStage stage;
        const Figure figure(axes, 1);
        VxFloatProperty *y = figure.bone(3)->getYRotControl();
        VxFloatProperty *x = figure.bone(3)->getXRotControl();
        y->setKey(10, 30, VxKeyInterp::Tcb, 0.5F, 0.25F, -0.5F);
        y->setKey(170, 400, VxKeyInterp::Constant);
        x->setKey(50, 7, VxKeyInterp::Linear);
        stage.copy(y, true);
        stage.copy(x, true);
        vxScene->setTime(1000);
        QCOMPARE(stage.run("KeyTools.pasteMirrored().keys"), QString("3"));
        const VxNode *right = figure.partner(3);
        const VxFloatProperty *rotated = right->getYRotControl();
        QCOMPARE(rotated->getNumKeys(), 2);
        QCOMPARE(rotated->getKeyTime(0), 1000);
        QCOMPARE(rotated->getKeyValue(0), -30.0F);
        float tcb[3] = {0, 0, 0};
        QCOMPARE(rotated->getKeyInterpolationType(0, &tcb[0], &tcb[1], &tcb[2]),
                 int(VxKeyInterp::Tcb));
        QCOMPARE(tcb[0], 0.5F);
        QCOMPARE(tcb[1], 0.25F);
        QCOMPARE(tcb[2], -0.5F);
        QCOMPARE(rotated->getKeyTime(1), 1160);
        QCOMPARE(rotated->getKeyValue(1), -400.0F); // a full rotation is kept
        QCOMPARE(rotated->getKeyInterpolationType(1), int(VxKeyInterp::Constant));
        QCOMPARE(right->getXRotControl()->getNumKeys(), 1);
        QCOMPARE(right->getXRotControl()->getKeyTime(0), 1040);
        QCOMPARE(right->getXRotControl()->getKeyValue(0), 7.0F);
        QCOMPARE(right->getZRotControl()->getNumKeys(), 0);
    }
}

void tst_MirroredPaste::worldPosesAreMirrored_data()
{
    QTest::addColumn<int>("axes");
    QTest::addColumn<int>("seed");
    QTest::newRow("axes of the world") << int(WorldAxes) << 1;
    QTest::newRow("axes that mirror each other") << int(MirroredAxes) << 1;
    for (int seed = 1; seed <= 4; ++seed)
        QTest::addRow("any axes, seed %d", seed) << int(AnyAxes) << seed;
}

void tst_MirroredPaste::worldPosesAreMirrored()
{
    QFETCH(int, axes);
    QFETCH(int, seed);
    KeyToolStage stage;
    Figure figure{Axes(axes), quint32(seed)};
    std::vector<VxTime> times;
    for (VxTime time = 0; time <= 30 * Frame; time += VxTime((*figure.random())() % 700) + 1)
        times.push_back(time);
    times.front() = 0;
    for (std::size_t joint = 0; joint < JointCount; ++joint)
        figure.key(figure.bone(joint), times);
    for (std::size_t joint = 0; joint < JointCount; ++joint) {
        for (const VxFloatProperty *channel : channelsOf(figure.bone(joint)))
            stage.copy(channel, true);
    }
    vxScene->setTime(Shift);
    QVERIFY(stage.run("KeyTools.pasteMirrored().message")
                .endsWith("on 36 channels; nodes: 4 to the other side, 2 in place"));
    for (std::size_t joint = 0; joint < JointCount; ++joint) {
        for (const VxTime time : times)
            QVERIFY2(figure.distanceAt(joint, time) < 1e-3,
                     qPrintable(QString("%1 at %2: %3")
                                    .arg(joints[joint].name)
                                    .arg(time)
                                    .arg(figure.distanceAt(joint, time))));
    }
}

// Any axes: each angle has a key where one of the copied ones has, of that one's type.
void tst_MirroredPaste::dependentAnglesShareTheirTimes()
{
    KeyToolStage stage;
    const Figure figure(AnyAxes, 3);
    VxFloatProperty *x = figure.bone(2)->getXRotControl();
    VxFloatProperty *z = figure.bone(2)->getZRotControl();
    for (const VxTime time : {0, 320})
        x->setKey(time, float(time), VxKeyInterp::Constant);
    for (const VxTime time : {100, 320, 500})
        z->setKey(time, float(time) / 10, VxKeyInterp::Tcb, 0.25F);
    stage.copy(x, true);
    stage.copy(z, true);
    vxScene->setTime(Shift);
    QCOMPARE(stage.run("KeyTools.pasteMirrored().keys"), QString("12"));
    const VxTime times[] = {0, 100, 320, 500};
    const int types[] = {1, 2, 1, 2};
    for (const VxFloatProperty *angle :
         {figure.partner(2)->getXRotControl(), figure.partner(2)->getYRotControl(),
          figure.partner(2)->getZRotControl()}) {
        QCOMPARE(angle->getNumKeys(), 4);
        for (int k = 0; k < 4; ++k) {
            float tension = 0;
            QCOMPARE(angle->getKeyTime(k), Shift + times[k]);
            QCOMPARE(angle->getKeyInterpolationType(k, &tension), types[k]);
            QCOMPARE(tension, types[k] == 2 ? 0.25F : 0.0F);
        }
    }
    for (const VxTime time : times)
        QVERIFY(figure.distanceAt(2, time) < 1e-3);
}

// Three full rotations remain three, from the partner's own angles on.
void tst_MirroredPaste::anglesContinue()
{
    KeyToolStage stage;
    const Figure figure(AnyAxes, 4);
    const VxNode *left = figure.bone(2);
    const VxNode *right = figure.partner(2);
    VxFloatProperty *last = channelsOf(
        left)[3 + std::size_t(vxRotationAxes(vxRotationOrder(left->getRotationOrder()))[2])];
    for (int frame = 0; frame <= 30; ++frame)
        last->setKey(frame * Frame, float(frame * 36), VxKeyInterp::Linear);
    stage.copy(last, true);
    right->getYRotControl()->setStoredValue(right->getYRotControl()->getStoredValue() + 720);
    vxScene->setTime(Shift);
    QCOMPARE(stage.run("KeyTools.pasteMirrored().keys"), QString("93"));
    for (int frame = 0; frame <= 30; ++frame)
        QVERIFY(figure.distanceAt(2, frame * Frame) < 1e-3);
    double farthest = 0;
    for (std::size_t axis = 3; axis < 6; ++axis) {
        const VxFloatProperty *angle = channelsOf(right)[axis];
        for (int k = 1; k <= 30; ++k)
            QVERIFY(std::abs(angle->getKeyValue(k) - angle->getKeyValue(k - 1)) <= 181);
        farthest =
            std::max(farthest, double(std::abs(angle->getKeyValue(30) - angle->getKeyValue(0))));
    }
    QVERIFY(farthest > 900);
    QVERIFY(right->getYRotControl()->getKeyValue(0) > 360);
}

// The path of the figure as a whole is mirrored too.
void tst_MirroredPaste::theRootIsMirroredInPlace()
{
    KeyToolStage stage;
    Figure figure(MirroredAxes, 5);
    const std::vector<VxTime> times = {0, 160, 480};
    figure.key(figure.skeleton(), times);
    figure.key(figure.bone(2), times);
    figure.key(figure.bone(0), times);
    for (const VxNode *node : {figure.skeleton(), figure.bone(2), figure.bone(0)}) {
        for (const VxFloatProperty *channel : channelsOf(node))
            stage.copy(channel, true);
    }
    vxScene->setTime(Shift);
    QVERIFY(stage.run("KeyTools.pasteMirrored().message")
                .endsWith("nodes: 1 to the other side, 2 in place"));
    for (const VxTime time : times)
        QVERIFY(figure.distanceAt(2, time) < 1e-3);
}

// One angle of each arm: the others are those before the paste, on both sides.
void tst_MirroredPaste::bothSidesAreExchanged()
{
    KeyToolStage stage;
    const Figure figure(AnyAxes, 6);
    for (const std::size_t arm : {2, 4}) {
        for (const VxTime time : {0, 160, 320}) {
            for (std::size_t axis = 3; axis < 6; ++axis)
                channelsOf(figure.bone(arm))[axis]->setKey(
                    time, float(30 * double(arm) + double(axis) * double(time) / 20),
                    VxKeyInterp::Linear);
        }
    }
    for (const std::size_t arm : {2, 4})
        stage.copy(figure.bone(arm)->getYRotControl(), true);
    // Pasted over the copied keys.
    vxScene->setTime(0);
    QCOMPARE(stage.run("KeyTools.pasteMirrored().keys"), QString("18"));
    const QByteArray once = KeyToolStage::snapshot();
    // Mirrored a second time both arms have their first rotations.
    stage.keeper.copied.clear();
    for (const std::size_t arm : {2, 4})
        stage.copy(figure.bone(arm)->getYRotControl(), true);
    QCOMPARE(stage.run("KeyTools.pasteMirrored().keys"), QString("18"));
    QVERIFY(KeyToolStage::snapshot() != once);
    for (const std::size_t arm : {2, 4}) {
        for (const VxTime time : {0, 160, 320}) {
            VxEuler expected{};
            VxEuler found{};
            for (std::size_t axis = 0; axis < 3; ++axis) {
                const VxFloatProperty *angle = channelsOf(figure.bone(arm))[3 + axis];
                expected[axis] = 30 * double(arm) + double(3 + axis) * double(time) / 20;
                found[axis] = double(angle->getValue(time));
            }
            const auto order = vxRotationOrder(figure.bone(arm)->getRotationOrder());
            QVERIFY(vxAngleBetween(vxQuaternion(expected, order), vxQuaternion(found, order)) <
                    1e-3);
        }
    }
}

// Other properties are pasted with their values, those with a side to their partners.
void tst_MirroredPaste::propertiesOfASide()
{
    KeyToolStage stage;
    const Figure figure(WorldAxes, 1);
    VxNode *chest = figure.bone(1);
    QVector<VxFloatProperty *> properties;
    for (const char *name : {"BreathLeft", "BreathRight", "Breath"}) {
        properties.append(new VxFloatProperty(name));
        chest->addProperty(properties.last(), "/Special");
    }
    stage.draw(properties[0], "A . B");
    stage.copy(properties[0]);
    stage.draw(properties[2], "C");
    stage.copy(properties[2]);
    vxScene->setTime(3 * Frame);
    QCOMPARE(stage.run("KeyTools.pasteMirrored().channels"), QString("2"));
    QCOMPARE(stage.drawing(properties[0], 6).toLower(), QString("a . b . . ."));
    QCOMPARE(stage.drawing(properties[1], 6), QString(". . . A . B"));
    QCOMPARE(stage.drawing(properties[2], 6), QString("c . . C . ."));
}

// To the figure of the selected node, whose names have a number.
void tst_MirroredPaste::anotherFigure()
{
    KeyToolStage stage;
    const Figure figure(WorldAxes, 1);
    auto *second = new VxSkeleton("Figure_2");
    auto *arm = new VxBone("RightArm_2");
    vxScene->addNode(second);
    vxScene->addNode(arm, second);
    VxFloatProperty *left = figure.bone(2)->getXPosControl();
    left->setKey(0, 5, VxKeyInterp::Linear);
    stage.copy(left, true);
    stage.copy(figure.bone(3)->getXPosControl()->setKey(0, 1, VxKeyInterp::Linear)
                   ? figure.bone(3)->getXPosControl()
                   : nullptr,
               true);
    arm->select();
    QCOMPARE(stage.run("KeyTools.pasteMirrored().message"),
             QString("Paste Mirrored: 1 on 1 channel; nodes: 1 to the other side, 0 in place; "
                     "not found: LeftHand"));
    QCOMPARE(arm->getXPosControl()->getKeyValue(0), -5.0F);
    QCOMPARE(figure.partner(2)->getXPosControl()->getNumKeys(), 0);
    // A copied node that was destroyed: by the rest pose of the node of its name in the other
    // figure.
    auto *own = new VxBone("LeftArm_2");
    vxScene->addNode(own, second);
    stage.keeper.copied.resize(1);
    delete figure.skeleton();
    QCOMPARE(stage.run("KeyTools.pasteMirrored().channels"), QString("1"));
    QCOMPARE(arm->getXPosControl()->getKeyValue(0), -5.0F);
    QCOMPARE(own->getXPosControl()->getNumKeys(), 0);
}

void tst_MirroredPaste::messages()
{
    KeyToolStage stage;
    QCOMPARE(stage.run("KeyTools.pasteMirrored().message"),
             QString("Paste Mirrored: copy keys first"));
    const Figure figure(WorldAxes, 1);
    VxFloatProperty *left = figure.bone(2)->getXPosControl();
    stage.draw(left, "A B");
    stage.copy(left);
    for (int i = 1; i <= 7; ++i) {
        stage.keeper.copied.push_back(stage.keeper.copied[0]);
        stage.keeper.copied.back().node = QString("LeftTail%1").arg(i);
    }
    stage.keeper.copied.push_back(stage.keeper.copied[0]);
    stage.keeper.copied.back().property = "Nowhere";
    VxFloatProperty *right = figure.partner(2)->getXPosControl();
    right->setLocked(true);
    const QByteArray start = KeyToolStage::snapshot();
    vxApp->getUndoStack()->clear();
    QCOMPARE(
        stage.run("var r = KeyTools.pasteMirrored(); r.done + ' ' + r.message"),
        QString("false Paste Mirrored: no property accepts the keys; nodes: 1 to the other side, "
                "0 in place; not found: LeftTail1, LeftTail2, LeftTail3, LeftTail4, LeftTail5 "
                "and 2 more; properties not found: 1 (1 locked or linked skipped)"));
    QCOMPARE(KeyToolStage::snapshot(), start);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

VX_TEST_MAIN(tst_MirroredPaste)
#include "tst_mirroredpaste.moc"

#include "testing/vxtestmain.h"
#include "toolstestbase.h"

/// The IK tool and pinned limbs.
class tst_IkTool : public QObject, PoseToolTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { startOnce(); }
    void cleanupTestCase() { endOnce(); }
    void init() { newFigure(); }

    void theJointReachesItsTarget_data();
    void theJointReachesItsTarget();
    void skewedLimbsReachTheirTargets();
    void mirroredLimbs_data();
    void mirroredLimbs();
    void theMouseHoldsTheJoint();
    void anElbowBendsAsItsLimitsAllow();
    void aliasedLimitsBendTheElbow();
    void outOfReach();
    void theJointKeepsItsRotation();
    void jointsWithoutALimb();
    void aBoneWithoutLength();
    void pinnedFeetStay_data();
    void pinnedFeetStay();
    void pinningIsUndone();
    void aPinnedLimbCanBePosed();
    void pinsNeedALimb();

private:
    double lengthOf(const QString &joint) const;
    void checkReach(const QString &joint, const QVector3D &target) const;
};

double tst_IkTool::lengthOf(const QString &joint) const
{
    const VxNode *end = node(joint);
    const VxNode *middle = end->getNodeParent();
    return double((place(end) - place(middle)).length() +
                  (place(middle) - place(middle->getNodeParent())).length());
}

// Drags along the three axes of the world, typed, to a target.
void tst_IkTool::checkReach(const QString &joint, const QVector3D &target) const
{
    tools()->settings()->setOrientation(PoseToolSettings::Orientation::World);
    use(PoseTools::Ik, {joint});
    const double length = lengthOf(joint);
    VxUndoStackHold hold;
    PoseGesture gesture(vxScene, "IK");
    Limb limb(node(joint));
    QCOMPARE(limb.obstacle(0), QString());
    limb.begin(&gesture);
    QVERIFY(limb.solve(Spaces::toVector(target)));
    QVERIFY(limb.error() < 1e-3);
    const double missed = double((place(node(joint)) - target).length());
    QVERIFY2(missed < 1e-3 * length, qPrintable(QString::number(missed / length)));
    gesture.accept();
    hold.accept("IK");
}

void tst_IkTool::theJointReachesItsTarget_data()
{
    QTest::addColumn<QString>("joint");
    QTest::addColumn<QVector3D>("offset");
    QTest::newRow("left hand in") << "LeftHand" << QVector3D(-15, -5, 12);
    QTest::newRow("left hand down") << "LeftHand" << QVector3D(-12, -14, 6);
    QTest::newRow("right hand in") << "RightHand" << QVector3D(12, -6, 9);
    QTest::newRow("left foot up") << "LeftFoot" << QVector3D(0, 20, 10);
    QTest::newRow("right foot forward") << "RightFoot" << QVector3D(-3, 15, 25);
}

void tst_IkTool::theJointReachesItsTarget()
{
    QFETCH(QString, joint);
    QFETCH(QVector3D, offset);
    const QByteArray before = sceneBytes();
    checkReach(joint, place(node(joint)) + offset);
    checkOneEntry(before, "IK");
    // From a bent limb to another place.
    checkReach(joint, place(node(joint)) + QVector3D(2, -3, 4));
}

void tst_IkTool::skewedLimbsReachTheirTargets()
{
    node("LeftThigh")->getYScaleControl()->setKey(0, 1.3f, 0);
    node("Hips")->getXScaleControl()->setKey(0, 1.2f, 0);
    angle("LeftShin", 0)->setKey(0, 30, 0);
    checkReach("LeftFoot", place(node("LeftFoot")) + QVector3D(0, 8, 6));
}

void tst_IkTool::mirroredLimbs_data()
{
    QTest::addColumn<QString>("mirrored");
    QTest::addColumn<int>("axes"); // bits
    for (const char *name : {"Figure", "Hips", "LeftThigh", "LeftShin", "LeftFoot"}) {
        for (int axes = 1; axes < 8; ++axes)
            QTest::addRow("%s, axes %d%d%d", name, axes & 1, axes >> 1 & 1, axes >> 2)
                << name << axes;
    }
}

// The angles of a limb at its target stay, whatever scales are negative, and so does the joint's
// rotation while the limb is bent.
void tst_IkTool::mirroredLimbs()
{
    QFETCH(QString, mirrored);
    QFETCH(int, axes);
    VxFloatProperty *scales[] = {node(mirrored)->getXScaleControl(),
                                 node(mirrored)->getYScaleControl(),
                                 node(mirrored)->getZScaleControl()};
    for (int axis = 0; axis < 3; ++axis) {
        if (axes & 1 << axis)
            scales[axis]->setKey(0, -1, 0);
    }
    angle("Hips", 1)->setKey(0, 25, 0);
    angle("LeftThigh", 2)->setKey(0, 10, 0);
    angle("LeftShin", 0)->setKey(0, 40, 0);
    angle("LeftFoot", 1)->setKey(0, 15, 0);
    history()->clear();
    const QByteArray before = sceneBytes();
    const QVector3D start = place(node("LeftFoot"));
    const QMatrix4x4 rotated = node("LeftFoot")->getWorldTransform(0);
    checkReach("LeftFoot", start);
    QVERIFY(sceneBytes() == before);
    QCOMPARE(history()->count(), 0);
    checkReach("LeftFoot", start + QVector3D(2, 1.5f, -1));
    const QMatrix4x4 after = node("LeftFoot")->getWorldTransform(0);
    for (int column = 0; column < 3; ++column)
        QVERIFY((after.column(column) - rotated.column(column)).length() < 1e-3f);
}

void tst_IkTool::theMouseHoldsTheJoint()
{
    angle("LeftForearm", 1)->setKey(0, -60, 0);
    history()->clear();
    const QByteArray before = sceneBytes();
    use(PoseTools::Ik, {});
    vxScene->selectAllNodes(false);
    const QPoint from = pixelOf(node("LeftHand"));
    const QPoint to = from + QPoint(-18, 14);
    VxMouseDriver mouse(view());
    mouse.moveTo(from);
    QCOMPARE(view()->hoveredNode(), node("LeftHand"));
    mouse.press(from);
    QVERIFY(!view()->hoveredNode()); // its name would cover the drag
    mouse.moveTo(to);
    QVERIFY2(!tool()->readout().contains("reach"), qPrintable(tool()->readout()));
    mouse.release(to);
    QVERIFY(node("LeftHand")->isSelected());
    QVERIFY((pixelOf(node("LeftHand")) - to).manhattanLength() <= 2);
    checkOneEntry(before, "IK");
}

void tst_IkTool::anElbowBendsAsItsLimitsAllow()
{
    checkReach("LeftHand", place(node("LeftHand")) + QVector3D(-20, 0, 0));
    QVERIFY(angle("LeftForearm", 1)->getValue() < -20);
    checkReach("LeftFoot", place(node("LeftFoot")) + QVector3D(0, 20, 0));
    QVERIFY(angle("LeftShin", 0)->getValue() > 20);
}

void tst_IkTool::aliasedLimitsBendTheElbow()
{
    VxFloatProperty *control = angle("LeftForearm", 1);
    auto *limited = new VxFloatProperty("Elbow", 0);
    limited->setMinMax(-150, 5, true);
    node("Head")->addProperty(limited, QStringLiteral("General"));
    control->setMinMax(-360, 360, false);
    QVERIFY(control->setAliasedProperty(limited));
    checkReach("LeftHand", place(node("LeftHand")) + QVector3D(-20, 0, 0));
    QVERIFY(control->getValue() < -20);
}

void tst_IkTool::outOfReach()
{
    use(PoseTools::Ik, {"LeftHand"});
    tools()->settings()->setOrientation(PoseToolSettings::Orientation::World);
    const QPoint at = pixelOf(GizmoPart::X);
    VxMouseDriver mouse(view());
    mouse.press(at);
    QTest::keyClicks(static_cast<QWidget *>(view()), "300");
    QVERIFY(tool()->readout().contains("Out of reach"));
    type(Qt::Key_Return);
    mouse.release(at);
    QVERIFY(status().contains("Out of reach"));
    QCOMPARE(keyFault(), QString());
}

void tst_IkTool::theJointKeepsItsRotation()
{
    const QMatrix4x4 before = node("LeftFoot")->getWorldTransform(0);
    checkReach("LeftFoot", place(node("LeftFoot")) + QVector3D(0, 9, 4));
    const QMatrix4x4 after = node("LeftFoot")->getWorldTransform(0);
    for (int column = 0; column < 3; ++column)
        QVERIFY((before.column(column) - after.column(column)).length() < 1e-3f);
}

void tst_IkTool::jointsWithoutALimb()
{
    use(PoseTools::Ik, {"Hips"});
    QVERIFY(!tool()->target());
    const QPoint at = pixelOf(node("Hips"));
    VxMouseDriver(view()).click(at);
    QVERIFY(status().contains("two bones"));
    QCOMPARE(history()->count(), 0);
}

void tst_IkTool::aBoneWithoutLength()
{
    node("LeftFoot")->setOrigin({0, 0, 0});
    QVERIFY(Limb(node("LeftFoot")).obstacle(0).contains("no length"));
    angle("LeftThigh", 0)->setLocked(true);
    node("LeftFoot")->setOrigin({0, -42, 0});
    QVERIFY(Limb(node("LeftFoot")).obstacle(0).contains("locked"));
    angle("LeftThigh", 0)->setLocked(false);
}

void tst_IkTool::pinnedFeetStay_data()
{
    QTest::addColumn<int>("tool");
    QTest::addColumn<int>("part");
    QTest::addColumn<QString>("amount");
    QTest::newRow("hips down") << int(PoseTools::Move) << int(GizmoPart::Y) << "-12";
    QTest::newRow("hips forward") << int(PoseTools::Move) << int(GizmoPart::Z) << "6";
    QTest::newRow("hips rotated") << int(PoseTools::Rotate) << int(GizmoPart::Y) << "8";
}

void tst_IkTool::pinnedFeetStay()
{
    QFETCH(int, tool);
    QFETCH(int, part);
    QFETCH(QString, amount);
    // Bent knees, so that the hips can move in all directions.
    for (const char *side : {"Left", "Right"}) {
        angle(QString(side) + "Thigh", 0)->setKey(0, -25, 0);
        angle(QString(side) + "Shin", 0)->setKey(0, 50, 0);
        angle(QString(side) + "Foot", 0)->setKey(0, -25, 0);
    }
    select({"LeftFoot", "RightFoot"});
    action("VxPinInIkAction")->trigger();
    QVERIFY(action("VxPinInIkAction")->isChecked());
    history()->clear();
    const QByteArray before = sceneBytes();
    const QMatrix4x4 left = node("LeftFoot")->getWorldTransform(0);
    const QMatrix4x4 right = node("RightFoot")->getWorldTransform(0);
    use(PoseTools::Tool(tool), {"Hips"});
    typeAmount(GizmoPart(part), amount);
    const auto drift = [this](const char *name, const QMatrix4x4 &from) {
        return double((from.column(3) - node(name)->getWorldTransform(0).column(3)).length()) /
               lengthOf(name);
    };
    QVERIFY2(drift("LeftFoot", left) < 1e-3, qPrintable(QString::number(drift("LeftFoot", left))));
    QVERIFY2(drift("RightFoot", right) < 1e-3,
             qPrintable(QString::number(drift("RightFoot", right))));
    QVERIFY2(!status().contains("Pins"), qPrintable(status()));
    checkOneEntry(before, tool == PoseTools::Move ? "Move" : "Rotate");
}

void tst_IkTool::pinningIsUndone()
{
    select({"LeftFoot", "RightHand"});
    const QByteArray before = sceneBytes();
    action("VxPinInIkAction")->trigger();
    QVERIFY(node("LeftFoot")->isPinned() && node("RightHand")->isPinned());
    checkOneEntry(before, "Pin in IK");
    const QByteArray pinned = sceneBytes();
    action("VxPinInIkAction")->trigger();
    QVERIFY(!node("LeftFoot")->isPinned() && !node("RightHand")->isPinned());
    history()->undo();
    QCOMPARE(sceneBytes(), pinned);
    QTRY_VERIFY(action("VxPinInIkAction")->isChecked());
}

void tst_IkTool::aPinnedLimbCanBePosed()
{
    select({"LeftFoot"});
    action("VxPinInIkAction")->trigger();
    const QVector3D before = place(node("LeftFoot"));
    use(PoseTools::Rotate, {"LeftThigh"});
    typeAmount(GizmoPart::X, "-30");
    QVERIFY((place(node("LeftFoot")) - before).length() > 10);
}

void tst_IkTool::pinsNeedALimb()
{
    select({"Hips"});
    action("VxPinInIkAction")->trigger();
    QVERIFY(!action("VxPinInIkAction")->isChecked());
    QVERIFY(status().contains("two bones"));
}

VX_TEST_MAIN(tst_IkTool)
#include "tst_iktool.moc"

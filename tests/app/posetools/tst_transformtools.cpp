#include "testing/vxtestmain.h"
#include "toolstestbase.h"

/// The Move, Rotate and Scale tools, dragged with the mouse in the program's window.
class tst_TransformTools : public QObject, PoseToolTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { startOnce(); }
    void cleanupTestCase() { endOnce(); }
    void init() { newFigure(); }

    void aRingKeysTheChannelThatItChanges();
    void aTypedAngleIsExact_data();
    void aTypedAngleIsExact();
    void aTypedAngleEndsWithTheRelease();
    void anglesContinueBeyondAHalfTurn();
    void shiftSnapsAngles();
    void ctrlDragsFinely();
    void aDragOutAndBackLeavesNothing();
    void lockedAnglesCannotBeGrabbed();
    void ofSeveralNodesTheFreeOnesFollow();
    void aLockedNodeRotatesAboutItsChannels();
    void limitsStopTheRotation();
    void severalNodesAboutTheirOwnOrigins();
    void severalNodesAboutACommonPivot();
    void worldAxes();
    void mirroredNodesRotateAsTheRingShows_data();
    void mirroredNodesRotateAsTheRingShows();
    void mirroredParentsMoveAsTheArrowShows_data();
    void mirroredParentsMoveAsTheArrowShows();
    void aMoveIsExact();
    void aMoveSnapsToTheGrid();
    void aChildOfAMovedNodeMovesOnce();
    void aSingularParentAllowsNoMove();
    void lockedTranslations();
    void scales();
    void aScaleOfZeroCanGrow();
    void anUndoEntryHasTheSizeOfItsChange();
};

void tst_TransformTools::aRingKeysTheChannelThatItChanges()
{
    vxScene->setTime(320);
    use(PoseTools::Rotate, {"LeftForearm"});
    const QByteArray before = sceneBytes();
    const QPoint from = pixelOf(GizmoPart::Y);
    VxMouseDriver mouse(view());
    mouse.moveTo(from);
    mouse.press(from);
    mouse.moveTo(from + QPoint(-12, 0));
    mouse.moveTo(from + QPoint(-25, 4));
    QVERIFY2(tool()->readout().startsWith("Y "), qPrintable(tool()->readout()));
    mouse.release(from + QPoint(-25, 4));
    QVERIFY2(angle("LeftForearm", 1)->hasKey(320), qPrintable(status()));
    QVERIFY(std::abs(angle("LeftForearm", 1)->getValue()) > 3.0f);
    QCOMPARE(angle("LeftForearm", 0)->getNumKeys(), 0);
    QCOMPARE(angle("LeftForearm", 2)->getNumKeys(), 0);
    checkOneEntry(before, "Rotate");
}

void tst_TransformTools::aTypedAngleIsExact_data()
{
    QTest::addColumn<int>("axis");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("angle");
    QTest::newRow("45") << 0 << "45" << 45.0;
    QTest::newRow("negative") << 1 << "-10" << -10.0;
    QTest::newRow("fraction") << 2 << "12.5" << 12.5;
    QTest::newRow("comma") << 2 << "0,25" << 0.25;
    QTest::newRow("arithmetic") << 0 << "360/16" << 22.5;
    QTest::newRow("two revolutions") << 1 << "725" << 725.0;
    QTest::newRow("backwards") << 2 << "-540" << -540.0;
}

void tst_TransformTools::aTypedAngleIsExact()
{
    QFETCH(int, axis);
    QFETCH(QString, text);
    QFETCH(double, angle);
    use(PoseTools::Rotate, {"Hips"});
    const QByteArray before = sceneBytes();
    typeAmount(GizmoPart(int(GizmoPart::X) + axis), text);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(this->angle("Hips", i)->getValue(), i == axis ? float(angle) : 0.0f);
    checkOneEntry(before, "Rotate");
}

void tst_TransformTools::aTypedAngleEndsWithTheRelease()
{
    use(PoseTools::Rotate, {"Hips"});
    const QPoint at = pixelOf(GizmoPart::X);
    VxMouseDriver mouse(view());
    mouse.press(at);
    mouse.moveTo(at + QPoint(30, 30));
    QTest::keyClicks(static_cast<QWidget *>(view()), "37");
    QTest::keyClick(view(), Qt::Key_Backspace);
    mouse.moveTo(at + QPoint(60, 60));
    mouse.release(at + QPoint(60, 60));
    QCOMPARE(angle("Hips", 0)->getValue(), 3.0f);
    QCOMPARE(history()->count(), 1);
}

void tst_TransformTools::anglesContinueBeyondAHalfTurn()
{
    use(PoseTools::Rotate, {"Hips"});
    const QPoint middle = pixelOf(node("Hips"));
    const QPoint start = pixelOf(GizmoPart::View);
    VxMouseDriver mouse(view());
    mouse.press(start);
    const QLineF arm(middle, start);
    float last = 0;
    for (int degrees = 15; degrees <= 540; degrees += 15) {
        QLineF turned = arm;
        turned.setAngle(arm.angle() + degrees);
        mouse.moveTo(turned.p2().toPoint());
        float sum = 0;
        for (int i = 0; i < 3; ++i)
            sum += angle("Hips", i)->getValue();
        QVERIFY2(std::abs(sum - last) < 100, qPrintable(QString::number(degrees)));
        last = sum;
    }
    QVERIFY2(tool()->readout().startsWith("5"), qPrintable(tool()->readout()));
    mouse.release(start);
}

void tst_TransformTools::shiftSnapsAngles()
{
    use(PoseTools::Rotate, {"Hips"});
    const QPoint at = pixelOf(GizmoPart::Y);
    VxMouseDriver mouse(view());
    mouse.press(at);
    mouse.moveTo(at + QPoint(-40, 5), Qt::ShiftModifier);
    mouse.release(at + QPoint(-40, 5));
    const float value = angle("Hips", 1)->getValue();
    QVERIFY(value != 0.0f);
    QCOMPARE(std::remainder(value, 15.0f), 0.0f);
}

void tst_TransformTools::ctrlDragsFinely()
{
    use(PoseTools::Move, {"Hips"});
    const QPoint at = pixelOf(GizmoPart::X);
    const auto dragged = [&](Qt::KeyboardModifiers modifiers) {
        VxMouseDriver mouse(view());
        mouse.press(at);
        mouse.moveTo(at + QPoint(50, 0), modifiers);
        mouse.release(at + QPoint(50, 0));
        const float value = node("Hips")->getXPosControl()->getValue();
        history()->undo();
        return value;
    };
    const float whole = dragged(Qt::NoModifier);
    const float fine = dragged(Qt::ControlModifier);
    QVERIFY(whole > 5);
    QVERIFY(std::abs(fine - whole / 10) < whole / 40);
}

void tst_TransformTools::aDragOutAndBackLeavesNothing()
{
    angle("LeftUpperArm", 2)->setKey(480, 20, 0);
    vxScene->setTime(320);
    const QByteArray before = sceneBytes();
    use(PoseTools::Rotate, {"LeftUpperArm"});
    const QPoint at = pixelOf(GizmoPart::Z);
    VxMouseDriver mouse(view());
    mouse.press(at);
    mouse.moveTo(at + QPoint(20, 20));
    QVERIFY(sceneBytes() != before);
    mouse.moveTo(at);
    mouse.release(at);
    QCOMPARE(history()->count(), 0);
    QVERIFY(sceneBytes() == before);
    mouse.click(at);
    QCOMPARE(history()->count(), 0);
    QVERIFY(node("LeftUpperArm")->isSelected());
}

void tst_TransformTools::lockedAnglesCannotBeGrabbed()
{
    use(PoseTools::Rotate, {"Hips"});
    const QPoint at = pixelOf(GizmoPart::X);
    QVERIFY(at.x() >= 0);
    angle("Hips", 0)->setLocked(true);
    QVERIFY(pixelOf(GizmoPart::X).x() < 0);
    QVERIFY(pixelOf(GizmoPart::View).x() < 0);
    QVERIFY(pixelOf(GizmoPart::Y).x() >= 0);
    angle("Hips", 0)->setLocked(false);
}

void tst_TransformTools::ofSeveralNodesTheFreeOnesFollow()
{
    angle("Hips", 0)->setLocked(true);
    use(PoseTools::Rotate, {"Hips", "Spine"});
    QVERIFY(pixelOf(GizmoPart::X).x() >= 0);
    vxScene->selectAllNodes(false);
    use(PoseTools::Rotate, {"Spine", "Hips"});
    typeAmount(GizmoPart::X, "20");
    QCOMPARE(angle("Spine", 0)->getValue(), 20.0f);
    QCOMPARE(angle("Hips", 0)->getValue(), 0.0f);
    QVERIFY2(status().contains("not changed: 1"), qPrintable(status()));
    angle("Spine", 0)->setLocked(true);
    QVERIFY(pixelOf(GizmoPart::X).x() < 0);
    angle("Spine", 0)->setLocked(false);
    angle("Hips", 0)->setLocked(false);
}

// Rotation order YXZ: with the last angle not 0, the local X axis is no channel's.
void tst_TransformTools::aLockedNodeRotatesAboutItsChannels()
{
    angle("Hips", 2)->setKey(0, 40, 0);
    angle("Hips", 1)->setLocked(true);
    use(PoseTools::Rotate, {"Hips"});
    typeAmount(GizmoPart::X, "30");
    angle("Hips", 1)->setLocked(false);
    QCOMPARE(angle("Hips", 0)->getValue(), 30.0f);
    QCOMPARE(angle("Hips", 1)->getValue(), 0.0f);
    QCOMPARE(angle("Hips", 2)->getValue(), 40.0f);
}

void tst_TransformTools::limitsStopTheRotation()
{
    use(PoseTools::Rotate, {"LeftForearm"});
    const QPoint at = pixelOf(GizmoPart::Y);
    VxMouseDriver mouse(view());
    mouse.press(at);
    QTest::keyClicks(static_cast<QWidget *>(view()), "-200");
    QVERIFY2(tool()->readout().startsWith("Y -200"), qPrintable(tool()->readout()));
    QVERIFY2(tool()->readout().contains("limit"), qPrintable(tool()->readout()));
    type(Qt::Key_Return);
    mouse.release(at);
    QVERIFY(std::abs(angle("LeftForearm", 1)->getValue() + 150) < 0.01f);
    QVERIFY(status().contains("limit"));
    // About an axis that needs several channels, the pose stops as a whole.
    tools()->settings()->setOrientation(PoseToolSettings::Orientation::World);
    use(PoseTools::Rotate, {"LeftHand"});
    typeAmount(GizmoPart::X, "170");
    for (int i = 0; i < 3; ++i) {
        const float value = angle("LeftHand", i)->getValue();
        QVERIFY(value >= angle("LeftHand", i)->getMin() - 0.01f);
        QVERIFY(value <= angle("LeftHand", i)->getMax() + 0.01f);
    }
}

void tst_TransformTools::severalNodesAboutTheirOwnOrigins()
{
    use(PoseTools::Rotate, {"LeftUpperArm", "RightUpperArm", "Head"});
    const QByteArray before = sceneBytes();
    typeAmount(GizmoPart::X, "20");
    for (const char *name : {"LeftUpperArm", "RightUpperArm", "Head"}) {
        QCOMPARE(angle(name, 0)->getValue(), 20.0f);
        QCOMPARE(node(name)->getXPosControl()->getNumKeys(), 0);
    }
    checkOneEntry(before, "Rotate");
}

void tst_TransformTools::severalNodesAboutACommonPivot()
{
    CreateEdits::addNode(vxScene, nullptr);
    VxNode *a = vxScene->getSelectedNodes().first();
    CreateEdits::addNode(vxScene, nullptr);
    VxNode *b = vxScene->getSelectedNodes().first();
    b->setOrigin({10, 0, 0});
    makeAllControls();
    tools()->settings()->setPivot(PoseToolSettings::Pivot::Common);
    tools()->settings()->setOrientation(PoseToolSettings::Orientation::World);
    use(PoseTools::Rotate, {a->getName(), b->getName()});
    typeAmount(GizmoPart::Y, "90");
    QVERIFY((place(a) - QVector3D(5, 0, 5)).length() < 1e-4f);
    QVERIFY((place(b) - QVector3D(5, 0, -5)).length() < 1e-4f);
    QVERIFY(std::abs(a->getYRotControl()->getValue() - 90) < 1e-4f);
    QVERIFY(std::abs(b->getYRotControl()->getValue() - 90) < 1e-4f);
}

void tst_TransformTools::worldAxes()
{
    angle("Hips", 0)->setKey(0, 30, 0);
    angle("Chest", 2)->setKey(0, 20, 0);
    const QMatrix4x4 before = node("Head")->getWorldTransform(0);
    tools()->settings()->setOrientation(PoseToolSettings::Orientation::World);
    use(PoseTools::Rotate, {"Head"});
    typeAmount(GizmoPart::Z, "15");
    QMatrix4x4 expected;
    expected.rotate(15, 0, 0, 1);
    const QMatrix4x4 after = node("Head")->getWorldTransform(0);
    for (int column = 0; column < 3; ++column)
        QVERIFY((expected.mapVector(before.column(column).toVector3D()) -
                 after.column(column).toVector3D())
                    .length() < 1e-4f);
}

void tst_TransformTools::mirroredNodesRotateAsTheRingShows_data()
{
    QTest::addColumn<QString>("mirrored");
    QTest::addColumn<int>("axis");
    for (const char *name : {"Figure", "Hips", "Spine"}) {
        for (int axis = 0; axis < 3; ++axis)
            QTest::addRow("%s, %c", name, 'X' + axis) << name << axis;
    }
}

// The node follows the mouse about the axis of the ring, though one scale is negative; the ring of
// the channel that is applied first, or last to the parent's axes, adds to that channel.
void tst_TransformTools::mirroredNodesRotateAsTheRingShows()
{
    using Orientation = PoseToolSettings::Orientation;
    QFETCH(QString, mirrored);
    QFETCH(int, axis);
    VxFloatProperty *scales[] = {node(mirrored)->getXScaleControl(),
                                 node(mirrored)->getYScaleControl(),
                                 node(mirrored)->getZScaleControl()};
    scales[axis]->setKey(0, -1, 0);
    angle("Hips", 0)->setKey(0, 20, 0);
    angle("Spine", 2)->setKey(0, 5, 0);
    ViewportCamera camera = startCamera();
    const QVector3D at = place(node("Spine")); // below the ground when Y is inverted
    camera.frame({at - QVector3D(60, 60, 60), at + QVector3D(60, 60, 60)});
    view()->setCamera(camera);
    const std::array<int, 3> &applied = vxRotationAxes(orderOf(node("Spine")));
    for (const auto orientation : {Orientation::Local, Orientation::Parent, Orientation::World}) {
        tools()->settings()->setOrientation(orientation);
        use(PoseTools::Rotate, {"Spine"});
        const int own = orientation == Orientation::Local    ? applied[2]
                        : orientation == Orientation::Parent ? applied[0]
                                                             : -1;
        for (int i = 0; i < 3; ++i) {
            const auto part = GizmoPart(int(GizmoPart::X) + i);
            const QVector3D about = tool()->target()->frame.axisOf(part);
            const QMatrix4x4 before = node("Spine")->getWorldTransform(0);
            const float channel = angle("Spine", i)->getValue();
            typeAmount(part, "4");
            QMatrix4x4 expected;
            expected.rotate(4, about);
            const QMatrix4x4 after = node("Spine")->getWorldTransform(0);
            for (int column = 0; column < 3; ++column)
                QVERIFY((expected.mapVector(before.column(column).toVector3D()) -
                         after.column(column).toVector3D())
                            .length() < 1e-4f);
            if (i == own)
                QVERIFY(std::abs(angle("Spine", i)->getValue() - channel - 4) < 1e-3f);
        }
    }
}

void tst_TransformTools::mirroredParentsMoveAsTheArrowShows_data()
{
    QTest::addColumn<int>("axes"); // bits
    for (int axes = 0; axes < 8; ++axes)
        QTest::addRow("axes %d%d%d", axes & 1, axes >> 1 & 1, axes >> 2) << axes;
}

void tst_TransformTools::mirroredParentsMoveAsTheArrowShows()
{
    QFETCH(int, axes);
    VxFloatProperty *scales[] = {node("Hips")->getXScaleControl(), node("Hips")->getYScaleControl(),
                                 node("Hips")->getZScaleControl()};
    for (int axis = 0; axis < 3; ++axis) {
        if (axes & 1 << axis)
            scales[axis]->setKey(0, -1, 0);
    }
    for (const auto orientation :
         {PoseToolSettings::Orientation::Parent, PoseToolSettings::Orientation::Local}) {
        tools()->settings()->setOrientation(orientation);
        use(PoseTools::Move, {"Chest"});
        VxFloatProperty *places[] = {node("Chest")->getXPosControl(),
                                     node("Chest")->getYPosControl(),
                                     node("Chest")->getZPosControl()};
        for (int axis = 0; axis < 3; ++axis) {
            const QVector3D before = place(node("Chest"));
            const float channel = places[axis]->getValue();
            const auto part = GizmoPart(int(GizmoPart::X) + axis);
            const QVector3D arrow = tool()->target()->frame.axisOf(part);
            typeAmount(part, "3");
            QVERIFY((place(node("Chest")) - before - arrow * 3).length() < 1e-4f);
            QVERIFY(std::abs(places[axis]->getValue() - channel - 3) < 1e-4f);
        }
    }
}

void tst_TransformTools::aMoveIsExact()
{
    angle("Hips", 1)->setKey(0, 50, 0);
    const QVector3D before = place(node("Chest"));
    tools()->settings()->setOrientation(PoseToolSettings::Orientation::World);
    use(PoseTools::Move, {"Chest"});
    typeAmount(GizmoPart::Z, "-7.5");
    QVERIFY((place(node("Chest")) - before - QVector3D(0, 0, -7.5f)).length() < 1e-4f);
    // The mouse holds the point that it grabbed.
    use(PoseTools::Move, {"Hips"});
    const QPoint at = pixelOf(GizmoPart::View);
    VxMouseDriver(view()).drag(at, at + QPoint(60, -33));
    QVERIFY((pixelOf(node("Hips")) - (at + QPoint(60, -33))).manhattanLength() <= 2);
}

void tst_TransformTools::aMoveSnapsToTheGrid()
{
    node("Hips")->getXPosControl()->setKey(0, 1.25f, 0);
    tools()->settings()->setOrientation(PoseToolSettings::Orientation::World);
    use(PoseTools::Move, {"Hips"});
    const QPoint at = pixelOf(GizmoPart::X);
    VxMouseDriver mouse(view());
    mouse.press(at);
    mouse.moveTo(at + QPoint(70, 0), Qt::ShiftModifier);
    mouse.release(at + QPoint(70, 0));
    const float x = place(node("Hips")).x();
    QVERIFY(x > 2);
    QVERIFY(std::abs(std::remainder(x, 5.0f)) < 1e-3f);
}

void tst_TransformTools::aChildOfAMovedNodeMovesOnce()
{
    const QVector3D before = place(node("Chest"));
    tools()->settings()->setOrientation(PoseToolSettings::Orientation::World);
    use(PoseTools::Move, {"Hips", "Chest"});
    typeAmount(GizmoPart::Y, "4");
    QVERIFY((place(node("Chest")) - before - QVector3D(0, 4, 0)).length() < 1e-4f);
}

void tst_TransformTools::aSingularParentAllowsNoMove()
{
    node("Hips")->getScaleControl()->setKey(0, 0, 0);
    const QByteArray before = sceneBytes();
    use(PoseTools::Move, {"Spine"});
    for (int part = int(GizmoPart::X); part < GizmoPartCount; ++part)
        QVERIFY(pixelOf(GizmoPart(part)).x() < 0);
    use(PoseTools::Rotate, {"Spine"});
    typeAmount(GizmoPart::Z, "10");
    QCOMPARE(angle("Spine", 2)->getValue(), 10.0f);
    history()->undo();
    QVERIFY(sceneBytes() == before);
}

void tst_TransformTools::lockedTranslations()
{
    tools()->settings()->setOrientation(PoseToolSettings::Orientation::Parent);
    node("Hips")->getYPosControl()->setLocked(true);
    use(PoseTools::Move, {"Hips"});
    QVERIFY(pixelOf(GizmoPart::X).x() >= 0);
    QVERIFY(pixelOf(GizmoPart::Y).x() < 0);
    QVERIFY(pixelOf(GizmoPart::XY).x() < 0);
    QVERIFY(pixelOf(GizmoPart::View).x() < 0);
    node("Hips")->getYPosControl()->setLocked(false);
}

void tst_TransformTools::scales()
{
    use(PoseTools::Scale, {"Spine"});
    typeAmount(GizmoPart::Y, "1.5");
    QCOMPARE(node("Spine")->getYScaleControl()->getValue(), 1.5f);
    typeAmount(GizmoPart::View, "2");
    QCOMPARE(node("Spine")->getScaleControl()->getValue(), 2.0f);
    QCOMPARE(node("Spine")->getXScaleControl()->getNumKeys(), 0);
    const QPoint at = pixelOf(GizmoPart::X);
    VxMouseDriver(view()).drag(at, at + QPoint(30, 0));
    QVERIFY(node("Spine")->getXScaleControl()->getValue() > 1.1f);
}

void tst_TransformTools::aScaleOfZeroCanGrow()
{
    node("Spine")->getScaleControl()->setKey(0, 0, 0);
    use(PoseTools::Scale, {"Spine"});
    typeAmount(GizmoPart::View, "1.5");
    QCOMPARE(node("Spine")->getScaleControl()->getValue(), 0.5f);
}

void tst_TransformTools::anUndoEntryHasTheSizeOfItsChange()
{
    for (int i = 0; i < 3; ++i) {
        for (int frame = 0; frame < 5000; ++frame)
            angle("Hips", i)->setKey(frame * 160, float(frame % 7), 0);
    }
    vxScene->setTime(800);
    use(PoseTools::Rotate, {"Hips"});
    const QPoint at = pixelOf(GizmoPart::Z);
    VxMouseDriver mouse(view());
    mouse.press(at);
    for (int i = 1; i < 50; ++i)
        mouse.moveTo(at + QPoint(i, i));
    mouse.release(at + QPoint(50, 50));
    QCOMPARE(history()->count(), 1);
    QVERIFY2(history()->memoryUsed() < 2000, qPrintable(QString::number(history()->memoryUsed())));
}

VX_TEST_MAIN(tst_TransformTools)
#include "tst_transformtools.moc"

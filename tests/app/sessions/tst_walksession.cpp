#include "dialoganswers.h"
#include "io/formats/vxmotionexport.h"
#include "pose/inbetween.h"
#include "posetools/toolstestbase.h"
#include "testing/vxtestmain.h"

#include <QSlider>
#include <QSpinBox>
#include <cmath>

/// A walk of 24 frames made from an empty scene with mouse and keyboard: four key poses with the
/// rotation gizmo, their mirror images, breakdowns, four cycles, and an exported file that is
/// opened again.
class tst_WalkSession : public QObject, PoseToolTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { startOnce(); }
    void cleanupTestCase() { endOnce(); }

    void aWalkFromAnEmptyScene();

private:
    void createFigure() const;
    void clickNode(const QString &name) const;
    void rotate(const QString &name, GizmoPart part, const QString &degrees) const;
    void contactPose() const;
    void passingPose() const;
    void mirrorTo(VxTime from, VxTime to) const;
    void breakdownAt(VxTime time) const;
    void cycleFourTimes() const;
    void reactivate() const;
    static void selectFigure();
    void checkIsSmooth(const QStringList &names) const;

    static constexpr VxTime Frame = 160;
};

void tst_WalkSession::createFigure() const
{
    window()->document()->clear();
    auto *button = view()->findChild<QWidget *>("VxCreateFigureActionButton");
    QTRY_VERIFY(button && button->isVisible());
    VxMouseDriver(button).click(button->rect().center());
    QCOMPARE(vxScene->getNumNodes(), 22);
    view()->grab(); // the first figure in a view is framed when it is painted
    view()->setFocus();
    QTRY_VERIFY(view()->hasFocus());
    // All parts of the gizmos of a limb can be grabbed from there.
    ViewportCamera camera = view()->camera();
    camera.setDirection(50, 15);
    view()->setCamera(camera);
    vxScene->setAnimRange({0, 24 * Frame});
    vxScene->setPlayRange({0, 24 * Frame});
}

/** On the middle of the bone, where no other joint is near. */
void tst_WalkSession::clickNode(const QString &name) const
{
    const VxNode *bone = node(name);
    const QVector3D middle =
        bone->getWorldTransform(vxScene->getTime()).map(bone->getEndPoint() * 0.4f);
    type(Qt::Key_Q); // without a gizmo in the way
    VxMouseDriver(view()).click(view()->camera().project(middle).value_or(QPointF()).toPoint());
    QVERIFY2(bone->isSelected(), qPrintable(name));
}

void tst_WalkSession::rotate(const QString &name, GizmoPart part, const QString &degrees) const
{
    clickNode(name);
    type(Qt::Key_E);
    typeAmount(part, degrees);
}

void tst_WalkSession::contactPose() const
{
    rotate("LeftThigh", GizmoPart::X, "-25");
    rotate("RightThigh", GizmoPart::X, "25");
    rotate("RightShin", GizmoPart::X, "10");
    rotate("LeftUpperArm", GizmoPart::Z, "-70");
    rotate("RightUpperArm", GizmoPart::Z, "70");
}

void tst_WalkSession::passingPose() const
{
    rotate("LeftThigh", GizmoPart::X, "20");
    rotate("RightShin", GizmoPart::X, "45");
    rotate("RightThigh", GizmoPart::X, "-40");
}

void tst_WalkSession::selectFigure()
{
    vxScene->selectNodes(vxScene->getSelectedNodes(), false);
    vxScene->getRootNodes().first()->select();
}

/** A window manager does that after a dialog. */
void tst_WalkSession::reactivate() const
{
    window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window()));
    view()->setFocus();
}

void tst_WalkSession::mirrorTo(VxTime from, VxTime to) const
{
    selectFigure();
    vxScene->setTime(from);
    type(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    vxScene->setTime(to);
    type(Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
}

/** Two gestures for half of the way: the command and Return. */
void tst_WalkSession::breakdownAt(VxTime time) const
{
    reactivate();
    selectFigure();
    vxScene->setTime(time);
    const int entries = history()->count();
    const DialogAnswer<QDialog> answer([](QDialog *dialog) {
        QTest::keyClick(dialog, Qt::Key_Return);
        return true;
    });
    type(Qt::Key_B, Qt::ControlModifier);
    QVERIFY(answer.met());
    QCOMPARE(history()->count(), entries + 1);
    QVERIFY(angle("LeftThigh", 0)->hasKey(time));
}

void tst_WalkSession::cycleFourTimes() const
{
    reactivate();
    selectFigure();
    QCOMPARE(InBetween::differingEnds(vxScene), 0);
    const DialogAnswer<QDialog> answer([](QDialog *dialog) {
        auto *count = dialog->findChild<QSpinBox *>();
        count->setValue(4);
        QTest::keyClick(dialog, Qt::Key_Return);
        return true;
    });
    type(Qt::Key_L, Qt::ControlModifier);
    QVERIFY(answer.met());
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(0, 96 * Frame));
}

/** No angle jumps from frame to frame, and each cycle equals the first one. */
void tst_WalkSession::checkIsSmooth(const QStringList &names) const
{
    for (const QString &name : names) {
        const VxFloatProperty *thigh = angle(name, 0);
        float lowest = 0;
        float highest = 0;
        for (int frame = 0; frame < 96; ++frame) {
            const float here = thigh->getValue(frame * Frame);
            QVERIFY(std::isfinite(here));
            QVERIFY(std::abs(thigh->getValue((frame + 1) * Frame) - here) < 12);
            if (frame >= 24)
                QVERIFY(std::abs(here - thigh->getValue((frame % 24) * Frame)) < 1e-3f);
            lowest = std::min(lowest, here);
            highest = std::max(highest, here);
        }
        QVERIFY(highest - lowest > 9); // it moves
    }
}

void tst_WalkSession::aWalkFromAnEmptyScene()
{
    createFigure();
    contactPose();
    vxScene->setTime(6 * Frame);
    passingPose();
    mirrorTo(0, 12 * Frame);
    mirrorTo(6 * Frame, 18 * Frame);
    // The first pose again at the end of the cycle: copied, not mirrored.
    selectFigure();
    vxScene->setTime(0);
    type(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    vxScene->setTime(24 * Frame);
    type(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(keysOf(angle("LeftThigh", 0)).section(' ', 0, 0), QString("0=-25"));
    QVERIFY(std::abs(angle("LeftThigh", 0)->getValue(12 * Frame) - 25) < 1e-3f);
    QVERIFY(std::abs(angle("RightThigh", 0)->getValue(12 * Frame) + 25) < 1e-3f);
    for (const int frame : {3, 9, 15, 21})
        breakdownAt(frame * Frame);
    cycleFourTimes();
    checkIsSmooth({"LeftThigh", "RightThigh", "LeftShin", "RightShin"});
    const QString file = folder->filePath("walk.bvh");
    VxMotionExportOptions options;
    QVERIFY(window()->document()->exportMotion(options, file));
    history()->setClean();
    QVERIFY(window()->document()->open(file));
    // The file has labels as names.
    checkIsSmooth({"Left Thigh", "Right Thigh", "Left Shin", "Right Shin"});
    QCOMPARE(keyFault(), QString());
}

VX_TEST_MAIN(tst_WalkSession)
#include "tst_walksession.moc"

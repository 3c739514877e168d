#include "create/boneedits.h"
#include "dialoganswers.h"
#include "pose/nodechannels.h"
#include "posetestbase.h"
#include "testing/vxtestmain.h"

#include <QDoubleSpinBox>
#include <vxcore/vxscriptengine.h>

/// Lengths and rest poses of bones, by dialog, command and script.
class tst_BoneEdits : public QObject, private PoseTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { startOnce(); }
    void cleanupTestCase() { endOnce(); }
    void init() { newScene(); }

    void lengths_data();
    void lengths();
    void childrenAtTheEndFollow();
    void restValuesOfChannelsWithoutKeys();
    void theDialogPreviewsTypedValues();
    void aCancelledDialogRestoresTheBone();
    void scriptsSetLengths();
    void theRestPoseIsSetAndFound();
    void theRestPoseIsIndependentOfValuesWithoutKeys();
    void copiesHaveRestPoseAndPin();

private:
    void inDialog(const std::function<void(QDialog *)> &edit, bool accept) const;
};

void tst_BoneEdits::lengths_data()
{
    QTest::addColumn<QVector3D>("end");
    QTest::addColumn<double>("length");
    QTest::addColumn<QVector3D>("result");
    QTest::newRow("longer") << QVector3D(0, 3, 4) << 10.0 << QVector3D(0, 6, 8);
    QTest::newRow("none") << QVector3D(0, 3, 4) << 0.0 << QVector3D(0, 0, 0);
    QTest::newRow("from none, along Y") << QVector3D(0, 0, 0) << 5.0 << QVector3D(0, 5, 0);
    QTest::newRow("huge") << QVector3D(0, 0, 2e30f) << 1.0 << QVector3D(0, 0, 1);
}

void tst_BoneEdits::lengths()
{
    QFETCH(QVector3D, end);
    QFETCH(double, length);
    QTEST(BoneEdits::withLength(end, length), "result");
}

void tst_BoneEdits::childrenAtTheEndFollow()
{
    VxNode *chest = node("Chest");
    const QVector3D shoulder = node("LeftShoulder")->getOrigin();
    BoneValues values = BoneEdits::valuesOf(chest);
    values.end = {0, 30, 2};
    BoneEdits::setValues(chest, values, true);
    QCOMPARE(chest->getEndPoint(), QVector3D(0, 30, 2));
    QCOMPARE(node("Neck")->getOrigin(), QVector3D(0, 30, 2));
    QCOMPARE(node("LeftShoulder")->getOrigin(), shoulder); // not at the end
    values.end = {0, 20, 0};
    BoneEdits::setValues(chest, values, false);
    QCOMPARE(node("Neck")->getOrigin(), QVector3D(0, 30, 2));
}

void tst_BoneEdits::restValuesOfChannelsWithoutKeys()
{
    setKeys(angle("Head", 1), "0=5 10=9");
    BoneValues values = BoneEdits::valuesOf(node("Head"));
    values.rest[XAngle] = 12;
    values.rest[YAngle] = 34;
    BoneEdits::setValues(node("Head"), values, true);
    QCOMPARE(angle("Head", 0)->getValue(), 12.0f); // shows the rest pose
    QCOMPARE(angle("Head", 0)->getNumKeys(), 0);
    QCOMPARE(keysOf(angle("Head", 1)), QString("0=5 10=9"));
    QVERIFY(node("Head")->getRestPose() == values.rest);
}

void tst_BoneEdits::inDialog(const std::function<void(QDialog *)> &edit, bool accept) const
{
    const DialogAnswer<QDialog> answer([&](QDialog *dialog) {
        edit(dialog);
        accept ? dialog->accept() : dialog->reject();
        return true;
    });
    action("VxEditBoneAction")->trigger();
    QVERIFY(answer.met());
}

void tst_BoneEdits::theDialogPreviewsTypedValues()
{
    select({"LeftForearm"});
    const QByteArray before = sceneBytes();
    inDialog(
        [](QDialog *dialog) {
            auto *length = dialog->findChild<QDoubleSpinBox *>("BoneLength");
            QCOMPARE(length->value(), 25.0);
            length->selectAll();
            QTest::keyClicks(length, "30");
            QCOMPARE(node("LeftForearm")->getEndPoint(), QVector3D(30, 0, 0));
            QCOMPARE(node("LeftHand")->getOrigin(), QVector3D(30, 0, 0));
        },
        true);
    checkOneEntry(before, "Edit Bone");
    QCOMPARE(node("LeftForearm")->getEndPoint(), QVector3D(30, 0, 0));
}

void tst_BoneEdits::aCancelledDialogRestoresTheBone()
{
    select({"LeftForearm"});
    const QByteArray before = sceneBytes();
    inDialog(
        [](QDialog *dialog) {
            for (auto *box : dialog->findChildren<QDoubleSpinBox *>())
                box->setValue(box->value() + 3);
        },
        false);
    QVERIFY(sceneBytes() == before);
    QCOMPARE(history()->count(), 0);
    inDialog([](QDialog *) {}, true); // nothing changed
    QCOMPARE(history()->count(), 0);
}

void tst_BoneEdits::scriptsSetLengths()
{
    select({"LeftForearm", "Figure"});
    const QByteArray before = sceneBytes();
    VxScriptError error;
    const auto run = [&error](const char *text) {
        error = VxScriptError();
        return vxApp->getScriptEngine()->evaluate(QLatin1String(text), QString(), &error);
    };
    QCOMPARE(run("Poses.setBoneLength(12).message"), QString("Bones of that length: 1."));
    QVERIFY(error.isNull());
    checkOneEntry(before, "Bone Length");
    QCOMPARE(node("LeftHand")->getOrigin(), QVector3D(12, 0, 0));
    run("Poses.setBoneLength('long')");
    QVERIFY(!error.isNull());
    QCOMPARE(run("Poses.setBoneLength(-1).done"), QString("false"));
}

void tst_BoneEdits::theRestPoseIsSetAndFound()
{
    setKeys(angle("LeftUpperArm", 2), "0=-70 10=20");
    setKeys(angle("RightUpperArm", 2), "0=70");
    select({"Figure"});
    const QByteArray before = sceneBytes();
    action("VxSetRestPoseAction")->trigger();
    checkOneEntry(before, "Set Rest Pose");
    QCOMPARE((*node("LeftUpperArm")->getRestPose())[ZAngle], -70.0f);
    vxScene->setTime(1600);
    action("VxResetPoseAction")->trigger();
    QCOMPARE(keysOf(angle("LeftUpperArm", 2)), QString("0=-70 10=-70"));
    // The file has it.
    const QString file = folder->filePath("rest.vxscene");
    QVERIFY(window()->document()->save(file));
    QVERIFY(window()->document()->open(file));
    QCOMPARE((*node("LeftUpperArm")->getRestPose())[ZAngle], -70.0f);
}

void tst_BoneEdits::theRestPoseIsIndependentOfValuesWithoutKeys()
{
    vxScene->setAnimating(false);
    angle("Head", 0)->setValue(25); // no key: the value of the control itself
    vxScene->setAnimating(true);
    QCOMPARE(angle("Head", 0)->getStoredValue(), 25.0f);
    select({"Head"});
    action("VxResetPoseAction")->trigger();
    QCOMPARE(angle("Head", 0)->getValue(), 0.0f);
}

void tst_BoneEdits::copiesHaveRestPoseAndPin()
{
    node("Head")->setRestPose(VxRestPose{0, 0, 0, 7, 8, 9, 1, 1, 1, 1});
    node("Head")->setPinned(true);
    select({"Head"});
    action("VxDuplicateNodesAction")->trigger();
    const VxNode *copy = vxScene->getPrimarySelection();
    QVERIFY(copy != node("Head"));
    QVERIFY(copy->getRestPose() == node("Head")->getRestPose());
    QVERIFY(copy->isPinned());
    node("Head")->setPinned(false);
}

VX_TEST_MAIN(tst_BoneEdits)
#include "tst_boneedits.moc"

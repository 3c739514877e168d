#include "keytoolstage.h"
#include "testing/vxtestmain.h"
#include "walkingleg.h"

namespace {

/// The values of a curve on each frame from 0, rounded.
template <class Value> QString numbers(int frames, const Value &value)
{
    QStringList list;
    for (int frame = 0; frame < frames; ++frame)
        list.append(QString::number(qRound(double(value(frame * KeyToolStage::Frame)))));
    return list.join(' ');
}

void setNumbers(VxFloatProperty *property, const QString &values)
{
    const QStringList list = values.split(' ');
    for (int frame = 0; frame < list.size(); ++frame)
        property->setKey(frame * KeyToolStage::Frame, list[frame].toFloat(), VxKeyInterp::Linear);
}

} // namespace

/// Key tools that work on rotations, on types and on limbs: numbers a frame, before and after.
class tst_KeyCurveDrawings : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void eulerFilter_data();
    void eulerFilter();
    void convert();
    void pin();
};

void tst_KeyCurveDrawings::eulerFilter_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QStringList>("after");
    QTest::newRow("beyond half a turn") << QStringList{"0 0 0 0", "0 0 0 0", "160 175 -170 -155"}
                                        << QStringList{"0 0 0 0", "0 0 0 0", "160 175 190 205"};
    // In the order XYZ, (180 + x, 180 - y, 180 + z) is the rotation (x, y, z).
    QTest::newRow("the other triple") << QStringList{"10 190 30", "20 155 30", "0 180 0"}
                                      << QStringList{"10 10 30", "20 25 30", "0 0 0"};
    QTest::newRow("already continuous") << QStringList{"0 90 180 270", "0 0 0 0", "0 0 0 0"}
                                        << QStringList{"0 90 180 270", "0 0 0 0", "0 0 0 0"};
}

void tst_KeyCurveDrawings::eulerFilter()
{
    QFETCH(QStringList, before);
    QFETCH(QStringList, after);
    KeyToolStage stage;
    VxFloatProperty *const controls[] = {stage.node->getXRotControl(), stage.node->getYRotControl(),
                                         stage.node->getZRotControl()};
    for (int axis = 0; axis < 3; ++axis)
        setNumbers(controls[axis], before[axis]);
    stage.node->select();
    stage.run("KeyTools.eulerFilter()");
    for (int axis = 0; axis < 3; ++axis) {
        const VxFloatProperty *control = controls[axis];
        const QString result = numbers(after[axis].count(' ') + 1,
                                       [control](VxTime time) { return control->getValue(time); });
        QCOMPARE(result, after[axis]);
    }
}

// Steps that stay within half a unit of the line.
void tst_KeyCurveDrawings::convert()
{
    KeyToolStage stage;
    stage.draw("A . . . E");
    const QByteArray start = KeyToolStage::snapshot();
    QCOMPARE(stage.run("KeyTools.convert({type: 'Constant', error: 0.6}).done"), QString("true"));
    QCOMPARE(stage.drawing(5), QString("A B C D E"));
    for (int i = 0; i < stage.channel->getNumKeys(); ++i)
        QCOMPARE(stage.channel->getKeyInterpolationType(i), int(VxKeyInterp::Constant));
    VxUndoStack::current()->undo();
    QCOMPARE(KeyToolStage::snapshot(), start);
}

// The hip moves by a unit a frame. The foot is held at its place of frame 5 from frame 4 to frame
// 6; in the middle of the falloff it is half way to that place.
void tst_KeyCurveDrawings::pin()
{
    KeyToolStage stage;
    const Leg leg;
    for (VxNode *node : {leg.hip, leg.knee, leg.foot}) {
        for (VxFloatProperty *control :
             {node->getXRotControl(), node->getYRotControl(), node->getZPosControl()})
            control->deleteAllKeys();
    }
    leg.hip->getZPosControl()->setKey(0, 0, VxKeyInterp::Linear);
    leg.hip->getZPosControl()->setKey(10 * KeyToolStage::Frame, 10, VxKeyInterp::Linear);
    leg.knee->getXRotControl()->setStoredValue(50);
    leg.foot->select();
    vxScene->setTime(5 * KeyToolStage::Frame);
    const float offset = leg.place(0).z();
    const auto place = [&](VxTime time) { return leg.place(time).z() - offset; };
    QCOMPARE(numbers(11, place), QString("0 1 2 3 4 5 6 7 8 9 10"));
    QCOMPARE(stage.run("KeyTools.pin({start: '4', end: '6', falloff: '2'}).done"), QString("true"));
    QCOMPARE(numbers(11, place), QString("0 1 2 4 5 5 5 6 8 9 10"));
}

VX_TEST_MAIN(tst_KeyCurveDrawings)
#include "tst_keycurvedrawings.moc"

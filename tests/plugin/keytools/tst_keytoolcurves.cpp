#include "keytools/limbpin.h"
#include "keytoolstage.h"
#include "testing/vxtestmain.h"
#include "walkingleg.h"

#include <cmath>
#include <random>
#include <vxcore/vxkeyarrays.h>

namespace {

constexpr double Pi = 3.14159265358979323846;

} // namespace

/// The tools that change curves: what remains of the motion, through their script functions.
class tst_KeyToolCurves : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void reversedCurvesRunBackwards();
    void offsetHasAFalloff();
    void eulerFilterKeepsRotations();
    void smoothingRemovesJitter();
    void spikesAreRemoved();
    void rotationsAreReducedTogether();
    void aFigureIsReducedToAPercentage();
    void manyKeysAreReducedToAPercentage();
    void conversionKeepsTheCurve();
    void pinnedFootStays();
};

/// A smooth curve reversed has the mirrored value at every tick, by unequal key distances too.
void tst_KeyToolCurves::reversedCurvesRunBackwards()
{
    KeyToolStage stage;
    const VxTime times[] = {0, 160, 480, 1600, 1700};
    for (int i = 0; i < 5; ++i)
        stage.channel->setKey(times[i], float(i * i % 7) * 10, VxKeyInterp::Tcb, 0.3F, 0.2F, 0.6F);
    std::vector<float> before;
    for (VxTime t = 0; t <= 1700; ++t)
        before.push_back(stage.channel->getValue(t));
    stage.app.getKeySelection()->set({{stage.channel, {{0, 5}}, 0}});
    stage.run("KeyTools.reverse()");
    for (VxTime t = 0; t <= 1700; ++t)
        QVERIFY2(std::abs(stage.channel->getValue(1700 - t) - before[std::size_t(t)]) < 1e-3F,
                 qPrintable(QString::number(t)));
}

void tst_KeyToolCurves::offsetHasAFalloff()
{
    KeyToolStage stage;
    for (int frame = 0; frame <= 40; ++frame)
        stage.channel->setKey(frame * 160, 0, VxKeyInterp::Linear);
    stage.node->select();
    stage.run("KeyTools.offset({amount: 8, start: '15', end: '20', falloff: '10'})");
    QCOMPARE(stage.channel->getValue(4 * 160), 0.0F);
    QCOMPARE(stage.channel->getValue(5 * 160), 0.0F);
    QVERIFY(std::abs(stage.channel->getValue(10 * 160) - 4) < 1e-4F);
    QCOMPARE(stage.channel->getValue(15 * 160), 8.0F);
    QCOMPARE(stage.channel->getValue(20 * 160), 8.0F);
    QVERIFY(std::abs(stage.channel->getValue(25 * 160) - 4) < 1e-4F);
    QCOMPARE(stage.channel->getValue(30 * 160), 0.0F);
    QCOMPARE(stage.channel->getNumKeys(), 41);
}

void tst_KeyToolCurves::eulerFilterKeepsRotations()
{
    KeyToolStage stage;
    stage.node->setRotationOrder(VxNode::ZXY);
    const auto order = VxRotationOrder::ZXY;
    VxFloatProperty *const controls[] = {stage.node->getXRotControl(), stage.node->getYRotControl(),
                                         stage.node->getZRotControl()};
    std::vector<QMatrix4x4> before;
    for (int frame = 0; frame <= 40; ++frame) {
        const VxEuler smooth = {frame * 7.0, 3, 170 + frame * 2.0};
        const VxEuler own = vxEulerAngles(vxRotation(smooth, order), order);
        for (std::size_t axis = 0; axis < 3; ++axis)
            controls[axis]->setKey(frame * 160, float(own[axis]), VxKeyInterp::Linear);
    }
    for (int frame = 0; frame <= 40; ++frame)
        before.push_back(stage.node->getLocalTransform(frame * 160));
    stage.node->select();
    const QString message = stage.run("KeyTools.eulerFilter().message");
    QVERIFY2(message.contains("on 1 rotation"), qPrintable(message));
    for (int frame = 1; frame <= 40; ++frame) {
        for (const VxFloatProperty *control : controls)
            QVERIFY(std::abs(control->getValue(frame * 160) -
                             control->getValue((frame - 1) * 160)) < 20);
        const QMatrix4x4 after = stage.node->getLocalTransform(frame * 160);
        QVERIFY(qFuzzyCompare(after + QMatrix4x4(), before[std::size_t(frame)]) ||
                (after.column(0) - before[std::size_t(frame)].column(0)).length() < 1e-4F);
    }
    // One angle alone is no rotation.
    controls[1]->deleteKeys(0, 3);
    QVERIFY(stage.run("KeyTools.eulerFilter().message").contains("1 rotation skipped"));
}

void tst_KeyToolCurves::smoothingRemovesJitter()
{
    for (const char *call : {"smoothGaussian({width: '2'})", "smoothButterworth({cutoff: 4})"}) {
        KeyToolStage stage;
        std::mt19937 random(3);
        std::normal_distribution<double> noise(0, 1);
        vxScene->setPlayRange({0, 400 * 160});
        for (int frame = 0; frame <= 400; ++frame)
            stage.channel->setKey(frame * 160, float(20 * std::sin(frame / 40.0) + noise(random)),
                                  VxKeyInterp::Linear);
        stage.node->select();
        stage.run(QString("KeyTools.") + call);
        double sum = 0;
        for (int frame = 0; frame <= 400; ++frame)
            sum += std::pow(double(stage.channel->getKeyValue(frame)) - 20 * std::sin(frame / 40.0),
                            2);
        QVERIFY2(std::sqrt(sum / 401) < 0.6, qPrintable(QString::number(std::sqrt(sum / 401))));
    }
}

void tst_KeyToolCurves::spikesAreRemoved()
{
    KeyToolStage stage;
    stage.draw("A A A Z A A A");
    QVERIFY(stage.run("KeyTools.removeSpikes({window: '6', threshold: 5}).message")
                .contains("1 spike"));
    QCOMPARE(stage.drawing(7), QString("A A A A A A A"));
}

void tst_KeyToolCurves::rotationsAreReducedTogether()
{
    KeyToolStage stage;
    // At the pole of the middle axis the first and the last angle undo each other.
    for (int frame = 0; frame <= 40; ++frame) {
        const auto swing = float(30 * std::sin(frame / 4.0));
        stage.node->getXRotControl()->setKey(frame * 160, swing, VxKeyInterp::Linear);
        stage.node->getYRotControl()->setKey(frame * 160, 90, VxKeyInterp::Linear);
        stage.node->getZRotControl()->setKey(frame * 160, -swing, VxKeyInterp::Linear);
    }
    stage.node->select();
    const QString after = stage.run("var r = KeyTools.reduce({error: 0.5}); r.after + ' ' + "
                                    "(r.error <= 0.5) + ' ' + r.keys");
    QCOMPARE(after, QString("6 true 123"));
}

/// All channels share the keys that are left; the error is the largest of all.
void tst_KeyToolCurves::aFigureIsReducedToAPercentage()
{
    KeyToolStage stage;
    const Leg leg;
    vxScene->setPlayRange({0, 60 * KeyToolStage::Frame});
    leg.foot->select();
    stage.run("KeyTools.bake({step: '1'})");
    const auto keys = [&leg] {
        return leg.hip->getZPosControl()->getNumKeys() + leg.hip->getXRotControl()->getNumKeys() +
               leg.knee->getXRotControl()->getNumKeys() + leg.foot->getYRotControl()->getNumKeys();
    };
    const int before = keys();
    const QString result =
        stage.run("var r = KeyTools.reduce({error: '50%', type: 'TCB', scope: 'Figure'}); "
                  "r.keys + ' ' + r.after + ' ' + (r.error > 0) + ' ' + r.message");
    const QStringList parts = result.split(' ');
    QCOMPARE(parts[0].toInt(), before);
    QCOMPARE(parts[1].toInt(), keys());
    QVERIFY2(keys() <= before / 2 && keys() > before / 3, qPrintable(result));
    QVERIFY2(result.contains("largest error"), qPrintable(result));
    // A greater share has a lesser error.
    vxApp->getUndoStack()->undo();
    QCOMPARE(keys(), before);
    QVERIFY(stage.run("KeyTools.reduce({error: '80%', type: 'TCB', scope: 'Figure'}).error")
                .toDouble() < stage.run("r.error").toDouble());
    // Fewer than the ends of each channel are not possible.
    stage.run("KeyTools.reduce({error: '0%', type: 'TCB', scope: 'Figure'})");
    QVERIFY(leg.hip->getZPosControl()->getNumKeys() >= 2);
}

/// Channels of very different movement, of which a part alone gives another error.
void tst_KeyToolCurves::manyKeysAreReducedToAPercentage()
{
    KeyToolStage stage;
    constexpr int Channels = 300;
    constexpr int KeysEach = 2001;
    std::mt19937 random(5);
    std::uniform_real_distribution<float> exponent(-3, 3);
    std::normal_distribution<float> step(0, 1);
    for (int c = 0; c < Channels; ++c) {
        auto *channel = new VxFloatProperty(QString("noise %1").arg(c));
        stage.node->addProperty(channel, "/Special");
        const float size = std::exp(exponent(random));
        VxKeyArrays<float> keys;
        float value = 0;
        for (int k = 0; k < KeysEach; ++k) {
            value += size * step(random);
            keys.times.push_back(k * 10);
            keys.values.push_back(value);
        }
        keys.types.assign(keys.times.size(), VxKeyInterp::Linear);
        channel->setKeys(keys);
    }
    vxScene->setPlayRange({0, KeysEach * 10});
    stage.node->select();
    const int after = stage.run("KeyTools.reduce({error: '20%'}).after").toInt();
    const int most = Channels * KeysEach / 5;
    QVERIFY2(after <= most && after > most * 0.995, qPrintable(QString::number(after)));
}

void tst_KeyToolCurves::conversionKeepsTheCurve()
{
    KeyToolStage stage;
    for (int i = 0; i < 9; ++i)
        stage.channel->setKey(i * 800, float(i % 3 * 10), VxKeyInterp::Tcb, 0.1F, 0.2F, -0.4F);
    std::vector<float> before;
    for (VxTime t = 0; t <= 6400; t += 160)
        before.push_back(stage.channel->getValue(t));
    stage.node->select();
    stage.run("KeyTools.convert({type: 'Linear', error: 0.2})");
    for (VxTime t = 0; t <= 6400; t += 160)
        QVERIFY(std::abs(stage.channel->getValue(t) - before[std::size_t(t / 160)]) < 0.21F);
    QCOMPARE(stage.channel->getKeyInterpolationType(3), int(VxKeyInterp::Linear));
    QVERIFY(stage.channel->getNumKeys() > 9);
}

void tst_KeyToolCurves::pinnedFootStays()
{
    KeyToolStage stage;
    const Leg leg;
    leg.foot->select();
    vxScene->setTime(25 * KeyToolStage::Frame);
    const QVector3D place = leg.place(vxScene->getTime());
    std::vector<QVector3D> before;
    for (int frame = 0; frame <= 60; ++frame)
        before.push_back(leg.place(frame * KeyToolStage::Frame));
    const QByteArray start = KeyToolStage::snapshot();
    const QString result =
        stage.run("var r = KeyTools.pin({start: '20', end: '30', falloff: '6'}); r.done + ' ' + "
                  "(r.error < 1e-3) + ' ' + r.message");
    QVERIFY2(result.startsWith("true true"), qPrintable(result));
    const float length = 82;
    for (VxTime t = 20 * 160; t <= 30 * 160; t += 16)
        QVERIFY((leg.place(t) - place).length() < 1e-3F * length);
    for (int frame = 0; frame <= 60; ++frame) {
        // Two keys away from the falloff nothing changes; beside it tangents have new neighbours.
        const float moved = (leg.place(frame * 160) - before[std::size_t(frame)]).length();
        if (frame <= 5 || frame >= 45)
            QVERIFY(moved < 1e-3F);
        else if (frame <= 14 || frame >= 36)
            QVERIFY2(moved < 0.8F, qPrintable(QString("%1: %2").arg(frame).arg(double(moved))));
    }
    // No pop: a step has what it had before and its share of a blend over six frames.
    float step = 0;
    float farthest = 0;
    for (std::size_t frame = 1; frame <= 60; ++frame)
        step = std::max(step, (before[frame] - before[frame - 1]).length());
    for (std::size_t frame = 14; frame <= 36; ++frame)
        farthest = std::max(farthest, (before[frame] - place).length());
    const float bound = step + 1.1F * farthest * float(Pi) / 2 / 6;
    for (int frame = 1; frame <= 60; ++frame)
        QVERIFY((leg.place(frame * 160) - leg.place((frame - 1) * 160)).length() < bound);
    VxUndoStack::current()->undo();
    QCOMPARE(KeyToolStage::snapshot(), start);
}

VX_TEST_MAIN(tst_KeyToolCurves)
#include "tst_keytoolcurves.moc"

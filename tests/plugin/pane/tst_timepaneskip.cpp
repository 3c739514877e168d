#include "testing/vxscenebuilder.h"
#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/keys/keyskip.h"

#include <QtCore/QElapsedTimer>
#include <algorithm>
#include <limits>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxobject.h>

// The way from key to key over the selected nodes:
//
//   time    0    400   800   1600   2400   3200   4000   4800
//   a       .     .     A     .      .      A      .      .     x position
//   b       .     .     .     B      .      .      .      .     z rotation
//   object  .     .     .     .      O      .      .      .     of a
//   morph   .     .     .     .      .      .      M      .     of a's object
//   c       .     C     .     .      .      .      .      .     not selected, child of a
class TestTimePaneSkip : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void forwardOverEverything();
    void backOverEverything();
    void onlySelectedRows();
    void rangeEnds_data();
    void rangeEnds();
    void undoRevertsStepByStep();
    void nothingSelected();
    void severalAtOneTime();
    void farKeys();
    void bruteForceAgrees();
    void keysCostNextToNothing();

private:
    QVector<VxTime> walk(bool forward, int steps);

    VxNode *m_a = nullptr;
    VxNode *m_b = nullptr;
    VxNode *m_c = nullptr;
};

void TestTimePaneSkip::init()
{
    setUp();
    m_a = new VxNode(QStringLiteral("a"));
    m_b = new VxNode(QStringLiteral("b"));
    m_c = new VxNode(QStringLiteral("c"));
    vxScene->addNode(m_a);
    vxScene->addNode(m_b);
    vxScene->addNode(m_c, m_a);
    m_a->getXPosControl()->setKey(800, 1.0f, 0);
    m_a->getXPosControl()->setKey(3200, 1.0f, 0);
    m_b->getZRotControl()->setKey(1600, 1.0f, 0);
    m_c->getXPosControl()->setKey(400, 1.0f, 0);
    auto *object = new VxObject(QStringLiteral("shape"));
    auto *size = new VxFloatProperty(QStringLiteral("size"));
    object->addProperty(size, QStringLiteral("/General"));
    object->addSubElement(new VxMorph(QStringLiteral("frown")));
    auto *morph = new VxMorph(QStringLiteral("smile"));
    object->addSubElement(morph);
    m_a->setObject(object);
    size->setKey(2400, 1.0f, 0);
    morph->getValueControl()->setKey(4000, 1.0f, 0);
    m_a->select(true);
    m_b->select(true);
}

QVector<VxTime> TestTimePaneSkip::walk(bool forward, int steps)
{
    QVector<VxTime> times;
    for (int i = 0; i < steps; ++i) {
        if (forward)
            pane->skipToNextKey();
        else
            pane->skipToPreviousKey();
        times += vxScene->getTime();
    }
    return times;
}

void TestTimePaneSkip::forwardOverEverything()
{
    QCOMPARE(walk(true, 7), QVector<VxTime>({800, 1600, 2400, 3200, 4000, 4800, 4800}));
    QCOMPARE(undoTexts(), QVector<QString>(6, QStringLiteral("Skip to Next Key")).toList());
}

void TestTimePaneSkip::backOverEverything()
{
    vxScene->setTime(4800);
    QCOMPARE(walk(false, 7), QVector<VxTime>({4000, 3200, 2400, 1600, 800, 0, 0}));
    QCOMPARE(undoTexts(), QVector<QString>(6, QStringLiteral("Skip to Previous Key")).toList());
}

void TestTimePaneSkip::onlySelectedRows()
{
    m_a->select(false);
    QCOMPARE(walk(true, 2), QVector<VxTime>({1600, 4800}));
    m_c->select(true);
    QCOMPARE(walk(false, 3), QVector<VxTime>({1600, 400, 0}));
}

void TestTimePaneSkip::rangeEnds_data()
{
    QTest::addColumn<bool>("forward");
    QTest::addColumn<VxTimeRange>("range");
    QTest::addColumn<VxTime>("now");
    QTest::addColumn<VxTime>("then");

    const auto row = [](const char *name, bool forward, const VxTimeRange &range, VxTime now,
                        VxTime then) { QTest::newRow(name) << forward << range << now << then; };
    row("back, no key before: the start", false, {0, 4800}, 500, 0);
    row("back, at the start", false, {0, 4800}, 0, 0);
    row("back, the key is before the start", false, {1000, 4800}, 1500, 1000);
    row("back, a key on the start", false, {800, 4800}, 1500, 800);
    row("back, from before the start: forward to it", false, {1000, 4800}, 500, 1000);
    row("back, from beyond the end: the last key", false, {0, 3000}, 4500, 4000);
    row("forward, no key after: the end", true, {0, 4800}, 4000, 4800);
    row("forward, at the end", true, {0, 4800}, 4800, 4800);
    row("forward, the key is beyond the end", true, {0, 3000}, 2500, 3000);
    row("forward, a key on the end", true, {0, 3200}, 2500, 3200);
    row("forward, from beyond the end: back to it", true, {0, 3000}, 4500, 3000);
    row("forward, from before the start: the first key", true, {1000, 4800}, -50, 800);
}

void TestTimePaneSkip::rangeEnds()
{
    QFETCH(bool, forward);
    QFETCH(VxTimeRange, range);
    QFETCH(VxTime, now);
    QFETCH(VxTime, then);
    vxScene->setPlayRange(range);
    vxScene->setTime(now);
    QCOMPARE(walk(forward, 1), QVector<VxTime>({then}));
    QCOMPARE(undoTexts().size(), now == then ? 0 : 1);
}

void TestTimePaneSkip::undoRevertsStepByStep()
{
    walk(true, 3);
    VxUndoStack *stack = vxApp->getUndoStack();
    QCOMPARE(stack->undoText(), QStringLiteral("Skip to Next Key"));
    stack->undo();
    QCOMPARE(vxScene->getTime(), 1600);
    stack->undo();
    QCOMPARE(vxScene->getTime(), 800);
    stack->redo();
    QCOMPARE(vxScene->getTime(), 1600);
    QCOMPARE(pane->getCurrentFrame(), 10);
}

void TestTimePaneSkip::nothingSelected()
{
    vxScene->selectAllNodes(false);
    vxScene->setPlayRange(VxTimeRange(1000, 4800));
    QCOMPARE(walk(false, 1), QVector<VxTime>({0}));
    QCOMPARE(walk(true, 1), QVector<VxTime>({0}));
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneSkip::severalAtOneTime()
{
    m_b->getXPosControl()->setKey(801, 1.0f, 0);
    m_b->getYPosControl()->setKey(800, 1.0f, 0);
    QCOMPARE(walk(true, 3), QVector<VxTime>({800, 801, 1600}));
    QCOMPARE(walk(false, 2), QVector<VxTime>({801, 800}));
}

void TestTimePaneSkip::farKeys()
{
    m_b->getXPosControl()->setKey(VxTimeMax, 1.0f, 0);
    m_b->getXPosControl()->setKey(VxTimeMin, 1.0f, 0);
    const QVector<VxNode *> nodes = {m_b};
    QCOMPARE(KeySkip::nextKeyTime(nodes, 1600, VxTimeMax), VxTimeMax);
    QCOMPARE(KeySkip::nextKeyTime(nodes, VxTimeMax, VxTimeMax), VxTimeMax);
    QCOMPARE(KeySkip::nextKeyTime(nodes, VxTimeMin, VxTimeMax), 1600);
    QCOMPARE(KeySkip::previousKeyTime(nodes, 1600, VxTimeMin), VxTimeMin);
    QCOMPARE(KeySkip::previousKeyTime(nodes, VxTimeMin, VxTimeMin), VxTimeMin);
    QCOMPARE(KeySkip::previousKeyTime(nodes, VxTimeMax, VxTimeMin), 1600);
}

// A plain look at every key must find the same, from every tick of a stretch.
void TestTimePaneSkip::bruteForceAgrees()
{
    const auto look = [this](bool forward, VxTime now, VxTime best) {
        for (const VxTime key : {800, 3200, 1600, 2400, 4000}) {
            if (forward ? key > now && key < best : key < now && key > best)
                best = key;
        }
        return best;
    };
    const QVector<VxNode *> nodes = {m_a, m_b};
    for (VxTime now = -100; now < 5000; now += 1) {
        for (const VxTime limit : {0, 1600, 4800}) {
            QCOMPARE(KeySkip::nextKeyTime(nodes, now, limit), look(true, now, limit));
            QCOMPARE(KeySkip::previousKeyTime(nodes, now, limit), look(false, now, limit));
        }
    }
}

// Forty times as many keys on the same channels: a search that looked at each would take forty
// times as long. It takes somewhat more, because they are further apart in memory.
void TestTimePaneSkip::keysCostNextToNothing()
{
    VxSceneBuilder builder(vxScene);
    builder.addSkeleton(QStringLiteral("figure"), 170);
    const QVector<VxNode *> nodes = vxScene->getNodes();
    const auto best = [&nodes](int keys) {
        qint64 nanoseconds = std::numeric_limits<qint64>::max();
        for (int run = 0; run < 30; ++run) {
            QElapsedTimer timer;
            timer.start();
            const VxTime now = keys * 160 / 30 * run;
            const VxTime found = KeySkip::nextKeyTime(nodes, now, VxTimeMax);
            nanoseconds = std::min(nanoseconds, timer.nsecsElapsed());
            if (found <= now)
                return std::numeric_limits<qint64>::max();
        }
        return nanoseconds;
    };
    builder.keyChannels(nodes, 100);
    const qint64 few = best(100);
    builder.keyChannels(nodes, 4000);
    const qint64 many = best(4000);
    qInfo("a skip over %d nodes: %lld us with 100 keys a channel, %lld us with 4,000", nodes.size(),
          few / 1000, many / 1000);
    QVERIFY(many < 12 * few);
}

VX_TEST_MAIN(TestTimePaneSkip)
#include "tst_timepaneskip.moc"

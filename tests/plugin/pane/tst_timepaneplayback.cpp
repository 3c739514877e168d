#include "testing/vxscenebuilder.h"
#include "testing/vxtestmain.h"
#include "timepanetestbase.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QThread>
#include <QtWidgets/QSpinBox>
#include <algorithm>
#include <vxcore/vxnode.h>

// Playback on the real clock, with a shown pane over a figure of 1,530 channels. The machine may be
// busy, so what may be late is judged by its median; what must not be early or left out is exact.
class TestTimePanePlayback : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void twoSecondsInLoops();
    void everyFrameOfASlowView();
    void endsAtTheEnd();
    void fieldFollows();

private:
    // A frame that was shown: its time, continued over the loops, and when it was shown, in ticks.
    struct Shown
    {
        qint64 position;
        qint64 at;
    };
    void play();

    QElapsedTimer m_clock;
    QVector<Shown> m_shown;
    int m_loops = 0;
};

// Frames 0 to 30 at 30 a second; the last one is shown as long as the others.
constexpr VxTime Step = 160;
constexpr VxTime Length = 31 * Step;

void TestTimePanePlayback::init()
{
    setUp();
    VxSceneBuilder builder(vxScene);
    builder.addSkeleton(QStringLiteral("figure"), 170);
    builder.keyChannels(vxScene->getNodes(), 31);
    showPane();
    m_shown.clear();
    m_loops = 0;
    connect(vxScene, &VxScene::playbackStarted, this, [this] { m_clock.start(); });
    connect(vxScene, &VxScene::timeChanged, this, [this](VxTime time) {
        if (!vxScene->isPlaying())
            return;
        qint64 position = m_loops * qint64(Length) + time;
        if (!m_shown.isEmpty() && position < m_shown.last().position) {
            ++m_loops;
            position += Length;
        }
        m_shown.append({position, m_clock.nsecsElapsed() * VxTicksPerSecond / 1000000000});
    });
}

void TestTimePanePlayback::cleanup()
{
    disconnect(vxScene, nullptr, this, nullptr);
    tearDown();
}

void TestTimePanePlayback::play()
{
    pane->togglePlayback();
    QVERIFY(vxScene->isPlaying());
}

void TestTimePanePlayback::twoSecondsInLoops()
{
    pane->toggleLoop();
    play();
    QTRY_VERIFY_WITH_TIMEOUT(m_clock.elapsed() >= 2000, 5000);
    pane->togglePlayback();
    QVERIFY(!vxScene->isPlaying());

    QVERIFY(m_loops >= 1);
    QVector<qint64> lateness;
    for (const Shown &frame : qAsConst(m_shown)) {
        QCOMPARE(frame.position % Step, 0);
        lateness += frame.at - frame.position;
    }
    std::sort(lateness.begin(), lateness.end());
    const qint64 median = lateness.at(lateness.size() / 2);
    qInfo("%d frames in 2 s; lateness in ticks: least %lld, median %lld, most %lld", m_shown.size(),
          lateness.first(), median, lateness.last());
    // A frame may not be shown before its time, except for the rounding of a tick.
    QVERIFY(lateness.first() >= -1);
    QVERIFY(median < Step);
    // Nor does the delay grow: the last second is not later than the first one.
    const auto medianOf = [this](int from, int to) {
        QVector<qint64> part;
        for (int i = from; i < to; ++i)
            part += m_shown.at(i).at - m_shown.at(i).position;
        std::sort(part.begin(), part.end());
        return part.at(part.size() / 2);
    };
    const int half = m_shown.size() / 2;
    QVERIFY(medianOf(half, m_shown.size()) - medianOf(0, half) < Step);
}

void TestTimePanePlayback::everyFrameOfASlowView()
{
    pane->setPlayAllFrames(true);
    pane->toggleLoop();
    connect(vxScene, &VxScene::timeChanged, this, [] { QThread::msleep(45); });
    play();
    QTRY_VERIFY_WITH_TIMEOUT(m_shown.size() >= 40, 20000);
    pane->togglePlayback();
    for (int i = 1; i < m_shown.size(); ++i)
        QCOMPARE(m_shown.at(i).position - m_shown.at(i - 1).position, qint64(Step));
    QVERIFY(m_loops >= 1);
}

void TestTimePanePlayback::endsAtTheEnd()
{
    vxScene->setPlayRange(VxTimeRange(5 * Step, 12 * Step));
    play();
    QCOMPARE(vxScene->getTime(), 5 * Step);
    QTRY_VERIFY_WITH_TIMEOUT(!vxScene->isPlaying(), 5000);
    QCOMPARE(vxScene->getTime(), 12 * Step);
    QCOMPARE(undoTexts(), QStringList());
    // The next one begins at the start again.
    play();
    QCOMPARE(vxScene->getTime(), 5 * Step);
}

void TestTimePanePlayback::fieldFollows()
{
    const auto *field = find<QSpinBox>("TimelineCurrentFrameLEdit");
    QStringList differing;
    connect(vxScene, &VxScene::timeChanged, this, [&differing, field](VxTime time) {
        if (field->value() != time / Step)
            differing += field->text();
    });
    play();
    QTRY_VERIFY_WITH_TIMEOUT(!vxScene->isPlaying(), 5000);
    QCOMPARE(differing, QStringList());
    QCOMPARE(field->value(), 30);
}

VX_TEST_MAIN(TestTimePanePlayback)
#include "tst_timepaneplayback.moc"

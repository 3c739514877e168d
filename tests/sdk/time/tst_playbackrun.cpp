#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QtTest>
#include <algorithm>
#include <cstdio>
#include <vxcore/vxscene.h>

namespace {

constexpr qint64 SecondInNanoseconds = 1000000000;

/// What was shown, and when after the start, in nanoseconds.
struct Shown
{
    VxTime time;
    qint64 at;
};

/// How far behind the clock each frame was shown, in frames: 0 when it is shown the moment it is
/// due. The delay of a machine that stopped for longer than patience, in seconds, is left out from
/// the next frame on; nothing is, with a patience of 0.
std::vector<double> framesLate(const QVector<Shown> &shown, VxTime step, VxTime lap,
                               double patience)
{
    std::vector<double> late;
    qint64 laps = 0;
    VxTime before = 0;
    double dropped = 0;
    const double mostFrames = patience * VxTicksPerSecond / step;
    for (const Shown &each : shown) {
        laps += each.time < before;
        before = each.time;
        const long double due = static_cast<long double>(laps) * lap + each.time;
        const long double run =
            static_cast<long double>(each.at) * VxTicksPerSecond / SecondInNanoseconds;
        late.push_back(double((run - due) / step) - dropped);
        if (patience > 0 && late.back() > mostFrames)
            dropped += late.back();
    }
    return late;
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// The minutes that the run takes; one and a half seconds unless set.
double runMinutes()
{
    bool isNumber = false;
    const double minutes = qEnvironmentVariable("VX_PLAYBACK_MINUTES").toDouble(&isNumber);
    return isNumber && minutes > 0 ? minutes : 0.025;
}

} // namespace

/// Playback on the real clock over a long time. VX_PLAYBACK_MINUTES=10 makes it long indeed.
///
/// A busy machine makes single frames late; a drift would show in every frame. So what is held
/// against the clock is the middle one of the first frames and the middle one of the last.
class TestPlaybackRun : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void keepsTheClocksTime_data();
    void keepsTheClocksTime();

private:
    QVector<Shown> play(int fps, bool dropFrames, VxTime lastFrame);

    std::unique_ptr<VxWarningGuard> m_guard;
};

QVector<Shown> TestPlaybackRun::play(int fps, bool dropFrames, VxTime lastFrame)
{
    VxScene scene;
    const VxTime step = VxTicksPerSecond / fps;
    scene.setTimeStep(step);
    scene.setPlayRange({0, lastFrame * step});
    scene.loopPlayback(true);
    QVector<Shown> shown;
    QElapsedTimer clock;
    connect(&scene, &VxScene::playbackStarted, this, [&] { clock.start(); });
    connect(&scene, &VxScene::timeChanged, this, [&](VxTime time) {
        shown.append({time, clock.nsecsElapsed()});
    });
    QEventLoop loop;
    QTimer::singleShot(int(runMinutes() * 60000), &loop, &QEventLoop::quit);
    scene.play(dropFrames);
    loop.exec();
    scene.pause();
    return shown;
}

void TestPlaybackRun::keepsTheClocksTime_data()
{
    QTest::addColumn<int>("fps");
    QTest::addColumn<bool>("dropFrames");
    QTest::newRow("24 frames a second, dropping") << 24 << true;
    QTest::newRow("24 frames a second, every frame") << 24 << false;
}

void TestPlaybackRun::keepsTheClocksTime()
{
    QFETCH(int, fps);
    QFETCH(bool, dropFrames);
    const VxTime step = VxTicksPerSecond / fps;
    const VxTime lastFrame = 25;
    const QVector<Shown> shown = play(fps, dropFrames, lastFrame);
    QVERIFY(shown.size() > fps);

    const VxTime lap = (lastFrame + 1) * step;
    const std::vector<double> late = framesLate(shown, step, lap, dropFrames ? 0 : 0.5);
    int skipped = 0;
    for (int i = 0; i < shown.size(); ++i) {
        QCOMPARE(shown.at(i).time % step, 0);
        QVERIFY2(late.at(size_t(i)) >= -0.001, "shown before its time");
        const VxTime before = i > 0 ? shown.at(i - 1).time : 0;
        skipped += shown.at(i).time != (before / step + 1) % (lastFrame + 1) * step;
    }
    const std::ptrdiff_t tenth = std::ptrdiff_t(late.size() / 10);
    const double first = median({late.begin(), late.begin() + tenth});
    const double last = median({late.end() - tenth, late.end()});
    const auto overdue = std::count_if(late.begin(), late.end(), [](double f) { return f > 1; });
    std::printf("%s: %d frames in %.1f s, %d skipped, %d over one frame late, median lateness at "
                "first %.4f and at last %.4f frames, worst %.4f\n",
                QTest::currentDataTag(), shown.size(), double(shown.last().at) / 1e9, skipped,
                int(overdue), first, last, *std::max_element(late.begin(), late.end()));

    if (!dropFrames)
        QCOMPARE(skipped, 0);
    QVERIFY2(last < 1, qPrintable(QString::number(last)));
    QVERIFY2(qAbs(last - first) < 1, qPrintable(QString::number(last - first)));
    QVERIFY2(overdue * 10 < int(late.size()), qPrintable(QString::number(overdue)));
}

static int runTests(int argc, char **argv)
{
    // A run that is asked to be long must not be ended as one that hangs.
    const int limit = int(2 * runMinutes() * 60000) + 300000;
    qputenv("QTEST_FUNCTION_TIMEOUT", QByteArray::number(limit));
    QCoreApplication application(argc, argv);
    TestPlaybackRun test;
    return QTest::qExec(&test, argc, argv);
}

VX_TEST_UNIT(&runTests)

#include "tst_playbackrun.moc"

#include "scene/sceneplayback.h"

#include "scene/vxscene_p.h"

ScenePlayback::ScenePlayback(VxScene *scene)
    : m_scene(scene)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { showFrame(); });
}

PlaybackSettings ScenePlayback::settings() const
{
    return {m_scene->getTimeStep(), m_scene->getPlayRange(), m_scene->isLoopingEnabled(),
            m_dropFrames};
}

void ScenePlayback::play(bool dropFrames)
{
    if (m_playing)
        return;
    m_playing = true;
    m_dropFrames = dropFrames;
    m_elapsed.start();
    m_clock.start(m_scene->getTime(), settings(), 0);
    const int intervention = m_interventions;
    const VxTimeRange range = m_scene->getPlayRange();
    if (!range.contains(m_scene->getTime()) || m_scene->getTime() == range.getEnd())
        VxScene::Private::of(m_scene)->applyTime(range.getStart());
    if (m_playing)
        Q_EMIT m_scene->playbackStarted();
    if (!m_playing)
        return;
    // The time that receivers needed to prepare is not playing time.
    if (intervention == m_interventions)
        m_clock.start(m_scene->getTime(), settings(), m_elapsed.nsecsElapsed());
    wait();
}

void ScenePlayback::pause()
{
    if (!m_playing)
        return;
    m_playing = false;
    m_timer.stop();
    Q_EMIT m_scene->playbackFinished();
}

void ScenePlayback::handleTimeSet()
{
    if (!m_playing)
        return;
    ++m_interventions;
    m_clock.setTime(m_scene->getTime(), m_elapsed.nsecsElapsed());
    wait();
}

void ScenePlayback::handleSettingsChanged()
{
    if (!m_playing)
        return;
    ++m_interventions;
    m_clock.configure(settings());
    wait();
}

void ScenePlayback::showFrame()
{
    const PlaybackFrame frame = m_clock.advance(m_elapsed.nsecsElapsed());
    const int intervention = m_interventions;
    VxScene::Private::of(m_scene)->applyTime(frame.time);
    if (!m_playing)
        return;
    if (frame.ended && intervention == m_interventions)
        pause();
    else
        wait();
}

void ScenePlayback::wait()
{
    // Rounded down: the rest of the last millisecond is spent in event loop iterations, so that
    // frames are exactly on time and not up to a millisecond late.
    const qint64 left = m_clock.nextDue() - m_elapsed.nsecsElapsed();
    m_timer.start(static_cast<int>(qBound<qint64>(0, left / 1000000, 60000)));
}

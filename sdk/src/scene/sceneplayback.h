#ifndef SCENEPLAYBACK_H
#define SCENEPLAYBACK_H

#include "time/playbackclock.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>

class VxScene;

/// Drives the scene's time from the system's monotonic clock while the scene plays.
///
/// The playback clock schedules the frames; this class supplies the current time and a timer:
/// it is restarted after each frame for the due time of the next.
class ScenePlayback
{
public:
    explicit ScenePlayback(VxScene *scene);

    bool isPlaying() const { return m_playing; }
    void play(bool dropFrames);
    void pause();
    /// The scene's time was set from outside; step, range or looping changed.
    void handleTimeSet();
    void handleSettingsChanged();

private:
    Q_DISABLE_COPY(ScenePlayback)
    PlaybackSettings settings() const;
    void showFrame();
    void wait();

    VxScene *m_scene;
    PlaybackClock m_clock;
    QElapsedTimer m_elapsed;
    QTimer m_timer;
    bool m_playing = false;
    bool m_dropFrames = true;
    /// Counts interventions: a frame whose receivers intervened is not the last one.
    int m_interventions = 0;
};

#endif

#ifndef SCENE_SCENEPLAYBACK_H
#define SCENE_SCENEPLAYBACK_H

#include "time/playbackclock.h"
#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>

class VxScene;

/// Drives the scene's time from the system's monotonic clock while the scene plays.
///
/// What comes when is the playback clock's business; this class reads the time of day for it, and
/// waits: one timer, set anew after each frame to the moment when the next one is due.
class ScenePlayback
{
public:
    explicit ScenePlayback(VxScene *scene);

    bool isPlaying() const { return m_playing; }
    void play(bool dropFrames);
    void pause();
    /// Somebody else set the scene's time; step, range or looping changed.
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
    /// Counts interventions, so that a frame whose receivers intervened is not taken for the last.
    int m_interventions = 0;
};

#endif

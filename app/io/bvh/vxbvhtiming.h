#ifndef VXBVHTIMING_H
#define VXBVHTIMING_H

#include <QString>
#include <QVector>
#include <vxcore/vxtime.h>

/// The mapping of a motion file's frames to the scene's ticks.
///
/// Motion files give the length of a frame as a decimal number, usually a rounded or truncated one:
/// ".0083333" for 120 frames per second. If the text allows a whole rate, that rate is used;
/// if its frame is a whole number of ticks, every key is exactly on a frame. Otherwise (29.97
/// frames per second) keys are rounded to the nearest tick of their true time, so that long takes
/// do not drift, and the scene gets the nearest step.
class VxBvhTiming
{
public:
    /// Computes the timing of \a frameCount frames of \a frameTime seconds each. Returns false with
    /// a sentence in \a message when frames are shorter than a tick or the last one is beyond the
    /// latest time of a scene. \a frameTime must be above 0 and finite.
    bool set(double frameTime, int frameCount, QString *message);

    int frameCount() const { return m_frameCount; }
    /// Frames per second of the file: the whole rate, or 1 / frame time.
    double sourceRate() const { return m_rate; }
    /// Ticks per frame for the scene, 1 to 4800 (the scene counts whole frames per second).
    VxTime step() const { return m_step; }
    /// Frames per second of the scene at that step.
    double sceneRate() const { return double(VxTicksPerSecond) / m_step; }
    /// True when a frame of the file is a whole number of ticks.
    bool isExact() const { return m_ticks > 0; }
    /// True when each frame of the file is one frame of the scene.
    bool isOnSceneFrames() const { return m_ticks == m_step; }

    /// Time of frame \a frame, 0 to frameCount - 1; strictly increasing, 0 for the first.
    VxTime keyTime(int frame) const;
    /// Time of the last frame; 0 when there is none.
    VxTime lastKeyTime() const { return m_frameCount > 0 ? keyTime(m_frameCount - 1) : 0; }
    QVector<VxTime> keyTimes() const;

    /// One or two sentences for the user: the file's rate, the scene's rate, and whether the keys
    /// are on the scene's frames.
    QString sentence() const;
    /// The same where the scene keeps its own rate of \a sceneStep ticks a frame.
    QString sentenceBeside(VxTime sceneStep) const;

private:
    QString sourceSentence() const;

    int m_frameCount = 0;
    int m_ticks = 0;      // of a frame where that is a whole number, else 0
    double m_rate = 30.0; // frames per second
    VxTime m_step = 160;
};

#endif

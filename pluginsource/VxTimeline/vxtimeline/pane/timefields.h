#ifndef TIMEFIELDS_H
#define TIMEFIELDS_H

#include "vxtimeline/pane/timepanefield.h"

#include <QtCore/QObject>
#include <QtCore/QVector>

class QWidget;
class TimePaneStrip;

/// The pane's fields for total frames, play range, current frame and frames per second: they show
/// the scene's numbers and write entered ones to it, within its limits.
///
/// Frames are counted from time 0 and truncated to whole ones. refresh() reads the scene, only for
/// outdated fields.
class TimeFields : public QObject
{
    Q_OBJECT
public:
    enum Part { CurrentFrame = 0x1, FramesPerSecond = 0x2, PlayRange = 0x4, TotalFrames = 0x8 };
    Q_DECLARE_FLAGS(Parts, Part)

    /// The widgets belong to parent.
    TimeFields(QWidget *parent, const TimePaneStrip &strip);

    QWidget *group() const { return m_group; }
    QWidget *rangeGroup() const { return m_rangeGroup; }
    /// The fields from left to right.
    QVector<TimePaneField *> fields() const;

    /// Reloads the outdated parts from the scene, the given ones among them; with the frames per
    /// second all others are reloaded, too.
    void refresh(Parts outdated = {});

    /// The numbers in the fields; 0, for the frames per second 1, for an invalid text.
    int totalFrames() const { return qMax(0, m_total->number(0)); }
    int playRangeStart() const { return m_start->number(0); }
    int playRangeEnd() const { return m_end->number(0); }
    int currentFrame() const { return m_current->number(0); }
    int framesPerSecond() const { return m_rate->number(1); }
    /// These change the scene; an impossible number is limited or replaced by the former one. All
    /// but the current frame are recorded for undo.
    void setTotalFrames(int frames);
    void setPlayRangeStart(int frame);
    void setPlayRangeEnd(int frame);
    void setCurrentFrame(int frame);
    void setFramesPerSecond(int fps);

    /// For the fields' own signals: apply the entered number.
    void applyTotalFrames();
    void applyPlayRangeStart();
    void applyPlayRangeEnd();
    void applyCurrentFrame();
    void applyFramesPerSecond();

    /// The greatest width and height of the fields of the current frame and the frames per second.
    void setLimits(int width, int height);

Q_SIGNALS:
    void refreshed();
    /// An entry was refused: everything that depends on the scene's ranges must be updated.
    void refused();

private:
    void buildRange(const TimePaneStrip &strip);

    QWidget *m_group;
    QWidget *m_rangeGroup = nullptr;
    TimePaneField *m_total = nullptr;
    TimePaneField *m_start = nullptr;
    TimePaneField *m_end = nullptr;
    TimePaneField *m_current = nullptr;
    TimePaneField *m_rate = nullptr;
    Parts m_outdated = Parts(CurrentFrame | FramesPerSecond | PlayRange | TotalFrames);
};

Q_DECLARE_OPERATORS_FOR_FLAGS(TimeFields::Parts)

#endif

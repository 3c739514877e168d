#include "vxtimeline/pane/timefields.h"

#include "vxtimeline/pane/timepanestrip.h"
#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/time/timelinesnap.h"

#include <QtWidgets/QHBoxLayout>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostackhold.h>

using TimelineSnap::frameOf;
using TimelineSnap::timeOf;

namespace {

constexpr int MaxFrames = 1000000;
constexpr int MaxFramesPerSecond = 1200;

} // namespace

TimeFields::TimeFields(QWidget *parent, const TimePaneStrip &strip)
    : QObject(parent)
    , m_group(strip.makeGroup(QStringLiteral("TimelineTimeControlsWgt"), parent))
{
    m_total = new TimePaneField(QStringLiteral("TimelineTotalFramesLEdit"), 1, MaxFrames, m_group);
    m_current =
        new TimePaneField(QStringLiteral("TimelineCurrentFrameLEdit"), 0, MaxFrames, m_group);
    m_rate = new TimePaneField(QStringLiteral("TimelineFPSLEdit"), 1, MaxFramesPerSecond, m_group);
    m_rate->setAcceptsOutOfRange(true);
    m_current->setDefersCorrection(true);
    m_total->setMaximumSize(m_total->maximumWidth(), strip.controlHeight());

    QHBoxLayout *layout = TimePaneStrip::layoutOf(m_group);
    strip.addLabelled(layout, QStringLiteral("TimelineTotalLbl"), VxTimePane::tr("Total:"),
                      m_total);
    buildRange(strip);
    layout->addWidget(m_rangeGroup);
    strip.addLabelled(layout, QStringLiteral("TimelineCurrentLbl"), VxTimePane::tr("Current:"),
                      m_current);
    strip.addLabelled(layout, QStringLiteral("TimelineFPSLbl"), VxTimePane::tr("FPS:"), m_rate);
    layout->addStretch(1);
}

void TimeFields::buildRange(const TimePaneStrip &strip)
{
    m_rangeGroup = strip.makeGroup(QStringLiteral("TimelineTimeRangeControlsWgt"), m_group);
    m_start =
        new TimePaneField(QStringLiteral("TimelinePlayStartLEdit"), 0, MaxFrames, m_rangeGroup);
    m_end = new TimePaneField(QStringLiteral("TimelinePlayEndLEdit"), 0, MaxFrames, m_rangeGroup);
    m_end->setDefersCorrection(true);
    m_start->setAccessibleName(VxTimePane::tr("Play Range Start"));
    m_end->setAccessibleName(VxTimePane::tr("Play Range End"));
    for (TimePaneField *field : {m_start, m_end})
        field->setMaximumSize(field->maximumWidth(), strip.controlHeight());
    QHBoxLayout *layout = TimePaneStrip::layoutOf(m_rangeGroup);
    strip.addLabelled(layout, QStringLiteral("TimelineRangeLbl"), VxTimePane::tr("Range:"),
                      m_start);
    layout->addWidget(m_end);
}

QVector<TimePaneField *> TimeFields::fields() const
{
    return {m_total, m_start, m_end, m_current, m_rate};
}

void TimeFields::setLimits(int width, int height)
{
    m_current->setMaximumSize(width, height);
    m_rate->setMaximumSize(width, height);
}

void TimeFields::refresh(Parts outdated)
{
    m_outdated |= outdated;
    const VxTime step = vxScene->getTimeStep();
    if (m_outdated.testFlag(FramesPerSecond)) {
        m_rate->showNumber(VxTicksPerSecond / step);
        m_outdated |= CurrentFrame | PlayRange | TotalFrames;
    }
    if (m_outdated.testFlag(CurrentFrame))
        m_current->showNumber(frameOf(vxScene->getTime(), step));
    if (m_outdated.testFlag(PlayRange)) {
        m_start->showNumber(frameOf(vxScene->getPlayRange().getStart(), step));
        m_end->showNumber(frameOf(vxScene->getPlayRange().getEnd(), step));
    }
    if (m_outdated.testFlag(TotalFrames))
        m_total->showNumber(frameOf(vxScene->getAnimRange().getDuration(), step) + 1);
    m_outdated = {};
    Q_EMIT refreshed();
}

void TimeFields::setTotalFrames(int frames)
{
    if (frames < 1) {
        Q_EMIT refused();
        refresh(TotalFrames);
        return;
    }
    VxUndoStackHold hold;
    VxTimeRange range = vxScene->getAnimRange();
    range.setEnd(TimelineSnap::limited(range.getStart() +
                                       qint64(vxScene->getTimeStep()) * (qint64(frames) - 1)));
    vxScene->setAnimRange(range);
    hold.accept(VxTimePane::tr("Set Total Frames"));
}

void TimeFields::setPlayRangeStart(int frame)
{
    if (frame < 0) {
        m_start->showNumber(0);
        Q_EMIT refused();
        refresh(PlayRange);
        return;
    }
    VxUndoStackHold hold;
    const VxTime step = vxScene->getTimeStep();
    VxTimeRange range = vxScene->getPlayRange();
    const int last = frameOf(range.getEnd(), step);
    if (frame > last) {
        frame = last;
        m_start->showNumber(frame);
    }
    range.setStart(timeOf(frame, step));
    vxScene->setPlayRange(range);
    hold.accept(VxTimePane::tr("Set Play Range Start"));
}

void TimeFields::setPlayRangeEnd(int frame)
{
    const VxTime step = vxScene->getTimeStep();
    VxTimeRange range = vxScene->getPlayRange();
    VxUndoStackHold hold;
    range.setEnd(timeOf(qMax(frame, frameOf(range.getStart(), step)), step));
    vxScene->setPlayRange(range);
    hold.accept(VxTimePane::tr("Set Play Range End"));
}

void TimeFields::setCurrentFrame(int frame)
{
    if (frame < 0) {
        refresh(CurrentFrame);
        return;
    }
    const VxTime step = vxScene->getTimeStep();
    const VxTimeRange range = vxScene->getPlayRange();
    const int first = frameOf(range.getStart(), step);
    const int last = frameOf(range.getEnd(), step);
    if (frame < first || frame > last) {
        frame = frame > last ? last : first;
        m_current->showNumber(frame);
    }
    vxScene->setTime(timeOf(frame, step));
}

// Instead of a rate below its minimum the field shows that; the scene keeps its rate, and the next
// refresh shows it again.
void TimeFields::setFramesPerSecond(int fps)
{
    if (fps < 1) {
        refresh(FramesPerSecond);
        m_rate->showReplacement(1);
        m_outdated |= FramesPerSecond;
        return;
    }
    if (fps > MaxFramesPerSecond) {
        fps = MaxFramesPerSecond;
        m_rate->showNumber(fps);
    }
    VxUndoStackHold hold;
    vxScene->setTimeStep(VxTicksPerSecond / fps);
    hold.accept(VxTimePane::tr("Set FPS"));
}

void TimeFields::applyTotalFrames()
{
    if (!m_total->isUntouched())
        setTotalFrames(m_total->number(0));
}

void TimeFields::applyPlayRangeStart()
{
    if (!m_start->isUntouched())
        setPlayRangeStart(m_start->number(-1));
}

void TimeFields::applyPlayRangeEnd()
{
    bool isNumber = false;
    const int frame = m_end->number(0, &isNumber);
    if (!isNumber || m_end->isUntouched())
        return;
    setPlayRangeEnd(frame);
    // The scene does not report an end that was limited to the present one.
    refresh(PlayRange);
}

void TimeFields::applyCurrentFrame()
{
    if (!m_current->isUntouched())
        setCurrentFrame(m_current->number(-1));
}

void TimeFields::applyFramesPerSecond()
{
    if (!m_rate->isUntouched())
        setFramesPerSecond(m_rate->number(0));
}

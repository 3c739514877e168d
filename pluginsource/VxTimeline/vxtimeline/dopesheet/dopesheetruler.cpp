#include "vxtimeline/dopesheet/dopesheetruler.h"

#include "vxtimeline/time/timelineruler.h"
#include "vxtimeline/time/timelinesnap.h"
#include "vxtimeline/time/timelinevisible.h"

#include <vxcore/vxstyle.h>

namespace {

TimelineRuler::Steps stepsFor(int width, int keyMargin, int frameCount, int leastSpacing)
{
    const float line = static_cast<float>(width - keyMargin);
    return TimelineRuler::steps(frameCount > 0 ? line / static_cast<float>(frameCount) : line,
                                leastSpacing);
}

} // namespace

DopeSheetRuler::DopeSheetRuler(int left, int width, const TimelineMetrics &metrics,
                               const VxTimeRange &playRange, VxTime step)
    : m_left(left)
    , m_width(width)
    , m_metrics(metrics)
    , m_playRange(playRange)
    , m_step(step)
    , m_startFrame(TimelineSnap::frameOf(playRange.getStart(), step))
    , m_frameCount(TimelineSnap::frameOf(playRange.getEnd(), step) - m_startFrame)
{
}

int DopeSheetRuler::middleOf(VxTime time) const
{
    return m_metrics.keyMiddle(m_left, time, m_playRange.getStart());
}

int DopeSheetRuler::middleOfFrame(int frame) const
{
    return middleOf(TimelineSnap::timeOf(frame, m_step));
}

// Excludes the first frame of the play range, and stops before the last one.
std::vector<DopeSheetRulerLabel> DopeSheetRuler::labels(int flags, int leastSpacing) const
{
    std::vector<DopeSheetRulerLabel> labels;
    const auto add = [&labels](int frame, int middle) {
        labels.push_back({QString::number(frame), middle});
    };
    if (flags & VxStyle::RulerRangeLabels) {
        add(m_startFrame, middleOf(m_playRange.getStart()));
        add(m_startFrame + m_frameCount, middleOf(m_playRange.getEnd()));
    }
    if (flags & VxStyle::RulerStepLabels) {
        const int step = stepsFor(m_width, m_metrics.keyMargin, m_frameCount, leastSpacing).label;
        for (const int frame : TimelineRuler::multiplesAfter(m_startFrame, m_frameCount, step))
            add(frame, middleOfFrame(frame));
    }
    return labels;
}

std::vector<DopeSheetRulerMark> DopeSheetRuler::marks(int flags, int leastSpacing) const
{
    std::vector<DopeSheetRulerMark> marks;
    if (!(flags & VxStyle::RulerTicks))
        return marks;
    marks.push_back({middleOf(m_playRange.getStart()), VxStyle::StartMark});
    marks.push_back({middleOf(m_playRange.getEnd()), VxStyle::EndMark});
    const auto steps = stepsFor(m_width, m_metrics.keyMargin, m_frameCount, leastSpacing);
    for (const int frame : TimelineRuler::multiplesAfter(m_startFrame, m_frameCount, steps.tick))
        marks.push_back({middleOfFrame(frame),
                         frame % steps.label == 0 ? VxStyle::MajorTick : VxStyle::MinorTick});
    return marks;
}

std::vector<int> DopeSheetRuler::keyMarks(const VxTime *times, int count) const
{
    std::vector<int> lefts;
    const qint64 origin = qint64(m_left) + m_metrics.keysOrigin(m_playRange.getStart());
    const auto add = [&lefts, origin](qint64, qint64, int x) { lefts.push_back(int(origin + x)); };
    TimelineVisible::visitKeys(m_metrics, times, count,
                               TimelineSnap::limited(m_left - m_metrics.frameWidth - origin),
                               TimelineSnap::limited(qint64(m_left) + m_width - origin), add);
    return lefts;
}

bool DopeSheetRuler::hasMarker() const
{
    return m_playRange.getDuration() >= 1;
}

int DopeSheetRuler::markerLeft(VxTime time, int width) const
{
    return middleOf(time) - width / 2;
}

bool DopeSheetRuler::isOnMarker(int x, VxTime time, int width) const
{
    const int left = markerLeft(time, width);
    return hasMarker() && x >= left && x < left + width;
}

VxTime DopeSheetRuler::timeAt(int x) const
{
    return TimelineSnap::limited(qint64(m_playRange.getStart()) +
                                 m_metrics.xToFrameTime(x - m_left, m_step));
}

bool isOnSectionGrip(int x, int left, int size, int grip, int offset, int length)
{
    const int right = left + size;
    return (x >= left && x <= left + grip && left != offset) ||
           (x >= right - grip && x <= right && right != length);
}

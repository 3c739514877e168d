#ifndef DOPESHEETRULER_H
#define DOPESHEETRULER_H

#include "vxtimeline/time/timelinemetrics.h"

#include <QtCore/QRect>
#include <QtCore/QString>
#include <vector>
#include <vxcore/vxtimerange.h>

/// A frame number and the middle of its frame.
struct DopeSheetRulerLabel
{
    QString text;
    int middle; // x, pixels
};

/// A mark and its kind: a VxStyle::RulerTickValue.
struct DopeSheetRulerMark
{
    int x; // pixels
    int value;
};

/// The layout of the time ruler, above the keys column.
///
/// Painting replays the lists, and hit tests use the painted marker. Positions are in the
/// coordinates of the given section.
class DopeSheetRuler
{
public:
    /// left and width: of the keys column's section. step: ticks of a frame, at least 1.
    DopeSheetRuler(int left, int width, const TimelineMetrics &metrics,
                   const VxTimeRange &playRange, VxTime step);

    /// The requested parts (VxStyle::RulerFlag); leastSpacing: pixels from tick to tick.
    std::vector<DopeSheetRulerLabel> labels(int flags, int leastSpacing) const;
    std::vector<DopeSheetRulerMark> marks(int flags, int leastSpacing) const;

    /// The left edges of the visible key marks, each once, from ascending times.
    std::vector<int> keyMarks(const VxTime *times, int count) const;

    /// False for a play range too short for a marker.
    bool hasMarker() const;
    /// The left edge of the current time's marker, which is width pixels wide about its line.
    int markerLeft(VxTime time, int width) const;
    /// True when x is within the marker.
    bool isOnMarker(int x, VxTime time, int width) const;

    /// The time for a mouse at x: measured from the section's left edge, not from where the ruler's
    /// marks begin, hence half a key margin off from them. Rounded to the frame.
    VxTime timeAt(int x) const;

private:
    int middleOf(VxTime time) const;
    int middleOfFrame(int frame) const;

    int m_left;
    int m_width;
    TimelineMetrics m_metrics;
    VxTimeRange m_playRange;
    VxTime m_step;
    int m_startFrame;
    int m_frameCount; // from the first frame of the play range to its last
};

/// True when x is within grip pixels inside an edge of a header's section that resizes it. The
/// edges at the header's own beginning (offset) and end (length) do not. All in pixels, in the
/// header's own coordinates.
bool isOnSectionGrip(int x, int left, int size, int grip, int offset, int length);

#endif

#ifndef DOPESHEETRULER_H
#define DOPESHEETRULER_H

#include <QtCore/QRect>
#include <QtCore/QString>
#include <vector>
#include <vxcore/vxtimerange.h>

#include "vxtimeline/time/timelinemetrics.h"

// A frame number and the middle of the frame it stands over.
struct DopeSheetRulerLabel
{
    QString text;
    int middle; // x, pixels
};

// A mark, and what it is: a VxStyle::RulerTickValue.
struct DopeSheetRulerMark
{
    int x; // pixels
    int value;
};

// Where everything stands in the time ruler, above the keys column.
//
// Painting replays the lists, and the mouse asks for the same marker that is painted. Positions are
// in the coordinates in which the section is given.
class DopeSheetRuler
{
public:
    // left and width: of the keys column's section. step: ticks of a frame, at least 1.
    DopeSheetRuler(int left, int width, const TimelineMetrics &metrics,
                   const VxTimeRange &playRange, VxTime step);

    // The parts named by flags (VxStyle::RulerFlag); leastSpacing: pixels from tick to tick.
    std::vector<DopeSheetRulerLabel> labels(int flags, int leastSpacing) const;
    std::vector<DopeSheetRulerMark> marks(int flags, int leastSpacing) const;

    // The left edges of the key marks that show, each once, from ascending times.
    std::vector<int> keyMarks(const VxTime *times, int count) const;

    // False for a play range too short to have a place in it.
    bool hasMarker() const;
    // The columns that the current time's marker takes: width pixels about its line.
    int markerLeft(VxTime time, int width) const;
    // True when x lies within them.
    bool isOnMarker(int x, VxTime time, int width) const;

    // The time that the mouse sets at x: counted from the section's left edge on, not from where
    // the ruler's marks begin, so that it is half a key margin off from them. To the frame.
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

// True when x is near enough to an edge of a header's section to resize it: within grip pixels
// inside of it. The edges at which the header itself begins (at offset) and ends (at length) are
// none. All in pixels, in the header's own coordinates.
bool isOnSectionGrip(int x, int left, int size, int grip, int offset, int length);

#endif

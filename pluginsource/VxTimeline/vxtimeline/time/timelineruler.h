#ifndef TIMELINERULER_H
#define TIMELINERULER_H

#include <vector>

/// The steps of a time ruler, as plain numbers of frames.
namespace TimelineRuler {

/// The number of frames between two ticks, and between two labels.
struct Steps
{
    int tick;
    int label;
};

/// Ticks are 1, 5, 10, 50, 100, 500 ... frames apart: the first of these at which they are at
/// least leastSpacing whole pixels apart. Labels have the next one. frameWidth: pixels of a frame.
///   12 px -> 1 and 5,  3 px -> 5 and 10,  0.5 px -> 50 and 100  (leastSpacing 10)
/// A frame without width gets the widest steps.
Steps steps(float frameWidth, int leastSpacing);

/// The multiples of step after firstFrame and less than frameCount frames after it.
///   first 10, step 5, count 20: 15 20 25
std::vector<int> multiplesAfter(int firstFrame, int frameCount, int step);

} // namespace TimelineRuler

#endif

#include "vxtimeline/time/timelineruler.h"

#include "vxtimeline/time/timelinesnap.h"

#include <QtCore/qglobal.h>

namespace TimelineRuler {

namespace {

// Beyond this a step times ten would exceed 32 bits; there are not that many frames.
constexpr int WidestTick = 100000000;

} // namespace

// The products are in single precision like the width: so five frames of 1.4 pixels are seven
// pixels.
Steps steps(float frameWidth, int leastSpacing)
{
    const auto isTooNarrow = [frameWidth, leastSpacing](int frames) {
        return TimelineSnap::saturatedInt(frameWidth * static_cast<float>(frames)) < leastSpacing;
    };
    Steps found{1, 5};
    if (!isTooNarrow(1))
        return found;
    do {
        found.tick *= 5;
        found.label = 2 * found.tick;
        if (isTooNarrow(found.tick)) {
            found.tick = found.label;
            found.label = 5 * found.tick;
        }
    } while (isTooNarrow(found.tick) && found.tick < WidestTick);
    return found;
}

std::vector<int> multiplesAfter(int firstFrame, int frameCount, int step)
{
    std::vector<int> frames;
    if (step < 1)
        return frames;
    const qint64 below = firstFrame % step < 0 ? firstFrame % step + step : firstFrame % step;
    for (qint64 frame = firstFrame - below + step; frame - firstFrame < frameCount; frame += step)
        frames.push_back(int(frame));
    return frames;
}

} // namespace TimelineRuler

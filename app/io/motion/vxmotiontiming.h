#ifndef VXMOTIONTIMING_H
#define VXMOTIONTIMING_H

#include "io/motion/vximportedmotion.h"

#include <vxcore/vxtimerange.h>

/// The rate and the clips of an imported motion on the scene's ticks.
namespace VxMotionTiming {

/// Seconds as the nearest tick. The seconds must be within maxSeconds() of 0.
VxTime ticks(double seconds);
/// The latest time of a key in a scene, with a margin for ranges.
double maxSeconds();

/// The frame rate at which all keys of the motion are on frames: the first match of 30, 24, 25, 60,
/// 50, 48, 120, 100, 29.97, 23.976 and 59.94 frames per second; 0 when none matches or there are no
/// keys. Checks at most some thousand keys of each channel.
double rateOfKeys(const VxImportedMotion &motion);

/// Ticks of a frame of the scene nearest to a rate above 0: 1 to 4800. Whole rates that do not
/// divide 4800 get the truncated step that the scene uses for them.
VxTime stepOf(double rate);

/// The position of a clip in the scene.
struct Slot
{
    double offset = 0.0; ///< seconds added to the clip's times
    VxTimeRange range;   ///< from the clip's start to its end
};

/// The positions of clips: a single one at its own times, or, with startAtZero, from 0 on; several
/// one after the other from 0 on, each beginning on a frame after the last one of the previous.
std::vector<Slot> slots(const std::vector<const VxMotionClip *> &clips, VxTime step,
                        bool startAtZero);

/// The first and the last time of a clip in seconds; 0 and 0 for one without keys.
std::pair<double, double> span(const VxMotionClip &clip);

} // namespace VxMotionTiming

#endif

#ifndef INBETWEEN_H
#define INBETWEEN_H

#include "pose/breakdown.h"
#include "pose/posecommands.h"

/// Commands on the keys between poses. Each makes one undo entry when it changes anything.
namespace InBetween {

/// The most cycles, and the most keys that cycles may make.
constexpr int MaxCycles = 1000;
constexpr qint64 MaxCycleKeys = 20 * 1000 * 1000;

/// Sets the selected nodes (a skeleton includes all its nodes) to a pose between two; part: see
/// Breakdown.
PoseResult breakdown(VxScene *scene, double part, Breakdown::Toward toward);

/// Holds the pose before the playhead until the playhead: every channel with keys, of the selected
/// nodes and everything below them, gets a key there with the value of its key before. A smooth
/// segment between the two becomes linear, as it would overshoot.
PoseResult hold(VxScene *scene);

/// Repeats the keys of the play range, of the selected nodes and everything below them, so that
/// there are `count` cycles, 2 to MaxCycles; see repeatedKeys(). With an offset each repetition
/// adds the change within a cycle to the translations of figures' roots, which thus continue from
/// the end of the previous cycle. Keys beyond the play range are replaced. The play range, and the
/// animation range where it is shorter, end with the last cycle.
PoseResult cycle(VxScene *scene, int count, bool withOffset);

/// Sets the pose at the end of the play range to the one at its start, on channels with keys of the
/// selected nodes and everything below them. The X and Z translations of roots are kept.
PoseResult matchEnds(VxScene *scene);
/// The number of channels that matchEnds() would change.
int differingEnds(const VxScene *scene);

} // namespace InBetween

#endif

#ifndef KEYCOLLISION_H
#define KEYCOLLISION_H

#include <vector>
#include <vxcore/vxkeyedit.h>

/// The two collision rules that search for a free tick; see vxPlanKeyTimes() for the arguments.

/// VxCollision::WaitBeside. Empty when no free tick is left.
std::vector<VxTime> planWaitingTimes(const VxTime *times, int count, const VxKeyMoves &moves);
/// VxCollision::Nudge. Always succeeds: a key can keep its own time.
std::vector<VxTime> planNudgedTimes(const VxTime *times, int count, const VxKeyMoves &moves);

#endif

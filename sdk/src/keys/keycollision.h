#ifndef KEYS_KEYCOLLISION_H
#define KEYS_KEYCOLLISION_H

#include <vector>
#include <vxcore/vxkeyedit.h>

/// The two collision rules that search for a free tick; see vxPlanKeyTimes() for the arguments.

/// VxCollision::WaitBeside. Empty when there is no place.
std::vector<VxTime> planWaitingTimes(const VxTime *times, int count, const VxKeyMoves &moves);
/// VxCollision::Nudge. There is always a place: a key's own.
std::vector<VxTime> planNudgedTimes(const VxTime *times, int count, const VxKeyMoves &moves);

#endif

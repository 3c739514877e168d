#ifndef ROTATIONTRACKS_H
#define ROTATIONTRACKS_H

#include "keytools/keytargets.h"

#include <array>
#include <vxcore/vxeuler.h>

/// The three angles of a node's rotation among the targets of a tool, with keys at the same times.
struct RotationTracks
{
    std::array<std::size_t, 3> tracks; ///< X, Y, Z as indexes of KeyTargets::tracks
    VxRotationOrder order = VxRotationOrder::XYZ;

    /// The rotations of which all three angles are targets with the same key times, span by span.
    /// `others` receives the remaining tracks; `incomplete` the number of rotations with some of
    /// their angles among the targets, but not all or not at the same times.
    static std::vector<RotationTracks> find(const KeyTargets &targets,
                                            std::vector<std::size_t> *others, int *incomplete);
};

#endif

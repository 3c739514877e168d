#ifndef VXIMPORTCHOICES_H
#define VXIMPORTCHOICES_H

#include "io/vxscenereader.h"

/// The user's choices about imported motion, before it is added to a scene.
struct VxImportChoices
{
    /// Keys move to the nearest frame of the scene; of several on one frame the last one stays.
    /// False: they keep their exact times.
    bool snapsToFrames = false;
    /// The scene gets the file's rate even if it has nodes already.
    bool matchesRate = false; ///< ignored where the file's rate is unknown
    /// Keys of anything but rotations are left out; the first value of each stays.
    bool rotationsOnly = false;
};

/// The effect of the choices on the keys.
struct VxImportNumbers
{
    qint64 keys = 0;        ///< added to the scene
    qint64 offFrame = 0;    ///< of these, keys between frames
    qint64 merged = 0;      ///< keys dropped because another one is on the same frame
    qint64 leftOut = 0;     ///< keys of channels that are left out
    VxTime largestMove = 0; ///< maximum ticks by which a key is moved
};

/// The numbers, without changing anything: one pass over the key times. step: ticks a frame of the
/// target scene.
VxImportNumbers vxCountKeys(const VxSceneContents &contents, const VxImportChoices &choices,
                            VxTime step);
/// Applies the choices to the keys.
void vxApplyChoices(const VxImportChoices &choices, VxTime step, VxSceneContents *contents);

#endif

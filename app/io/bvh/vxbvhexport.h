#ifndef VXBVHEXPORT_H
#define VXBVHEXPORT_H

#include "io/motion/vxmotionwriter.h"

/// Writes the motion of a figure, the source's root, to a BVH file.
///
/// The motion is sampled once a frame of the scene, or of the rate that is kept with the figure,
/// from the start of the range to its end: such a file has only keys on frames. Its first frame is
/// the range's start, since the file has no start time. Features that the format lacks (scales,
/// motion of the figure's ancestors, nodes between bones) are baked into the positions and
/// rotations.
bool vxWriteBvh(const VxMotionSource &source, const QString &fileName, QString *summary,
                VxFileError *error);

#endif

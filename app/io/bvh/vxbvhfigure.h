#ifndef VXBVHFIGURE_H
#define VXBVHFIGURE_H

#include "io/bvh/vxbvhdocument.h"
#include "io/bvh/vxbvhtiming.h"
#include "io/vxfileprogress.h"

#include <memory>

class VxSkeleton;

/// Builds the figure of a motion document, outside of any scene: a skeleton named `name`, below it
/// a bone for every ROOT and, in the same hierarchy, a bone for every JOINT. Returns null when
/// `progress` cancels; nothing is left then.
///
/// - Rotations: degrees as in the file, on the bone's rotation controls; the bone's rotation order
///   is the order of the file's channels, axes without a channel last.
/// - Positions: as in the file, on the translation controls. They replace the joint's offset, so
///   such an axis has no origin; the offset is the control's value while it has no keys.
/// - The offset of the other axes is the bone's origin.
/// - The bone ends at its end site; without one, in the middle of its children.
///
/// A bone has all its controls, including those without a channel. All keys are Linear.
std::unique_ptr<VxSkeleton> vxBvhBuildFigure(const VxBvhDocument &document,
                                             const VxBvhTiming &timing, const QString &name,
                                             const VxFileProgress &progress);

#endif

#ifndef VXIO_VXFBXAXES_H
#define VXIO_VXFBXAXES_H

#include "io/fbx/vxfbxsettings.h"
#include "io/motion/vximportedmotion.h"

/// Expresses a motion in the axes X right, Y up, Z to the front, by exchanging axes and signs of
/// every node: positions, angles and scales stay the same numbers under other names, so no key
/// changes but for its sign. A left-handed scene is mirrored.
///
/// Y up and the usual Z up (X right, Y to the back) are left as they are for the builder, as is
/// everything that is in order. True when anything was changed.
bool vxFbxConvertAxes(const std::array<VxFbxSettings::Axis, 3> &axes, VxImportedMotion *motion);

#endif

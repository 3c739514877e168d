#ifndef VXFBXAXES_H
#define VXFBXAXES_H

#include "io/fbx/vxfbxsettings.h"
#include "io/motion/vximportedmotion.h"

/// Converts a motion to the axes X right, Y up, Z to the front, by permuting axes and signs of
/// every node: positions, angles and scales stay the same numbers under other names, so no key
/// changes except in sign. A left-handed scene is mirrored.
///
/// Y up and the usual Z up (X right, Y to the back) are left unchanged for the builder. True when
/// anything was changed.
bool vxFbxConvertAxes(const std::array<VxFbxSettings::Axis, 3> &axes, VxImportedMotion *motion);

#endif

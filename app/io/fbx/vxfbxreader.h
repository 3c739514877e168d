#ifndef VXIO_VXFBXREADER_H
#define VXIO_VXFBXREADER_H

#include "io/motion/vximportedmotion.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

/// Reads an FBX file of version 7.0 to 7.9, binary or text: nodes, bones, morphs, properties that a
/// user added, and all animations with their keys. What else there is goes into the omissions.
///
/// Sizes and counts are checked against the bytes that are there before memory is used for them.
/// On failure returns false, with one sentence and the line or byte offset in `error`, which must
/// not be null; the motion is untouched then.
bool vxReadFbx(const QByteArray &bytes, const VxFileProgress &progress, VxImportedMotion *motion,
               VxFileError *error);

#endif

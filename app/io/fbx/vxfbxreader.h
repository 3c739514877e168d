#ifndef VXFBXREADER_H
#define VXFBXREADER_H

#include "io/motion/vximportedmotion.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

/// Reads an FBX file of version 7.0 to 7.9, binary or text: nodes, bones, morphs, user-defined
/// properties, and all animations with their keys. All other contents are listed as omissions.
///
/// Sizes and counts are checked against the available bytes before memory is allocated for them.
/// On failure returns false, with one sentence and the line or byte offset in `error`, which must
/// not be null, and the motion is unchanged.
bool vxReadFbx(const QByteArray &bytes, const VxFileProgress &progress, VxImportedMotion *motion,
               VxFileError *error);

#endif

#ifndef VXIO_VXGLTFREADER_H
#define VXIO_VXGLTFREADER_H

#include "io/motion/vximportedmotion.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QByteArray>

/// Reads a glTF 2.0 file, text or binary: nodes, joints of skins as bones, morph weights and all
/// animations. Meshes, materials, cameras and lights are left out and counted.
///
/// folder: where the data files that the document names lie; empty refuses them. On failure
/// returns false with one sentence in `error` (never null; its file is left to the caller), and
/// the motion is untouched.
bool vxReadGltf(const QByteArray &bytes, const QString &folder, const VxFileProgress &progress,
                VxImportedMotion *motion, VxFileError *error);

#endif

#ifndef VXGLTFREADER_H
#define VXGLTFREADER_H

#include "io/motion/vximportedmotion.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QByteArray>

/// Reads a glTF 2.0 file, text or binary: nodes, joints of skins as bones, morph weights and all
/// animations. Meshes, materials, cameras and lights are left out and counted.
///
/// folder: of the data files named in the document; empty refuses them. On failure returns false
/// with one sentence in `error` (never null; the caller sets its file), and the motion is
/// unchanged.
bool vxReadGltf(const QByteArray &bytes, const QString &folder, const VxFileProgress &progress,
                VxImportedMotion *motion, VxFileError *error);

#endif

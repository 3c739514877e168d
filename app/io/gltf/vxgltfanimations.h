#ifndef VXGLTFANIMATIONS_H
#define VXGLTFANIMATIONS_H

#include "io/gltf/vxgltfdocument.h"
#include "io/motion/vximportedmotion.h"
#include "io/vxfileprogress.h"

/// Reads the animations of a glTF document as clips of a motion that has its nodes already.
/// places: from vxReadGltfNodes(). False with one sentence in `message`, or with an empty one when
/// the progress callback cancelled.
bool vxReadGltfAnimations(VxGltfDocument *document, const std::vector<int> &places,
                          const VxFileProgress &progress, VxImportedMotion *motion,
                          QString *message);

#endif

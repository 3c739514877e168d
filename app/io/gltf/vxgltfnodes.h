#ifndef VXGLTFNODES_H
#define VXGLTFNODES_H

#include "io/gltf/vxgltfdocument.h"
#include "io/motion/vximportedmotion.h"

/// Reads the nodes of a glTF document, with their joints, morphs and rest transforms.
///
/// places: for each node of the file its index in the motion, where parents come before their
/// children. False with one sentence in `message` when the hierarchy is broken.
bool vxReadGltfNodes(VxGltfDocument *document, VxImportedMotion *motion, std::vector<int> *places,
                     QString *message);

#endif

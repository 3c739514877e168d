#ifndef VXGLTFEXPORT_H
#define VXGLTFEXPORT_H

#include "io/motion/vxmotionwriter.h"

/// Writes nodes and their motion to a glTF 2.0 file: .glb in binary form, .gltf as one text.
///
/// Bones become the joints of a skin for each figure, morphs the targets of a small placeholder
/// mesh. Positions, scales and weights are the same at every tick (linear, smooth and constant
/// segments); rotations are the same within 0.0005 degrees at every frame, and between them within
/// the largest deviation that the summary states. A file has no times before 0: a range that starts
/// earlier is shifted to 0. Times are single precision, about a tick after half an hour.
bool vxWriteGltf(const VxMotionSource &source, const QString &fileName, QString *summary,
                 VxFileError *error);

#endif

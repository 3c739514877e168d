#ifndef VXIO_VXMOTIONNODES_H
#define VXIO_VXMOTIONNODES_H

#include "io/motion/vximportreport.h"
#include "io/motion/vxmotionchannels.h"

#include <memory>
#include <vector>

/// Creates the nodes of a motion, without keys, and counts them in the report. Returns the roots,
/// each of which owns its descendants; `nodes` receives all of them, one for each of the motion's.
std::vector<std::unique_ptr<VxNode>> vxMakeNodes(const VxImportedMotion &motion,
                                                 const VxMotionChannels &channels,
                                                 std::vector<VxNode *> *nodes,
                                                 VxImportReport *report);

/// The middle of the positions of a node's children without keys; 0 when it has none.
QVector3D vxMiddleOfChildren(const VxNode *node);

#endif

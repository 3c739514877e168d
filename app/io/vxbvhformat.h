#ifndef VXIO_VXBVHFORMAT_H
#define VXIO_VXBVHFORMAT_H

#include "io/vxfileformats.h"

/// BVH motion opened as a scene of its own: one figure, with the motion's rate and length.
VxFileFormat vxBvhFormat();

#endif

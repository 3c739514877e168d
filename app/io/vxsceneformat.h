#ifndef VXIO_VXSCENEFORMAT_H
#define VXIO_VXSCENEFORMAT_H

#include "io/vxfileformats.h"

/// The program's own scene files.
VxFileFormat vxSceneFormat();

#endif

#ifndef VXSCENEFORMAT_H
#define VXSCENEFORMAT_H

#include "io/formats/vxfileformats.h"

/// The program's own scene files.
VxFileFormat vxSceneFormat();

#endif

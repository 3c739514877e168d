#ifndef VXMOTIONFORMATS_H
#define VXMOTIONFORMATS_H

#include "io/formats/vxfileformats.h"

/// The formats of motion files, in the order of file dialogs. Each replaces the scene by a file; to
/// add one to the scene, see VxMotionImport.
QVector<VxFileFormat> vxMotionFormats();

#endif

#ifndef VXIO_VXMOTIONFORMATS_H
#define VXIO_VXMOTIONFORMATS_H

#include "io/vxfileformats.h"

/// The formats of motion files, in the order in which file dialogs list them. Each opens a file in
/// place of the scene; to import one beside what is there, see VxMotionImport.
QVector<VxFileFormat> vxMotionFormats();

#endif

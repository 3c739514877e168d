#ifndef COLLADAREADER_H
#define COLLADAREADER_H

#include "io/motion/vximportedmotion.h"
#include "io/vxfileerror.h"

#include <QByteArray>

/// Reads a COLLADA document through the library assimp, with its limitations: keys are those that
/// it generates, joined by linear segments.
///
/// Only for the importer process: the library ends the process on some damaged files. On failure
/// returns false with one sentence in `error`, and the motion is unchanged.
bool readCollada(const QByteArray &bytes, VxImportedMotion *motion, VxFileError *error);

#endif

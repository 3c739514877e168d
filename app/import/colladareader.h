#ifndef COLLADAREADER_H
#define COLLADAREADER_H

#include "io/motion/vximportedmotion.h"
#include "io/vxfileerror.h"

#include <QByteArray>

/// Reads a COLLADA document by way of the library assimp, as well as that can: keys are those that
/// it makes, joined by straight segments.
///
/// Only for the importer process: the library ends the process on some damaged files. On failure
/// returns false with one sentence in `error`; the motion is untouched then.
bool readCollada(const QByteArray &bytes, VxImportedMotion *motion, VxFileError *error);

#endif

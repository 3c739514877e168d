#ifndef FOREIGNREADER_H
#define FOREIGNREADER_H

#include "io/motion/vximportedmotion.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

/// Reads a motion file of a foreign format, by the suffix of its name. Runs in the importer
/// process; vxMotionFormats() lists the formats. On failure returns false with one sentence
/// in `error`, which must not be null.
bool readForeignMotion(const QString &fileName, const VxFileProgress &progress,
                       VxImportedMotion *motion, VxFileError *error);

#endif

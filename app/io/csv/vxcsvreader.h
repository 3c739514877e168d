#ifndef VXIO_VXCSVREADER_H
#define VXIO_VXCSVREADER_H

#include "io/motion/vximportedmotion.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QByteArray>

/// Reads motion from a CSV file of either form; see VxCsvNames for what is in it. On failure
/// returns false with one sentence, the line and the column in `error`; the motion is untouched
/// then. Memory is in proportion to the file's size.
bool vxReadCsv(const QByteArray &bytes, const VxFileProgress &progress, VxImportedMotion *motion,
               VxFileError *error);

#endif

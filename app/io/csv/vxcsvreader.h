#ifndef VXCSVREADER_H
#define VXCSVREADER_H

#include "io/motion/vximportedmotion.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QByteArray>

/// Reads motion from a CSV file of either form; see VxCsvNames for its contents. On failure returns
/// false with one sentence, the line and the column in `error`, and the motion is unchanged. Memory
/// is proportional to the file's size.
bool vxReadCsv(const QByteArray &bytes, const VxFileProgress &progress, VxImportedMotion *motion,
               VxFileError *error);

#endif

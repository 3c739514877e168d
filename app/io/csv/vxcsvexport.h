#ifndef VXCSVEXPORT_H
#define VXCSVEXPORT_H

#include "io/motion/vxmotionwriter.h"

/// Writes nodes and their motion to a CSV file; see VxCsvNames for its contents.
///
/// One row a key: the keys within a range, and up to two more on either side of it, so that the
/// curves within the range are the same at every tick. One row a frame: the values at every frame
/// from the range's start to its end. Dependent values are sampled at frames.
bool vxWriteCsv(const VxMotionSource &source, const QString &fileName, QString *summary,
                VxFileError *error);

#endif

#ifndef VXIO_VXFOREIGNREADER_H
#define VXIO_VXFOREIGNREADER_H

#include "io/motion/vximportedmotion.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QStringList>

/// Reads a motion file of a format that is not this program's own, by the suffix of its name. Runs
/// in the importer process; see VxImportWorker. On failure returns false with one sentence in
/// `error`, which must not be null.
bool vxReadForeignMotion(const QString &fileName, const VxFileProgress &progress,
                         VxImportedMotion *motion, VxFileError *error);

/// The suffixes of these formats, lower case, without a dot.
QStringList vxForeignSuffixes();

#endif

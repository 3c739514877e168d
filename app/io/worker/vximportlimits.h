#ifndef VXIO_VXIMPORTLIMITS_H
#define VXIO_VXIMPORTLIMITS_H

#include <QtGlobal>

/// What the importer process does to itself before it opens a file. For the whole process, and for
/// good: no files are written or made, memory beyond what the process has now is limited to
/// `memory` bytes and processor time to `seconds`; it ends when its parent does.
void vxLimitProcess(qint64 memory, int seconds);

#endif

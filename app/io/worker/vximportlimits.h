#ifndef VXIMPORTLIMITS_H
#define VXIMPORTLIMITS_H

#include <QtGlobal>

/// Restricts the importer process before it opens a file. For the whole process, and permanently:
/// no files are written or created, memory beyond the present amount is limited to `memory` bytes
/// and processor time to `seconds`; the process ends when its parent does.
void vxLimitProcess(qint64 memory, int seconds);

#endif

#ifndef VXREADFILE_H
#define VXREADFILE_H

#include "io/vxfileerror.h"

#include <QByteArray>

/// Reads a whole file. False with an error that names it; also for anything but a regular file: a
/// pipe would block the program forever.
bool vxReadFile(const QString &fileName, QByteArray *bytes, VxFileError *error);

#endif

#ifndef VXFBXPARSERS_H
#define VXFBXPARSERS_H

#include "io/fbx/vxfbxrecords.h"
#include "io/vxfileprogress.h"

/// True when the bytes begin like a binary FBX file.
bool vxIsFbxBinary(const QByteArray &bytes);

/// Parses a binary FBX file into records; false with an error.
///
/// Every size is checked against the bytes of the enclosing record before use, nesting uses an
/// explicit stack, and the first error ends the parsing. The footer after the last record is
/// ignored: writers disagree about it. version: that of the header, such as 7400, also when the
/// rest cannot be parsed; 0 without a header.
bool vxParseFbxBinary(const QByteArray &bytes, const VxFileProgress &progress,
                      VxFbxRecords *records, qint64 *version, VxFileError *error);

/// Parses a text (ASCII) FBX file into records; false with an error, and those before it.
///
/// Line ends only end a comment. The numbers of an array are not parsed: the array becomes one
/// value, which VxFbxArrays decodes on demand.
bool vxParseFbxText(const QByteArray &bytes, const VxFileProgress &progress, VxFbxRecords *records,
                    VxFileError *error);

#endif

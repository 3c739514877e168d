#ifndef VXBVHREADER_H
#define VXBVHREADER_H

#include "io/bvh/vxbvhdocument.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QByteArray>

/// Reads the bytes of a BVH motion file.
///
/// Input is untrusted: every count is checked against the remaining bytes before memory is
/// allocated, nesting uses an explicit stack and is limited, and the first error ends the reading
/// with the file, the line and one sentence. Variations between the writing programs are all
/// accepted: the case of keywords, blanks, tabs and line ends of any kind, a block's brace on the
/// line of its name, a frame's values broken over several lines, several roots, names with blanks,
/// a leading "+".
///
/// Zero frames are legal (a rest pose); the motion block is required nevertheless.
///
/// On failure returns false, sets the error and leaves `out` unchanged. note: for the user, such as
/// omitted surplus frames; empty when there is none; may be null.
bool vxReadBvh(const QByteArray &bytes, VxBvhDocument *out, VxFileError *error,
               const VxFileProgress &progress = {}, QString *note = nullptr);

/// The same for a file.
bool vxReadBvhFile(const QString &fileName, VxBvhDocument *out, VxFileError *error,
                   const VxFileProgress &progress = {}, QString *note = nullptr);

#endif

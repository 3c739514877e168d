#ifndef VXBVHWRITER_H
#define VXBVHWRITER_H

#include "io/bvh/vxbvhdocument.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QByteArray>

/// Writes BVH motion files. Numbers have the fewest digits that read back to the same value, so
/// reading a written file gives an equal document. Names are written as UTF-8.
class VxBvhWriter
{
public:
    /// Writes the text of \a document to \a bytes. An invalid document (see VxBvhDocument::isValid)
    /// is not written: false, with the reason in \a error.
    static bool write(const VxBvhDocument &document, QByteArray *bytes, VxFileError *error);

    /// Writes to a file atomically. The progress may cancel.
    static bool writeFile(const VxBvhDocument &document, const QString &fileName,
                          VxFileError *error, const VxFileProgress &progress = {});
};

#endif

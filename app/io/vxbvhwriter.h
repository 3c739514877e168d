#ifndef VXIO_VXBVHWRITER_H
#define VXIO_VXBVHWRITER_H

#include "io/vxbvhdocument.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QByteArray>

/// Writes BVH motion files. Numbers are written with the fewest digits that read back to the very
/// same value, so reading what was written gives an equal document. Names go out as UTF-8.
class VxBvhWriter
{
public:
    /// The text of \a document in \a bytes. A document that breaks its own rules (see
    /// VxBvhDocument::isValid) is not written: false, with the reason in \a error.
    static bool write(const VxBvhDocument &document, QByteArray *bytes, VxFileError *error);

    /// Writes to a file, which is replaced only when everything went well. The progress may cancel.
    static bool writeFile(const VxBvhDocument &document, const QString &fileName,
                          VxFileError *error, const VxFileProgress &progress = {});
};

#endif

#ifndef VXIO_VXBVHREADER_H
#define VXIO_VXBVHREADER_H

#include "io/vxbvhdocument.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QByteArray>

/// Reads BVH motion files.
///
/// Input is untrusted: every count is checked against the remaining bytes before memory is
/// allocated, nesting uses an explicit stack and is limited, and the first error ends the reading
/// with the file, the line and one sentence. Variations between the writing programs are all
/// accepted: the case of keywords, blanks, tabs and line ends of any kind, a block's brace on the
/// line of its name, a frame's values broken over several lines, several roots, names with blanks,
/// a leading "+".
///
/// Zero frames are legal (a rest pose); the motion block is required nevertheless.
class VxBvhReader
{
public:
    explicit VxBvhReader(const QString &fileName = QString())
        : m_fileName(fileName)
    {
    }

    /// Reports the progress of reading and can cancel.
    void setProgress(const VxFileProgress &progress) { m_progress = progress; }

    /// Reads \a bytes into \a out. On failure returns false, sets \a error and leaves \a out
    /// unchanged. Both pointers must not be null.
    bool read(const QByteArray &bytes, VxBvhDocument *out, VxFileError *error);

    /// A note for the user about the last file, such as omitted surplus frames; empty when there is
    /// none.
    QString getNote() const { return m_note; }

    /// Opens the file named at construction and reads it.
    bool readFile(VxBvhDocument *out, VxFileError *error);

private:
    const QString m_fileName;
    VxFileProgress m_progress;
    QString m_note;
};

#endif

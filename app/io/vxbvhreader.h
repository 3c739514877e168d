#ifndef VXIO_VXBVHREADER_H
#define VXIO_VXBVHREADER_H

#include "io/vxbvhdocument.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QByteArray>
#include <memory>

/// Reads BVH motion files.
///
/// The reader trusts nothing: every count is held against the bytes that are left before memory
/// is taken for it, nesting is followed with a stack of its own and is limited, and the first
/// thing that is wrong ends the reading with the file, the line and one sentence. Details in
/// which the programs that write these files differ are all taken: the case of keywords, blanks,
/// tabs and line ends of any kind, a block's brace on the line of its name, a frame's values
/// broken over several lines, several roots, names with blanks, a leading "+".
///
/// Zero frames are legal (a rest pose); the motion block must be there nevertheless.
class VxBvhReader
{
public:
    explicit VxBvhReader(const QString &fileName = QString());
    ~VxBvhReader();
    VxBvhReader(const VxBvhReader &) = delete;
    VxBvhReader &operator=(const VxBvhReader &) = delete;

    /// Watches and cancels the reading.
    void setProgress(const VxFileProgress &progress);

    /// Reads \a bytes into \a out. On failure returns false, fills \a error and leaves \a out as
    /// it was. Both pointers must not be null.
    bool read(const QByteArray &bytes, VxBvhDocument *out, VxFileError *error);

    /// What the user should know of the last file that was read, such as frames beyond those
    /// announced, which are left out; empty when there is nothing.
    QString getNote() const;

    /// Opens the file named at construction and reads it.
    bool readFile(VxBvhDocument *out, VxFileError *error);

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif

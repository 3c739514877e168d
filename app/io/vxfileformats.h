#ifndef VXIO_VXFILEFORMATS_H
#define VXIO_VXFILEFORMATS_H

#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QStringList>
#include <QVector>
#include <functional>

class VxScene;

/// One kind of file that holds a scene or a part of one.
struct VxFileFormat
{
    /// Makes the scene what the file says. On failure `error` (never null) says why and the scene
    /// is as it was. `summary` (never null) takes a sentence for the user, or stays empty. The
    /// progress is asked only while the scene is still untouched.
    using Reader =
        std::function<bool(const QString &fileName, VxScene *scene, const VxFileProgress &progress,
                           QString *summary, VxFileError *error)>;
    /// Writes the whole scene, replacing the file in one step. On failure the file is as it was.
    using Writer = std::function<bool(const QString &fileName, const VxScene *scene,
                                      const VxFileProgress &progress, VxFileError *error)>;

    QString name;         ///< for the user, such as "BVH motion"
    QStringList suffixes; ///< lower case, without a dot
    Reader read;
    Writer write;          ///< empty for a format that is only read
    bool isMotion = false; ///< a figure's motion, which can come to a scene that is open
};

/// The kinds of files that the program can open or save, found by the suffix of a file's name.
class VxFileFormats
{
public:
    /// Everything this library reads. A new format is added here and nowhere else.
    static VxFileFormats standard();

    /// A suffix that is taken already stays with the earlier format.
    void add(const VxFileFormat &format);
    /// The format of a file name's suffix, whatever its case; null when there is none.
    const VxFileFormat *find(const QString &fileName) const;

    /// Reads with the format of the file's name; see VxFileFormat::Reader. A suffix that no format
    /// has is an error that names those there are.
    bool read(const QString &fileName, VxScene *scene, const VxFileProgress &progress,
              QString *summary, VxFileError *error) const;

    /// Writes with the format of the file's name; see VxFileFormat::Writer. A suffix that no
    /// format that can be written has is an error that names those there are.
    bool write(const QString &fileName, const VxScene *scene, const VxFileProgress &progress,
               VxFileError *error) const;
    /// True when the file's name has the suffix of a format that can be written.
    bool canWrite(const QString &fileName) const;
    /// True when it has the suffix of a motion's format.
    bool isMotion(const QString &fileName) const;

    /// For a file dialog that opens: all formats together, then each alone.
    QStringList readFilters() const;
    /// For a file dialog that imports: all formats of motion together, then each alone.
    QStringList motionFilters() const;
    /// For a file dialog that saves: each format that can be written.
    QStringList writeFilters() const;

private:
    QStringList patterns(bool writableOnly) const;

    QVector<VxFileFormat> m_formats;
};

#endif

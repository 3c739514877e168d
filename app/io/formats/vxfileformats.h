#ifndef VXFILEFORMATS_H
#define VXFILEFORMATS_H

#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QStringList>
#include <QVector>
#include <functional>

class VxScene;

/// One type of file that contains a scene or a part of one.
struct VxFileFormat
{
    /// Replaces the scene by the file. On failure `error` (never null) has the reason and the scene
    /// is unchanged. `summary` (never null) receives a sentence for the user, or stays empty. The
    /// progress is called only while the scene is still unchanged.
    using Reader =
        std::function<bool(const QString &fileName, VxScene *scene, const VxFileProgress &progress,
                           QString *summary, VxFileError *error)>;
    /// Writes the whole scene, replacing the file atomically. On failure the file is unchanged.
    using Writer = std::function<bool(const QString &fileName, const VxScene *scene,
                                      const VxFileProgress &progress, VxFileError *error)>;

    QString name;         ///< for the user, such as "BVH motion"
    QStringList suffixes; ///< lower case, without a dot
    Reader read;
    Writer write;          ///< empty for a format that is only read
    bool isMotion = false; ///< a figure's motion, which can be added to an open scene
};

/// The types of files that the program can open or save, by the suffix of a file's name.
class VxFileFormats
{
public:
    /// All formats of this library; the readers of motion formats are chosen by vxstudio-import.
    static VxFileFormats standard();

    /// A suffix in use stays with the earlier format.
    void add(const VxFileFormat &format) { m_formats.append(format); }
    /// The format of a file name's suffix, whatever its case; null when there is none.
    const VxFileFormat *find(const QString &fileName) const;

    /// Reads with the format of the file's name; see VxFileFormat::Reader. An unknown suffix is an
    /// error that lists the supported ones.
    bool read(const QString &fileName, VxScene *scene, const VxFileProgress &progress,
              QString *summary, VxFileError *error) const;

    /// Writes with the format of the file's name; see VxFileFormat::Writer. A suffix without a
    /// writable format is an error that lists the supported ones.
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
    QVector<VxFileFormat> m_formats;
};

#endif

#ifndef VXIO_VXCSVEXPORT_H
#define VXIO_VXCSVEXPORT_H

#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QByteArray>
#include <memory>
#include <vxcore/vxtimerange.h>

class VxNode;
class VxScene;

/// Writes nodes and their motion to a CSV file; see VxCsvNames for its contents.
///
/// One row a key: the keys within a range, and up to two more on either side of it, so that the
/// curves within the range are the same at every tick. One row a frame: the values at every frame
/// from the range's start to its end. Dependent values are sampled at frames.
class VxCsvExport
{
public:
    /// The scene is borrowed and not changed. The range's ends are included.
    VxCsvExport(const VxScene *scene, const VxTimeRange &range);
    ~VxCsvExport();
    VxCsvExport(const VxCsvExport &) = delete;
    VxCsvExport &operator=(const VxCsvExport &) = delete;

    /// One node with everything below it instead of the whole scene.
    void setRoot(const VxNode *root);
    /// One row a frame instead of one a key. Initially false.
    void setHasRowPerFrame(bool rowPerFrame);
    /// Reports progress from 0 to 100 and can cancel.
    void setProgress(const VxFileProgress &progress);

    /// Writes the file atomically. False with the reason in `error`, which must not be null.
    bool exportFile(const QString &fileName, VxFileError *error);
    /// The bytes alone.
    bool write(QByteArray *bytes, VxFileError *error);

    /// Numbers of the last success for the user.
    QString getSummary() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif

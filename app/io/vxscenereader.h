#ifndef VXSCENEREADER_H
#define VXSCENEREADER_H

#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"
#include "io/vxscenecamera.h"

#include <QByteArray>
#include <QStringList>
#include <memory>
#include <vector>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxsceneviews.h>
#include <vxcore/vxtimedisplay.h>
#include <vxcore/vxtimerange.h>

class VxScene;

/// The contents of a scene file, complete but in no scene yet. Dropping it deletes everything.
struct VxSceneContents
{
    std::vector<std::unique_ptr<VxNode>> rootNodes; ///< each owns its descendants
    VxTime time = 0;
    VxTime timeStep = 160;
    VxTimeRange playRange;
    VxTimeRange animRange;
    VxSceneViews::Views views;
    VxMarkerList markers;
    VxTimeDisplay timeDisplay;
    std::optional<VxCameraState> camera;
    bool looping = false;
    bool animating = true;
    /// Members of the file that this version does not support, each name once, and settings of an
    /// unknown value, which have their default instead.
    QStringList unknownMembers;
    /// Those of them that are not kept for a save.
    QStringList droppedMembers;
    /// The kept ones of the file's own map; see VxKeptMembers.
    QByteArray keptMembers;
};

/// Reads scene files. A file that is damaged, too new or no scene at all gives one message with
/// the offset at which reading stopped, and nothing is changed.
class VxSceneReader
{
public:
    /// Reports progress from 0 to 100 and can cancel.
    void setProgress(const VxFileProgress &progress) { m_progress = progress; }

    /// False with the reason in `error`, which must not be null.
    bool readFile(const QString &fileName, VxSceneContents *contents, VxFileError *error) const;
    bool read(const QByteArray &bytes, VxSceneContents *contents, VxFileError *error) const;

    /// Replaces the contents of a scene: clears it and transfers the nodes, as one load.
    static void install(VxSceneContents &&contents, VxScene *scene);

private:
    VxFileProgress m_progress;
};

#endif

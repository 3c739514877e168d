#ifndef VXIO_VXIMPORTCHOICES_H
#define VXIO_VXIMPORTCHOICES_H

#include "io/vxscenereader.h"

#include <QJsonObject>

/// What a person may choose about motion that was read, before it enters a scene.
struct VxImportChoices
{
    /// Keys move to the nearest frame of the scene; of several on one frame the last one stays.
    /// False: they keep their exact times.
    bool snapsToFrames = false;
    /// The scene gets the file's rate also where it has nodes already.
    bool matchesRate = false;
    /// Keys of anything but rotations are left out; the first value of each stays.
    bool rotationsOnly = false;

    QJsonObject toJson() const;
    static VxImportChoices fromJson(const QJsonObject &object);
};

/// What the choices make of the keys.
struct VxImportNumbers
{
    qint64 keys = 0;        ///< that enter the scene
    qint64 offFrame = 0;    ///< of these, keys between frames
    qint64 merged = 0;      ///< keys dropped because another one is on the same frame
    qint64 leftOut = 0;     ///< keys of channels that are left out
    VxTime largestMove = 0; ///< ticks by which a key is moved at most
};

/// The numbers, without changing anything: one pass over the key times. step: ticks a frame of the
/// scene that the motion will be in.
VxImportNumbers vxCountKeys(const VxSceneContents &contents, const VxImportChoices &choices,
                            VxTime step);
/// Makes the keys what the choices say; the numbers are those of vxCountKeys().
VxImportNumbers vxApplyChoices(const VxImportChoices &choices, VxTime step,
                               VxSceneContents *contents);

#endif

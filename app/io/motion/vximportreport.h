#ifndef VXIMPORTREPORT_H
#define VXIMPORTREPORT_H

#include "io/motion/vximportedmotion.h"

#include <QJsonObject>
#include <vxcore/vxtimerange.h>

/// One animation of a file and its range in the scene.
struct VxImportedClip
{
    QString name;
    bool isImported = false;
    VxTimeRange range; ///< ticks; only when imported
};

/// The contents of an imported file and the result: facts and numbers, without any widget.
struct VxImportReport
{
    QString file; ///< as it was given
    QString format;
    QString writer; ///< empty: unknown

    double sourceRate = 0.0;     ///< frames per second; 0: unknown
    bool isRateFromKeys = false; ///< derived from the keys, which all are on its frames
    VxTime step = 160;           ///< ticks per frame of a scene with the file's rate
    VxTime sceneStep = 160;      ///< ticks per frame of the scene that the motion enters

    char upAxis = 'Y';
    bool isRotated = false;     ///< a top node rotates the file's up axis to Y
    double metresPerUnit = 0.0; ///< of the file; 0: unknown. Lengths are kept as they are.

    std::vector<VxImportedClip> clips;
    double firstKey = 0.0; ///< seconds in the file, of the clips imported
    bool isMovedToZero = false;

    int nodes = 0; ///< all of them, bones included
    int bones = 0;
    int morphs = 0;
    int properties = 0;    ///< further ones
    int channels = 0;      ///< properties with keys
    qint64 keysBefore = 0; ///< numbers of keys in the file; a rotation counts three
    qint64 keysAfter = 0;
    qint64 offFrameKeys = 0; ///< of these, keys between frames of the scene
    qint64 mergedKeys = 0;   ///< left out, because another key is on their tick
    double angleError = 0.0; ///< largest, in degrees
    double valueError = 0.0; ///< largest of the other channels, as a part of the channel's range

    QStringList notes;
    std::vector<VxMotionOmission> omissions;

    /// Frames per second of the scene.
    double sceneRate() const { return double(VxTicksPerSecond) / sceneStep; }
    /// True when the file's rate is no whole number of ticks a frame, such as 29.97; the imported
    /// figure then stores it, see vxKeepRate().
    bool isRateKept() const;

    QJsonObject toJson() const;
    static VxImportReport fromJson(const QJsonObject &object);
    /// Two or three sentences for a status line.
    QString summary() const;
    /// Everything, one fact a line, for a dialog or a terminal.
    QStringList lines() const;
};

#endif

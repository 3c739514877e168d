#ifndef VXFBXSETTINGS_H
#define VXFBXSETTINGS_H

#include "io/fbx/vxfbxrecords.h"

#include <array>

/// The global settings of an FBX document.
struct VxFbxSettings
{
    /// An axis of the scene, as the file's own axis and the sign with which it counts.
    struct Axis
    {
        int axis; ///< 0 X, 1 Y, 2 Z
        int sign; ///< 1 or -1

        bool operator==(const Axis &o) const { return axis == o.axis && sign == o.sign; }
    };

    /// The program that saved the file last, else the one that made it; may be empty.
    QString writer;
    double ticksPerSecond = 46186158000.0; ///< of key times
    double rate = 30.0;                    ///< frames per second
    /// The file's axes for right, up, and front.
    std::array<Axis, 3> axes{{{0, 1}, {1, 1}, {2, 1}}};
    double metresPerUnit = 0.01;
};

/// Reads the settings of a document. Missing or invalid ones get the format's default, the latter
/// with a sentence in `notes`.
VxFbxSettings vxFbxReadSettings(const VxFbxRecords &records, QStringList *notes);

#endif

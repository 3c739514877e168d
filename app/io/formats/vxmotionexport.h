#ifndef VXMOTIONEXPORT_H
#define VXMOTIONEXPORT_H

#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QStringList>

class VxNode;
class VxScene;

/// The exported part of a scene and its form.
struct VxMotionExportOptions
{
    /// A node with everything below it, borrowed; null: the whole scene. BVH files have one figure.
    const VxNode *root = nullptr;
    bool playRangeOnly = false;  ///< the play range instead of the animation range
    bool hasRowPerFrame = false; ///< of CSV files, instead of one a key
};

/// Writes a motion file atomically in the format of its suffix. The summary (never null) receives
/// a sentence for the user. On failure returns false with the reason in `error`, which must not be
/// null.
bool vxExportMotion(const VxScene *scene, const VxMotionExportOptions &options,
                    const QString &fileName, const VxFileProgress &progress, QString *summary,
                    VxFileError *error);

/// The suffixes of the files that can be written, lower case, without a dot; the first is the usual
/// one.
QStringList vxExportSuffixes();

#endif

#ifndef VXMOTIONWRITER_H
#define VXMOTIONWRITER_H

#include "io/motion/vximportedmotion.h"
#include "io/vxfileerror.h"
#include "io/vxfileprogress.h"

#include <QVector>
#include <vxcore/vxtimerange.h>

class VxFloatProperty;
class VxMorph;
class VxScene;

/// The motion for a writer of motion files. The scene is borrowed and not changed.
struct VxMotionSource
{
    const VxScene *scene = nullptr;
    VxTimeRange range;            ///< its ends are included
    const VxNode *root = nullptr; ///< a node with everything below it; null: the whole scene
    bool hasRowPerFrame = false;  ///< of CSV files, instead of one a key
    VxFileProgress progress = {}; ///< from 0 to 100, can cancel
};

// A writer is a function of this form, in the folder of its format:
//
//   bool vxWriteBvh(const VxMotionSource &source, const QString &fileName, QString *summary,
//                   VxFileError *error);
//
// It writes the file atomically and sets a summary for the user. On failure it returns false with
// one sentence in `error`, whose file the caller sets. No pointer is null.

/// A node with everything below it, or without one all nodes of the scene; parents first.
QVector<const VxNode *> vxNodesToExport(const VxScene *scene, const VxNode *root);

/// A transform control of a node for each axis: those of its position, rotation or scale, by the
/// first of them.
std::array<const VxFloatProperty *, 3> vxControlsOf(const VxNode *node, VxMotionTarget first);

/// The morphs of a node's object, in their order.
QVector<const VxMorph *> vxMorphsOf(const VxNode *node);

#endif

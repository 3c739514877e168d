#ifndef VXIO_VXMOTIONENTRY_H
#define VXIO_VXMOTIONENTRY_H

#include "io/vxscenereader.h"

#include <QString>
#include <QVector>

/// How motion enters a scene.
struct VxMotionEntry
{
    /// The new nodes take the place of everything, history included, as one load, instead of
    /// joining what is there as one undo entry.
    bool replacesScene = false;
    /// A scene that has nodes gets the motion's step, too.
    bool setsRate = false;
    /// Whether the motion lasts at all; a pose leaves step and ranges alone.
    bool hasMotion = true;
};

/// Takes nodes that were read into the scene: the one door for motion of every format.
///
/// A scene without nodes gets the motion's step and range. One that has some keeps its step, unless
/// the entry says otherwise, and its ranges only grow; a play range that somebody has narrowed is
/// left alone. The first root's label gets a number where a node has it already. Returns the
/// roots, now owned by the scene, in their order; empty, and the contents untouched, when the scene
/// refuses them.
QVector<VxNode *> vxEnterScene(VxSceneContents &&contents, const VxMotionEntry &entry,
                               VxScene *scene);

/// The name, or the first of "name 2", "name 3" ... that no node of the scene has for its name or
/// label.
QString vxUnusedNodeName(const VxScene &scene, const QString &name);

#endif

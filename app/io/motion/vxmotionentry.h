#ifndef VXMOTIONENTRY_H
#define VXMOTIONENTRY_H

#include "io/vxscenereader.h"

#include <QString>
#include <QVector>

/// How motion is added to a scene.
struct VxMotionEntry
{
    /// The new nodes replace everything, history included, as one load, instead of being added as
    /// one undo entry.
    bool replacesScene = false;
    /// A scene with nodes gets the motion's step, too.
    bool setsRate = false;
    /// False for a pose, which leaves step and ranges unchanged.
    bool hasMotion = true;
};

/// Adds imported nodes to the scene, for motion of every format.
///
/// A scene without nodes gets the motion's step and range. One with nodes keeps its step, unless
/// the entry overrides it, and its ranges only grow; a play range narrowed by the user is
/// unchanged. The first root's label gets a number if a node has it already. Returns the roots, now
/// owned by the scene, in their order; empty, with the contents unchanged, when the scene refuses
/// them.
QVector<VxNode *> vxEnterScene(VxSceneContents &&contents, const VxMotionEntry &entry,
                               VxScene *scene);

/// The name, or the first of "name 2", "name 3" ... that no node of the scene has as its name or
/// label.
QString vxUnusedNodeName(const VxScene &scene, const QString &name);

#endif

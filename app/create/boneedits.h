#ifndef BONEEDITS_H
#define BONEEDITS_H

#include <QString>
#include <QVector3D>
#include <QVector>
#include <vxcore/vxnode.h>

class VxScene;

/// Where a bone is at rest and how long it is.
struct BoneValues
{
    QVector3D origin; ///< in the parent's space
    QVector3D end;    ///< in the bone's space
    VxRestPose rest;
};

/// Edits of bones. Undo is the caller's, unless a function says otherwise.
namespace BoneEdits {

/// The rest pose of a bone at its origin, without rotation and in its own size.
VxRestPose restInPlace();

BoneValues valuesOf(const VxNode *node);
/// Channels without keys take their new rest value. childrenFollow: child nodes at the former end
/// move to the new one.
void setValues(VxNode *node, const BoneValues &values, bool childrenFollow);

/// The length from origin to end, in the unit of the scene.
double lengthOf(const QVector3D &end);
/// The same direction with another length; along Y for an end without direction. length: finite, at
/// least 0.
QVector3D withLength(const QVector3D &end, double length);

/// Sets the length of the selected bones, one undo entry. Child bones at their ends follow. Returns
/// the text for the status line; *done is false when nothing was changed.
QString setLength(VxScene *scene, double length, bool *done);

} // namespace BoneEdits

#endif

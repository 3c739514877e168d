#ifndef FIGURELINES_H
#define FIGURELINES_H

#include <QVector3D>
#include <QVector>
#include <vxcore/vxtime.h>

class VxNode;
class VxScene;

/// What a viewport draws of the scene at one time: bones as lines and nodes as points, in world
/// space. Plain data, made in one pass over the nodes.
struct FigureLines
{
    struct Bone
    {
        QVector3D from;
        QVector3D to;
        VxNode *node; ///< the bone whose line this is
        bool selected;
    };
    struct Joint
    {
        QVector3D at;
        VxNode *node;
        bool selected;
    };

    QVector<Bone> bones;
    QVector<Joint> joints;

    /// Nodes that are not visible are left out; what hangs below them is not. A bone leads to each
    /// of its bones; one without any leads to its end point.
    static FigureLines collect(const VxScene &scene, VxTime time);

    /// Every joint and the end of every bone.
    QVector<QVector3D> points() const;
};

#endif

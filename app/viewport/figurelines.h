#ifndef FIGURELINES_H
#define FIGURELINES_H

#include <QVector3D>
#include <QVector>
#include <array>
#include <vxcore/vxtime.h>

class VxNode;
class VxScene;

/// What a viewport draws of the scene at one time: bones as lines, joints as points and plain nodes
/// as axes, in world space. Plain data, made in one pass over the nodes.
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

    struct Axes
    {
        QVector3D at;
        std::array<QVector3D, 3> directions; ///< of X, Y and Z; each of length 1, or 0
        VxNode *node;
        bool selected;
    };

    QVector<Bone> bones;
    QVector<Joint> joints;
    QVector<Axes> axes;

    /// Nodes that are not visible are left out with all that hangs below them; so are
    /// places that are no numbers, or too far away for single precision. A bone leads to each
    /// of its bones, visible or not; one without any leads to its end point. A node that is neither
    /// bone nor figure has axes, and so has the primary selection.
    static FigureLines collect(const VxScene &scene, VxTime time);

    /// Every joint and the end of every bone.
    QVector<QVector3D> points() const;
    /// The same of bones alone: no plain nodes such as a ground or a light.
    QVector<QVector3D> figurePoints() const;
    /// The same of those nodes alone that are selected, or below one that is.
    QVector<QVector3D> selectedPoints() const;
};

#endif

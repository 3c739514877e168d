#ifndef FIGURELINES_H
#define FIGURELINES_H

#include <QVector3D>
#include <QVector>
#include <array>
#include <vxcore/vxtime.h>

class VxNode;
class VxScene;

/// The viewport's drawing of the scene at one time: bones as lines, joints as points and plain
/// nodes as axes, in world space. Plain data, made in one pass over the nodes.
struct FigureLines
{
    struct Bone
    {
        QVector3D from;
        QVector3D to;
        VxNode *node; ///< the bone of this line
        bool selected;
        QVector3D side{1, 0, 0}; ///< a direction of the bone's axes, not along it where possible
    };
    /// A thin line from a bone to a child bone that is not at its end.
    struct Link
    {
        QVector3D from;
        QVector3D to;
        VxNode *node; ///< the parent bone
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
    QVector<Link> links;
    QVector<Joint> joints;
    QVector<Axes> axes;

    /// Omits invisible nodes with everything below them, and positions that are not finite, or too
    /// large for single precision. A bone leads to its end point, and has a link from its nearer
    /// end to each child bone that is elsewhere, visible or not; without an end point it leads to
    /// each child bone. A bone without an end point, parent bone and child bones has a line
    /// along its Y axis: a tenth as long as all joints are apart, or 10. A node that is neither
    /// bone nor figure has axes, and so has the primary selection.
    static FigureLines collect(const VxScene &scene, VxTime time);

    /// Every joint and the end of every bone.
    QVector<QVector3D> points() const;
    /// The same for bones alone, without plain nodes such as a ground or a light.
    QVector<QVector3D> figurePoints() const;
    /// The same for selected nodes and those below them.
    QVector<QVector3D> selectedPoints() const;
};

#endif

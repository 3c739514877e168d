#ifndef GROUNDGRID_H
#define GROUNDGRID_H

#include <QVector3D>
#include <QVector>

/// One line of the ground grid, at height 0.
struct GroundLine
{
    enum Role { Minor, Major, XAxis, ZAxis };

    QVector3D from;
    QVector3D to;
    Role role;
};

/// The distance of two lines for a view from the given distance: 1, 2 or 5 times a power of ten,
/// about a twelfth of the distance. 1 for a distance that is not above 0.
float groundGridStep(float viewDistance);

/// The lines around the point below `center`, on whole multiples of `step`, every fifth a major
/// one; minor lines first, axes last, so that important lines are painted on top.
QVector<GroundLine> groundGrid(const QVector3D &center, float step);

#endif

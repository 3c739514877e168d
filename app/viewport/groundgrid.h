#ifndef GROUNDGRID_H
#define GROUNDGRID_H

#include <QVector3D>
#include <QVector>

/// One line of the grid, on a plane through the world's origin.
struct GroundLine
{
    enum Role { Minor, Major, XAxis, YAxis, ZAxis };

    QVector3D from;
    QVector3D to;
    Role role;
};

/// The distance of two lines for a view from the given distance: 1, 2 or 5 times a power of ten,
/// about a twelfth of the distance. 1 for a distance that is not above 0.
float groundGridStep(float viewDistance);

/// The plane of a grid, by its two axes; ZX is the ground.
enum class GridPlane { ZX, XY, YZ };

/// The lines around the point next to `center` on the plane, on whole multiples of `step`, every
/// fifth a major one; minor lines first, axes last, so that important lines are painted on top.
QVector<GroundLine> groundGrid(const QVector3D &center, float step,
                               GridPlane plane = GridPlane::ZX);

#endif

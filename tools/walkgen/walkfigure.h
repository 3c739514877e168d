#ifndef WALKFIGURE_H
#define WALKFIGURE_H

#include <QString>
#include <QVector3D>
#include <vector>

/// One bone of the walking figure at rest: centimetres, relative to its parent. The figure faces
/// +Z, its left side is +X, and up is +Y.
struct WalkBone
{
    QString name;
    QString label;
    int parent; ///< index into the list, -1 for the hip
    QVector3D origin;
    QVector3D end;
};

/// The bones in hierarchy order: each parent before its children. 58 of them.
std::vector<WalkBone> walkFigure();

#endif

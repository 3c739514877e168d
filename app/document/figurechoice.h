#ifndef FIGURECHOICE_H
#define FIGURECHOICE_H

#include <QStringList>
#include <QVector>

class VxScene;
class VxSkeleton;

/// The target of a command on one of the scene's figures.
namespace FigureChoice {

/// All figures, in the order of the hierarchy.
QVector<VxSkeleton *> figures(const VxScene &scene);

/// The figure of the primary selection, else the only one there is. Null when there is none, or
/// for several without such a selection.
VxSkeleton *targetFigure(const VxScene &scene);

/// The figures' labels, made unique by a number.
QStringList names(const QVector<VxSkeleton *> &figures);

} // namespace FigureChoice

#endif

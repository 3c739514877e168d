#ifndef FIGURECHOICE_H
#define FIGURECHOICE_H

#include <QStringList>
#include <QVector>

class VxScene;
class VxSkeleton;

/// Which of the scene's figures a command about one figure means.
namespace FigureChoice {

/// All figures, in the order of the hierarchy.
QVector<VxSkeleton *> figures(const VxScene &scene);

/// The figure that the primary selection is or belongs to, else the only one there is. Null when
/// there is none, or when nothing tells which of several.
VxSkeleton *meant(const VxScene &scene);

/// The figures' labels, made to differ by a number where some are the same.
QStringList names(const QVector<VxSkeleton *> &figures);

} // namespace FigureChoice

#endif

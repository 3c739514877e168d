#ifndef TOOLICONS_H
#define TOOLICONS_H

#include "posetools/posetools.h"

#include <QColor>
#include <QIcon>

/// The icon of a tool as lines of one colour.
QIcon toolIcon(PoseTools::Tool tool, const QColor &ink, double pixelRatio);
/// The icon of the common pivot.
QIcon pivotIcon(const QColor &ink, double pixelRatio);
/// Logical pixels.
constexpr int ToolIconSide = 18;

#endif

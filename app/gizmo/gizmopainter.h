#ifndef GIZMOPAINTER_H
#define GIZMOPAINTER_H

#include "gizmo/gizmo.h"

#include <QString>

class QPainter;
class QPalette;

/// Paints the parts as they are hit; the active one, or the one under the mouse, is highlighted and
/// locked ones are grey.
void paintGizmo(QPainter *painter, const QVector<GizmoShape> &shapes, GizmoPart active,
                const QPalette &palette);

/// Paints a text in a box beside the mouse, within the view. Pixels.
void paintGizmoReadout(QPainter *painter, const QPointF &mouse, const QString &text,
                       const QSizeF &view, const QPalette &palette);

#endif

#ifndef VXACCESSIBLETREE_H
#define VXACCESSIBLETREE_H

#include <QStringList>
#include <functional>

class QAccessibleInterface;
class QWidget;

/// The tree of accessible objects below a widget, as a screen reader gets it.
namespace VxAccessibleTree {

/// Calls visit for each object below a widget and for its own. Of an object with many children,
/// such as the cells of a table, only the first ones are visited.
void visit(QWidget *root, const std::function<void(QAccessibleInterface *)> &visit);

/// The faults of all focusable widgets below a widget and of its own, one line each: a name that is
/// empty, that is an object or class name, or that differs from the visible text; a role without
/// meaning; children that refer to another parent.
QStringList faults(QWidget *root);

/// Such as "StudioWindow > DockVxTimePane > TimelineLoopBtn".
QString pathOf(const QWidget *widget);

} // namespace VxAccessibleTree

#endif

#ifndef VXACCESSIBLE_H
#define VXACCESSIBLE_H

#include <QtGui/QAccessible>
#include <vxcore/vxcoreglobal.h>

class QWidget;

/// Gives a widget that paints itself a role, by which a screen reader announces it; without one it
/// is a "panel". Call it before QWidget::setAccessibleName(), which makes the accessible object: an
/// object that exists keeps its role.
VXCORE_EXPORT void vxSetAccessibleRole(QWidget *widget, QAccessible::Role role);

#endif

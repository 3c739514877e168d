// The mouse over the dope sheet.

#include <QtGui/QMouseEvent>

#include "vxtimeline/dopesheet/vxdopesheetview_p.h"

// What the row selection does with the scene's depends on the modifiers of the press it came from.
void VxDopeSheetView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        d->pressModifiers = event->modifiers();
    QTreeView::mousePressEvent(event);
}

void VxDopeSheetView::mouseReleaseEvent(QMouseEvent *event)
{
    QTreeView::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton)
        d->pressModifiers = Qt::NoModifier;
}

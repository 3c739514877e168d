#ifndef PANE_VXPROPERTYDRAG_H
#define PANE_VXPROPERTYDRAG_H

#include "parameters/vxendlesshand.h"
#include "parameters/vxpropertyedit.h"
#include "parameters/vxpropertyscrub.h"

#include <QtCore/QPoint>

/// A value dragged by the mouse: hand, steps and gesture together. The edge of the screen does not
/// stop it. It ends with an undo entry when it is destroyed, unless it was put back.
class VxPropertyDrag
{
public:
    /// place: where the pointer is on the desktop; the drag counts from there.
    VxPropertyDrag(const QVector<VxProperty *> &properties, VxTime time, const QPoint &place);

    void moveTo(const QPoint &place, Qt::KeyboardModifiers modifiers);
    /// Ends the drag with every value as it was.
    void putBack();
    /// How many steps of theirs the values have been moved.
    double steps() const;
    /// Why some values did not follow; empty when all did.
    QString refusal() const;

private:
    VxEndlessHand m_hand;
    VxPropertyScrub m_scrub;
    VxPropertyEdit m_edit;
    double m_steps = 0;
};

#endif

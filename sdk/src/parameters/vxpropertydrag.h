#ifndef VXPROPERTYDRAG_H
#define VXPROPERTYDRAG_H

#include "parameters/vxpointerwrap.h"
#include "parameters/vxpropertyedit.h"
#include "parameters/vxpropertyscrub.h"

#include <QtCore/QPoint>

/// A value drag by the mouse: pointer wrap, steps and gesture. The edge of the screen does not stop
/// it. Its destruction makes an undo entry, unless it was put back.
class VxPropertyDrag
{
public:
    /// position: the position of the pointer on the desktop; the drag is relative to it.
    VxPropertyDrag(const QVector<VxProperty *> &properties, VxTime time, const QPoint &position);

    void moveTo(const QPoint &position, Qt::KeyboardModifiers modifiers);
    /// Ends the drag and restores every value.
    void rollBack() { m_edit.rollBack(); }
    /// The offset of the values in their own steps.
    double steps() const { return m_steps; }
    /// Why some values were not changed; empty when all were.
    QString refusal() const { return m_edit.refusal(); }

private:
    VxPointerWrap m_pointer;
    VxPropertyScrub m_scrub;
    VxPropertyEdit m_edit;
    double m_steps = 0;
};

#endif

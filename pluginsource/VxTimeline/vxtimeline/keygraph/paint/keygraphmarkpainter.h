#ifndef KEYGRAPHMARKPAINTER_H
#define KEYGRAPHMARKPAINTER_H

#include "vxtimeline/keygraph/paint/keygraphkeys.h"

#include <QtGui/QImage>
#include <vxcore/vxstyleoption.h>

class QPainter;
class QWidget;

/// Draws the marks of keys through the style. The style option is initialised once, so that a mark
/// costs no more than its drawing.
class KeyGraphMarkPainter
{
public:
    /// widget: its style draws; borrowed.
    explicit KeyGraphMarkPainter(const QWidget *widget);

    void paint(QPainter *painter, const KeyGraphMark &mark);
    /// A mark of this look in its own image, premultiplied, at a device pixel ratio.
    QImage picture(quint8 type, bool selected, qreal ratio);

private:
    const QWidget *m_widget;
    VxStyleOptionCustom m_option;
    QStyle::State m_state;
};

#endif

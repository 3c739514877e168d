#ifndef KEYGRAPHMARKPAINTER_H
#define KEYGRAPHMARKPAINTER_H

#include <QtGui/QImage>
#include <vxcore/vxstyleoption.h>

#include "vxtimeline/keygraph/keygraphkeys.h"

class QPainter;
class QWidget;

// Has the style draw the marks of keys. What a widget tells its style is gathered once, so that
// one mark costs no more than its drawing.
class KeyGraphMarkPainter
{
public:
    // widget: whose style draws; borrowed.
    explicit KeyGraphMarkPainter(const QWidget *widget);

    void paint(QPainter *painter, const KeyGraphMark &mark);
    // A mark of this look in a picture of its own, premultiplied, at a device pixel ratio.
    QImage picture(quint8 type, bool selected, qreal ratio);

private:
    const QWidget *m_widget;
    VxStyleOptionCustom m_option;
    QStyle::State m_state;
};

#endif

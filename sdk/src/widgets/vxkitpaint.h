#ifndef VXKITPAINT_H
#define VXKITPAINT_H

#include <QtWidgets/QStyle>

#include <vxcore/vxstyle.h>

class QPainter;

// How the widgets of the kit ask the application's style. They reach it as a plain QStyle, since a
// style sheet may stand before it. Under a style that knows nothing of the kit, such as in a
// designer, lengths fall back to usable ones and the kit's own frames are not drawn.
namespace VxKitPaint {

// A length the style lays down, in logical pixels; `otherwise` where it lays down none.
int styleLength(const QWidget *widget, VxStyle::PixelMetricId id, int otherwise);

// Draws one of the style's primitives for the widget. `state` is added to the widget's own state,
// hovered only counts while the widget is enabled.
void drawPrimitive(QPainter &painter, const QWidget *widget, VxStyle::PrimitiveId id,
                   const QRect &rect, QStyle::State state = QStyle::State_None);

// Draws what a style sheet gives the widget as a box, and says whether there is one.
bool drawStyleSheetBox(QPainter &painter, const QWidget *widget);

// The mark of the keyboard focus, when the widget has it.
void drawFocus(QPainter &painter, const QWidget *widget, const QRect &rect);

} // namespace VxKitPaint

#endif

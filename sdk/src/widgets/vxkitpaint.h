#ifndef VXKITPAINT_H
#define VXKITPAINT_H

#include <QtWidgets/QStyle>
#include <vxcore/vxstyle.h>

class QAbstractButton;
class QPainter;

/// Access of the kit's widgets to the application's style, which they have as a plain QStyle, since
/// a style sheet may wrap it. Under another style, such as in a designer, lengths fall back to
/// usable ones and the kit's own frames are not drawn.
namespace VxKitPaint {

/// A length of the style, in logical pixels; `otherwise` where it has none.
int styleLength(const QWidget *widget, VxStyle::PixelMetricId id, int otherwise);

/// Draws one of the style's primitives for the widget. `state` is added to the widget's own state,
/// hovered only counts while the widget is enabled.
void drawPrimitive(QPainter &painter, const QWidget *widget, VxStyle::PrimitiveId id,
                   const QRect &rect, QStyle::State state = QStyle::State_None);

/// The kit's flat button: its ground, sunken or lit, and its icon. `active`: pointed at or focused.
void drawButtonGround(QPainter &painter, const QAbstractButton *button, const QRect &rect);
void drawButtonIcon(QPainter &painter, const QAbstractButton *button, const QRect &rect,
                    bool active);

/// Draws the widget's style sheet box; false when it has none.
bool drawStyleSheetBox(QPainter &painter, const QWidget *widget);

/// The mark of the keyboard focus, when the widget has it.
void drawFocus(QPainter &painter, const QWidget *widget, const QRect &rect);

} // namespace VxKitPaint

#endif

#ifndef VXBARPRIMITIVES_H
#define VXBARPRIMITIVES_H

class QPainter;
class QStyleOption;

/// The drawing of panes, button strips and dividers. See VxStyle::PrimitiveId. Rectangles must not
/// be empty.
namespace VxBarPrimitives {

void drawPaneBackground(const QStyleOption *option, QPainter *painter);
void drawBarBackground(const QStyleOption *option, QPainter *painter);
void drawBarButton(const QStyleOption *option, QPainter *painter);
void drawBarSeparator(const QStyleOption *option, QPainter *painter);
void drawDownArrow(const QStyleOption *option, QPainter *painter);
void drawDividerBar(const QStyleOption *option, QPainter *painter);

} // namespace VxBarPrimitives

#endif

#ifndef VXTIMELINEPRIMITIVES_H
#define VXTIMELINEPRIMITIVES_H

class QPainter;
class QStyleOption;

/// The drawing of the timeline's own primitives, except key marks. See VxStyle::PrimitiveId for
/// what each of them shows. Rectangles must not be empty.
namespace VxTimelinePrimitives {

void drawNameColumn(const QStyleOption *option, QPainter *painter);
void drawRulerTick(const QStyleOption *option, QPainter *painter);
void drawPlayhead(const QStyleOption *option, QPainter *painter);
void drawCurrentTimeMarker(const QStyleOption *option, QPainter *painter);
void drawRangeHandle(const QStyleOption *option, QPainter *painter);

} // namespace VxTimelinePrimitives

#endif

#include "markers/markerlayout.h"

#include <algorithm>
#include <limits>

namespace {

/** Gives each marker the room up to the next start, from the last one to the first. */
void placeLabels(QVector<MarkerShape> *shapes, const VxMarkerList &visible, const QRect &area,
                 const QFontMetrics &metrics)
{
    int nextX = std::numeric_limits<int>::max();
    for (int i = shapes->size() - 1; i >= 0; --i) {
        MarkerShape &shape = (*shapes)[i];
        const int flag = shape.isPoint ? MarkerLayout::FlagWidth : 0;
        const int left = qMax(shape.startX + flag, area.left()) + MarkerLayout::LabelGap;
        int right = qMin(nextX - MarkerLayout::LabelGap, area.right());
        if (!shape.isPoint)
            right = qMin(right, shape.endX - MarkerLayout::LabelGap);
        nextX = shape.startX;
        const int room = right - left + 1;
        if (room < MarkerLayout::LeastLabel)
            continue;
        // Line ends and tabs have no width of their own in one line.
        const QString name = visible.at(i).name.left(room).simplified();
        const QString text = metrics.elidedText(name, Qt::ElideRight, room);
        if (text.size() < 2 && text != name)
            continue; // an ellipsis alone
        shape.text = text;
        shape.label = QRect(left, area.top(), room, area.height());
    }
}

} // namespace

QVector<MarkerShape> MarkerLayout::shapes(const VxMarkerList &markers,
                                          const std::function<int(VxTime)> &xOf, const QRect &area,
                                          const QFontMetrics &metrics)
{
    QVector<MarkerShape> result;
    VxMarkerList visible;
    for (const VxMarker &marker : markers) {
        MarkerShape shape;
        shape.id = marker.id;
        shape.isPoint = marker.isPoint();
        shape.color = marker.color;
        shape.startX = xOf(marker.span.getStart());
        if (shape.startX > area.right())
            break; // the others start later
        shape.endX = shape.isPoint ? shape.startX : xOf(marker.span.getEnd());
        const int right = shape.isPoint ? shape.startX + FlagWidth : shape.endX;
        if (right < area.left())
            continue;
        result.append(shape);
        visible.append(marker);
    }
    placeLabels(&result, visible, area, metrics);
    std::stable_partition(result.begin(), result.end(),
                          [](const MarkerShape &shape) { return !shape.isPoint; });
    return result;
}

std::optional<MarkerHit> MarkerLayout::hit(const QVector<MarkerShape> &shapes, int x)
{
    for (int i = shapes.size() - 1; i >= 0; --i) {
        const MarkerShape &shape = shapes.at(i);
        const int right = shape.isPoint ? shape.startX + FlagWidth : shape.endX + GrabWidth;
        if (x < shape.startX - GrabWidth || x > right)
            continue;
        MarkerHit hit{shape.id, MarkerPart::Whole};
        if (shape.endX - shape.startX < 3 * GrabWidth)
            return hit;
        if (x <= shape.startX + GrabWidth)
            hit.part = MarkerPart::Start;
        else if (x >= shape.endX - GrabWidth)
            hit.part = MarkerPart::End;
        return hit;
    }
    return std::nullopt;
}

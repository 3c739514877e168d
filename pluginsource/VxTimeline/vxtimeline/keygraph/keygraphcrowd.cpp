#include "vxtimeline/keygraph/keygraphcrowd.h"

#include <cmath>

#include "vxtimeline/keygraph/keygraphmarkpainter.h"

namespace {

// Halves away from zero, as std::round() does with the cost of a call.
int rounded(qreal place)
{
    return place < 0.0 ? -static_cast<int>(0.5 - place) : static_cast<int>(place + 0.5);
}

int floored(qreal place)
{
    const int truncated = static_cast<int>(place);
    return place < truncated ? truncated - 1 : truncated;
}

} // namespace

KeyGraphCrowd::KeyGraphCrowd(QImage *picture, KeyGraphMarkPainter *markPainter)
    : m_ratio(picture->devicePixelRatioF())
    , m_markPainter(markPainter)
    , m_canvas(KeyGraphPixels::of(picture), picture->size())
    , m_pen(KeyGraphPixels::of(picture), picture->size(), m_ratio, KeyGraphPen::Under)
{
}

bool KeyGraphCrowd::canShow(qreal ratio)
{
    return std::ceil(KeyGraphScale::MarkSide * ratio) <= KeyGraphStamp::MaxSide;
}

const KeyGraphStamp &KeyGraphCrowd::stamp(const KeyGraphMark &mark)
{
    const int look = (mark.type & 3) * 2 + (mark.selected ? 1 : 0);
    std::optional<KeyGraphStamp> &made = m_stamps[static_cast<std::size_t>(look)];
    if (!made)
        made.emplace(m_markPainter->picture(mark.type, mark.selected, m_ratio));
    return *made;
}

// On whole pixels, where the style puts its pictures, too.
void KeyGraphCrowd::paintMarks(const std::vector<KeyGraphMark> &marks)
{
    for (auto mark = marks.rbegin(); mark != marks.rend(); ++mark)
        m_canvas.put(stamp(*mark), QPoint(rounded(mark->corner.x() * m_ratio),
                                          rounded(mark->corner.y() * m_ratio)));
}

bool KeyGraphCrowd::hides(const QPointF &from, const QPointF &to) const
{
    const QRectF area = m_pen.areaOf(from, to, m_ratio);
    return m_canvas.hides(floored(area.left()), floored(area.top()), floored(area.right()),
                          floored(area.bottom()));
}

// Neighbouring pieces that are seen stay one line.
void KeyGraphCrowd::paintCurve(const QVector<QPointF> &points, const QColor &color)
{
    int first = 0;
    const auto draw = [this, &points, &color, &first](int last) {
        m_pen.draw(points.constData() + first, last - first + 1, m_ratio, color);
    };
    for (int i = 1; i < points.size(); ++i) {
        if (!hides(points.at(i - 1), points.at(i)))
            continue;
        if (first < i - 1)
            draw(i - 1);
        first = i;
    }
    draw(points.size() - 1);
}

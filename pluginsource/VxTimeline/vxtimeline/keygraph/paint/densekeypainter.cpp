#include "vxtimeline/keygraph/paint/densekeypainter.h"

#include "vxtimeline/keygraph/paint/keygraphmarkpainter.h"

#include <cmath>

namespace {

// Halves away from zero like std::round(), without the cost of a call.
int rounded(qreal coordinate)
{
    return coordinate < 0.0 ? -static_cast<int>(0.5 - coordinate)
                            : static_cast<int>(coordinate + 0.5);
}

// For coordinates within the range of curve points.
int pixelOf(qreal coordinate)
{
    constexpr int shift = 1 << 28;
    return static_cast<int>(coordinate + shift) - shift;
}

} // namespace

DenseKeyPainter::DenseKeyPainter(QImage *picture, KeyGraphMarkPainter *markPainter)
    : m_ratio(picture->devicePixelRatioF())
    , m_markPainter(markPainter)
    , m_canvas(KeyGraphPixels::of(picture), picture->size())
    , m_pen(KeyGraphPixels::of(picture), picture->size(), m_ratio, &m_canvas)
{
}

bool DenseKeyPainter::canShow(qreal ratio)
{
    return std::ceil(KeyGraphScale::MarkSide * ratio) <= KeyGraphStamp::MaxSide;
}

const KeyGraphStamp &DenseKeyPainter::stamp(const KeyGraphMark &mark)
{
    const int look = (mark.type & 3) * 2 + (mark.selected ? 1 : 0);
    std::optional<KeyGraphStamp> &made = m_stamps[static_cast<std::size_t>(look)];
    if (Q_UNLIKELY(!made))
        made.emplace(m_markPainter->picture(mark.type, mark.selected, m_ratio));
    return *made;
}

// Rounded to whole pixels, like the style's images.
QPoint DenseKeyPainter::cornerOf(const KeyGraphMark &mark) const
{
    if (m_ratio == 1.0)
        return mark.corner;
    return QPoint(rounded(mark.corner.x() * m_ratio), rounded(mark.corner.y() * m_ratio));
}

void DenseKeyPainter::paintChannel(const QVector<QPointF> &points,
                                   const std::vector<KeyGraphMark> &marks,
                                   const std::vector<KeyGraphRun> &runs, const QColor &color)
{
    m_hidden.assign(static_cast<std::size_t>(points.size()), 0);
    for (const KeyGraphRun &run : runs)
        paintRun(points, run, color);
    paintMarks(marks);
    paintRun(points, {0, points.size() - 1}, color);
}

void DenseKeyPainter::paintMarks(const std::vector<KeyGraphMark> &marks)
{
    for (auto mark = marks.rbegin(); mark != marks.rend(); ++mark)
        m_canvas.put(stamp(*mark), cornerOf(*mark));
}

// piece: the index of its end point.
bool DenseKeyPainter::isHidden(const QVector<QPointF> &points, int piece)
{
    quint8 &hidden = m_hidden[static_cast<std::size_t>(piece)];
    if (hidden)
        return true;
    const QRectF area = m_pen.areaOf(points.at(piece - 1), points.at(piece), m_ratio);
    hidden = m_canvas.hides(pixelOf(area.left()), pixelOf(area.top()), pixelOf(area.right()),
                            pixelOf(area.bottom()));
    return hidden;
}

// Adjacent visible pieces stay one line.
void DenseKeyPainter::paintRun(const QVector<QPointF> &points, const KeyGraphRun &run,
                               const QColor &color)
{
    int first = run.first;
    const auto draw = [this, &points, &color, &first](int last) {
        m_pen.draw(points.constData() + first, last - first + 1, m_ratio, color);
    };
    for (int i = run.first + 1; i <= run.last; ++i) {
        if (!isHidden(points, i))
            continue;
        if (first < i - 1)
            draw(i - 1);
        first = i;
    }
    draw(run.last);
}

#include "vxtimeline/keygraph/paint/keygraphpen.h"

#include "vxtimeline/keygraph/paint/keygraphcanvas.h"

#include <cmath>

namespace {

constexpr double Straight = 0.02; // distance in pixels within which points count as collinear

int floored(double value)
{
    const int truncated = static_cast<int>(value);
    return value < truncated ? truncated - 1 : truncated;
}

// The overlap of [low, high] with the unit interval from number on.
double overlap(double low, double high, int number)
{
    return qMin(high, number + 1.0) - qMax(low, double(number));
}

// Adds a fraction to the coverage of a pixel.
void cover(quint8 &covered, double part)
{
    covered = static_cast<quint8>(qMin(255, covered + static_cast<int>(part * 255.0 + 0.5)));
}

// The last collinear point of the line from a point. The direction is that of the first piece, so
// that slight bends cannot accumulate.
int lastCollinearPoint(const QPointF *points, int start, int count)
{
    int end = start + 1;
    const QPointF piece = points[end] - points[start];
    while (end + 1 < count) {
        const QPointF way = points[end + 1] - points[start];
        if (!(std::abs(way.y() * piece.x() - way.x() * piece.y()) <= Straight * piece.x()))
            break;
        ++end;
    }
    return end;
}

} // namespace

KeyGraphPen::KeyGraphPen(const KeyGraphPixels &picture, const QSize &size, double width,
                         const KeyGraphCanvas *canvas)
    : m_picture(picture)
    , m_width(qMax(0, size.width()))
    , m_height(qMax(0, size.height()))
    , m_lineWidth(width)
    , m_canvas(canvas)
    , m_covered(std::size_t(OpenColumns) * std::size_t(m_height), 0)
    , m_rows(std::size_t(OpenColumns), Rows{m_height, -1})
{
}

void KeyGraphPen::draw(const QPointF *points, int count, double ratio, const QColor &color)
{
    if (count < 2)
        return;
    m_color = qPremultiply(color.rgba());
    const auto toPixels = [ratio](const QPointF &point) {
        return (point + QPointF(0.5, 0.5)) * ratio;
    };
    // Beside its points the line covers at most its width.
    m_firstOpen = qMax(0, floored(toPixels(points[0]).x() - m_lineWidth));
    for (int i = 0; i + 1 < count;) {
        const int end = lastCollinearPoint(points, i, count);
        const QPointF from = toPixels(points[i]);
        const QPointF to = toPixels(points[end]);
        addPiece({from.x(), from.y(), to.x(), to.y()});
        i = end;
    }
    finish(floored(toPixels(points[count - 1]).x() + m_lineWidth) + 1);
}

void KeyGraphPen::addPiece(const Piece &piece)
{
    if (std::abs(piece.y2 - piece.y1) > piece.x2 - piece.x1)
        addSteep(piece);
    else if (piece.x2 > piece.x1)
        addFlat(piece);
}

// Column by column, for a slope of up to 45 degrees.
void KeyGraphPen::addFlat(const Piece &piece)
{
    const double slope = (piece.y2 - piece.y1) / (piece.x2 - piece.x1);
    const double reach = m_lineWidth * 0.5 * std::sqrt(1.0 + slope * slope);
    const int end = qMin(m_width - 1, floored(piece.x2));
    for (int x = qMax(0, floored(piece.x1)); x <= end; ++x) {
        const double from = qMax(piece.x1, double(x));
        const double to = qMin(piece.x2, x + 1.0);
        const double y = piece.y1 + slope * ((from + to) * 0.5 - piece.x1);
        if (!(y > -reach && y < m_height + reach))
            continue;
        leave(from);
        const int top = qMax(0, floored(y - reach));
        const int bottom = qMin(m_height - 1, floored(y + reach));
        quint8 *const covered = column(x);
        for (int row = top; row <= bottom; ++row)
            cover(covered[row], overlap(y - reach, y + reach, row) * (to - from));
        touch(x, top, bottom);
    }
}

// Row by row, for a steeper slope; upwards when y decreases to the right.
void KeyGraphPen::addSteep(const Piece &piece)
{
    const double slope = (piece.x2 - piece.x1) / (piece.y2 - piece.y1);
    const double reach = m_lineWidth * 0.5 * std::sqrt(1.0 + slope * slope);
    const double top = qMax(0.0, qMin(piece.y1, piece.y2));
    const double bottom = qMin(double(m_height), qMax(piece.y1, piece.y2));
    const int first = floored(top);
    const int count = static_cast<int>(std::ceil(bottom)) - first;
    const bool down = piece.y2 > piece.y1;
    for (int i = 0; i < count; ++i) {
        const int row = down ? first + i : first + count - 1 - i;
        const double from = qMax(top, double(row));
        const double to = qMin(bottom, row + 1.0);
        const double x = piece.x1 + slope * ((from + to) * 0.5 - piece.y1);
        const int left = qMax(0, floored(x - reach));
        const int right = qMin(m_width - 1, floored(x + reach));
        if (left > right || (m_canvas && m_canvas->hidesInRow(left, right, row)))
            continue;
        leave(x);
        for (int number = left; number <= right; ++number) {
            cover(column(number)[row], overlap(x - reach, x + reach, number) * (to - from));
            touch(number, row, row);
        }
    }
}

void KeyGraphPen::touch(int number, int top, int bottom)
{
    Rows &rows = rowsOf(number);
    rows.top = qMin(rows.top, top);
    rows.bottom = qMax(rows.bottom, bottom);
}

void KeyGraphPen::finish(int endColumn)
{
    const int end = qMin(endColumn, m_width);
    for (; m_firstOpen < end; ++m_firstOpen) {
        Rows &rows = rowsOf(m_firstOpen);
        quint8 *const covered = column(m_firstOpen);
        QRgb *pixel = m_picture.line(qMax(0, rows.top)) + m_firstOpen;
        for (int row = rows.top; row <= rows.bottom; ++row, pixel += m_picture.stride) {
            const quint8 part = covered[row];
            covered[row] = 0;
            // Skip transparent and covered pixels.
            if (part == 0 || (m_canvas && qAlpha(*pixel) == 255))
                continue;
            const QRgb own = KeyGraphPixels::multiplied(m_color, part);
            *pixel =
                m_canvas ? KeyGraphPixels::over(*pixel, own) : KeyGraphPixels::over(own, *pixel);
        }
        rows = {m_height, -1};
    }
}

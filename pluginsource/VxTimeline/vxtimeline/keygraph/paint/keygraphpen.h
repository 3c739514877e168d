#ifndef KEYGRAPHPEN_H
#define KEYGRAPHPEN_H

#include "vxtimeline/keygraph/paint/keygraphpixels.h"

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QSize>
#include <QtGui/QColor>
#include <vector>

class KeyGraphCanvas;

/// Draws antialiased lines with ascending x into an image.
///
/// Curves of keys on every frame are tens of thousands of pieces of two pixels, and a painter costs
/// more for the beginning and end of each than for the rest. Here each piece adds its coverage of
/// every pixel to a column buffer, and a column that the line has left is written to the image:
/// joints are seamless, and the line is exactly at its points. The columns form a ring buffer: few
/// are open at a time, so they stay in the cache.
class KeyGraphPen
{
public:
    /// Draws over the present content, or under it with a canvas, which has the hidden pixels.
    /// picture: borrowed; size: in pixels; width: of the line in these pixels; canvas: of the
    /// image, borrowed.
    KeyGraphPen(const KeyGraphPixels &picture, const QSize &size, double width,
                const KeyGraphCanvas *canvas = nullptr);

    /// Draws through two or more points of ascending x. ratio: image pixels per unit of the points.
    /// An integral coordinate is the centre of that pixel, as with marks.
    void draw(const QPointF *points, int count, double ratio, const QColor &color);

    /// The area that the piece between two points can touch, in image pixels.
    QRectF areaOf(const QPointF &from, const QPointF &to, double ratio) const;

private:
    struct Piece
    {
        double x1, y1, x2, y2;
    };
    /// The touched rows of a column; top > bottom for none.
    struct Rows
    {
        int top;
        int bottom;
    };

    void addPiece(const Piece &piece);
    void addFlat(const Piece &piece);
    void addSteep(const Piece &piece);
    void touch(int column, int top, int bottom);
    /// The rest of the line is to the right of x, or at most its width to the left: writes the
    /// columns that are final to the image.
    void leave(double x)
    {
        if (x - m_lineWidth >= m_firstOpen + 1)
            finish(static_cast<int>(x - m_lineWidth));
    }
    void finish(int endColumn);
    quint8 *column(int number)
    {
        return &m_covered[std::size_t(number % OpenColumns) * std::size_t(m_height)];
    }
    Rows &rowsOf(int number) { return m_rows[std::size_t(number % OpenColumns)]; }

    static constexpr int OpenColumns = 64;

    KeyGraphPixels m_picture;
    int m_width;
    int m_height;
    double m_lineWidth;
    const KeyGraphCanvas *m_canvas;
    QRgb m_color = 0;              // of the present line, premultiplied
    int m_firstOpen = 0;           // of the columns not yet written to the image
    std::vector<quint8> m_covered; // open column by open column, of 255
    std::vector<Rows> m_rows;      // of each open column
};

/// A piece ends square, across the axis along which it is rasterised. Inline, because it is called
/// for every piece of every curve.
inline QRectF KeyGraphPen::areaOf(const QPointF &from, const QPointF &to, double ratio) const
{
    const double left = (from.x() + 0.5) * ratio;
    const double right = (to.x() + 0.5) * ratio;
    const double top = (qMin(from.y(), to.y()) + 0.5) * ratio;
    const double bottom = (qMax(from.y(), to.y()) + 0.5) * ratio;
    constexpr double root = 1.4143; // thickness factor of a line at 45 degrees
    const double reach = m_lineWidth * 0.5 * root;
    const bool steep = bottom - top > right - left;
    const double beside = steep ? reach : 0.0;
    const double above = reach - beside;
    return QRectF(QPointF(left - beside, top - above), QPointF(right + beside, bottom + above));
}

#endif

#ifndef KEYGRAPHPEN_H
#define KEYGRAPHPEN_H

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QSize>
#include <QtGui/QColor>
#include <vector>

#include "vxtimeline/keygraph/keygraphpixels.h"

class KeyGraphCanvas;

// Draws smooth lines that run from left to right into a picture.
//
// Curves of keys on every frame are tens of thousands of pieces of two pixels, and a painter costs
// more for the beginning and end of each than for what is between. Here each piece adds the part of
// every pixel that it covers to a column of its own memory, and a column that the line has left
// is put into the picture: joints are seamless, and the line is where its points are. The memory
// goes round: a few columns are open at a time, and these stay near at hand.
class KeyGraphPen
{
public:
    // Draws over what is there, or under it when a canvas tells what is hidden. picture: borrowed;
    // size: its pixels; width: of the line in these pixels; canvas: of the picture, borrowed.
    KeyGraphPen(const KeyGraphPixels &picture, const QSize &size, double width,
                const KeyGraphCanvas *canvas = nullptr);

    // Draws through two or more points of ascending x. ratio: the picture's pixels for 1 of the
    // points' unit. A point's place is the middle of the pixel with its number, as with marks.
    void draw(const QPointF *points, int count, double ratio, const QColor &color);

    // Everything that the piece between two points can touch, in the picture's pixels.
    QRectF areaOf(const QPointF &from, const QPointF &to, double ratio) const;

private:
    struct Piece
    {
        double x1, y1, x2, y2;
    };
    // The rows of a column that have been touched; top > bottom for none.
    struct Rows
    {
        int top;
        int bottom;
    };

    void addPiece(const Piece &piece);
    void addFlat(const Piece &piece);
    void addSteep(const Piece &piece);
    void touch(int column, int top, int bottom);
    // All that is to come lies to the right of a place, or no farther to its left than the line is
    // wide: puts what cannot change any more into the picture.
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
    int m_firstOpen = 0;           // of the columns that are not in the picture yet
    std::vector<quint8> m_covered; // open column by open column, of 255
    std::vector<Rows> m_rows;      // of each open column
};

// A piece ends square, in the direction in which it is counted out. Without a call, because it is
// asked for every piece of every curve.
inline QRectF KeyGraphPen::areaOf(const QPointF &from, const QPointF &to, double ratio) const
{
    const double left = (from.x() + 0.5) * ratio;
    const double right = (to.x() + 0.5) * ratio;
    const double top = (qMin(from.y(), to.y()) + 0.5) * ratio;
    const double bottom = (qMax(from.y(), to.y()) + 0.5) * ratio;
    constexpr double root = 1.4143; // a line of 45 degrees is that much thicker
    const double reach = m_lineWidth * 0.5 * root;
    const bool steep = bottom - top > right - left;
    const double beside = steep ? reach : 0.0;
    const double above = reach - beside;
    return QRectF(QPointF(left - beside, top - above), QPointF(right + beside, bottom + above));
}

#endif

#ifndef KEYGRAPHCANVAS_H
#define KEYGRAPHCANVAS_H

#include <QtCore/QPoint>
#include <QtCore/QSize>
#include <vector>

#include "vxtimeline/keygraph/keygraphpixels.h"

// A small picture that is put in many places, with a bit for each of its pixels that is not empty.
class KeyGraphStamp
{
public:
    // So that a row's bits fit into a word at any place.
    static constexpr int MaxSide = 32;

    // picture: premultiplied, no side longer than MaxSide.
    explicit KeyGraphStamp(const QImage &picture);

    int width() const { return m_width; }
    int height() const { return m_height; }
    // A word for each row and one without a bit, for a stamp that begins at a bit of its words.
    const quint64 *filled(int firstBit) const
    {
        return &m_filled[static_cast<std::size_t>(firstBit * (m_height + 1))];
    }
    const QRgb *line(int row) const { return &m_pixels[static_cast<std::size_t>(row * m_width)]; }

private:
    int m_width;
    int m_height;
    std::vector<QRgb> m_pixels;    // row by row
    std::vector<quint64> m_filled; // for every first bit one after the other
};

// A picture that is painted from the topmost thing to the lowest, each under what is there.
//
// A pixel is closed as soon as hardly anything shines through it any more. Closed pixels are kept
// as bits, so that what lies wholly under others is passed over at the cost of a few words.
// Everything outside of the picture counts as closed.
class KeyGraphCanvas
{
public:
    // pixels: borrowed, of a picture of this size.
    KeyGraphCanvas(const KeyGraphPixels &pixels, const QSize &size);

    // Puts a stamp under what is there. It must touch the picture.
    void put(const KeyGraphStamp &stamp, const QPoint &corner);
    // True when every pixel of an area is closed, its last column and row included. An area that
    // is wider than a stamp can be counts as open.
    bool hides(int left, int top, int right, int bottom) const;
    // The same of columns of one row, all within the picture and no more than a stamp has.
    bool hidesInRow(int left, int right, int row) const
    {
        const Place place = placeOf(left, row);
        const quint64 wanted = ~quint64(0) >> (WordBits - 1 - (right - left)) << place.bit;
        return (wanted & ~m_closed[place.word]) == 0;
    }

private:
    // A bit of the words below, which stands for a pixel.
    struct Place
    {
        std::size_t word;
        int bit;
    };
    // Of the two strips that a column lies in, the one that goes on for MaxSide columns from there.
    Place placeOf(int column, int row) const
    {
        const auto fromFirst = static_cast<unsigned>(column + StripsBefore * StripStep);
        const std::size_t strip = fromFirst / StripStep;
        return {strip * m_rows + static_cast<std::size_t>(row + MarginRows),
                static_cast<int>(fromFirst % StripStep)};
    }

    static constexpr int WordBits = 64;
    static constexpr int StripStep = KeyGraphStamp::MaxSide;  // columns from one strip to the next
    static constexpr int StripsBefore = 2;                    // begin to the left of the picture
    static constexpr int MarginRows = KeyGraphStamp::MaxSide; // above and below it, all closed

    KeyGraphPixels m_pixels;
    QSize m_size;
    std::size_t m_rows; // with the margins
    // One strip of 64 pixel columns after the other, a word for each row: what a stamp touches
    // lies side by side. Each strip shares its halves with its neighbours, so that a stamp at any
    // place lies wholly within one.
    std::vector<quint64> m_closed;
};

#endif

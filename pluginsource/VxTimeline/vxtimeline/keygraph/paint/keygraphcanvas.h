#ifndef KEYGRAPHCANVAS_H
#define KEYGRAPHCANVAS_H

#include "vxtimeline/keygraph/paint/keygraphpixels.h"

#include <QtCore/QPoint>
#include <QtCore/QSize>
#include <vector>

/// A small image to be painted at many positions, with a bit for each pixel that is not
/// transparent.
class KeyGraphStamp
{
public:
    /// So that a row's bits fit into a word at any position.
    static constexpr int MaxSide = 32;

    /// picture: premultiplied, neither side longer than MaxSide.
    explicit KeyGraphStamp(const QImage &picture);

    int width() const { return m_width; }
    int height() const { return m_height; }
    /// A word for each row and one without bits, for a stamp that begins at firstBit of its words.
    const quint64 *filled(int firstBit) const
    {
        return &m_filled[static_cast<std::size_t>(firstBit * (m_height + 1))];
    }
    const QRgb *line(int row) const { return &m_pixels[static_cast<std::size_t>(row * m_width)]; }

private:
    int m_width;
    int m_height;
    std::vector<QRgb> m_pixels;    // row by row
    std::vector<quint64> m_filled; // for every first bit in order
};

/// An image painted front to back: each item under the ones already painted.
///
/// A pixel is closed as soon as it is practically opaque. Closed pixels are stored as bits, so that
/// skipping an item wholly under others costs a few words. Everything outside of the image counts
/// as closed.
class KeyGraphCanvas
{
public:
    /// pixels: borrowed, of an image of this size.
    KeyGraphCanvas(const KeyGraphPixels &pixels, const QSize &size);

    /// Paints a stamp under the present content. It must touch the image.
    void put(const KeyGraphStamp &stamp, const QPoint &corner);
    /// True when every pixel of an area is closed, its last column and row included. An area
    /// wider than the largest stamp counts as open.
    bool hides(int left, int top, int right, int bottom) const;
    /// The same for columns of one row, all within the image and no more than a stamp has.
    bool hidesInRow(int left, int right, int row) const
    {
        const BitPosition position = positionOf(left, row);
        const quint64 mask = ~quint64(0) >> (WordBits - 1 - (right - left)) << position.bit;
        return (mask & ~m_closed[position.word]) == 0;
    }

private:
    /// The bit of a pixel in the words below.
    struct BitPosition
    {
        std::size_t word;
        int bit;
    };
    /// Of the two strips that contain a column, the one with MaxSide columns from there on.
    BitPosition positionOf(int column, int row) const
    {
        const auto fromFirst = static_cast<unsigned>(column + StripsBefore * StripStep);
        const std::size_t strip = fromFirst / StripStep;
        return {strip * m_rows + static_cast<std::size_t>(row + MarginRows),
                static_cast<int>(fromFirst % StripStep)};
    }

    static constexpr int WordBits = 64;
    static constexpr int StripStep = KeyGraphStamp::MaxSide;  // columns from one strip to the next
    static constexpr int StripsBefore = 2;                    // begin to the left of the image
    static constexpr int MarginRows = KeyGraphStamp::MaxSide; // above and below it, all closed

    KeyGraphPixels m_pixels;
    QSize m_size;
    std::size_t m_rows; // with the margins
    /// Consecutive strips of 64 pixel columns, a word for each row, so that the words that a stamp
    /// touches are contiguous. Each strip shares its halves with its neighbours, so that any stamp
    /// fits wholly into one.
    std::vector<quint64> m_closed;
};

#endif

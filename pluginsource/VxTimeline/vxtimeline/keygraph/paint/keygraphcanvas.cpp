#include "vxtimeline/keygraph/paint/keygraphcanvas.h"

#include <QtCore/QRect>
#include <QtCore/QtAlgorithms>
#include <algorithm>

namespace {

// At most a fiftieth shows through, which is invisible: the antialiased edge of a mark over that of
// another one.
constexpr int ClosedAlpha = 250;

// The columns of a strip outside of an image of this width, as bits.
quint64 outsideOf(int firstColumn, int width)
{
    quint64 outside = 0;
    for (int bit = 0; bit < 64; ++bit) {
        const int column = firstColumn + bit;
        outside |= quint64(column < 0 || column >= width) << bit;
    }
    return outside;
}

// Composes masked pixels under those of a row. Returns the bits of those that are closed then.
quint32 composeBelow(const QRgb *from, QRgb *to, quint32 bits)
{
    quint32 closed = 0;
    for (; bits != 0; bits &= bits - 1) {
        const auto column = qCountTrailingZeroBits(bits);
        const QRgb pixel = KeyGraphPixels::over(to[column], from[column]);
        to[column] = pixel;
        closed |= quint32(qAlpha(pixel) >= ClosedAlpha) << column;
    }
    return closed;
}

} // namespace

KeyGraphStamp::KeyGraphStamp(const QImage &picture)
    : m_width(qMin(MaxSide, picture.width()))
    , m_height(qMin(MaxSide, picture.height()))
{
    std::vector<quint64> filled;
    for (int y = 0; y < m_height; ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        quint64 bits = 0;
        for (int x = 0; x < m_width; ++x)
            bits |= quint64(qAlpha(line[x]) > 0) << x;
        filled.push_back(bits);
        m_pixels.insert(m_pixels.end(), line, line + m_width);
    }
    filled.push_back(0);
    for (int firstBit = 0; firstBit < MaxSide; ++firstBit) {
        for (const quint64 bits : filled)
            m_filled.push_back(bits << firstBit);
    }
}

KeyGraphCanvas::KeyGraphCanvas(const KeyGraphPixels &pixels, const QSize &size)
    : m_pixels(pixels)
    , m_size(size.expandedTo(QSize(0, 0)))
    , m_rows(static_cast<std::size_t>(m_size.height() + 2 * MarginRows))
{
    // The last column is in two strips, and a stamp that begins there extends into the next one.
    const int strips = StripsBefore + (m_size.width() + StripStep - 1) / StripStep + 1;
    m_closed.assign(static_cast<std::size_t>(strips) * m_rows, ~quint64(0));
    for (int strip = 0; strip < strips; ++strip) {
        const int firstColumn = (strip - StripsBefore) * StripStep;
        const auto first = m_closed.begin() + std::ptrdiff_t(strip) * std::ptrdiff_t(m_rows);
        std::fill_n(first + MarginRows, m_size.height(), outsideOf(firstColumn, m_size.width()));
    }
}

void KeyGraphCanvas::put(const KeyGraphStamp &stamp, const QPoint &corner)
{
    Q_ASSERT(corner.x() > -StripStep && corner.x() < m_size.width());
    Q_ASSERT(corner.y() > -MarginRows && corner.y() < m_size.height());
    const BitPosition position = positionOf(corner.x(), corner.y());
    quint64 *const words = &m_closed[position.word];
    const int height = stamp.height();
    const quint64 *const filled = stamp.filled(position.bit);
    quint64 any = 0;
    for (int row = 0; row < height; row += 2) // the last one may be the row without bits
        any |= (filled[row] & ~words[row]) | (filled[row + 1] & ~words[row + 1]);
    if (any == 0)
        return;
    QRgb *line = m_pixels.line(corner.y()) + corner.x();
    const QRgb *from = stamp.line(0);
    for (int row = 0; row < height; ++row, line += m_pixels.stride, from += stamp.width()) {
        const auto open = static_cast<quint32>((filled[row] & ~words[row]) >> position.bit);
        if (open == 0)
            continue;
        const quint64 closing = quint64(composeBelow(from, line, open)) << position.bit;
        if (closing == 0)
            continue;
        words[row] |= closing;
        words[row - std::ptrdiff_t(m_rows)] |= closing << StripStep;
        words[row + std::ptrdiff_t(m_rows)] |= closing >> StripStep;
    }
}

bool KeyGraphCanvas::hides(int left, int top, int right, int bottom) const
{
    left = qMax(left, 0);
    top = qMax(top, 0);
    const int width = qMin(right + 1, m_size.width()) - left;
    const int height = qMin(bottom + 1, m_size.height()) - top;
    if (width <= 0 || height <= 0)
        return true;
    if (width > KeyGraphStamp::MaxSide)
        return false;
    const BitPosition position = positionOf(left, top);
    const quint64 mask = ~quint64(0) >> (WordBits - width) << position.bit;
    const quint64 *const words = &m_closed[position.word];
    for (int row = 0; row < height; ++row) {
        if (mask & ~words[row])
            return false;
    }
    return true;
}

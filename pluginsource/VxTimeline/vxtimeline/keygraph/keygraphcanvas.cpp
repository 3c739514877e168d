#include "vxtimeline/keygraph/keygraphcanvas.h"

#include <QtCore/QRect>
#include <QtCore/QtAlgorithms>
#include <algorithm>

namespace {

// No more than a fiftieth shines through, which nobody sees: the smooth edge of a mark over that of
// another one.
constexpr int ClosedAlpha = 250;

constexpr int WordBits = 64;
constexpr int MarginRows = KeyGraphStamp::MaxSide; // above and below the picture, all closed

// The bits from a place within a word on, the last ones from the next word.
quint64 bitsFrom(quint64 word, quint64 next, int shift)
{
    return word >> shift | (next << 1) << (WordBits - 1 - shift);
}

// Puts pixels that have their bit set under those of a line. Tells which are closed then.
quint32 putUnder(const QRgb *from, QRgb *to, quint32 bits)
{
    quint32 closed = 0;
    for (; bits != 0; bits &= bits - 1) {
        const auto column = qCountTrailingZeroBits(bits);
        QRgb &pixel = to[column];
        pixel = KeyGraphPixels::over(pixel, from[column]);
        closed |= quint32(qAlpha(pixel) >= ClosedAlpha) << column;
    }
    return closed;
}

} // namespace

KeyGraphStamp::KeyGraphStamp(const QImage &picture)
    : m_width(qMin(MaxSide, picture.width()))
    , m_height(qMin(MaxSide, picture.height()))
{
    for (int y = 0; y < m_height; ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        quint32 filled = 0;
        for (int x = 0; x < m_width; ++x)
            filled |= quint32(qAlpha(line[x]) > 0) << x;
        m_filled.push_back(filled);
        m_pixels.insert(m_pixels.end(), line, line + m_width);
    }
}

KeyGraphCanvas::KeyGraphCanvas(const KeyGraphPixels &pixels, const QSize &size)
    : m_pixels(pixels)
    , m_size(size.expandedTo(QSize(0, 0)))
    , m_rows(static_cast<std::size_t>(m_size.height() + 2 * MarginRows))
    , m_closed(static_cast<std::size_t>((m_size.width() + WordBits - 1) / WordBits + 2) * m_rows,
               ~quint64(0))
{
    for (int x = 0; x < m_size.width(); x += WordBits) {
        const int left = m_size.width() - x;
        const quint64 outside = left >= WordBits ? 0 : ~quint64(0) << left;
        std::fill_n(m_closed.begin() + std::ptrdiff_t(wordAt(x, 0)), m_size.height(), outside);
    }
}

// One strip lies to the left of the picture, and at least one to the right.
std::size_t KeyGraphCanvas::wordAt(int column, int row) const
{
    return static_cast<std::size_t>((column + WordBits) / WordBits) * m_rows +
           static_cast<std::size_t>(row + MarginRows);
}

void KeyGraphCanvas::put(const KeyGraphStamp &stamp, const QPoint &corner)
{
    Q_ASSERT(corner.x() > -WordBits && corner.x() < m_size.width());
    Q_ASSERT(corner.y() > -MarginRows && corner.y() < m_size.height());
    quint64 *const left = &m_closed[wordAt(corner.x(), corner.y())];
    quint64 *const right = left + m_rows;
    const int shift = (corner.x() + WordBits) % WordBits;
    const int height = stamp.height();
    quint32 open[KeyGraphStamp::MaxSide];
    quint32 any = 0;
    for (int row = 0; row < height; ++row) {
        open[row] = stamp.filled(row) & ~quint32(bitsFrom(left[row], right[row], shift));
        any |= open[row];
    }
    if (any == 0)
        return;
    QRgb *line = m_pixels.line(corner.y()) + corner.x();
    for (int row = 0; row < height; ++row, line += m_pixels.stride) {
        if (open[row] == 0)
            continue;
        const quint64 closing = putUnder(stamp.line(row), line, open[row]);
        left[row] |= closing << shift;
        right[row] |= (closing >> 1) >> (WordBits - 1 - shift);
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
    if (width > WordBits)
        return false;
    const int shift = left % WordBits;
    const quint64 wanted = ~quint64(0) >> (WordBits - width);
    const quint64 *const word = &m_closed[wordAt(left, top)];
    const quint64 *const next = word + m_rows;
    for (int row = 0; row < height; ++row) {
        if (wanted & ~bitsFrom(word[row], next[row], shift))
            return false;
    }
    return true;
}

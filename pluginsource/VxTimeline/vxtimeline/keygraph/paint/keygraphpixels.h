#ifndef KEYGRAPHPIXELS_H
#define KEYGRAPHPIXELS_H

#include <QtGui/QImage>
#include <cstddef>

/// The pixels of an image as plain memory, where a painter is too slow. Borrowed, and only while no
/// painter is active on the image.
struct KeyGraphPixels
{
    /// Of an image in QImage::Format_ARGB32_Premultiplied.
    static KeyGraphPixels of(QImage *picture)
    {
        Q_ASSERT(picture->format() == QImage::Format_ARGB32_Premultiplied);
        return {reinterpret_cast<QRgb *>(picture->bits()),
                picture->bytesPerLine() / std::ptrdiff_t(sizeof(QRgb))};
    }

    /// All channels of a colour times a factor from 0 to 255, of 255; rounded to the nearest.
    static QRgb multiplied(QRgb color, quint32 factor)
    {
        const auto pair = [factor](quint32 channels) {
            const quint32 product = channels * factor + 0x800080u;
            return (product + ((product >> 8) & 0xff00ffu)) >> 8 & 0xff00ffu;
        };
        return pair(color & 0xff00ffu) | pair(color >> 8 & 0xff00ffu) << 8;
    }
    /// A premultiplied colour over another one.
    static QRgb over(QRgb upper, QRgb lower)
    {
        return upper + multiplied(lower, 255u - quint32(qAlpha(upper)));
    }

    QRgb *line(int row) const { return first + std::ptrdiff_t(row) * stride; }

    QRgb *first = nullptr;
    std::ptrdiff_t stride = 0; // pixels from row to row
};

#endif

#ifndef VXWIDGETPICTURES_H
#define VXWIDGETPICTURES_H

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QWidget>
#include <vxcore/vxstyle.h>

// What the picture tests of the widget kit share: the look and ways to see what was painted.

/// Gives the application the host's style in one of its colour schemes and a font that is the same
/// on every platform.
inline void useHostStyle(VxStyle::ColorScheme scheme)
{
    auto *style = new VxStyle(scheme);
    QApplication::setStyle(style);
    QApplication::setPalette(style->standardPalette());
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    QApplication::setFont(font);
}

inline const VxStyle &hostStyle()
{
    return *qobject_cast<VxStyle *>(QApplication::style());
}

inline QImage pictureOf(QWidget &widget, qreal scale = 1)
{
    QImage image((QSizeF(widget.size()) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(widget.palette().color(QPalette::Window));
    widget.render(&image);
    return image;
}

/// The smallest rectangle that holds every pixel in which the two differ, in image pixels; null
/// when they are equal.
inline QRect differenceOf(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return a.rect().united(b.rect());
    QRect found;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y))
                found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

inline int countOf(const QImage &image, const QColor &color, const QRect &where)
{
    int count = 0;
    const QRect inside = where.intersected(image.rect());
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x)
            count += image.pixel(x, y) == color.rgb() ? 1 : 0;
    }
    return count;
}

#endif

#ifndef VXSTYLEPICTURES_H
#define VXSTYLEPICTURES_H

#include "testing/vxwarningguard.h"

#include <QApplication>
#include <QMetaEnum>
#include <QPainter>
#include <QStyleOption>
#include <QToolButton>
#include <QTreeView>
#include <QtTest>
#include <cmath>
#include <memory>
#include <set>
#include <vxcore/vxstyle.h>

/// How the tests of the style see what it paints.
using Scheme = VxStyle::ColorScheme;

struct NamedState
{
    const char *name;
    QStyle::State state;
};

const NamedState keyTypes[] = {{"linear", QStyle::State_Raised},
                               {"constant", QStyle::State_Sunken},
                               {"TCB", QStyle::State_Editing},
                               {"union of rows", QStyle::State_Children},
                               {"time only", QStyle::State_None}};

inline QStyle::PrimitiveElement element(quint32 id)
{
    return static_cast<QStyle::PrimitiveElement>(id);
}

inline QList<VxStyle::StandardIconId> allIcons()
{
    QList<VxStyle::StandardIconId> ids;
    const QMetaEnum names = QMetaEnum::fromType<VxStyle::StandardIconId>();
    for (int i = 0; i < names.keyCount(); ++i)
        ids.append(static_cast<VxStyle::StandardIconId>(static_cast<quint32>(names.value(i))));
    return ids;
}

/// One primitive on the palette's base colour, in a picture a little larger than the rectangle.
inline QImage drawn(const VxStyle &style, quint32 id, const QRect &rect, QStyle::State state,
                    int value = 0, qreal ratio = 1)
{
    const int side = 4;
    const QSize size(rect.right() + 1 + side, rect.bottom() + 1 + side);
    QImage image((QSizeF(size) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    VxStyleOptionCustom option(value);
    option.palette = style.standardPalette();
    option.rect = rect;
    option.state = state;
    image.fill(option.palette.color(QPalette::Base));
    QPainter painter(&image);
    // What a view may have set for its own drawing; it must not blur anything.
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    style.drawPrimitive(element(id), &option, &painter);
    return image;
}

inline QImage drawnMark(const VxStyle &style, QStyle::State state, int side = 10, qreal ratio = 1)
{
    return drawn(style, VxStyle::PE_VxKeyMark, QRect(4, 4, side, side), state, 0, ratio);
}

inline int differingPixels(const QImage &first, const QImage &second)
{
    if (first.size() != second.size())
        return -1;
    int count = 0;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x)
            count += first.pixel(x, y) != second.pixel(x, y) ? 1 : 0;
    }
    return count;
}

/// Only the shape: which pixels differ from the ground clearly.
inline QImage silhouette(const QImage &image)
{
    QImage result(image.size(), QImage::Format_Mono);
    const int ground = qGray(image.pixel(0, 0));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            result.setPixel(x, y, std::abs(qGray(image.pixel(x, y)) - ground) > 40 ? 1 : 0);
    }
    return result;
}

inline QImage blackAndWhite(const QImage &image)
{
    return image.convertToFormat(QImage::Format_Mono, Qt::MonoOnly | Qt::ThresholdDither);
}

inline QRect extent(const QImage &image)
{
    QRect result;
    const QRgb ground = image.pixel(0, 0);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != ground)
                result |= QRect(x, y, 1, 1);
        }
    }
    return result;
}

inline bool isBlank(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 128)
                return false;
        }
    }
    return true;
}

/// Relative luminance and contrast ratio (1 to 21) of the Web Content Accessibility Guidelines
/// (WCAG) 2.1, W3C 2018, section "Glossary".
inline qreal luminance(const QColor &color)
{
    const auto linear = [](qreal part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

inline qreal contrast(const QColor &first, const QColor &second)
{
    const qreal a = luminance(first);
    const qreal b = luminance(second);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// What the key graph makes of an axis colour for its n-th channel.
inline QColor channelColor(const QColor &base, int n)
{
    const int factor = 185 - (3 * n) % 15;
    return base.value() < 129 ? base.darker(factor) : base.lighter(factor);
}

inline void addSchemes()
{
    QTest::addColumn<Scheme>("scheme");
    QTest::newRow("dark") << Scheme::Dark;
    QTest::newRow("light") << Scheme::Light;
    QTest::newRow("high contrast") << Scheme::Contrast;
}

inline void addSchemesAndRatios()
{
    QTest::addColumn<Scheme>("scheme");
    QTest::addColumn<qreal>("ratio");
    for (const qreal ratio : {1.0, 1.5, 2.0}) {
        QTest::addRow("dark at %.1f", ratio) << Scheme::Dark << ratio;
        QTest::addRow("light at %.1f", ratio) << Scheme::Light << ratio;
        QTest::addRow("high contrast at %.1f", ratio) << Scheme::Contrast << ratio;
    }
}

Q_DECLARE_METATYPE(VxStyle::ColorScheme)

#endif

#ifndef VXCONTRASTFRAMES_H
#define VXCONTRASTFRAMES_H

#include <QtWidgets/QProxyStyle>

/// Outlines of controls in the high-contrast scheme. Fusion derives them from the window's colour,
/// darker, which is black on black; the base style therefore draws with a palette whose window
/// colour results in outlines of the colour Mid.
class VxContrastFrames
{
public:
    /// Draws a part with a frame, or returns false for any other part and any other scheme.
    bool drawPrimitive(const QStyle *base, QStyle::PrimitiveElement element,
                       const QStyleOption *option, QPainter *painter, const QWidget *widget);
    bool drawControl(const QStyle *base, QStyle::ControlElement element, const QStyleOption *option,
                     QPainter *painter, const QWidget *widget);
    bool drawComplexControl(const QStyle *base, QStyle::ComplexControl control,
                            const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget);

private:
    template <class Option, class Draw> bool drawOutlined(const QStyleOption *option, Draw draw);
    const QPalette &withOutlines(const QPalette &palette);

    /// The palette of the part drawn last: the base style caches pictures by palette.
    qint64 m_sourceKey = 0;
    QPalette m_palette;
};

#endif

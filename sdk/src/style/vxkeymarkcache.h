#ifndef VXKEYMARKCACHE_H
#define VXKEYMARKCACHE_H

#include "style/vxkeymarkpainter.h"

#include <QtCore/QPoint>
#include <QtGui/QPixmap>
#include <array>

class QPainter;
class QStyleOption;

/// Rendered pixmaps of key marks. A view draws thousands of marks in one repaint, with a handful of
/// pixmaps, so a lookup is an array index by look, then a comparison with the few sizes in use for
/// that look; it neither hashes nor allocates. A new size beyond the capacity replaces the oldest
/// of its look.
class VxKeyMarkCache
{
public:
    void draw(QPainter *painter, const QStyleOption *option);
    const QPixmap &pixmap(const VxKeyMarkLook &look, const QSize &size, qreal devicePixelRatio);

private:
    struct Entry
    {
        QSize size;
        qreal devicePixelRatio = 0;
        QPixmap pixmap;
    };
    struct Slot
    {
        std::array<Entry, 4> entries;
        int oldest = 0;
    };

    VxStyle::ColorScheme schemeFor(const QPalette &palette);

    std::array<Slot, VxKeyMarkLook::LookCount> m_slots;
    qint64 m_paletteKey = 0;
    VxStyle::ColorScheme m_paletteScheme = VxStyle::ColorScheme::Dark;
};

#endif

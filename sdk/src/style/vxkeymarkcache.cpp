#include "style/vxkeymarkcache.h"

#include "style/vxcolors.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOption>
#include <cmath>

namespace {

// With a ratio such as 1.5 a logical position can be between two device pixels, and a pixmap drawn
// there would be blurred. Returns the nearest position on a device pixel.
QPointF snapped(const QPainter *painter, const QPoint &position)
{
    const QTransform &transform = painter->deviceTransform();
    if (transform.type() > QTransform::TxScale)
        return position;
    const qreal x = std::round(transform.m11() * position.x() + transform.dx());
    const qreal y = std::round(transform.m22() * position.y() + transform.dy());
    return QPointF((x - transform.dx()) / transform.m11(), (y - transform.dy()) / transform.m22());
}

} // namespace

void VxKeyMarkCache::draw(QPainter *painter, const QStyleOption *option)
{
    if (option->rect.isEmpty())
        return;
    const VxKeyMarkLook look = VxKeyMarkLook::fromState(option->state, schemeFor(option->palette));
    const qreal ratio = painter->device()->devicePixelRatioF();
    const QPixmap &picture = pixmap(look, option->rect.size(), ratio);
    if (ratio == std::floor(ratio))
        painter->drawPixmap(option->rect.topLeft(), picture);
    else
        painter->drawPixmap(snapped(painter, option->rect.topLeft()), picture);
}

const QPixmap &VxKeyMarkCache::pixmap(const VxKeyMarkLook &look, const QSize &size,
                                      qreal devicePixelRatio)
{
    Slot &slot = m_slots[static_cast<std::size_t>(look.index())];
    for (const Entry &entry : slot.entries) {
        if (entry.size == size && entry.devicePixelRatio == devicePixelRatio)
            return entry.pixmap;
    }
    Entry &entry = slot.entries[static_cast<std::size_t>(slot.oldest)];
    slot.oldest = (slot.oldest + 1) % static_cast<int>(slot.entries.size());
    entry.size = size;
    entry.devicePixelRatio = devicePixelRatio;
    entry.pixmap = vxRenderKeyMark(look, size, devicePixelRatio);
    return entry.pixmap;
}

VxStyle::ColorScheme VxKeyMarkCache::schemeFor(const QPalette &palette)
{
    if (palette.cacheKey() != m_paletteKey) {
        m_paletteKey = palette.cacheKey();
        m_paletteScheme = VxColors::schemeFor(palette);
    }
    return m_paletteScheme;
}

#include "style/vxiconengine.h"

#include "style/vxcolors.h"

#include <QtCore/QFile>
#include <QtCore/QMetaEnum>
#include <QtGui/QPainter>
#include <QtGui/QPixmapCache>
#include <QtSvg/QSvgRenderer>
#include <algorithm>

namespace {

// The colours of an icon: ink for lines and bodies, accent for emphasis, soft for the background.
struct IconColors
{
    QColor ink, accent, soft;
};

// The resource of an icon, which bears the enumerator's name. The message boxes' icons have the
// toolkit's numbers: its own are small bitmaps, which are blurred on high resolution screens.
QString iconFile(VxStyle::StandardIconId id)
{
    const char *name = QMetaEnum::fromType<VxStyle::StandardIconId>().valueToKey(int(id));
    if (!name)
        name = QMetaEnum::fromType<QStyle::StandardPixmap>().valueToKey(int(id));
    return QStringLiteral(":/vxcore/icons/%1.svg").arg(QLatin1String(name));
}

// The colours by background: the accent would be lost on the highlight of a selected row or a
// checked button, so everything is drawn in ink there.
IconColors iconColors(VxStyle::ColorScheme scheme, QIcon::Mode mode, QIcon::State state)
{
    const QPalette palette = VxColors::palette(scheme);
    const bool selected = mode == QIcon::Selected;
    const bool disabled = mode == QIcon::Disabled;
    const QColor &ground = palette.color(selected ? QPalette::Highlight : QPalette::Button);
    IconColors colors;
    colors.ink = palette.color(disabled ? QPalette::Disabled : QPalette::Active,
                               selected ? QPalette::HighlightedText : QPalette::ButtonText);
    if (disabled)
        colors.ink = VxColors::mix(colors.ink, ground, 0.25);
    colors.soft = VxColors::mix(colors.ink, ground, 0.5);
    colors.accent = selected || disabled || state == QIcon::On
                        ? colors.ink
                        : VxColors::interfaceColor(scheme, QStringLiteral("Style_Play_Range"));
    return colors;
}

// The icon in a pixmap of its own: some erase gaps from the pixels below, which must not be the
// background. The files use black, gray and dodgerblue for those colours.
QPixmap renderIcon(VxStyle::StandardIconId id, int side, const IconColors &colors)
{
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QFile file(iconFile(id));
    if (!file.open(QIODevice::ReadOnly))
        return picture;
    QByteArray svg = file.readAll();
    svg.replace("black", colors.ink.name().toLatin1());
    svg.replace("gray", colors.soft.name().toLatin1());
    svg.replace("dodgerblue", colors.accent.name().toLatin1());
    QPainter painter(&picture);
    QSvgRenderer(svg).render(&painter, QRectF(0, 0, side, side));
    return picture;
}

// The pixmap in the middle of a larger one.
QPixmap framed(const QPixmap &picture, const QSize &size)
{
    if (size == picture.size())
        return picture;
    QPixmap result(size);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.drawPixmap((size.width() - picture.width()) / 2, (size.height() - picture.height()) / 2,
                       picture);
    return result;
}

} // namespace

VxIconEngine::VxIconEngine(const VxStyle *style, VxStyle::StandardIconId id)
    : m_style(style)
    , m_scheme(style->colorScheme())
    , m_id(id)
{
}

bool VxIconEngine::exists(VxStyle::StandardIconId id)
{
    return QFile::exists(iconFile(id));
}

void VxIconEngine::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state)
{
    const qreal ratio = painter->device()->devicePixelRatioF();
    QPixmap picture = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
    if (picture.isNull())
        return;
    picture.setDevicePixelRatio(ratio);
    painter->drawPixmap(rect.topLeft(), picture);
}

// Cached: views paint the same few icons in row after row.
QPixmap VxIconEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    if (!exists(m_id) || size.isEmpty())
        return QPixmap();
    const QString cacheKey = QStringLiteral("VxIcon %1 %2 %3 %4 %5x%6")
                                 .arg(quint32(m_id), 0, 16)
                                 .arg(int(scheme()))
                                 .arg(int(mode))
                                 .arg(int(state))
                                 .arg(size.width())
                                 .arg(size.height());
    QPixmap picture;
    if (QPixmapCache::find(cacheKey, &picture))
        return picture;
    const int side = std::min(size.width(), size.height());
    picture = framed(renderIcon(m_id, side, iconColors(scheme(), mode, state)), size);
    QPixmapCache::insert(cacheKey, picture);
    return picture;
}

QSize VxIconEngine::actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    Q_UNUSED(mode)
    Q_UNUSED(state)
    return size;
}

QIconEngine *VxIconEngine::clone() const
{
    return new VxIconEngine(*this);
}

QString VxIconEngine::key() const
{
    return QStringLiteral("VxIconEngine");
}

VxStyle::ColorScheme VxIconEngine::scheme() const
{
    return m_style.isNull() ? m_scheme : m_style->colorScheme();
}

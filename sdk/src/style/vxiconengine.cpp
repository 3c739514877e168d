#include "style/vxiconengine.h"

#include <QtGui/QPainter>
#include <QtGui/QPixmapCache>

#include <algorithm>

#include "style/vxcolors.h"
#include "style/vxglyphs.h"

namespace {

// The colours by background: the accent would be lost on the highlight of a selected row or a
// checked button, so everything is drawn in ink there.
VxGlyphColors glyphColors(VxStyle::ColorScheme scheme, QIcon::Mode mode, QIcon::State state)
{
    const QPalette palette = VxColors::palette(scheme);
    const bool selected = mode == QIcon::Selected;
    const bool disabled = mode == QIcon::Disabled;
    const QColor ground = palette.color(selected ? QPalette::Highlight : QPalette::Button);
    VxGlyphColors colors;
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

// The glyph in a pixmap of its own, on which it can cut gaps without affecting the background.
QPixmap renderGlyph(VxGlyph glyph, int side, const VxGlyphColors &colors)
{
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.scale(side / 16.0, side / 16.0);
    glyph(painter, colors);
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
    const VxGlyph glyph = vxFindGlyph(m_id);
    if (glyph == nullptr || size.isEmpty())
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
    picture = framed(renderGlyph(glyph, side, glyphColors(scheme(), mode, state)), size);
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

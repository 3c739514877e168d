#include "widgets/vxbuttoncontents.h"

#include <algorithm>

namespace {

int widthWithSpacing(int width, bool spaced, int spacing)
{
    return width + (spaced ? spacing : 0);
}

QRect centredVertically(const QRect &area, int x, QSize size)
{
    return {QPoint(x, area.y() + (area.height() - size.height()) / 2), size};
}

int blockStart(const QRect &room, int blockWidth, Qt::Alignment alignment)
{
    const int spare = std::max(0, room.width() - blockWidth);
    if (alignment & Qt::AlignRight)
        return room.x() + spare;
    if (alignment & Qt::AlignLeft)
        return room.x();
    return room.x() + spare / 2;
}

} // namespace

VxButtonContents vxPlaceButtonContents(const QRect &area, const VxButtonParts &parts)
{
    VxButtonContents placed;
    const bool hasText = parts.textWidth > 0;
    const bool hasIcon = !parts.icon.isEmpty();
    QRect room = area;
    if (parts.arrowWidth > 0) {
        placed.arrow =
            QRect(area.right() + 1 - parts.arrowWidth, area.y(), parts.arrowWidth, area.height());
        const bool spaced = hasText || hasIcon;
        room.setWidth(
            std::max(0, area.width() - widthWithSpacing(parts.arrowWidth, spaced, parts.spacing)));
    }
    const int iconWidth =
        hasIcon ? widthWithSpacing(parts.icon.width(), hasText, parts.spacing) : 0;
    const int textWidth = std::clamp(room.width() - iconWidth, 0, parts.textWidth);
    const int start = blockStart(room, iconWidth + textWidth, parts.alignment);
    if (hasIcon)
        placed.icon = centredVertically(area, start, parts.icon);
    if (textWidth > 0)
        placed.text = QRect(start + iconWidth, area.y(), textWidth, area.height());
    return placed;
}

int vxButtonContentsWidth(const VxButtonParts &parts)
{
    int width = 0;
    int count = 0;
    for (const int part :
         {parts.icon.isEmpty() ? 0 : parts.icon.width(), parts.textWidth, parts.arrowWidth}) {
        width += part;
        count += part > 0 ? 1 : 0;
    }
    return width + std::max(0, count - 1) * parts.spacing;
}

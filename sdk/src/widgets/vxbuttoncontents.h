#ifndef VXBUTTONCONTENTS_H
#define VXBUTTONCONTENTS_H

#include <QRect>
#include <QSize>

// What a drop-down button has to find room for, in logical pixels.
struct VxButtonParts
{
    QSize icon;                                 // empty: no icon
    int textWidth = 0;                          // the whole text; 0: no text
    int arrowWidth = 0;                         // 0: no arrow
    int spacing = 0;                            // between neighbours
    Qt::Alignment alignment = Qt::AlignHCenter; // of icon and text in what the arrow leaves
};

// Where the parts go; null rectangles for parts that are missing or find no room.
struct VxButtonContents
{
    QRect icon;
    QRect text;
    QRect arrow;
};

// Places the parts from left to right within `area`: the arrow keeps the right end, the icon its
// size, and the text gets what is left, at most its whole width.
VxButtonContents vxPlaceButtonContents(const QRect &area, const VxButtonParts &parts);

// The width in which everything finds room.
int vxButtonContentsWidth(const VxButtonParts &parts);

#endif

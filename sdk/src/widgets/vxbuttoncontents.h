#ifndef VXBUTTONCONTENTS_H
#define VXBUTTONCONTENTS_H

#include <QRect>
#include <QSize>

/// The parts of a drop-down button, in logical pixels.
struct VxButtonParts
{
    QSize icon;                                 // empty: no icon
    int textWidth = 0;                          // the whole text; 0: no text
    int arrowWidth = 0;                         // 0: no arrow
    int spacing = 0;                            // between neighbours
    Qt::Alignment alignment = Qt::AlignHCenter; // of icon and text beside the arrow
};

/// The positions of the parts; null rectangles for parts that are missing or do not fit.
struct VxButtonContents
{
    QRect icon;
    QRect text;
    QRect arrow;
};

/// Lays out the parts from left to right within `area`: the arrow stays at the right end, the icon
/// keeps its size, and the text gets the rest, at most its whole width.
VxButtonContents vxPlaceButtonContents(const QRect &area, const VxButtonParts &parts);

/// The width in which everything fits.
int vxButtonContentsWidth(const VxButtonParts &parts);

#endif

#ifndef MARKERLAYOUT_H
#define MARKERLAYOUT_H

#include "markers/markerdrag.h"

#include <QFontMetrics>
#include <QRect>
#include <functional>
#include <optional>

/// A visible marker in the strip, in pixels. The lines are at the columns that the time axis gives.
struct MarkerShape
{
    int id = 0;
    bool isPoint = true;
    int startX = 0; ///< the column of the start
    int endX = 0;   ///< the column of the end; of a point that of the start
    QRect label;    ///< empty where there is no room
    QString text;   ///< elided to the label's width
    QRgb color = 0;
};

/// The marker and its part at a pixel.
struct MarkerHit
{
    int id = 0;
    MarkerPart part = MarkerPart::Whole;
};

/// Geometry of the strip; painting and hit tests use the same shapes.
class MarkerLayout
{
public:
    static constexpr int FlagWidth = 7;   ///< of a point's flag, right of its line; pixels
    static constexpr int GrabWidth = 4;   ///< pixels beside a line or an end that still hit it
    static constexpr int LabelGap = 3;    ///< pixels between a line or flag and its label
    static constexpr int LeastLabel = 12; ///< pixels; a smaller label is left out

    /// The markers that intersect the area's columns; spans first, so that points are on top. xOf:
    /// the pixel column of a time.
    static QVector<MarkerShape> shapes(const VxMarkerList &markers,
                                       const std::function<int(VxTime)> &xOf, const QRect &area,
                                       const QFontMetrics &metrics);
    /// The topmost marker at a pixel column; null for none. A span narrower than three times the
    /// grab width is hit as a whole.
    static std::optional<MarkerHit> hit(const QVector<MarkerShape> &shapes, int x);
};

#endif

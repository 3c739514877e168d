#ifndef MARKERDRAG_H
#define MARKERDRAG_H

#include <QVector>
#include <vxcore/vxmarkers.h>

/// The part of a marker that the mouse drags. A point is dragged as a whole.
enum class MarkerPart { Whole, Start, End };

/// What a dragged time snaps to.
struct MarkerSnap
{
    VxTime step = 0;         ///< ticks per frame; 0: times are not rounded to frames
    QVector<VxTime> targets; ///< such as the current time and the other markers, in any order
    qint64 reach = 0;        ///< ticks, the distance within which a target is snapped to

    /// The nearest target within reach, else the nearest frame.
    VxTime snapped(qint64 time) const;
    /// The ends of all markers but one, and another time.
    static QVector<VxTime> targetsOf(const VxMarkerList &markers, int exceptId, VxTime time);
};

/// The span of a marker that is dragged by `offset` ticks from its span at the press.
///
///     Whole   |..[===]..|   ->   |....[===]|   the length stays
///     Start   |..[===]..|   ->   |....[=]..|   an end stops at the other one
///     End     |..[===]..|   ->   |..[=====]|
///
/// As a whole, the start snaps to frames, and the nearer of both ends snaps to targets.
VxTimeRange vxDraggedSpan(const VxTimeRange &span, MarkerPart part, qint64 offset,
                          const MarkerSnap &snap);

#endif

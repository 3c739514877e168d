#include "pane/vxpanebands.h"

QRect VxPaneBands::header(const QRect &pane, const QRect &guide)
{
    QRect band = pane;
    band.setBottom(qMin(guide.top() - 1, pane.bottom()));
    return band.isEmpty() ? QRect() : band;
}

QRect VxPaneBands::footer(const QRect &pane, const QRect &guide)
{
    QRect band = pane;
    band.setTop(qMax(guide.bottom() + 1, pane.top()));
    return band.isEmpty() ? QRect() : band;
}

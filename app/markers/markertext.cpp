#include "markers/markertext.h"

#include "widgets/studiotext.h"

#include <vxcore/vxscene.h>

namespace {

QString frameText(VxTime time, const VxScene *scene)
{
    return QString::number(double(time) / scene->getTimeStep(), 'g', 6);
}

} // namespace

QString MarkerText::describe(const VxMarker &marker, const VxScene *scene)
{
    const QString start = frameText(marker.span.getStart(), scene);
    if (marker.isPoint())
        return StudioText::tr("%1, frame %2").arg(marker.name, start);
    return StudioText::tr("%1, frames %2 to %3")
        .arg(marker.name, start, frameText(marker.span.getEnd(), scene));
}

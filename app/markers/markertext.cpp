#include "markers/markertext.h"

#include "widgets/studiotext.h"

#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>

QString MarkerText::describe(const VxMarker &marker, const VxScene *scene)
{
    const VxTimeDisplay display = VxSceneTimeDisplay::displayOf(scene);
    const bool inFrames = display.unit == VxTimeDisplay::Frames;
    const QString start = display.text(marker.span.getStart(), scene->getTimeStep());
    if (marker.isPoint())
        return (inFrames ? StudioText::tr("%1, frame %2") : QStringLiteral("%1, %2"))
            .arg(marker.name, start);
    return (inFrames ? StudioText::tr("%1, frames %2 to %3") : StudioText::tr("%1, %2 to %3"))
        .arg(marker.name, start, display.text(marker.span.getEnd(), scene->getTimeStep()));
}

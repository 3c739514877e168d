#include "markers/vxmarkeractions.h"

#include "markers/markeredits.h"

#include <vxcore/vxscene.h>

namespace {

constexpr char MarkersMenu[] = "Animation/Markers";
constexpr char MarkersGroup[] = "Markers";

QString addMarker(VxScene *scene)
{
    MarkerEdits::add(scene, scene->getTime());
    return QString();
}

} // namespace

VxAddMarkerAction::VxAddMarkerAction()
    : VxSceneAction(MarkersMenu, tr("Add Marker"), tr("Adds a marker at the current time."), "M",
                    MarkersGroup, &addMarker)
{
}

VxPreviousMarkerAction::VxPreviousMarkerAction()
    : VxSceneAction(MarkersMenu, tr("Previous Marker"),
                    tr("Sets the current time to the previous start or end of a marker."), ",",
                    MarkersGroup, [](VxScene *scene) { return MarkerEdits::step(scene, false); })
{
}

VxNextMarkerAction::VxNextMarkerAction()
    : VxSceneAction(MarkersMenu, tr("Next Marker"),
                    tr("Sets the current time to the next start or end of a marker."), ".",
                    MarkersGroup, [](VxScene *scene) { return MarkerEdits::step(scene, true); })
{
}

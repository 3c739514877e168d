#ifndef MARKERTEXT_H
#define MARKERTEXT_H

#include <QString>
#include <vxcore/vxmarkers.h>

class VxScene;

/// Texts about markers for the user.
namespace MarkerText {

/// The name and the time or times, such as "Step, 10 - 24".
QString describe(const VxMarker &marker, const VxScene *scene);

} // namespace MarkerText

#endif

#ifndef MARKERINPUT_H
#define MARKERINPUT_H

#include <QtCore/QString>
#include <vxcore/vxmarkers.h>

/// A typed time with the times of markers, in ticks, in place of their names: "@Step + 2" becomes
/// "(800t) + 2". See VxSceneTimeDisplay::read() for the form. Null when a marker is missing; the
/// text itself without an "@".
QString withMarkerTimes(const QString &text, const VxMarkers &markers, VxTime now);

#endif

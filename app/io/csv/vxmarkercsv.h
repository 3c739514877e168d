#ifndef VXMARKERCSV_H
#define VXMARKERCSV_H

#include "io/vxfileerror.h"

#include <QByteArray>
#include <vxcore/vxmarkers.h>
#include <vxcore/vxtimedisplay.h>

/// Markers as CSV text: the row `name,start,end,colour`, then one row a marker.
///
/// - start, end: in seconds, with six decimals, which is exact to the tick. A point has no end.
/// - colour: `#rrggbb`.
///
/// When it is read, the columns may be in any order, and only start is required; a time may also be
/// one with a unit or a timecode, such as `12f` or `00:00:01:12`, and a colour a name of SVG, such
/// as `red`. An empty colour is the initial one.
QByteArray vxWriteMarkerCsv(const VxMarkerList &markers);

/// Reads such a text; timecodes are those of a display at a time step. False with one sentence, the
/// line and the column in `error`, and the list is unchanged.
bool vxReadMarkerCsv(const QByteArray &bytes, const VxTimeDisplay &display, VxTime ticksPerFrame,
                     VxMarkerList *markers, VxFileError *error);

#endif
